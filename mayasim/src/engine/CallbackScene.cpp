#include "engine/Callbacks.h"

// Placeholder bodies until the scene store lands: no node is watched yet.
namespace mayasim::callbacks {

NodeRef nodeRef(const MObject&)
{
    return {};
}

bool nodeIsOfType(const MObject&, const std::string& typeName)
{
    return typeName == "dependNode";
}

void forSelfAndDescendants(const MObject& node, const std::function<void(MObject&)>& visit)
{
    visit(const_cast<MObject&>(node));
}

void withTimeCopy(const MTime& time, const std::function<void(MTime&)>& use)
{
    use(const_cast<MTime&>(time));
}

} // namespace mayasim::callbacks
