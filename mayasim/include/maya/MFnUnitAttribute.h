#pragma once
#include <maya/MFnAttribute.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

//! Function set for attributes with a unit: angle, distance, time.
class OPENMAYA_EXPORT MFnUnitAttribute : public MFnAttribute
{
public:
    MFnUnitAttribute();
    MFnUnitAttribute(MObject& object, MStatus* ReturnStatus = NULL);
    MFnUnitAttribute(const MObject& object, MStatus* ReturnStatus = NULL);
    ~MFnUnitAttribute() override;
    MFn::Type type() const override;

    enum Type
    {
        kInvalid,
        kAngle,
        kDistance,
        kTime,
        kLast
    };

    MObject create(const MString& fullName, const MString& briefName, Type unitType, double defaultValue = 0.0,
                   MStatus* ReturnStatus = NULL);
    MObject create(const MString& fullName, const MString& briefName, const MTime& defaultValue,
                   MStatus* ReturnStatus = NULL);
    MObject create(const MString& fullName, const MString& briefName, const MAngle& defaultValue,
                   MStatus* ReturnStatus = NULL);
    MObject create(const MString& fullName, const MString& briefName, const MDistance& defaultValue,
                   MStatus* ReturnStatus = NULL);
    Type unitType(MStatus* ReturnStatus = NULL) const;

    bool hasMin(MStatus* ReturnStatus = NULL) const;
    bool hasMax(MStatus* ReturnStatus = NULL) const;
    MStatus getMin(double& minValue) const;
    MStatus getMax(double& maxValue) const;
    MStatus setMin(double minValue);
    MStatus setMax(double maxValue);

    MStatus getDefault(double& defaultValue);
    MStatus getDefault(MTime& defaultValue);
    MStatus getDefault(MAngle& defaultValue);
    MStatus getDefault(MDistance& defaultValue);
    MStatus setDefault(double defaultValue);
    MStatus setDefault(const MTime& defaultValue);
    MStatus setDefault(const MAngle& defaultValue);
    MStatus setDefault(const MDistance& defaultValue);

    static const char* className();
};

OPENMAYA_NAMESPACE_CLOSE
