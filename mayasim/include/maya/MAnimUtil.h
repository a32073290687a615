#pragma once
#include <maya/MObject.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

//! Which nodes and plugs anim curves drive, and which curves drive a plug.
class OPENMAYAANIM_EXPORT MAnimUtil
{
public:
    static bool isAnimated(const MObject& node, bool checkParent = false, MStatus* ReturnStatus = NULL);
    static bool isAnimated(const MDagPath& path, bool checkParent = false, MStatus* ReturnStatus = NULL);
    static bool isAnimated(const MPlug& plug, bool checkParent = false, MStatus* ReturnStatus = NULL);
    static bool findAnimatedPlugs(const MObject& node, MPlugArray& animatedPlugs, bool checkParent = false,
                                  MStatus* ReturnStatus = NULL);
    static bool findAnimatedPlugs(const MDagPath& path, MPlugArray& animatedPlugs, bool checkParent = false,
                                  MStatus* ReturnStatus = NULL);
    static bool findAnimation(const MPlug& plug, MObjectArray& animation, MStatus* ReturnStatus = NULL);
    static bool findAnimationLayers(const MPlug& plug, MObjectArray& layers, MPlugArray& plugs,
                                    MStatus* ReturnStatus = NULL);
    static const char* className();

private:
    ~MAnimUtil();
};

OPENMAYA_NAMESPACE_CLOSE
