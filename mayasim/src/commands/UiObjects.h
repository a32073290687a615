#pragma once
// Selection connections: named lists of objects that Maya's editors share
// (an outliner's selection, a time slider's main list). UI objects, outside
// the scene and its undo queue; deleteUI deletes them.
#include "scene/Node.h"

#include <string>
#include <vector>

namespace mayasim::commands {

bool connectionExists(const std::string& name);
// The connection's objects that are in the scene now, in the order added.
std::vector<NodePtr> connectionObjects(const std::string& name);

} // namespace mayasim::commands
