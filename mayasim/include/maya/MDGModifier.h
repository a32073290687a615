#pragma once
#include <maya/MStatus.h>
#include <maya/MFnDependencyNode.h>
#include <maya/MDeprecate.h>

namespace mayasim {
struct ModifierQueue;
struct ModifierAccess;
}

OPENMAYA_MAJOR_NAMESPACE_OPEN

//! Records dependency graph edits; doIt applies what it hasn't applied yet,
//! undoIt reverts everything it applied, latest first.
class OPENMAYA_EXPORT MDGModifier
{
public:
    MDGModifier();
    virtual ~MDGModifier();

    MObject createNode(const MTypeId& typeId, MStatus* ReturnStatus = NULL);
    MObject createNode(const MString& type, MStatus* ReturnStatus = NULL);
    MStatus deleteNode(const MObject& node);
    MStatus deleteNode(const MObject& node, bool includeParents);
    MStatus renameNode(const MObject& node, const MString& newName);
    MStatus setNodeLockState(const MObject& node, bool newState);
    MStatus connect(const MObject& sourceNode, const MObject& sourceAttr, const MObject& destNode,
                    const MObject& destAttr);
    MStatus disconnect(const MObject& sourceNode, const MObject& sourceAttr, const MObject& destNode,
                       const MObject& destAttr);
    MStatus connect(const MPlug& source, const MPlug& dest);
    MStatus disconnect(const MPlug& source, const MPlug& dest);
    MStatus addAttribute(const MObject& node, const MObject& attribute);
    MStatus removeAttribute(const MObject& node, const MObject& attribute);
    MStatus commandToExecute(const MString& command);
    MStatus newPlugValue(const MPlug& plug, MObject& plugValue);
    MStatus newPlugValueBool(const MPlug& plug, bool plugValue);
    MStatus newPlugValueChar(const MPlug& plug, char plugValue);
    MStatus newPlugValueDouble(const MPlug& plug, double plugValue);
    MStatus newPlugValueFloat(const MPlug& plug, float plugValue);
    MStatus newPlugValueInt(const MPlug& plug, int plugValue);
    MStatus newPlugValueInt64(const MPlug& plug, MInt64 plugValue);
    MStatus newPlugValueMAngle(const MPlug& plug, const MAngle& plugValue);
    MStatus newPlugValueMDistance(const MPlug& plug, const MDistance& plugValue);
    MStatus newPlugValueMTime(const MPlug& plug, const MTime& plugValue);
    MStatus newPlugValueShort(const MPlug& plug, short plugValue);
    MStatus newPlugValueString(const MPlug& plug, const MString& plugValue);
    MStatus doIt();
    MStatus undoIt();

    static const char* className();

OPENMAYA_PRIVATE:
    MDGModifier(const MDGModifier& other);
    MDGModifier& operator=(const MDGModifier& rhs);

    mayasim::ModifierQueue* fQueue; // what has been queued, and how much of it is done

    friend struct mayasim::ModifierAccess;
};

OPENMAYA_NAMESPACE_CLOSE
