#pragma once
#include <maya/MStatus.h>
#include <maya/MDeprecate.h>
#include <maya/MPlugin.h>
#include <maya/MApiNamespace.h>

//! Identifies a registered callback.
typedef uintptr_t MCallbackId;

OPENMAYA_MAJOR_NAMESPACE_OPEN

//! Message base class: removal of callbacks and the callback function types.
class OPENMAYA_EXPORT MMessage
{
public:
    typedef enum
    {
        kDefaultAction,
        kDoNotDoAction,
        kDoAction,
    } Action;

    typedef void (*MBasicFunction)(void* clientData);
    typedef void (*MElapsedTimeFunction)(float elapsedTime, float lastTime, void* clientData);
    typedef void (*MCheckFunction)(bool* retCode, void* clientData);
    typedef void (*MCheckFileFunction)(bool* retCode, MFileObject& file, void* clientData);
    typedef void (*MCheckPlugFunction)(bool* retCode, MPlug& plug, void* clientData);
    typedef void (*MNodeFunction)(MObject& node, void* clientData);
    typedef void (*MStringFunction)(const MString& str, void* clientData);
    typedef void (*MTwoStringFunction)(const MString& str1, const MString& str2, void* clientData);
    typedef void (*MStateFunction)(bool state, void* clientData);
    typedef void (*MTimeFunction)(MTime& time, void* clientData);
    typedef void (*MPlugFunction)(MPlug& srcPlug, MPlug& destPlug, bool made, void* clientData);
    typedef void (*MNodePlugFunction)(MObject& node, MPlug& plug, void* clientData);
    typedef void (*MNodeStringFunction)(MObject& node, const MString& str, void* clientData);
    typedef void (*MParentChildFunction)(MDagPath& child, MDagPath& parent, void* clientData);
    typedef void (*MModifierFunction)(MDGModifier& modifier, void* clientData);
    typedef void (*MStringArrayFunction)(const MStringArray& strs, void* clientData);
    typedef void (*MNodeModifierFunction)(MObject& node, MDGModifier& modifier, void* clientData);
    typedef void (*MObjArray)(MObjectArray& objects, void* clientData);
    typedef void (*MNodeObjArray)(MObject& node, MObjectArray& objects, void* clientData);
    typedef void (*MStringNode)(const MString& str, MObject& node, void* clientData);
    typedef void (*MNodeUuidFunction)(MObject& node, const MUuid& uuid, void* clientData);

    static MStatus removeCallback(MCallbackId id);
    static MStatus removeCallbacks(MCallbackIdArray& ids);
    static MCallbackId currentCallbackId(MStatus* ReturnStatus = NULL);
    static MStatus nodeCallbacks(MObject& node, MCallbackIdArray& ids);

    static const char* className();
};

OPENMAYA_NAMESPACE_CLOSE
