#pragma once
#include <maya/MMessage.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

//! Callbacks on model changes: the active selection.
class OPENMAYA_EXPORT MModelMessage : public MMessage
{
public:
    enum Message
    {
        kActiveListModified
    };

public:
    static MCallbackId addCallback(Message, MMessage::MBasicFunction, void* clientData = NULL,
                                   MStatus* ReturnStatus = NULL);

    static const char* className();
};

OPENMAYA_NAMESPACE_CLOSE
