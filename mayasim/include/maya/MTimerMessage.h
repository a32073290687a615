#pragma once
#include <maya/MMessage.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

//! Callbacks called at a fixed interval.
class OPENMAYA_EXPORT MTimerMessage : public MMessage
{
public:
    typedef void (*sleepCallbackPtr)();
    static MCallbackId addTimerCallback(float period, MMessage::MElapsedTimeFunction func, void* clientData = NULL,
                                        MStatus* ReturnStatus = NULL);

    static const char* className();
};

OPENMAYA_NAMESPACE_CLOSE
