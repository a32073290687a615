// createNode, delete, rename, duplicate, parent and lockNode.
#include "commands/CommandSupport.h"
#include "scene/Operations.h"
#include "scene/Scene.h"
#include "scene/Selection.h"

#include <maya/MString.h>
#include <maya/MUuid.h>

namespace mayasim::commands {

namespace {

MSelectionList listOf(const std::vector<NodePtr>& nodes)
{
    MSelectionList list;
    for (const auto& n : nodes)
        list.add(objectOf(n.get()));
    return list;
}

MelValue createNode(const Invocation& call)
{
    ParsedArgs args(call.name, call.words,
                    {{"n", "name", 1}, {"p", "parent", 1}, {"s", "shared", 0}, {"ss", "skipSelect", 0}});
    if (args.positional().size() != 1)
        throw MelError("createNode: a node type must be given.");
    const std::string typeName = args.positional()[0].text;
    const std::string name = args.has("name") ? args.args("name")[0].text : "";
    if (args.has("shared") && !name.empty())
        if (std::vector<NodePtr> existing = scene::match(name); existing.size() == 1)
            return MelValue::ofString(nameOf(*existing.front()));
    NodePtr parent = args.has("parent") ? node(args.args("parent")[0].text) : nullptr;
    NodeTypePtr type = findNodeType(typeName);
    if (!type || type->abstract)
        throw MelError("Unknown object type: " + typeName);
    return MelValue::ofString(undoable([&](EditList& edits) {
        NodePtr created = ops::createNode(edits, type, name, parent);
        if (!args.has("skipSelect"))
            selection::select(edits, listOf({created}));
        return nameOf(*created);
    }));
}

MelValue deleteNodes(const Invocation& call)
{
    ParsedArgs args(call.name, call.words, {});
    std::vector<NodePtr> targets = nodes(args.positional(), true);
    if (targets.empty())
        throw MelError("Not enough objects or values.");
    undoable([&](EditList& edits) {
        for (const auto& target : targets)
            ops::deleteNode(edits, target);
    });
    return MelValue::none();
}

MelValue rename(const Invocation& call)
{
    ParsedArgs args(call.name, call.words, {{"uid", "uuid", 0}, {"is", "ignoreShape", 0}});
    const auto& words = args.positional();
    if (args.has("uuid"))
    {
        // rename -uid [node] <uuid>: the new name is a UUID.
        if (words.empty() || words.size() > 2)
            throw MelError("rename: -uuid takes an object and a UUID.");
        MStatus status;
        MUuid uuid(MString(words.back().text.c_str()), &status);
        if (!status)
            throw MelError("rename: invalid UUID: " + words.back().text);
        std::vector<NodePtr> targets = words.size() == 2 ? std::vector<NodePtr>{node(words[0].text)} : selectedNodes();
        if (targets.empty())
            throw MelError("rename: no object to rename.");
        undoable([&](EditList& edits) { ops::setUuid(edits, targets.front(), uuid); });
        return MelValue::ofString(nameOf(*targets.front()));
    }
    if (words.empty() || words.size() > 2)
        throw MelError("rename: give an object and a new name.");
    NodePtr target;
    if (words.size() == 2)
        target = node(words[0].text);
    else if (std::vector<NodePtr> selected = selectedNodes(); !selected.empty())
        target = selected.front();
    else
        throw MelError("rename: no object to rename.");
    const std::string wanted = words.back().text;
    return MelValue::ofString(undoable([&](EditList& edits) { return ops::rename(edits, target, wanted); }));
}

MelValue duplicate(const Invocation& call)
{
    ParsedArgs args(call.name, call.words, {{"rr", "returnRootsOnly", 0}, {"n", "name", 1}});
    std::vector<NodePtr> targets = nodes(args.positional(), true);
    if (targets.empty())
        throw MelError("duplicate: no objects to duplicate.");
    const std::string name = args.has("name") ? args.args("name")[0].text : "";
    std::vector<NodePtr> copies = undoable([&](EditList& edits) {
        std::vector<NodePtr> made;
        for (const auto& target : targets)
        {
            NodePtr copy = ops::duplicate(edits, target);
            if (!name.empty())
                ops::rename(edits, copy, name);
            made.push_back(copy);
        }
        selection::select(edits, listOf(made));
        return made;
    });
    return namesOf(copies);
}

MelValue parent(const Invocation& call)
{
    ParsedArgs args(call.name, call.words,
                    {{"w", "world", 0}, {"r", "relative", 0}, {"a", "absolute", 0}, {"s", "shape", 0},
                     {"add", "addObject", 0}});
    std::vector<NodePtr> targets = nodes(args.positional(), true);
    NodePtr newParent;
    if (!args.has("world"))
    {
        if (targets.size() < 2)
            throw MelError("parent: Not enough objects or values.");
        newParent = targets.back();
        targets.pop_back();
    }
    if (targets.empty())
        throw MelError("parent: Not enough objects or values.");
    const bool relative = args.has("relative") || args.has("shape");
    undoable([&](EditList& edits) {
        for (const auto& target : targets)
            ops::reparent(edits, target, newParent, relative);
    });
    return namesOf(targets);
}

MelValue lockNode(const Invocation& call)
{
    ParsedArgs args(call.name, call.words,
                    {{"l", "lock", 1}, {"q", "query", 0}, {"ln", "lockName", 1}, {"lu", "lockUnpublished", 1},
                     {"ic", "ignoreComponents", 0}});
    std::vector<NodePtr> targets = nodes(args.positional(), true);
    if (targets.empty())
        throw MelError("lockNode: Not enough objects or values.");
    if (args.has("query"))
    {
        std::vector<long> locked;
        for (const auto& target : targets)
            locked.push_back(target->locked ? 1 : 0);
        return MelValue::ofInts(locked);
    }
    const bool lock = args.has("lock") ? args.args("lock")[0].boolean() : true;
    undoable([&](EditList& edits) {
        for (const auto& target : targets)
            if (target->locked != lock)
                edits.run(editing::setNodeLocked(target, lock));
    });
    return MelValue::none();
}

BuiltinRegistrar createNodeCommand("createNode", createNode);
BuiltinRegistrar deleteCommand("delete", deleteNodes);
BuiltinRegistrar renameCommand("rename", rename);
BuiltinRegistrar duplicateCommand("duplicate", duplicate);
BuiltinRegistrar parentCommand("parent", parent);
BuiltinRegistrar lockNodeCommand("lockNode", lockNode);

} // namespace

} // namespace mayasim::commands
