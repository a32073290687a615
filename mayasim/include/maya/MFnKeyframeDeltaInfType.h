#pragma once
#include <maya/MFnKeyframeDelta.h>
#include <maya/MFnAnimCurve.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

//! A change of a curve's pre- or post-infinity type.
class OPENMAYAANIM_EXPORT MFnKeyframeDeltaInfType : public MFnKeyframeDelta
{
public:
    MFnKeyframeDeltaInfType();
    MFnKeyframeDeltaInfType(MObject& object, MStatus* ReturnStatus = NULL);
    MFnKeyframeDeltaInfType(const MObject& object, MStatus* ReturnStatus = NULL);
    ~MFnKeyframeDeltaInfType() override;
    MFn::Type type() const override;

    MFnAnimCurve::InfinityType previousInfinityType(MStatus* ReturnStatus = NULL) const;
    MFnAnimCurve::InfinityType currentInfinityType(MStatus* ReturnStatus = NULL) const;
    bool isPreInfinity(MStatus* ReturnStatus = NULL) const;

    static const char* className();
};

OPENMAYA_NAMESPACE_CLOSE
