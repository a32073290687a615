// selectionConnection and deleteUI.
#include "commands/UiObjects.h"

#include "commands/CommandSupport.h"

#include <algorithm>
#include <map>

namespace mayasim::commands {

namespace {

std::map<std::string, std::vector<NodePtr>>& connections()
{
    static std::map<std::string, std::vector<NodePtr>> lists;
    return lists;
}

void add(std::vector<NodePtr>& objects, const NodePtr& node)
{
    if (std::find(objects.begin(), objects.end(), node) == objects.end())
        objects.push_back(node);
}

// A new connection takes the lowest free default name.
std::string defaultName()
{
    for (int n = 1;; ++n)
        if (std::string name = "selectionConnection" + std::to_string(n); !connections().count(name))
            return name;
}

MelValue selectionConnection(const Invocation& call)
{
    const ParsedArgs args(call.name, call.words,
                          {{"q", "query", 0},
                           {"e", "edit", 0},
                           {"ex", "exists", 0},
                           {"s", "select", 1},
                           {"d", "deselect", 1},
                           {"clr", "clear", 0},
                           {"obj", "object", 1}});
    const std::vector<Word>& positional = args.positional();
    if (positional.size() > 1)
        throw MelError("selectionConnection: Too many arguments.");
    std::string name = positional.empty() ? std::string() : positional[0].text;
    if (args.has("exists"))
        return MelValue::ofInt(connectionExists(name) ? 1 : 0);
    if ((args.has("query") || args.has("edit")) && !connectionExists(name))
        throw MelError("selectionConnection: Object '" + name + "' not found.");
    if (args.has("query")) {
        if (!args.has("object"))
            throw MelError("selectionConnection: Nothing to query.");
        return namesOf(connectionObjects(name));
    }
    if (!args.has("edit")) {
        if (name.empty())
            name = defaultName();
        else if (connectionExists(name))
            throw MelError("Object's name '" + name + "' is not unique.");
    }
    // Every name is looked up before the connection changes or comes to be.
    std::vector<NodePtr> selected, deselected;
    for (const auto& use : args.uses("select"))
        selected.push_back(node(use[0].text));
    for (const auto& use : args.uses("deselect"))
        deselected.push_back(node(use[0].text));
    const NodePtr object = args.has("object") ? node(args.args("object")[0].text) : nullptr;
    std::vector<NodePtr>& objects = connections()[name];
    if (args.has("clear") || object)
        objects.clear();
    if (object)
        objects.push_back(object);
    for (const NodePtr& n : selected)
        add(objects, n);
    for (const NodePtr& n : deselected)
        objects.erase(std::remove(objects.begin(), objects.end(), n), objects.end());
    return args.has("edit") ? MelValue::none() : MelValue::ofString(name);
}

// Deletes the named UI objects; the only ones there are here are selection
// connections. Any unknown name fails the call before anything goes.
MelValue deleteUI(const Invocation& call)
{
    const ParsedArgs args(call.name, call.words, {});
    if (args.positional().empty())
        throw MelError("deleteUI: Wrong number of arguments.");
    for (const Word& word : args.positional())
        if (!connectionExists(word.text))
            throw MelError("deleteUI: Object '" + word.text + "' not found.");
    for (const Word& word : args.positional())
        connections().erase(word.text);
    return MelValue::none();
}

BuiltinRegistrar selectionConnectionCommand("selectionConnection", selectionConnection);
BuiltinRegistrar deleteUICommand("deleteUI", deleteUI);

} // namespace

bool connectionExists(const std::string& name)
{
    return connections().count(name) != 0;
}

std::vector<NodePtr> connectionObjects(const std::string& name)
{
    std::vector<NodePtr> inScene;
    auto found = connections().find(name);
    if (found != connections().end())
        std::copy_if(found->second.begin(), found->second.end(), std::back_inserter(inScene),
                     [](const NodePtr& n) { return n->alive; });
    return inScene;
}

} // namespace mayasim::commands
