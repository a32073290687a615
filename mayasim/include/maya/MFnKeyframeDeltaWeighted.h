#pragma once
#include <maya/MFnKeyframeDelta.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

//! A curve turned weighted or unweighted.
class OPENMAYAANIM_EXPORT MFnKeyframeDeltaWeighted : public MFnKeyframeDelta
{
public:
    MFnKeyframeDeltaWeighted();
    MFnKeyframeDeltaWeighted(MObject& object, MStatus* ReturnStatus = NULL);
    MFnKeyframeDeltaWeighted(const MObject& object, MStatus* ReturnStatus = NULL);
    ~MFnKeyframeDeltaWeighted() override;
    MFn::Type type() const override;

    bool wasWeighted(MStatus* ReturnStatus = NULL) const;

    static const char* className();
};

OPENMAYA_NAMESPACE_CLOSE
