#pragma once
#include <maya/MFnKeyframeDelta.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

//! A key moved in time or value.
class OPENMAYAANIM_EXPORT MFnKeyframeDeltaMove : public MFnKeyframeDelta
{
public:
    MFnKeyframeDeltaMove();
    MFnKeyframeDeltaMove(MObject& object, MStatus* ReturnStatus = NULL);
    MFnKeyframeDeltaMove(const MObject& object, MStatus* ReturnStatus = NULL);
    ~MFnKeyframeDeltaMove() override;
    MFn::Type type() const override;

    MTime previousTime(MStatus* ReturnStatus = NULL) const;
    MTime currentTime(MStatus* ReturnStatus = NULL) const;
    double previousValue(MStatus* ReturnStatus = NULL) const;
    double currentValue(MStatus* ReturnStatus = NULL) const;

    unsigned int previousIndex(MStatus* ReturnStatus = NULL) const;
    unsigned int keyIndex(MStatus* ReturnStatus = NULL) const override;

    static const char* className();
};

OPENMAYA_NAMESPACE_CLOSE
