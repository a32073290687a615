#include "scene/Node.h"

#include <maya/MPxNode.h>

#include <algorithm>

namespace mayasim {

bool PlugKey::operator<(const PlugKey& other) const
{
    if (attribute != other.attribute)
        return attribute < other.attribute;
    return indices < other.indices;
}

bool PlugKey::operator==(const PlugKey& other) const
{
    return attribute == other.attribute && indices == other.indices;
}

bool PlugKey::complete() const
{
    return std::none_of(indices.begin(), indices.end(), [](int i) { return i < 0; });
}

std::optional<PlugKey> PlugKey::parentKey() const
{
    if (attribute->array && !indices.empty() && indices.back() >= 0)
    {
        PlugKey arrayPlug = *this;
        arrayPlug.indices.back() = -1;
        return arrayPlug;
    }
    AttributePtr parent = attribute->parentAttribute();
    if (!parent)
        return std::nullopt;
    PlugKey key{parent.get(), indices};
    if (attribute->array)
        key.indices.pop_back();
    return key;
}

bool PlugAddress::operator==(const PlugAddress& other) const
{
    return node.lock() == other.node.lock() && key == other.key;
}

Node::Node(NodeTypePtr type, std::string name_) : name(std::move(name_)), fType(std::move(type)) {}

Node::~Node() = default;

MFn::Type Node::apiType() const
{
    return fType->apiType;
}

bool Node::hasFn(MFn::Type type) const
{
    return fType->hasFn(type);
}

namespace {

// Plug-in nodes, so that unloading finds those only an MObject still holds.
struct NodesWithUser
{
    std::vector<std::weak_ptr<Node>> nodes;
    size_t livingAtLastSweep = 0;

    // Forgets nodes that are gone (their memory waits for the weak
    // references), at most as often as the list doubles.
    void sweep()
    {
        nodes.erase(std::remove_if(nodes.begin(), nodes.end(), [](const auto& n) { return n.expired(); }),
                    nodes.end());
        livingAtLastSweep = nodes.size();
    }
};

NodesWithUser& nodesWithUser()
{
    static NodesWithUser instance;
    return instance;
}

} // namespace

void Node::setUser(MPxNode* instance)
{
    user.reset(instance);
    if (!user)
        return;
    user->fNode = this;
    NodesWithUser& known = nodesWithUser();
    if (known.nodes.size() >= 2 * known.livingAtLastSweep + 64)
        known.sweep();
    known.nodes.push_back(self());
}

void Node::dropUser(NodeTypePtr type)
{
    user.reset();
    fType = std::move(type);
}

std::vector<NodePtr> nodesWithUserOf(const std::string& plugin)
{
    NodesWithUser& known = nodesWithUser();
    known.sweep();
    std::vector<NodePtr> result;
    for (const auto& weak : known.nodes)
        if (NodePtr node = weak.lock(); node->user && node->type()->pluginName == plugin)
            result.push_back(node);
    return result;
}

std::vector<AttributePtr> Node::attributes() const
{
    std::vector<AttributePtr> result = fType->attributes;
    result.insert(result.end(), dynamicAttributes.begin(), dynamicAttributes.end());
    return result;
}

namespace {

void appendWithChildren(const AttributePtr& attribute, std::vector<AttributePtr>& out)
{
    out.push_back(attribute);
    for (const auto& child : attribute->children)
        appendWithChildren(child, out);
}

} // namespace

std::vector<AttributePtr> Node::allAttributes() const
{
    std::vector<AttributePtr> result;
    for (const auto& attribute : attributes())
        appendWithChildren(attribute, result);
    return result;
}

AttributePtr Node::findAttribute(const std::string& attributeName) const
{
    if (AttributePtr found = fType->findAttribute(attributeName))
        return found;
    for (const auto& attribute : allAttributes())
        if (attribute->longName == attributeName || attribute->shortName == attributeName)
            return attribute;
    return nullptr;
}

PlugState* Node::state(const PlugKey& key)
{
    auto it = plugs.find(key);
    return it == plugs.end() ? nullptr : &it->second;
}

const PlugState* Node::state(const PlugKey& key) const
{
    auto it = plugs.find(key);
    return it == plugs.end() ? nullptr : &it->second;
}

Node* nodeObject(const MObject& object)
{
    return dynamic_cast<Node*>(sharedObject(object).get());
}

NodePtr nodePtr(const MObject& object)
{
    return std::dynamic_pointer_cast<Node>(sharedObject(object));
}

MObject objectOf(const Node* node)
{
    if (!node)
        return MObject();
    return makeObject(const_cast<Node*>(node)->shared_from_this());
}

MObject objectOf(const Attribute* attribute)
{
    if (!attribute)
        return MObject();
    return makeObject(const_cast<Attribute*>(attribute)->shared_from_this());
}

} // namespace mayasim
