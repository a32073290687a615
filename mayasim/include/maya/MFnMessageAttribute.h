#pragma once
#include <maya/MFnAttribute.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

//! Function set for message attributes: connections without data.
class OPENMAYA_EXPORT MFnMessageAttribute : public MFnAttribute
{
public:
    MFnMessageAttribute();
    MFnMessageAttribute(MObject& object, MStatus* ReturnStatus = NULL);
    MFnMessageAttribute(const MObject& object, MStatus* ReturnStatus = NULL);
    ~MFnMessageAttribute() override;
    MFn::Type type() const override;

    MObject create(const MString& fullName, const MString& briefName, MStatus* ReturnStatus = NULL);

    static const char* className();
};

OPENMAYA_NAMESPACE_CLOSE
