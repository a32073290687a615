#pragma once
#include <maya/MMessage.h>
#include <maya/MStringArray.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

//! Callbacks on named events ("idle", "SelectionChanged", ...).
class OPENMAYA_EXPORT MEventMessage : public MMessage
{
public:
    static MCallbackId addEventCallback(const MString& event, MMessage::MBasicFunction func, void* clientData = NULL,
                                        MStatus* ReturnStatus = NULL);

    static MStatus getEventNames(MStringArray& names);

    static const char* className();
};

OPENMAYA_NAMESPACE_CLOSE
