#pragma once
// Scene operations as commands and modifiers use them: each checks its
// input, throws MelError in Maya's words when it can't be done, and
// otherwise applies its edits into the given EditList.
#include "scene/Edits.h"

#include <maya/MVector.h>

#include <string>
#include <maya/MApiNamespace.h>

namespace mayasim::ops {

// A node of a type, named (uniquely) or by default, under parent for DAG
// nodes. A shape created without a parent gets a new transform parent.
NodePtr createNode(EditList& edits, const NodeTypePtr& type, const std::string& name, const NodePtr& parent);
NodePtr createNode(EditList& edits, const std::string& typeName, const std::string& name, const NodePtr& parent);
// A node object made now and put into the scene later (MDGModifier).
NodePtr newNode(const NodeTypePtr& type, const std::string& name);
// Puts a new node into the scene, naming it, and runs its postConstructor.
void insert(EditList& edits, const NodePtr& node, const NodePtr& parent);

// Deletes a node with its DAG children and connections; about-to-delete
// callbacks run first, and the modifier they fill runs before the node goes.
void deleteNode(EditList& edits, const NodePtr& node);
// Returns the name the node ends up with (made unique).
std::string rename(EditList& edits, const NodePtr& node, const std::string& name);
void connect(EditList& edits, const PlugAddress& source, const PlugAddress& destination, bool force);
void disconnect(EditList& edits, const PlugAddress& source, const PlugAddress& destination);
// Sets a plug (a compound sets nothing itself). A locked plug fails;
// `command` makes a driven plug fail too, as setAttr does, while the API
// may set a driven plug (the value holds until the time changes).
void setValue(EditList& edits, const NodePtr& node, const PlugKey& key, const Value& value, bool command);
// Sets the three children of a compound ("translate") where they change.
void setVector(EditList& edits, const NodePtr& node, const std::string& compound, const MVector& value);
void setLocked(EditList& edits, const NodePtr& node, const PlugKey& key, bool locked);
void setKeyable(EditList& edits, const NodePtr& node, const PlugKey& key, bool keyable);
void setChannelBox(EditList& edits, const NodePtr& node, const PlugKey& key, bool channelBox);
void addAttribute(EditList& edits, const NodePtr& node, const AttributePtr& attribute);
void removeAttribute(EditList& edits, const NodePtr& node, const AttributePtr& attribute);
// Moves a DAG node under a parent (null: the world). Unless relative, the
// node keeps its world position: its channels are solved for.
void reparent(EditList& edits, const NodePtr& node, const NodePtr& parent, bool relative);
// A copy of a node (and its DAG children) with its values, flags and
// dynamic attributes, a new UUID and a new name, beside the original.
NodePtr duplicate(EditList& edits, const NodePtr& node);
void setUuid(EditList& edits, const NodePtr& node, const MUuid& uuid);

// Moves what a modifier has done into an EditList (callbacks' modifiers).
void absorb(EditList& edits, MDGModifier& modifier);

// Maya's names for plugs in messages: "node.longAttributeName".
std::string plugText(const Node& node, const PlugKey& key);
bool locked(const Node& node, const PlugKey& key);

} // namespace mayasim::ops
