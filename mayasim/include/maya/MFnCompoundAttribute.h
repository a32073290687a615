#pragma once
#include <maya/MFnAttribute.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

//! Function set for compound attributes: a group of child attributes.
class OPENMAYA_EXPORT MFnCompoundAttribute : public MFnAttribute
{
public:
    MFnCompoundAttribute();
    MFnCompoundAttribute(MObject& object, MStatus* ReturnStatus = NULL);
    MFnCompoundAttribute(const MObject& object, MStatus* ReturnStatus = NULL);
    ~MFnCompoundAttribute() override;
    MFn::Type type() const override;

    MObject create(const MString& fullName, const MString& briefName, MStatus* ReturnStatus = NULL);
    MStatus addChild(const MObject& child);
    MStatus removeChild(const MObject& child);
    unsigned int numChildren(MStatus* ReturnStatus = NULL) const;
    MObject child(unsigned int index, MStatus* ReturnStatus = NULL) const;

    static const char* className();
};

OPENMAYA_NAMESPACE_CLOSE
