#pragma once
#include <maya/MMessage.h>
#include <maya/MString.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

//! Callbacks on animation curve edits: the curves edited, and the key
//! changes (MFnKeyframeDelta objects) made to them.
class OPENMAYAANIM_EXPORT MAnimMessage : public MMessage
{
public:
    static MCallbackId addAnimCurveEditedCallback(MMessage::MObjArray func, void* clientData = NULL,
                                                  MStatus* ReturnStatus = NULL);
    static MCallbackId addAnimKeyframeEditedCallback(MMessage::MObjArray func, void* clientData = NULL,
                                                     MStatus* ReturnStatus = NULL);
    static void flushAnimKeyframeEditedCallbacks();

    static const char* className();
};

OPENMAYA_NAMESPACE_CLOSE
