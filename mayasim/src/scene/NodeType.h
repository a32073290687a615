#pragma once
// Node types: built-in ones (transform, joint, shapes, ...) and those that
// plug-ins register. A type owns its static attributes, in order, with its
// base type's attributes first.
#include "scene/Attribute.h"

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>
#include <maya/MApiNamespace.h>

namespace mayasim {

class Edit;
class Node;
struct PlugKey;

class NodeType
{
public:
    using Compute = std::function<std::optional<Value>(Node&, const PlugKey&)>;
    using Creator = void* (*)();

    std::string name;
    unsigned int typeId = 0;
    MFn::Type apiType = MFn::kDependencyNode;
    std::shared_ptr<NodeType> base;
    std::vector<AttributePtr> attributes; // base's first
    bool dag = false;
    bool shape = false;
    bool abstract = false; // "dagNode", "shape": never created
    // Keeps whatever attributes a file sets (types mayasim doesn't know).
    bool acceptsUnknownAttributes = false;

    // Plug-in node types.
    Creator creator = nullptr;
    int pxType = -1; // MPxNode::Type
    std::string classification;
    std::string pluginName;
    std::multimap<const Attribute*, const Attribute*> affects;

    // Outputs the type computes on read (transform matrices, curve
    // outputs); returns nothing for plugs it doesn't compute.
    Compute compute;
    // Copies what a node keeps outside its plugs (an anim curve's keys)
    // to its duplicate.
    std::function<void(Node& original, Node& copy)> copyData;
    // Plugs whose values the type keeps itself, outside the plug store (an
    // anim curve's keys): a write is the edit this returns (null for plugs
    // it doesn't keep); reads come from `compute`; an array plug's elements
    // include `keptIndices`; a saved file gets `fileLines` after the node's
    // own setAttr lines.
    std::function<std::unique_ptr<Edit>(const std::shared_ptr<Node>& node, const PlugKey& key, const Value& value)>
        keptValueEdit;
    std::function<std::vector<int>(const Node& node, const PlugKey& arrayKey)> keptIndices;
    // `numberText` writes a number of an attribute as setAttr reads it.
    using NumberText = std::function<std::string(const Attribute& attribute, double value)>;
    std::function<std::string(const Node& node, const NumberText& numberText)> fileLines;

    bool hasFn(MFn::Type type) const;
    bool isA(const std::string& typeName) const;
    // A static attribute by long or short name, at any depth.
    AttributePtr findAttribute(const std::string& name) const;
    void addAttribute(const AttributePtr& attribute) { attributes.push_back(attribute); }
};

using NodeTypePtr = std::shared_ptr<NodeType>;

// A new type deriving from base (null for the root "node" type).
NodeTypePtr makeNodeType(const std::string& name, const NodeTypePtr& base, MFn::Type apiType, unsigned int typeId = 0);

// Registers Maya's built-in types once; lookups call it first.
void ensureBuiltinNodeTypes();

NodeTypePtr findNodeType(const std::string& name);
NodeTypePtr findNodeType(unsigned int typeId);
void registerNodeType(const NodeTypePtr& type);
void deregisterNodeType(const NodeTypePtr& type);
// The types a plug-in has registered, in name order.
std::vector<NodeTypePtr> nodeTypesOf(const std::string& plugin);

// The plug-in type whose initialize function is running (MPxNode::addAttribute
// adds to it); null otherwise.
NodeTypePtr& typeBeingInitialized();

// The type for a node type name mayasim doesn't know: a generic node
// that keeps whatever attributes it is given. One per name.
NodeTypePtr unknownNodeType(const std::string& name);
// What a plug-in type's nodes become when the plug-in goes while they live
// (unloadPlugin -force): an unknown node type of the same name and
// attributes, with nothing of the plug-in's code.
NodeTypePtr unknownFormOf(const NodeType& pluginType);

} // namespace mayasim
