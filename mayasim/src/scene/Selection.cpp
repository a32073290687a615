#include "scene/Selection.h"

#include "engine/Events.h"
#include "scene/Plugs.h"
#include "scene/Scene.h"

#include <maya/MGlobal.h>
#include <maya/MString.h>
#include <maya/MUuid.h>

namespace mayasim {

MDagPath pathTo(const Node& node)
{
    MDagPath path;
    auto& nodes = DagPathAccess::nodes(path);
    for (NodePtr at = const_cast<Node&>(node).self(); at; at = at->parentNode())
        nodes.insert(nodes.begin(), objectOf(at.get()));
    return path;
}

namespace selection {

namespace {

MSelectionList& activeList()
{
    static MSelectionList list;
    return list;
}

// A component part: "vtx[0:3]", "[2]", "cv[1]".
bool looksLikeComponent(const std::string& text)
{
    return !text.empty() && text.back() == ']' && text.find('[') != std::string::npos;
}

std::optional<MUuid> parseUuid(const std::string& text)
{
    if (text.size() != 36 || text[8] != '-')
        return std::nullopt;
    MStatus status;
    MUuid uuid(MString(text.c_str()), &status);
    if (!status)
        return std::nullopt;
    return uuid;
}

} // namespace

const MSelectionList& active()
{
    return activeList();
}

void setActive(const MSelectionList& list)
{
    activeList() = list;
    events::fireActiveListModified();
}

namespace {

class SelectEdit : public Edit
{
public:
    SelectEdit(MSelectionList before, MSelectionList after) : fBefore(std::move(before)), fAfter(std::move(after)) {}
    void apply() override { setActive(fAfter); }
    void revert() override { setActive(fBefore); }

private:
    MSelectionList fBefore, fAfter;
};

} // namespace

void select(EditList& edits, const MSelectionList& list)
{
    edits.run(std::make_unique<SelectEdit>(active(), list));
}

MSelectionList adjusted(const MSelectionList& list, int adjustment)
{
    MSelectionList result = active();
    switch (adjustment)
    {
    case MGlobal::kReplaceList: return list;
    case MGlobal::kXORWithList: result.merge(list, MSelectionList::kXORWithList); break;
    case MGlobal::kAddToList: result.merge(list, MSelectionList::kMergeNormal); break;
    case MGlobal::kRemoveFromList: result.merge(list, MSelectionList::kRemoveFromList); break;
    case MGlobal::kAddToHeadOfList:
        result.merge(list, MSelectionList::kRemoveFromList);
        {
            MSelectionList head = list;
            head.merge(result, MSelectionList::kMergeNormal);
            return head;
        }
    }
    return result;
}

namespace {

// Takes the node's items out of a list; false when it had none.
bool removeItemsOf(MSelectionList& list, const Node& node)
{
    bool changed = false;
    for (unsigned int i = list.length(); i-- > 0;)
    {
        MObject item;
        list.getDependNode(i, item);
        if (nodeObject(item) == &node)
        {
            list.remove(i);
            changed = true;
        }
    }
    return changed;
}

} // namespace

void deselect(EditList& edits, const Node& node)
{
    MSelectionList list = active();
    if (removeItemsOf(list, node))
        select(edits, list);
}

void forget(const Node& node)
{
    if (removeItemsOf(activeList(), node))
        events::fireActiveListModified();
}

SelectionItem itemFor(const Node& node)
{
    SelectionItem item;
    item.node = objectOf(&node);
    if (node.isDag())
        item.path = pathTo(node);
    return item;
}

std::vector<SelectionItem> resolve(const std::string& text)
{
    std::vector<SelectionItem> items;
    if (std::optional<MUuid> uuid = parseUuid(text))
    {
        if (NodePtr node = scene::findByUuid(*uuid))
            items.push_back(itemFor(*node));
        return items;
    }
    const size_t dot = text.find('.');
    std::string object = text.substr(0, dot);
    std::string rest = dot == std::string::npos ? std::string() : text.substr(dot + 1);
    const size_t bracket = object.find('[');
    if (bracket != std::string::npos && rest.empty())
    {
        rest = object.substr(bracket);
        object = object.substr(0, bracket);
    }
    for (const auto& node : scene::match(object))
    {
        SelectionItem item = itemFor(*node);
        if (!rest.empty())
        {
            if (std::optional<PlugKey> key = rest[0] != '[' ? parsePlugPath(*node, rest) : std::nullopt)
                item.plug = makePlug(*node, *key);
            else if (looksLikeComponent(rest))
                item.component = rest;
            else
                continue;
        }
        items.push_back(item);
    }
    return items;
}

std::string text(const SelectionItem& item)
{
    const Node* node = nodeObject(item.node);
    if (!node)
        return {};
    if (!item.plug.isNull())
    {
        PlugNameOptions options;
        options.includeNodeName = true;
        options.useLongNames = true; // "pCube1.translateX", as ls -sl shows it
        return plugName(*node, plugKey(item.plug), options);
    }
    const std::string name = scene::partialPathName(*node);
    if (item.component.empty())
        return name;
    return item.component[0] == '[' ? name + item.component : name + "." + item.component;
}

bool sameItem(const SelectionItem& a, const SelectionItem& b)
{
    return a.node == b.node && a.component == b.component && a.plug == b.plug;
}

} // namespace selection

} // namespace mayasim
