#include "scene/NodeType.h"

#include <map>

namespace mayasim {

namespace {

struct Registry
{
    std::map<std::string, NodeTypePtr> byName;
    std::map<unsigned int, NodeTypePtr> byId;
    std::map<std::string, NodeTypePtr> unknown;
};

Registry& registry()
{
    static Registry instance;
    return instance;
}

AttributePtr findIn(const std::vector<AttributePtr>& attributes, const std::string& name)
{
    for (const auto& attribute : attributes)
    {
        if (attribute->longName == name || attribute->shortName == name)
            return attribute;
        if (AttributePtr child = findIn(attribute->children, name))
            return child;
    }
    return nullptr;
}

} // namespace

bool NodeType::hasFn(MFn::Type type) const
{
    for (const NodeType* t = this; t; t = t->base.get())
        if (t->apiType == type)
            return true;
    return type == MFn::kBase || type == MFn::kNamedObject;
}

bool NodeType::isA(const std::string& typeName) const
{
    for (const NodeType* t = this; t; t = t->base.get())
        if (t->name == typeName)
            return true;
    return false;
}

AttributePtr NodeType::findAttribute(const std::string& attributeName) const
{
    return findIn(attributes, attributeName);
}

NodeTypePtr makeNodeType(const std::string& name, const NodeTypePtr& base, MFn::Type apiType, unsigned int typeId)
{
    auto type = std::make_shared<NodeType>();
    type->name = name;
    type->typeId = typeId;
    type->apiType = apiType;
    type->base = base;
    if (base)
    {
        type->attributes = base->attributes;
        type->dag = base->dag;
        type->shape = base->shape;
        type->compute = base->compute;
        type->affects = base->affects;
    }
    return type;
}

NodeTypePtr findNodeType(const std::string& name)
{
    ensureBuiltinNodeTypes();
    auto it = registry().byName.find(name);
    return it == registry().byName.end() ? nullptr : it->second;
}

NodeTypePtr findNodeType(unsigned int typeId)
{
    ensureBuiltinNodeTypes();
    auto it = registry().byId.find(typeId);
    return it == registry().byId.end() ? nullptr : it->second;
}

void registerNodeType(const NodeTypePtr& type)
{
    registry().byName[type->name] = type;
    if (type->typeId != 0)
        registry().byId[type->typeId] = type;
}

void deregisterNodeType(const NodeTypePtr& type)
{
    registry().byName.erase(type->name);
    if (type->typeId != 0)
        registry().byId.erase(type->typeId);
}

std::vector<NodeTypePtr> nodeTypesOf(const std::string& plugin)
{
    std::vector<NodeTypePtr> types;
    for (const auto& [name, type] : registry().byName)
        if (type->pluginName == plugin)
            types.push_back(type);
    return types;
}

NodeTypePtr& typeBeingInitialized()
{
    static NodeTypePtr type;
    return type;
}

NodeTypePtr unknownFormOf(const NodeType& pluginType)
{
    auto type = std::make_shared<NodeType>(pluginType);
    type->apiType = pluginType.dag ? MFn::kUnknownDag : MFn::kUnknown;
    type->typeId = 0;
    type->creator = nullptr;
    type->pxType = -1;
    type->acceptsUnknownAttributes = true;
    return type;
}

NodeTypePtr unknownNodeType(const std::string& name)
{
    NodeTypePtr& type = registry().unknown[name];
    if (!type)
    {
        type = makeNodeType(name, findNodeType("unknown"), MFn::kUnknown);
        type->acceptsUnknownAttributes = true;
    }
    return type;
}

} // namespace mayasim
