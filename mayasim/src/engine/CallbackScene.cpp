#include "engine/Callbacks.h"

#include <maya/MObject.h>
#include <maya/MTime.h>

namespace mayasim::callbacks {

NodeRef nodeRef(const MObject& node)
{
    if (!node.hasFn(MFn::kDependencyNode))
        return {};
    return {node.simObject().get(), node.simObject()};
}

bool nodeIsOfType(const MObject&, const std::string& typeName)
{
    return typeName == "dependNode";
}

void forSelfAndDescendants(const MObject& node, const std::function<void(MObject&)>& visit)
{
    MObject self = node;
    visit(self);
}

void withTimeCopy(const MTime& time, const std::function<void(MTime&)>& use)
{
    MTime copy = time;
    use(copy);
}

} // namespace mayasim::callbacks
