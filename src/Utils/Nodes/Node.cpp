#include "Utils/Nodes/Node.h"

#include <maya/MDagPath.h>
#include <maya/MFnDependencyNode.h>
#include <maya/MGlobal.h>
#include <maya/MItSelectionList.h>
#include <maya/MObjectHandle.h>
#include <maya/MSelectionList.h>

MString nodeDisplayName(const MObject& node)
{
    MDagPath path;
    if (MDagPath::getAPathTo(node, path) && path.isValid())
        return path.partialPathName();
    return MFnDependencyNode(node).name();
}

bool isValidObject(const MObject& node)
{
    if (node.isNull())
        return false;
    MObjectHandle handle(node);
    return handle.isValid() && handle.isAlive();
}

MObject objectByName(const MString& name)
{
    MSelectionList list;
    MObject node;
    if (!list.add(name) || !list.getDependNode(0, node))
        return MObject();
    return node;
}

void selectByName(const MSelectionList& list, int mode)
{
    static const MGlobal::ListAdjustment adjustments[] = {MGlobal::kReplaceList, MGlobal::kAddToList,
                                                          MGlobal::kRemoveFromList};
    if (mode >= 0 && mode <= 2)
        MGlobal::selectCommand(list, adjustments[mode]);
}

bool inEditMode() { return MGlobal::executeCommand("ctxEditMode"); }

MString concatenate(const MString& prefix, const MString& text) { return prefix + text; }

MObjectArray transformsOf(const MSelectionList& list)
{
    MObjectArray objects;
    for (MItSelectionList it(list, MFn::kDagNode); !it.isDone(); it.next()) {
        MDagPath path;
        if (!it.getDagPath(path))
            continue;
        if (!path.node().hasFn(MFn::kTransform))
            path.pop();
        objects.append(path.node());
    }
    return objects;
}
