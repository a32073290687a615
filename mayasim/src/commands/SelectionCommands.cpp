// select, ls and listRelatives.
#include "commands/CommandSupport.h"
#include "scene/Scene.h"
#include "scene/Selection.h"

#include <maya/MGlobal.h>
#include <maya/MSelectionList.h>
#include <maya/MStringArray.h>

namespace mayasim::commands {

namespace {

MelValue select(const Invocation& call)
{
    ParsedArgs args(call.name, call.words,
                    {{"r", "replace", 0}, {"add", "add", 0}, {"af", "addFirst", 0}, {"d", "deselect", 0},
                     {"tgl", "toggle", 0}, {"cl", "clear", 0}, {"ne", "noExpand", 0}, {"all", "all", 0}});
    MSelectionList list;
    if (args.has("all"))
        for (const auto& n : scene::nodes())
            list.add(objectOf(n.get()));
    for (const Word& word : args.positional())
    {
        if (!list.add(MString(word.text.c_str())))
            throw noMatch(word.text);
    }
    if (!args.has("clear") && !args.has("all") && args.positional().empty())
        throw MelError("select: Not enough objects or values.");
    const int adjustment = args.has("clear")      ? MGlobal::kReplaceList
                           : args.has("add")      ? MGlobal::kAddToList
                           : args.has("addFirst") ? MGlobal::kAddToHeadOfList
                           : args.has("deselect") ? MGlobal::kRemoveFromList
                           : args.has("toggle")   ? MGlobal::kXORWithList
                                                  : MGlobal::kReplaceList;
    undoable([&](EditList& edits) { selection::select(edits, selection::adjusted(list, adjustment)); });
    return MelValue::none();
}

bool ofTypes(const Node& node, const ParsedArgs& args)
{
    if (!args.has("type"))
        return true;
    for (const auto& use : args.uses("type"))
        if (node.type()->isA(use[0].text))
            return true;
    return false;
}

MelValue ls(const Invocation& call)
{
    ParsedArgs args(call.name, call.words,
                    {{"sl", "selection", 0}, {"typ", "type", 1}, {"l", "long", 0}, {"uid", "uuid", 0},
                     {"dag", "dag", 0}, {"tr", "transforms", 0}, {"s", "shapes", 0}, {"fl", "flatten", 0}});
    std::vector<std::string> results;
    auto add = [&](const Node& node, const std::string& text) {
        if (!ofTypes(node, args) || (args.has("dag") && !node.isDag()) ||
            (args.has("transforms") && !node.hasFn(MFn::kTransform)) || (args.has("shapes") && !node.isShape()))
            return;
        if (args.has("uuid"))
            results.push_back(node.uuid.asString().asChar());
        else if (std::find(results.begin(), results.end(), text) == results.end())
            results.push_back(text);
    };
    if (args.has("selection"))
    {
        MStringArray strings;
        selection::active().getSelectionStrings(strings);
        const auto& items = SelectionAccess::items(selection::active());
        for (unsigned int i = 0; i < strings.length(); ++i)
            if (const Node* n = nodeObject(items[i].node))
                add(*n, args.has("long") && items[i].component.empty() && items[i].plug.isNull()
                            ? scene::fullPathName(*n)
                            : std::string(strings[i].asChar()));
    }
    else if (args.positional().empty())
    {
        for (const auto& n : scene::nodes())
            add(*n, nameOf(*n, args.has("long")));
    }
    else
    {
        for (const Word& word : args.positional())
            for (const SelectionItem& item : selection::resolve(word.text))
                if (const Node* n = nodeObject(item.node))
                    add(*n, item.component.empty() && item.plug.isNull() ? nameOf(*n, args.has("long"))
                                                                         : selection::text(item));
    }
    return MelValue::ofStrings(results);
}

void descendants(const Node& node, std::vector<NodePtr>& out)
{
    // Maya lists all descendants deepest first, the last child first.
    for (auto it = node.children.rbegin(); it != node.children.rend(); ++it)
    {
        descendants(**it, out);
        out.push_back(*it);
    }
}

MelValue listRelatives(const Invocation& call)
{
    ParsedArgs args(call.name, call.words,
                    {{"c", "children", 0}, {"p", "parent", 0}, {"s", "shapes", 0}, {"ad", "allDescendents", 0},
                     {"f", "fullPath", 0}, {"pa", "path", 0}, {"typ", "type", 1}, {"ni", "noIntermediate", 0}});
    std::vector<NodePtr> found;
    for (const auto& n : nodes(args.positional(), true))
    {
        std::vector<NodePtr> relatives;
        if (args.has("parent"))
        {
            if (NodePtr p = n->parentNode())
                relatives.push_back(p);
        }
        else if (args.has("allDescendents"))
            descendants(*n, relatives);
        else
            relatives = n->children;
        for (const auto& r : relatives)
            if ((!args.has("shapes") || r->isShape()) && ofTypes(*r, args) &&
                std::find(found.begin(), found.end(), r) == found.end())
                found.push_back(r);
    }
    return namesOf(found, args.has("fullPath"));
}

BuiltinRegistrar selectCommand("select", select);
BuiltinRegistrar lsCommand("ls", ls);
BuiltinRegistrar listRelativesCommand("listRelatives", listRelatives);

} // namespace

} // namespace mayasim::commands
