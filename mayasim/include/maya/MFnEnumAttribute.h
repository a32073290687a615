#pragma once
#include <maya/MFnAttribute.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

//! Function set for enumerated attributes: named integer fields.
class OPENMAYA_EXPORT MFnEnumAttribute : public MFnAttribute
{
public:
    MFnEnumAttribute();
    MFnEnumAttribute(MObject& object, MStatus* ReturnStatus = NULL);
    MFnEnumAttribute(const MObject& object, MStatus* ReturnStatus = NULL);
    ~MFnEnumAttribute() override;
    MFn::Type type() const override;

    MObject create(const MString& fullName, const MString& briefName, short defaultValue = 0,
                   MStatus* ReturnStatus = NULL);
    MStatus addField(const MString& fieldString, short index);
    MString fieldName(short index, MStatus* ReturnStatus = NULL) const;
    short fieldIndex(const MString& fieldString, MStatus* ReturnStatus = NULL) const;
    MStatus getMin(short& minValue) const;
    MStatus getMax(short& maxValue) const;
    MStatus setDefault(short index);
    MStatus setDefault(const MString& fieldString);
    MStatus getDefault(short& index) const;
    MString defaultValue(MStatus* ReturnStatus = NULL) const;

    static const char* className();
};

OPENMAYA_NAMESPACE_CLOSE
