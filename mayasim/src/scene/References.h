#pragma once
// File references as the scene holds them: each reference's file,
// namespace and reference node, and for each node read from it the state it
// had when loaded, so that its edits are what changed since. The file
// operations that make and remove references live in file/SceneFile.h.
#include "scene/Node.h"

#include <map>
#include <memory>
#include <string>
#include <vector>

namespace mayasim {

struct Reference
{
    std::string path;     // absolute
    int copy = 0;         // Maya's copy number: the second reference of a file is "path{1}"
    std::string space;    // the namespace its nodes are in
    std::string nodeName; // its reference node ("rigRN")
    std::weak_ptr<Reference> parent; // the reference it was read from, when nested
};
using ReferencePtr = std::shared_ptr<Reference>;

struct ReferenceOrigin
{
    ReferencePtr reference;
    std::map<PlugKey, PlugState> plugs;
    std::map<PlugKey, PlugAddress> incoming;
    std::vector<AttributePtr> dynamicAttributes;
};

namespace references {

// References in the order they were made.
const std::vector<ReferencePtr>& all();
// A new reference to a file, numbered among the references to the same file.
ReferencePtr add(const std::string& path, const std::string& space, const std::string& nodeName,
                 const ReferencePtr& parent);
void remove(const ReferencePtr& reference);
void clear();

// The reference a node names: its reference node, or a node read from it.
ReferencePtr of(const Node& node);
ReferencePtr byFileName(const std::string& fileName);
// "path", or "path{1}" for later copies unless without the copy number.
std::string fileName(const Reference& reference, bool withCopyNumber = true);
// The live nodes read from a reference (not those of references nested in it).
std::vector<NodePtr> nodesOf(const Reference& reference);
NodePtr referenceNode(const Reference& reference);

// Marks the nodes a read made as read from the reference; nodes of nested
// references keep their own reference. What they are now is what their
// edits are measured from.
void markLoaded(const ReferencePtr& reference, const std::vector<NodePtr>& made);

} // namespace references

} // namespace mayasim
