#pragma once
#include <maya/MFnAttribute.h>
#include <maya/MFnData.h>
#include <maya/MObject.h>
#include <maya/MDeprecate.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

//! Function set for attributes holding a data object (string, matrix, ...).
class OPENMAYA_EXPORT MFnTypedAttribute : public MFnAttribute
{
public:
    MFnTypedAttribute();
    MFnTypedAttribute(MObject& object, MStatus* ReturnStatus = NULL);
    MFnTypedAttribute(const MObject& object, MStatus* ReturnStatus = NULL);
    ~MFnTypedAttribute() override;
    MFn::Type type() const override;

    MObject create(const MString& fullName, const MString& briefName, const MTypeId& id,
                   MObject defaultData = MObject::kNullObj, MStatus* ReturnStatus = NULL);
    MObject create(const MString& fullName, const MString& briefName, MFnData::Type type,
                   MObject defaultData = MObject::kNullObj, MStatus* ReturnStatus = NULL);
    MFnData::Type attrType(MStatus* ReturnStatus = NULL) const;
    MStatus getDefault(MObject& defaultData);
    MStatus setDefault(const MObject& defaultData);

    static const char* className();
};

OPENMAYA_NAMESPACE_CLOSE
