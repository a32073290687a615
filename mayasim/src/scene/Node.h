#pragma once
// A node in the scene: its type, name, UUID, dynamic attributes, plug
// values and flags, connections and (for DAG nodes) parent and children.
#include "scene/NodeType.h"
#include "scene/Value.h"

#include <maya/MUuid.h>

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>
#include <maya/MApiNamespace.h>

namespace mayasim {

class Node;
using NodePtr = std::shared_ptr<Node>;
struct ReferenceOrigin; // scene/References.h

// Identifies a plug within its node: the attribute and one logical index
// per array attribute from the root attribute down (-1: no element chosen).
struct PlugKey
{
    const Attribute* attribute = nullptr;
    std::vector<int> indices;

    bool operator<(const PlugKey& other) const;
    bool operator==(const PlugKey& other) const;
    bool operator!=(const PlugKey& other) const { return !(*this == other); }
    bool complete() const; // every array level has an element
    // The key of the parent plug: the compound parent, or the array plug
    // for an element.
    std::optional<PlugKey> parentKey() const;
};

struct PlugAddress
{
    std::weak_ptr<Node> node;
    PlugKey key;
    NodePtr lock() const { return node.lock(); }
    bool operator==(const PlugAddress& other) const;
};

struct PlugState
{
    Value value; // empty: the attribute's default
    bool locked = false;
    std::optional<bool> keyable;
    std::optional<bool> channelBox;
    long heldStamp = -1; // set while driven, at this time stamp
};

class Node : public Object
{
public:
    Node(NodeTypePtr type, std::string name);
    ~Node() override;

    MFn::Type apiType() const override;
    bool hasFn(MFn::Type type) const override;

    const NodeTypePtr& type() const { return fType; }
    bool isDag() const { return fType->dag; }
    bool isShape() const { return fType->shape; }

    std::string name;
    MUuid uuid;
    bool alive = false; // true while in the scene; a deleted node may live on in the undo queue
    bool locked = false;
    unsigned long serial = 0; // creation order

    std::vector<AttributePtr> dynamicAttributes;
    std::map<PlugKey, PlugState> plugs;
    std::map<PlugKey, PlugAddress> incoming;
    std::map<PlugKey, std::vector<PlugAddress>> outgoing;

    std::weak_ptr<Node> parent; // DAG parent; empty under the world
    std::vector<NodePtr> children;

    // Set on a node read from a referenced file: it is read-only, and its
    // changes since loading are the reference's edits.
    std::shared_ptr<const ReferenceOrigin> origin;

    std::unique_ptr<MPxNode> user; // the plug-in's part of a plug-in node
    void setUser(MPxNode* instance);
    // Drops the plug-in's part (its destructor runs now, while the module is
    // still loaded) and takes the type the node lives on as.
    void dropUser(NodeTypePtr type);

    NodePtr self() { return std::static_pointer_cast<Node>(shared_from_this()); }
    NodePtr parentNode() const { return parent.lock(); }
    // Static then dynamic top-level attributes, in order.
    std::vector<AttributePtr> attributes() const;
    // Every attribute at any depth, in order (children after their parent).
    std::vector<AttributePtr> allAttributes() const;
    AttributePtr findAttribute(const std::string& name) const;
    PlugState* state(const PlugKey& key);
    const PlugState* state(const PlugKey& key) const;

private:
    NodeTypePtr fType;
};

// Every node, in the scene or not, that still has a plug-in part made by
// the plug-in's creator.
std::vector<NodePtr> nodesWithUserOf(const std::string& plugin);

Node* nodeObject(const MObject& object);
NodePtr nodePtr(const MObject& object);
MObject objectOf(const Node* node);
MObject objectOf(const Attribute* attribute);

} // namespace mayasim
