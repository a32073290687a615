// MGlobal's selection functions and deleteNode.
#include <maya/MGlobal.h>

#include "scene/Api.h"
#include "scene/Operations.h"
#include "scene/Selection.h"

#include <maya/MSelectionList.h>

using namespace mayasim;

MStatus MGlobal::getActiveSelectionList(MSelectionList& dest, bool)
{
    dest = selection::active();
    return MS::kSuccess;
}

MStatus MGlobal::setActiveSelectionList(const MSelectionList& src, ListAdjustment adjustment)
{
    selection::setActive(selection::adjusted(src, adjustment));
    return MS::kSuccess;
}

MStatus MGlobal::selectCommand(const MSelectionList& src, ListAdjustment adjustment)
{
    undoable([&](EditList& edits) { selection::select(edits, selection::adjusted(src, adjustment)); });
    return MS::kSuccess;
}

MStatus MGlobal::getSelectionListByName(const MString& name, MSelectionList& list)
{
    list.clear();
    return list.add(name);
}

MStatus MGlobal::selectByName(const MString& name, ListAdjustment adjustment)
{
    MSelectionList list;
    MStatus status = list.add(name);
    return status ? setActiveSelectionList(list, adjustment) : status;
}

MStatus MGlobal::unselectByName(const MString& name)
{
    return selectByName(name, kRemoveFromList);
}

MStatus MGlobal::select(MObject& object, ListAdjustment adjustment)
{
    MSelectionList list;
    MStatus status = list.add(object);
    return status ? setActiveSelectionList(list, adjustment) : status;
}

MStatus MGlobal::select(const MDagPath& object, const MObject& component, ListAdjustment adjustment)
{
    MSelectionList list;
    MStatus status = list.add(object, component);
    return status ? setActiveSelectionList(list, adjustment) : status;
}

MStatus MGlobal::unselect(MObject& object)
{
    return select(object, kRemoveFromList);
}

MStatus MGlobal::clearSelectionList()
{
    return setActiveSelectionList(MSelectionList(), kReplaceList);
}

bool MGlobal::isSelected(MObject& object, MStatus* ReturnStatus)
{
    setStatus(ReturnStatus, MS::kSuccess);
    return selection::active().hasItem(object);
}

MStatus MGlobal::deleteNode(MObject& node)
{
    NodePtr target = nodePtr(node);
    if (!target || !target->alive)
        return MS::kInvalidParameter;
    try
    {
        undoable([&](EditList& edits) { ops::deleteNode(edits, target); });
        return MS::kSuccess;
    }
    catch (const MelError&)
    {
        return MS::kFailure;
    }
}
