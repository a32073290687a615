#include "commands/CommandSupport.h"

#include "scene/Plugs.h"
#include "scene/Scene.h"
#include "scene/Selection.h"

#include <maya/MSelectionList.h>

namespace mayasim::commands {

namespace {

struct Range
{
    std::string path; // with "[first]" in place of the range
    int first = 0;
    int last = 0;
};

// "ktv[0:3]" -> "ktv" elements 0..3 (only the last part may hold a range).
std::optional<Range> elementRange(const std::string& path)
{
    const size_t open = path.rfind('[');
    const size_t colon = path.find(':', open == std::string::npos ? 0 : open);
    if (open == std::string::npos || colon == std::string::npos || path.back() != ']')
        return std::nullopt;
    const std::optional<int> first = elementIndex(path.substr(open + 1, colon - open - 1));
    const std::optional<int> last = elementIndex(path.substr(colon + 1, path.size() - colon - 2));
    if (!first || !last)
        return std::nullopt;
    return Range{path.substr(0, open + 1) + "%]", *first, *last};
}

std::vector<PlugRef> plugsOn(const NodePtr& node, const std::string& path)
{
    std::vector<PlugRef> result;
    if (std::optional<Range> range = elementRange(path))
    {
        for (long index = range->first; index <= range->last; ++index)
        {
            std::string element = range->path;
            element.replace(element.find('%'), 1, std::to_string(index));
            if (std::optional<PlugKey> key = parsePlugPath(*node, element))
                result.push_back({node, *key});
            else
                return {};
        }
        return result;
    }
    if (std::optional<PlugKey> key = parsePlugPath(*node, path))
        result.push_back({node, *key});
    return result;
}

} // namespace

MelError noMatch(const std::string& name)
{
    return MelError("No object matches name: " + name);
}

NodePtr node(const std::string& name)
{
    std::vector<NodePtr> found = scene::hasWildcards(name) ? std::vector<NodePtr>() : scene::match(name);
    if (found.empty())
        throw noMatch(name);
    if (found.size() > 1)
        throw MelError("More than one object matches name: " + name);
    return found.front();
}

std::vector<NodePtr> selectedNodes()
{
    std::vector<NodePtr> result;
    for (const auto& item : SelectionAccess::items(selection::active()))
        if (NodePtr n = nodePtr(item.node))
            result.push_back(n);
    return result;
}

std::vector<NodePtr> nodes(const std::vector<Word>& words, bool selectionByDefault)
{
    if (words.empty())
        return selectionByDefault ? selectedNodes() : std::vector<NodePtr>();
    std::vector<NodePtr> result;
    for (const Word& word : words)
    {
        std::vector<NodePtr> found = scene::match(word.text);
        if (found.empty())
            throw noMatch(word.text);
        if (!scene::hasWildcards(word.text) && found.size() > 1)
            throw MelError("More than one object matches name: " + word.text);
        for (const auto& n : found)
            if (std::find(result.begin(), result.end(), n) == result.end())
                result.push_back(n);
    }
    return result;
}

std::vector<PlugRef> plugs(const std::string& text, const std::string& prefix)
{
    const size_t dot = text.find('.');
    if (dot == std::string::npos)
        throw MelError(prefix + "No object matches name: " + text);
    const std::string attribute = text.substr(dot + 1);
    std::vector<NodePtr> owners;
    if (dot == 0)
        owners = selectedNodes();
    else
        for (const auto& found : scene::match(text.substr(0, dot)))
            owners.push_back(found);
    std::vector<PlugRef> result;
    for (const auto& owner : owners)
        for (const PlugRef& plug : plugsOn(owner, attribute))
            result.push_back(plug);
    if (result.empty())
        throw MelError(prefix + "No object matches name: " + text);
    return result;
}

std::string nameOf(const Node& node, bool fullPath)
{
    return fullPath ? scene::fullPathName(node) : scene::partialPathName(node);
}

MelValue namesOf(const std::vector<NodePtr>& nodes, bool fullPath)
{
    std::vector<std::string> names;
    for (const auto& n : nodes)
        names.push_back(nameOf(*n, fullPath));
    return MelValue::ofStrings(names);
}

} // namespace mayasim::commands
