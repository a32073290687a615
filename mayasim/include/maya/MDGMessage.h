#pragma once
#include <maya/MMessage.h>
#include <maya/MString.h>

#define kDefaultNodeType "dependNode"

OPENMAYA_MAJOR_NAMESPACE_OPEN

//! Callbacks on dependency graph changes: time, nodes added and removed.
class OPENMAYA_EXPORT MDGMessage : public MMessage
{
public:
    static MCallbackId addTimeChangeCallback(MMessage::MTimeFunction func, void* clientData = NULL,
                                             MStatus* ReturnStatus = NULL);
    static MCallbackId addNodeAddedCallback(MMessage::MNodeFunction func, const MString& nodeType = kDefaultNodeType,
                                            void* clientData = NULL, MStatus* ReturnStatus = NULL);
    static MCallbackId addNodeRemovedCallback(MMessage::MNodeFunction func,
                                              const MString& nodeType = kDefaultNodeType, void* clientData = NULL,
                                              MStatus* ReturnStatus = NULL);

private:
    static const char* className();
};

OPENMAYA_NAMESPACE_CLOSE
