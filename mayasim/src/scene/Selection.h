#pragma once
// The active selection list and the resolution of selection strings:
// object names and paths (with * and ? wildcards), plugs ("a.tx"),
// components kept as text ("pCube1.vtx[0:3]", "curve1[2]") and UUIDs.
#include "scene/Edits.h"
#include "scene/Node.h"

#include <maya/MDagPath.h>
#include <maya/MPlug.h>
#include <maya/MSelectionList.h>

#include <string>
#include <vector>

namespace mayasim {

// One entry of a selection list: a dependency node, a DAG path, a plug, or
// a component kept as the text after the object's name ("vtx[0:3]").
struct SelectionItem
{
    MObject node;
    MDagPath path; // valid for DAG nodes
    MPlug plug;    // not null for plug items
    std::string component;
};

// What an MSelectionList holds, apart from its header.
struct SelectionItems
{
    std::vector<SelectionItem> items;
};

struct SelectionAccess
{
    static std::vector<SelectionItem>& items(MSelectionList& list) { return list.fItems->items; }
    static const std::vector<SelectionItem>& items(const MSelectionList& list) { return list.fItems->items; }
};

// What an MDagPath holds, apart from its header.
struct DagPathNodes
{
    std::vector<MObject> nodes;
};

struct DagPathAccess
{
    static std::vector<MObject>& nodes(MDagPath& path) { return path.fNodes->nodes; }
    static const std::vector<MObject>& nodes(const MDagPath& path) { return path.fNodes->nodes; }
};

// The DAG path from the top of the hierarchy down to a node.
MDagPath pathTo(const Node& node);

namespace selection {

const MSelectionList& active();
// Replaces the active list and fires the selection messages.
void setActive(const MSelectionList& list);
// Replaces the active list as the select command does: undoably.
void select(EditList& edits, const MSelectionList& list);
// The active list after a MGlobal::ListAdjustment of it with `list`.
MSelectionList adjusted(const MSelectionList& list, int adjustment);
// Takes a node that is being deleted out of the active list, undoably, so
// that undo brings its selection back and redo takes it away again.
void deselect(EditList& edits, const Node& node);
// Drops a node that has left the scene from the active list at once.
void forget(const Node& node);

// The items a selection string names; empty when it names nothing.
std::vector<SelectionItem> resolve(const std::string& text);
SelectionItem itemFor(const Node& node);
// The text getSelectionStrings gives for an item.
std::string text(const SelectionItem& item);
bool sameItem(const SelectionItem& a, const SelectionItem& b);

} // namespace selection

} // namespace mayasim
