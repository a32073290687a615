#pragma once
// Between MPlug and the scene's (node, PlugKey) pairs, and plug names.
#include "scene/Node.h"

#include <maya/MPlug.h>

#include <optional>
#include <string>

namespace mayasim {

// The element indices of an MPlug, held apart from its header.
struct PlugIndices
{
    std::vector<int> values;
};

struct PlugAccess
{
    static MPlug make(const Node& node, const PlugKey& key);
    static PlugKey key(const MPlug& plug);
    static Node* node(const MPlug& plug);
};

inline MPlug makePlug(const Node& node, const PlugKey& key) { return PlugAccess::make(node, key); }
inline PlugKey plugKey(const MPlug& plug) { return PlugAccess::key(plug); }
inline Node* plugNode(const MPlug& plug) { return PlugAccess::node(plug); }

// The key of a top-level attribute or any attribute, with no element chosen.
PlugKey keyOf(const Attribute& attribute);

// An element index as plug names write it ("12" in "a.w[12]"): decimal
// digits up to the largest int; nothing otherwise.
std::optional<int> elementIndex(const std::string& text);

// Parses an attribute path such as "tx", "translate.translateX",
// "worldMatrix[0]" or "ktv[2].kv" on a node. Fails on unknown names.
std::optional<PlugKey> parsePlugPath(const Node& node, const std::string& path);

struct PlugNameOptions
{
    bool includeNodeName = false;
    bool useLongNames = false;
    bool useFullAttributePath = false;
    bool fullNodePath = false;
};
std::string plugName(const Node& node, const PlugKey& key, const PlugNameOptions& options);

// The child plug keys of a compound plug, and the element keys an array
// plug has (stored values or connections), in index order.
std::vector<PlugKey> childKeys(const PlugKey& key);
std::vector<int> existingIndices(const Node& node, const PlugKey& arrayKey);

} // namespace mayasim
