#include "scene/References.h"

#include "scene/Scene.h"

#include <algorithm>

namespace mayasim::references {

namespace {

std::vector<ReferencePtr>& list()
{
    static std::vector<ReferencePtr> instance;
    return instance;
}

} // namespace

const std::vector<ReferencePtr>& all()
{
    return list();
}

ReferencePtr add(const std::string& path, const std::string& space, const std::string& nodeName,
                 const ReferencePtr& parent)
{
    auto reference = std::make_shared<Reference>();
    reference->path = path;
    reference->space = space;
    reference->nodeName = nodeName;
    reference->parent = parent;
    // The lowest copy number no reference to the same file has.
    auto taken = [&](int copy) {
        return std::any_of(list().begin(), list().end(),
                           [&](const ReferencePtr& other) { return other->path == path && other->copy == copy; });
    };
    while (taken(reference->copy))
        ++reference->copy;
    list().push_back(reference);
    return reference;
}

void remove(const ReferencePtr& reference)
{
    list().erase(std::remove(list().begin(), list().end(), reference), list().end());
}

void clear()
{
    list().clear();
}

ReferencePtr of(const Node& node)
{
    if (node.origin)
        return node.origin->reference;
    for (const ReferencePtr& reference : list())
        if (reference->nodeName == node.name)
            return reference;
    return nullptr;
}

ReferencePtr byFileName(const std::string& name)
{
    for (const ReferencePtr& reference : list())
        if (fileName(*reference) == name)
            return reference;
    return nullptr;
}

std::string fileName(const Reference& reference, bool withCopyNumber)
{
    if (!withCopyNumber || reference.copy == 0)
        return reference.path;
    return reference.path + "{" + std::to_string(reference.copy) + "}";
}

std::vector<NodePtr> nodesOf(const Reference& reference)
{
    std::vector<NodePtr> found;
    for (const NodePtr& node : scene::nodes())
        if (node->origin && node->origin->reference.get() == &reference)
            found.push_back(node);
    return found;
}

NodePtr referenceNode(const Reference& reference)
{
    for (const NodePtr& node : scene::nodes())
        if (node->name == reference.nodeName && node->type()->name == "reference")
            return node;
    return nullptr;
}

void markLoaded(const ReferencePtr& reference, const std::vector<NodePtr>& made)
{
    for (const NodePtr& node : made)
    {
        auto origin = std::make_shared<ReferenceOrigin>();
        origin->reference = node->origin ? node->origin->reference : reference;
        origin->plugs = node->plugs;
        origin->incoming = node->incoming;
        origin->dynamicAttributes = node->dynamicAttributes;
        node->origin = std::move(origin);
    }
}

} // namespace mayasim::references
