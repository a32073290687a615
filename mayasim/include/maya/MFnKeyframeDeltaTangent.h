#pragma once
#include <maya/MFnKeyframeDelta.h>
#include <maya/MFnAnimCurve.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

//! A change of one side of a key's tangent: its type or its direction.
class OPENMAYAANIM_EXPORT MFnKeyframeDeltaTangent : public MFnKeyframeDelta
{
public:
    MFnKeyframeDeltaTangent();
    MFnKeyframeDeltaTangent(MObject& object, MStatus* ReturnStatus = NULL);
    MFnKeyframeDeltaTangent(const MObject& object, MStatus* ReturnStatus = NULL);
    ~MFnKeyframeDeltaTangent() override;
    MFn::Type type() const override;

    MFnAnimCurve::TangentType previousTangentType(MStatus* ReturnStatus = NULL) const;
    MFnAnimCurve::TangentType currentTangentType(MStatus* ReturnStatus = NULL) const;
    MStatus getPreviousPosition(MFnAnimCurve::TangentValue& x, MFnAnimCurve::TangentValue& y) const;
    MStatus getCurrentPosition(MFnAnimCurve::TangentValue& x, MFnAnimCurve::TangentValue& y) const;
    bool isInTangent(MStatus* ReturnStatus = NULL) const;

    static const char* className();
};

OPENMAYA_NAMESPACE_CLOSE
