#pragma once
// Maya's namespaces: the tree of names under the unnamed root (":"), the
// current namespace new nodes go into, and how names are read against
// them. A node's name carries its namespace ("rig:ctrl"); a namespace is
// known by its full name without the leading colon ("rig", "rig:face").
#include "scene/Edits.h"

#include <string>
#include <vector>

namespace mayasim::ns {

// "rig" for "rig:ctrl", "" for "ctrl" (the root).
std::string namespaceOf(const std::string& name);
// "ctrl" for "rig:ctrl".
std::string baseName(const std::string& name);
// "rig:ctrl" from "rig" and "ctrl"; the root adds nothing.
std::string join(const std::string& space, const std::string& name);

// The current namespace ("" for the root).
const std::string& current();

bool exists(const std::string& space);
// Namespaces in creation order, the internal "UI" and "shared" first.
std::vector<std::string> all();
bool internal(const std::string& space);
// The namespaces in a namespace ("" the root), in creation order: its
// children, or all its descendants.
std::vector<std::string> under(const std::string& space, bool recursive);
// The nodes in a namespace, or in it and its descendants.
std::vector<NodePtr> nodesIn(const std::string& space, bool recursive);

// A namespace a user names: ":a:b" from the root, ".." the current one's
// parent, otherwise relative to the current namespace, or else from the
// root. Empty optional-like result "" is the root; throws MelError when it
// doesn't exist.
std::string resolve(const std::string& name);
// A node name as a new node takes it: relative to the current namespace
// unless it starts with ':'.
std::string qualify(const std::string& name);
// A name or DAG path as lookups read it: each part starting with ':' is
// absolute; other parts are relative to the current namespace in Maya's
// relative names mode (on while a referenced file reads), else absolute.
std::string lookupPath(const std::string& path);
// A valid namespace name: characters other than letters, digits, '_' and
// the ':' between levels become '_', and a level's leading digit gets a '_'
// before it.
std::string validName(const std::string& name);
// "rig" when free, else "rig1", "rig2"... (among namespaces under `parent`).
std::string uniqueChild(const std::string& parent, const std::string& name);

// Undoable changes. `add` makes the missing levels of a full name.
void add(EditList& edits, const std::string& space);
void remove(EditList& edits, const std::string& space);
void setCurrent(EditList& edits, const std::string& space);

// Sets the current namespace and the relative names mode for the length of
// a referenced file's read.
class ReadingInside
{
public:
    explicit ReadingInside(const std::string& space);
    ~ReadingInside();
    ReadingInside(const ReadingInside&) = delete;
    ReadingInside& operator=(const ReadingInside&) = delete;

private:
    std::string fCurrent;
    bool fRelative;
};

// Only the root and the internal namespaces, the root current (file new).
void reset();

} // namespace mayasim::ns
