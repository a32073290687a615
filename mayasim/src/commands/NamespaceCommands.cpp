// namespace, namespaceInfo and referenceQuery.
#include "commands/CommandSupport.h"
#include "scene/Namespaces.h"
#include "scene/Operations.h"
#include "scene/References.h"

#include <filesystem>

namespace mayasim::commands {

namespace {

// A namespace as namespaceInfo shows it: its full name by default ("rig",
// ":" for the root), with a leading colon as an absolute name, or its last
// level as a base name.
std::string namespaceText(const std::string& space, const ParsedArgs& args)
{
    if (space.empty())
        return ":";
    if (args.has("absoluteName"))
        return ":" + space;
    if (args.has("baseName") || args.has("shortName"))
        return ns::baseName(space);
    return space;
}

std::string nodeText(const Node& node, const ParsedArgs& args)
{
    if (args.has("dagPath"))
        return nameOf(node, true);
    if (args.has("absoluteName"))
        return ":" + node.name;
    if (args.has("baseName") || args.has("shortName"))
        return ns::baseName(node.name);
    return node.name;
}

// Moves a namespace's nodes and namespaces into another one (merging).
void mergeInto(EditList& edits, const std::string& space, const std::string& target)
{
    const auto moved = [&](const std::string& name) { return ns::join(target, name.substr(space.size() + 1)); };
    for (const std::string& inner : ns::under(space, true))
        ns::add(edits, moved(inner));
    for (const NodePtr& node : ns::nodesIn(space, true))
        ops::rename(edits, node, ":" + moved(node->name));
}

MelValue removeNamespace(const ParsedArgs& args)
{
    const std::string space = ns::resolve(args.args("removeNamespace")[0].text);
    if (space.empty() || ns::internal(space))
        throw MelError("Cannot remove the namespace '" + namespaceText(space, args) + "'.");
    const bool empty = ns::nodesIn(space, true).empty() && ns::under(space, true).empty();
    const bool merge = args.has("mergeNamespaceWithRoot") || args.has("mergeNamespaceWithParent");
    if (!empty && !merge && !args.has("deleteNamespaceContent"))
        throw MelError("Namespace '" + space + "' is not empty. Use -mergeNamespaceWithRoot, "
                       "-mergeNamespaceWithParent or -deleteNamespaceContent to remove it with its content.");
    undoable([&](EditList& edits) {
        if (merge)
            mergeInto(edits, space, args.has("mergeNamespaceWithRoot") ? std::string() : ns::namespaceOf(space));
        else
            for (const NodePtr& node : ns::nodesIn(space, true))
                ops::deleteNode(edits, node);
        const std::vector<std::string> inner = ns::under(space, true);
        for (auto it = inner.rbegin(); it != inner.rend(); ++it)
            ns::remove(edits, *it);
        ns::remove(edits, space);
    });
    return MelValue::none();
}

MelValue namespaceCommand(const Invocation& call)
{
    const ParsedArgs args(call.name, call.words,
                          {{"add", "addNamespace", 1},
                           {"p", "parent", 1},
                           {"set", "setNamespace", 1},
                           {"rm", "removeNamespace", 1},
                           {"mnr", "mergeNamespaceWithRoot", 0},
                           {"mnp", "mergeNamespaceWithParent", 0},
                           {"dnc", "deleteNamespaceContent", 0},
                           {"ex", "exists", 1},
                           {"ir", "isRootNamespace", 1},
                           {"vn", "validateName", 1},
                           {"an", "absoluteName", 0},
                           {"f", "force", 0}});
    if (args.has("exists"))
    {
        try
        {
            ns::resolve(args.args("exists")[0].text);
            return MelValue::ofInt(1);
        }
        catch (const MelError&)
        {
            return MelValue::ofInt(0);
        }
    }
    if (args.has("isRootNamespace"))
        return MelValue::ofInt(ns::resolve(args.args("isRootNamespace")[0].text).empty() ? 1 : 0);
    if (args.has("validateName"))
        return MelValue::ofString(ns::validName(args.args("validateName")[0].text));
    if (args.has("addNamespace"))
    {
        const std::string name = args.args("addNamespace")[0].text;
        const bool fromRoot = !name.empty() && name[0] == ':';
        const std::string parent = args.has("parent") ? ns::resolve(args.args("parent")[0].text)
                                   : fromRoot         ? std::string()
                                                      : ns::current();
        const std::string valid = ns::validName(name.substr(fromRoot ? 1 : 0));
        if (valid.empty() || valid.back() == ':')
            throw MelError("Invalid namespace name: " + name);
        const std::string space = ns::join(parent, valid);
        if (ns::exists(space))
            throw MelError("Namespace '" + space + "' already exists.");
        undoable([&](EditList& edits) { ns::add(edits, space); });
        return MelValue::ofString(args.has("absoluteName") ? ":" + space : space);
    }
    if (args.has("setNamespace"))
    {
        const std::string space = ns::resolve(args.args("setNamespace")[0].text);
        undoable([&](EditList& edits) { ns::setCurrent(edits, space); });
        return MelValue::none();
    }
    if (args.has("removeNamespace"))
        return removeNamespace(args);
    throw MelError("namespace: no operation specified.");
}

MelValue namespaceInfo(const Invocation& call)
{
    const ParsedArgs args(call.name, call.words,
                          {{"cur", "currentNamespace", 0},
                           {"lon", "listOnlyNamespaces", 0},
                           {"lod", "listOnlyDependencyNodes", 0},
                           {"ls", "listNamespace", 0},
                           {"r", "recurse", 0},
                           {"int", "internal", 0},
                           {"an", "absoluteName", 0},
                           {"bn", "baseName", 0},
                           {"sn", "shortName", 0},
                           {"fn", "fullName", 0},
                           {"dp", "dagPath", 0},
                           {"p", "parent", 0},
                           {"ir", "isRootNamespace", 1}});
    if (args.positional().size() > 1)
        throw MelError("Too many arguments.");
    if (args.has("isRootNamespace"))
        return MelValue::ofInt(ns::resolve(args.args("isRootNamespace")[0].text).empty() ? 1 : 0);
    if (args.has("currentNamespace"))
        return MelValue::ofString(namespaceText(ns::current(), args));
    const std::string space =
        args.positional().empty() ? ns::current() : ns::resolve(args.positional()[0].text);
    if (args.has("parent"))
        return MelValue::ofString(namespaceText(ns::namespaceOf(space), args));
    const bool spaces = args.has("listOnlyNamespaces") || args.has("listNamespace");
    const bool nodes = args.has("listOnlyDependencyNodes") || args.has("listNamespace");
    if (!spaces && !nodes)
        throw MelError("namespaceInfo: no query flag specified.");
    std::vector<std::string> listed;
    if (spaces)
        for (const std::string& inner : ns::under(space, args.has("recurse")))
            if (!args.has("internal") || !ns::internal(inner))
                listed.push_back(namespaceText(inner, args));
    if (nodes)
        for (const NodePtr& node : ns::nodesIn(space, args.has("recurse")))
            listed.push_back(nodeText(*node, args));
    return MelValue::ofStrings(listed);
}

MelValue referenceQuery(const Invocation& call)
{
    const ParsedArgs args(call.name, call.words,
                          {{"inr", "isNodeReferenced", 0},
                           {"f", "filename", 0},
                           {"ns", "namespace", 0},
                           {"rfn", "referenceNode", 0},
                           {"n", "nodes", 0},
                           {"il", "isLoaded", 0},
                           {"wcn", "withoutCopyNumber", 0},
                           {"shn", "shortName", 0},
                           {"dp", "dagPath", 0}});
    if (args.positional().size() != 1)
        throw MelError("referenceQuery: give one reference node, referenced node or file name.");
    const std::string target = args.positional()[0].text;
    ReferencePtr reference = references::byFileName(target);
    if (!reference)
    {
        const NodePtr found = node(target);
        if (args.has("isNodeReferenced"))
            return MelValue::ofInt(found->origin ? 1 : 0);
        reference = references::of(*found);
    }
    else if (args.has("isNodeReferenced"))
        return MelValue::ofInt(0);
    if (!reference)
        throw MelError("referenceQuery: '" + target + "' is not a reference node or a node from a referenced file.");
    if (args.has("filename"))
    {
        const std::string name = references::fileName(*reference, !args.has("withoutCopyNumber"));
        return MelValue::ofString(args.has("shortName") ? std::filesystem::path(name).filename().string() : name);
    }
    if (args.has("namespace"))
        return MelValue::ofString(args.has("shortName") ? ns::baseName(reference->space) : ":" + reference->space);
    if (args.has("referenceNode"))
        return MelValue::ofString(reference->nodeName);
    if (args.has("isLoaded"))
        return MelValue::ofInt(1);
    if (args.has("nodes"))
        return namesOf(references::nodesOf(*reference), args.has("dagPath"));
    throw MelError("referenceQuery: no query flag specified.");
}

BuiltinRegistrar namespaceRegistrar("namespace", namespaceCommand);
BuiltinRegistrar namespaceInfoRegistrar("namespaceInfo", namespaceInfo);
BuiltinRegistrar referenceQueryRegistrar("referenceQuery", referenceQuery);

} // namespace

} // namespace mayasim::commands
