// hide and showHidden: objects through their visibility, components through
// the hidden state their object keeps for display.
#include "commands/CommandSupport.h"
#include "scene/Evaluation.h"
#include "scene/Operations.h"
#include "scene/Scene.h"
#include "scene/Selection.h"

#include <maya/MSelectionList.h>

#include <algorithm>
#include <map>
#include <set>

namespace mayasim::commands {

namespace {

// The hidden components of each object ("f[0:3]"), by the object. They are
// display state: no plug holds them and files don't keep them.
using HiddenComponents = std::map<std::weak_ptr<Node>, std::set<std::string>, std::owner_less<std::weak_ptr<Node>>>;

HiddenComponents& hiddenComponents()
{
    static HiddenComponents hidden;
    for (auto it = hidden.begin(); it != hidden.end();)
        it = it->first.expired() || it->second.empty() ? hidden.erase(it) : std::next(it);
    return hidden;
}

bool componentHidden(const NodePtr& node, const std::string& component)
{
    const HiddenComponents& hidden = hiddenComponents();
    const auto it = hidden.find(node);
    return it != hidden.end() && it->second.count(component) > 0;
}

class ComponentVisibilityEdit : public Edit
{
public:
    ComponentVisibilityEdit(const NodePtr& node, std::string component, bool hidden)
        : fNode(node), fComponent(std::move(component)), fHidden(hidden), fWasHidden(componentHidden(node, fComponent))
    {
    }
    void apply() override { set(fHidden); }
    void revert() override { set(fWasHidden); }

private:
    void set(bool hidden)
    {
        NodePtr node = fNode.lock();
        if (!node)
            return;
        std::set<std::string>& components = hiddenComponents()[node];
        if (hidden)
            components.insert(fComponent);
        else
            components.erase(fComponent);
    }

    std::weak_ptr<Node> fNode;
    std::string fComponent;
    bool fHidden;
    bool fWasHidden;
};

// An object or one of its components, as a selection item names them.
struct Target
{
    NodePtr node;
    std::string component; // empty for the object itself
};

// What the words name, or the active selection without words.
std::vector<Target> targetsOf(const std::vector<Word>& words)
{
    std::vector<SelectionItem> items;
    if (words.empty())
        items = SelectionAccess::items(selection::active());
    for (const Word& word : words)
    {
        std::vector<SelectionItem> found = selection::resolve(word.text);
        if (found.empty())
            throw noMatch(word.text);
        items.insert(items.end(), found.begin(), found.end());
    }
    std::vector<Target> targets;
    for (const SelectionItem& item : items)
        if (NodePtr node = nodePtr(item.node))
            targets.push_back({node, item.component});
    return targets;
}

std::optional<PlugKey> visibilityOf(const Node& node)
{
    if (!node.isDag())
        return std::nullopt;
    const AttributePtr attribute = node.findAttribute("visibility");
    if (!attribute)
        return std::nullopt;
    return PlugKey{attribute.get(), {}};
}

bool visible(const Target& target)
{
    if (!target.component.empty())
        return !componentHidden(target.node, target.component);
    const std::optional<PlugKey> key = visibilityOf(*target.node);
    return !key || eval::read(*target.node, *key).number != 0.0;
}

// Sets the target's visibility where it changes; false when it was as asked.
bool setVisible(EditList& edits, const Target& target, bool visibleNow)
{
    if (visible(target) == visibleNow)
        return false;
    if (!target.component.empty())
        edits.run(std::make_unique<ComponentVisibilityEdit>(target.node, target.component, !visibleNow));
    else if (const std::optional<PlugKey> key = visibilityOf(*target.node))
        ops::setValue(edits, target.node, *key, Value::ofNumber(visibleNow ? 1.0 : 0.0), true);
    return true;
}

std::string targetText(const Target& target)
{
    const std::string name = nameOf(*target.node);
    if (target.component.empty())
        return name;
    return target.component[0] == '[' ? name + target.component : name + "." + target.component;
}

MelValue hide(const Invocation& call)
{
    ParsedArgs args(call.name, call.words,
                    {{"all", "allObjects", 0}, {"cs", "clearSelection", 0}, {"rh", "returnHidden", 0},
                     {"tv", "testVisibility", 0}});
    std::vector<Target> targets;
    if (args.has("allObjects"))
    {
        for (const NodePtr& node : scene::worldChildren())
            targets.push_back({node, ""});
    }
    else
        targets = targetsOf(args.positional());
    if (targets.empty() && !args.has("allObjects"))
        throw MelError("hide: Not enough objects or values.");
    if (args.has("testVisibility"))
    {
        const auto hidden = std::count_if(targets.begin(), targets.end(), [](const Target& t) { return !visible(t); });
        return MelValue::ofInt(hidden == static_cast<long>(targets.size()) ? 1 : hidden == 0 ? 2 : 3);
    }
    std::vector<std::string> hiddenNow;
    undoable([&](EditList& edits) {
        for (const Target& target : targets)
            if (setVisible(edits, target, false))
                hiddenNow.push_back(targetText(target));
        if (args.has("clearSelection"))
            selection::select(edits, MSelectionList());
    });
    return args.has("returnHidden") ? MelValue::ofStrings(hiddenNow) : MelValue::none();
}

void addDescendants(const NodePtr& node, std::vector<Target>& targets)
{
    for (const NodePtr& child : node->children)
    {
        targets.push_back({child, ""});
        addDescendants(child, targets);
    }
}

MelValue showHidden(const Invocation& call)
{
    ParsedArgs args(call.name, call.words,
                    {{"a", "above", 0}, {"all", "allObjects", 0}, {"b", "below", 0}});
    std::vector<Target> targets;
    if (args.has("allObjects"))
    {
        for (const NodePtr& node : scene::nodes())
            targets.push_back({node, ""});
    }
    else
    {
        for (const Target& target : targetsOf(args.positional()))
        {
            targets.push_back(target);
            if (!target.component.empty())
                continue;
            if (args.has("above"))
                for (NodePtr up = target.node->parentNode(); up; up = up->parentNode())
                    targets.push_back({up, ""});
            if (args.has("below"))
                addDescendants(target.node, targets);
        }
        if (targets.empty())
            throw MelError("showHidden: Not enough objects or values.");
    }
    undoable([&](EditList& edits) {
        for (const Target& target : targets)
            setVisible(edits, target, true);
    });
    return MelValue::none();
}

BuiltinRegistrar hideCommand("hide", hide);
BuiltinRegistrar showHiddenCommand("showHidden", showHidden);

} // namespace

} // namespace mayasim::commands
