#pragma once
// The scene: every live node in creation order, the DAG under the world,
// names and lookups. Structure changes here are raw: undo and messages
// belong to the edits (Edits.h) that call them.
#include "scene/Node.h"

#include <string>
#include <vector>

namespace mayasim::scene {

// Live nodes in creation order.
const std::vector<NodePtr>& nodes();
// DAG nodes directly under the world, in order.
const std::vector<NodePtr>& worldChildren();
// The children of a DAG node, or of the world for null.
const std::vector<NodePtr>& childrenOf(const Node* parent);

// Adds a node (new, or back from deletion) under parent (null: the world
// for DAG nodes) at a child position (-1: last).
void insertNode(const NodePtr& node, const NodePtr& parent, int position = -1);
// Takes a node out of the scene (it keeps its parent link for re-insertion).
void removeNode(const NodePtr& node);
// Moves a DAG node under a new parent (null: the world) at a position.
void setParent(const NodePtr& node, const NodePtr& parent, int position = -1);
int childPosition(const Node& node);
// Empties the scene (file new).
void clear();

NodePtr findByUuid(const MUuid& uuid);
// Nodes whose name or DAG path matches a pattern: "name", "a|b", "|a|b",
// with * and ? wildcards in each part; names read as ns::lookupPath says.
std::vector<NodePtr> match(const std::string& pattern);
// The single node a name or path names; null when none or ambiguous.
NodePtr find(const std::string& nameOrPath);

std::string fullPathName(const Node& node);    // "|a|b"; a DG node's name
std::string partialPathName(const Node& node); // shortest unique path
// * and ? match within one namespace level ("*" doesn't match "rig:ctrl").
bool wildcardMatch(const std::string& pattern, const std::string& text);
bool hasWildcards(const std::string& pattern);

// Maya's naming: a name is taken when a DG node has it, or when the node
// is a DAG node and a sibling has it, or the node is a DG node and any
// node has it.
bool nameTaken(const std::string& name, const Node* node, const Node* parent);
// The name itself when free, otherwise the next free name with a number
// suffix: "pCube" -> "pCube1", "a1" -> "a2".
std::string uniqueName(const std::string& wanted, const Node* node, const Node* parent);
// Maya's default name for a new node of a type, in the current namespace:
// "transform1".
std::string defaultName(const std::string& typeName, const Node* parent);

} // namespace mayasim::scene
