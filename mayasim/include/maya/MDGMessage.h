#pragma once
#include <maya/MMessage.h>
#include <maya/MString.h>

class MTime;
class MObject;
class MPlug;

#define kDefaultNodeType "dependNode"

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
