#pragma once
#include <maya/MMessage.h>
#include <maya/MDeprecate.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

//! Callbacks on one dependency node.
class OPENMAYA_EXPORT MNodeMessage : public MMessage
{
public:
    enum AttributeMessage
    {
        kConnectionMade = 0x01,
        kConnectionBroken = 0x02,
        kAttributeEval = 0x04,
        kAttributeSet = 0x08,
        kAttributeLocked = 0x10,
        kAttributeUnlocked = 0x20,
        kAttributeAdded = 0x40,
        kAttributeRemoved = 0x80,
        kAttributeRenamed = 0x100,
        kAttributeKeyable = 0x200,
        kAttributeUnkeyable = 0x400,
        kIncomingDirection = 0x800,
        kAttributeArrayAdded = 0x1000,
        kAttributeArrayRemoved = 0x2000,
        kOtherPlugSet = 0x4000,
        kLast = 0x8000
    };

    enum KeyableChangeMsg
    {
        kKeyChangeInvalid = 0,
        kMakeKeyable,
        kMakeUnkeyable,
        kKeyChangeLast
    };

    typedef void (*MAttr2PlugFunction)(MNodeMessage::AttributeMessage msg, MPlug& plug, MPlug& otherPlug,
                                       void* clientData);
    typedef void (*MAttrPlugFunction)(MNodeMessage::AttributeMessage msg, MPlug& plug, void* clientData);

public:
    static MCallbackId addAttributeChangedCallback(MObject& node, MNodeMessage::MAttr2PlugFunction func,
                                                   void* clientData = NULL, MStatus* ReturnStatus = NULL);
    static MCallbackId addNameChangedCallback(MObject& node, MMessage::MNodeStringFunction func,
                                              void* clientData = NULL, MStatus* ReturnStatus = NULL);
    static MCallbackId addNodeAboutToDeleteCallback(MObject& node, MMessage::MNodeModifierFunction func,
                                                    void* clientData = NULL, MStatus* ReturnStatus = NULL);
    static MCallbackId addNodePreRemovalCallback(MObject& node, MMessage::MNodeFunction func,
                                                 void* clientData = NULL, MStatus* ReturnStatus = NULL);

    static const char* className();
};

OPENMAYA_NAMESPACE_CLOSE
