#pragma once
// What the scene commands share: finding the nodes and plugs their words
// name, and the names they answer with.
#include "engine/Command.h"
#include "scene/Node.h"

#include <string>
#include <vector>

namespace mayasim::commands {

// "No object matches name: <name>"
MelError noMatch(const std::string& name);

// The one node a name or DAG path names (as scene::match reads names).
// Fails in Maya's words when none or several match.
NodePtr node(const std::string& name);
// The nodes the words name (wildcards allowed); with no words, the active
// selection when `selectionByDefault`.
std::vector<NodePtr> nodes(const std::vector<Word>& words, bool selectionByDefault);
std::vector<NodePtr> selectedNodes();

struct PlugRef
{
    NodePtr node;
    PlugKey key;
};

// The plugs "node.attr" names; ".attr" names it on each selected node (how
// .ma files address the node made last). Element ranges ("ktv[0:3]") give
// one plug per element. Fails with `prefix` + "No object matches name: ...".
std::vector<PlugRef> plugs(const std::string& text, const std::string& prefix = "");

// The name a command answers with: the shortest unique path, or the full
// path when asked.
std::string nameOf(const Node& node, bool fullPath = false);
MelValue namesOf(const std::vector<NodePtr>& nodes, bool fullPath = false);

} // namespace mayasim::commands
