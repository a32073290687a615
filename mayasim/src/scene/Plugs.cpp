#include "scene/Plugs.h"

#include "foundation/NumberText.h"
#include "scene/Scene.h"

#include <limits>
#include <set>

namespace mayasim {

MPlug PlugAccess::make(const Node& node, const PlugKey& key)
{
    MPlug plug;
    plug.fNode = objectOf(&node);
    plug.fAttribute = objectOf(key.attribute);
    plug.fIndices = key.indices.empty() ? nullptr : new PlugIndices{key.indices};
    return plug;
}

PlugKey PlugAccess::key(const MPlug& plug)
{
    return PlugKey{attributeObject(plug.fAttribute), plug.fIndices ? plug.fIndices->values : std::vector<int>()};
}

Node* PlugAccess::node(const MPlug& plug)
{
    return nodeObject(plug.fNode);
}

std::optional<int> elementIndex(const std::string& text)
{
    long value = 0;
    if (text.empty() || text.find_first_not_of("0123456789") != std::string::npos || !parseInteger(text, value) ||
        value > std::numeric_limits<int>::max())
        return std::nullopt;
    return static_cast<int>(value);
}

PlugKey keyOf(const Attribute& attribute)
{
    return PlugKey{&attribute, std::vector<int>(static_cast<size_t>(attribute.arrayDepth()), -1)};
}

namespace {

struct Segment
{
    std::string name;
    std::optional<int> index;
};

std::optional<std::vector<Segment>> splitPath(const std::string& path)
{
    std::vector<Segment> segments;
    size_t start = 0;
    while (start <= path.size())
    {
        size_t end = path.find('.', start);
        std::string part = path.substr(start, end == std::string::npos ? std::string::npos : end - start);
        Segment segment;
        size_t bracket = part.find('[');
        if (bracket != std::string::npos)
        {
            if (part.back() != ']')
                return std::nullopt;
            segment.index = elementIndex(part.substr(bracket + 1, part.size() - bracket - 2));
            if (!segment.index)
                return std::nullopt;
            part = part.substr(0, bracket);
        }
        if (part.empty())
            return std::nullopt;
        segment.name = part;
        segments.push_back(segment);
        if (end == std::string::npos)
            break;
        start = end + 1;
    }
    return segments;
}

AttributePtr childNamed(const Attribute& parent, const std::string& name)
{
    for (const auto& child : parent.children)
        if (child->longName == name || child->shortName == name)
            return child;
    return nullptr;
}

} // namespace

std::optional<PlugKey> parsePlugPath(const Node& node, const std::string& path)
{
    auto segments = splitPath(path);
    if (!segments)
        return std::nullopt;
    AttributePtr attribute;
    PlugKey key;
    for (size_t i = 0; i < segments->size(); ++i)
    {
        const Segment& segment = (*segments)[i];
        AttributePtr next = i == 0 ? node.findAttribute(segment.name) : childNamed(*attribute, segment.name);
        if (!next)
            return std::nullopt;
        if (i == 0)
        {
            // A child named on its own ("tx") stands for its full path,
            // with no element chosen on array ancestors.
            key = keyOf(*next);
        }
        else if (next->array)
            key.indices.push_back(-1);
        if (segment.index)
        {
            if (!next->array)
                return std::nullopt;
            key.indices.back() = *segment.index;
        }
        attribute = next;
    }
    key.attribute = attribute.get();
    return key;
}

std::string plugName(const Node& node, const PlugKey& key, const PlugNameOptions& options)
{
    const std::vector<const Attribute*> chain = key.attribute->chain();
    // Without the full path, the name starts at the topmost array ancestor
    // whose element must be named, or at the attribute itself.
    size_t first = options.useFullAttributePath ? 0 : chain.size() - 1;
    if (!options.useFullAttributePath)
        for (size_t i = 0; i + 1 < chain.size(); ++i)
            if (chain[i]->array)
            {
                first = i;
                break;
            }
    std::string text;
    size_t arrayLevel = 0;
    for (size_t i = 0; i < chain.size(); ++i)
    {
        const Attribute* attribute = chain[i];
        const int index = attribute->array ? key.indices[arrayLevel++] : -1;
        if (i < first)
            continue;
        if (!text.empty())
            text += ".";
        text += options.useLongNames ? attribute->longName : attribute->shortName;
        if (index >= 0)
            text += "[" + std::to_string(index) + "]";
    }
    if (options.includeNodeName)
        text = (options.fullNodePath ? scene::fullPathName(node) : scene::partialPathName(node)) + "." + text;
    return text;
}

std::vector<PlugKey> childKeys(const PlugKey& key)
{
    std::vector<PlugKey> result;
    for (const auto& child : key.attribute->children)
    {
        PlugKey childKey{child.get(), key.indices};
        if (child->array)
            childKey.indices.push_back(-1);
        result.push_back(childKey);
    }
    return result;
}

namespace {

// True when `key` lies at or below the element `element` of an array.
bool under(const PlugKey& key, const PlugKey& element, size_t level)
{
    if (key.indices.size() <= level)
        return false;
    for (size_t i = 0; i <= level; ++i)
        if (key.indices[i] != element.indices[i] && i != level)
            return false;
    for (const Attribute* a : key.attribute->chain())
        if (a == element.attribute)
            return true;
    return false;
}

} // namespace

std::vector<int> existingIndices(const Node& node, const PlugKey& arrayKey)
{
    std::set<int> indices;
    const size_t level = arrayKey.indices.size() - 1;
    auto consider = [&](const PlugKey& key) {
        if (under(key, arrayKey, level) && key.indices[level] >= 0)
            indices.insert(key.indices[level]);
    };
    for (const auto& entry : node.plugs)
        if (!entry.second.value.isEmpty())
            consider(entry.first);
    for (const auto& entry : node.incoming)
        consider(entry.first);
    for (const auto& entry : node.outgoing)
        if (!entry.second.empty())
            consider(entry.first);
    if (node.type()->keptIndices)
        for (int index : node.type()->keptIndices(node, arrayKey))
            indices.insert(index);
    return {indices.begin(), indices.end()};
}

} // namespace mayasim
