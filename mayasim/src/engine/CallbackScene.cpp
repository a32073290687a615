#include "engine/Callbacks.h"

#include "scene/Node.h"

#include <maya/MDagPath.h>
#include <maya/MObject.h>
#include <maya/MTime.h>

#include <set>

namespace mayasim::callbacks {

NodeRef nodeRef(const MObject& node)
{
    if (!node.hasFn(MFn::kDependencyNode))
        return {};
    return {sharedObject(node).get(), sharedObject(node)};
}

bool nodeIsOfType(const MObject& node, const std::string& typeName)
{
    const Node* sceneNode = nodeObject(node);
    return sceneNode && (typeName == "dependNode" || sceneNode->type()->isA(typeName));
}

namespace {

void visitBelow(const MDagPath& path, std::set<const void*>& seen, const std::function<void(MObject&)>& visit)
{
    MObject node = path.node();
    if (!seen.insert(sharedObject(node).get()).second)
        return; // an instance reached twice
    visit(node);
    for (unsigned int i = 0; i < path.childCount(); ++i)
    {
        MDagPath child(path);
        child.push(path.child(i));
        visitBelow(child, seen, visit);
    }
}

} // namespace

void forSelfAndDescendants(const MObject& node, const std::function<void(MObject&)>& visit)
{
    MDagPath path;
    if (!MDagPath::getAPathTo(node, path))
        return;
    std::set<const void*> seen;
    visitBelow(path, seen, visit);
}

void withTimeCopy(const MTime& time, const std::function<void(MTime&)>& use)
{
    MTime copy = time;
    use(copy);
}

} // namespace mayasim::callbacks
