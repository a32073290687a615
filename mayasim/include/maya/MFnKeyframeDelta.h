#pragma once
#include <maya/MFnBase.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

//! Base function set for the key changes that keyframe-edited callbacks
//! receive: which curve, which key.
class OPENMAYAANIM_EXPORT MFnKeyframeDelta : public MFnBase
{
public:
    MFnKeyframeDelta();
    MFnKeyframeDelta(MObject& object, MStatus* ReturnStatus = NULL);
    MFnKeyframeDelta(const MObject& object, MStatus* ReturnStatus = NULL);
    ~MFnKeyframeDelta() override;
    MFn::Type type() const override;

    MObject paramCurve(MStatus* ReturnStatus = NULL) const;
    virtual unsigned int keyIndex(MStatus* ReturnStatus = NULL) const;

    static const char* className();
};

OPENMAYA_NAMESPACE_CLOSE
