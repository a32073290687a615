#pragma once
#include <maya/MFnKeyframeDelta.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

//! A key added to a curve, removed from it, or set over an existing key.
class OPENMAYAANIM_EXPORT MFnKeyframeDeltaAddRemove : public MFnKeyframeDelta
{
public:
    MFnKeyframeDeltaAddRemove();
    MFnKeyframeDeltaAddRemove(MObject& object, MStatus* ReturnStatus = NULL);
    MFnKeyframeDeltaAddRemove(const MObject& object, MStatus* ReturnStatus = NULL);
    ~MFnKeyframeDeltaAddRemove() override;
    MFn::Type type() const override;

    enum DeltaType
    {
        kAdded,
        kRemoved,
        kReplaced
    };

    DeltaType deltaType(MStatus* ReturnStatus = NULL) const;
    double value(MStatus* ReturnStatus = NULL) const;
    MTime time(MStatus* ReturnStatus = NULL) const;
    unsigned int keyIndex(MStatus* ReturnStatus = NULL) const override;
    double replacedValue(MStatus* ReturnStatus = NULL) const;

    static const char* className();
};

OPENMAYA_NAMESPACE_CLOSE
