#include "scene/Scene.h"

#include "scene/Namespaces.h"

#include <algorithm>
#include <cctype>
#include <string_view>

namespace mayasim::scene {

namespace {

struct State
{
    std::vector<NodePtr> nodes;
    std::vector<NodePtr> world;
};

State& state()
{
    static State instance;
    return instance;
}

std::vector<NodePtr>& siblingsOf(const NodePtr& parent)
{
    return parent ? parent->children : state().world;
}

void insertAt(std::vector<NodePtr>& list, const NodePtr& node, int position)
{
    if (position < 0 || position > static_cast<int>(list.size()))
        list.push_back(node);
    else
        list.insert(list.begin() + position, node);
}

void eraseFrom(std::vector<NodePtr>& list, const NodePtr& node)
{
    list.erase(std::remove(list.begin(), list.end(), node), list.end());
}

// The names from the top of the DAG down to the node.
std::vector<std::string> pathParts(const Node& node)
{
    std::vector<std::string> parts{node.name};
    for (NodePtr p = node.parentNode(); p; p = p->parentNode())
        parts.push_back(p->name);
    std::reverse(parts.begin(), parts.end());
    return parts;
}

std::vector<std::string> split(const std::string& text, char separator)
{
    std::vector<std::string> parts;
    size_t start = 0;
    for (;;)
    {
        size_t end = text.find(separator, start);
        parts.push_back(text.substr(start, end - start));
        if (end == std::string::npos)
            return parts;
        start = end + 1;
    }
}

bool matchesParts(const std::vector<std::string>& pattern, bool absolute, const std::vector<std::string>& path)
{
    if (pattern.size() > path.size() || (absolute && pattern.size() != path.size()))
        return false;
    const size_t offset = path.size() - pattern.size();
    for (size_t i = 0; i < pattern.size(); ++i)
        if (!wildcardMatch(pattern[i], path[offset + i]))
            return false;
    return true;
}

} // namespace

const std::vector<NodePtr>& nodes()
{
    return state().nodes;
}

const std::vector<NodePtr>& worldChildren()
{
    return state().world;
}

const std::vector<NodePtr>& childrenOf(const Node* parent)
{
    return parent ? parent->children : state().world;
}

void insertNode(const NodePtr& node, const NodePtr& parent, int position)
{
    auto& all = state().nodes;
    auto at = std::upper_bound(all.begin(), all.end(), node,
                               [](const NodePtr& a, const NodePtr& b) { return a->serial < b->serial; });
    all.insert(at, node);
    if (node->isDag())
    {
        node->parent = parent;
        insertAt(siblingsOf(parent), node, position);
    }
}

void removeNode(const NodePtr& node)
{
    eraseFrom(state().nodes, node);
    if (node->isDag())
        eraseFrom(siblingsOf(node->parentNode()), node);
}

void setParent(const NodePtr& node, const NodePtr& parent, int position)
{
    eraseFrom(siblingsOf(node->parentNode()), node);
    node->parent = parent;
    insertAt(siblingsOf(parent), node, position);
}

int childPosition(const Node& node)
{
    const auto& siblings = childrenOf(node.parentNode().get());
    for (size_t i = 0; i < siblings.size(); ++i)
        if (siblings[i].get() == &node)
            return static_cast<int>(i);
    return -1;
}

void clear()
{
    state().nodes.clear();
    state().world.clear();
}

NodePtr findByUuid(const MUuid& uuid)
{
    for (const auto& node : state().nodes)
        if (node->uuid == uuid)
            return node;
    return nullptr;
}

bool hasWildcards(const std::string& pattern)
{
    return pattern.find_first_of("*?") != std::string::npos;
}

namespace {

bool globMatch(std::string_view pattern, std::string_view text)
{
    // Iterative glob: remember the last '*' to backtrack to.
    size_t p = 0, t = 0, star = std::string::npos, mark = 0;
    while (t < text.size())
    {
        if (p < pattern.size() && (pattern[p] == '?' || pattern[p] == text[t]))
        {
            ++p;
            ++t;
        }
        else if (p < pattern.size() && pattern[p] == '*')
        {
            star = p++;
            mark = t;
        }
        else if (star != std::string::npos)
        {
            p = star + 1;
            t = ++mark;
        }
        else
            return false;
    }
    while (p < pattern.size() && pattern[p] == '*')
        ++p;
    return p == pattern.size();
}

} // namespace

bool wildcardMatch(const std::string& pattern, const std::string& text)
{
    // Wildcards stay within one namespace level, as Maya's lookups do:
    // "*" matches "ctrl" but not "rig:ctrl".
    if (std::count(pattern.begin(), pattern.end(), ':') != std::count(text.begin(), text.end(), ':'))
        return false;
    const std::string_view patternView(pattern);
    const std::string_view textView(text);
    for (size_t p = 0, t = 0;;)
    {
        const size_t patternEnd = pattern.find(':', p);
        const size_t textEnd = text.find(':', t);
        if (!globMatch(patternView.substr(p, patternEnd - p), textView.substr(t, textEnd - t)))
            return false;
        if (patternEnd == std::string::npos)
            return true;
        p = patternEnd + 1;
        t = textEnd + 1;
    }
}

std::vector<NodePtr> match(const std::string& pattern)
{
    if (pattern.empty())
        return {};
    const bool absolute = pattern[0] == '|';
    const std::vector<std::string> parts = split(ns::lookupPath(absolute ? pattern.substr(1) : pattern), '|');
    std::vector<NodePtr> result;
    for (const auto& node : state().nodes)
    {
        // The last part names the node itself: test it before building paths.
        if (!wildcardMatch(parts.back(), node->name))
            continue;
        const bool plainName = parts.size() == 1 && !absolute;
        if (plainName || (node->isDag() && matchesParts(parts, absolute, pathParts(*node))))
            result.push_back(node);
    }
    return result;
}

NodePtr find(const std::string& nameOrPath)
{
    if (hasWildcards(nameOrPath))
        return nullptr;
    std::vector<NodePtr> found = match(nameOrPath);
    return found.size() == 1 ? found.front() : nullptr;
}

std::string fullPathName(const Node& node)
{
    if (!node.isDag())
        return node.name;
    std::string path;
    for (const auto& part : pathParts(node))
        path += "|" + part;
    return path;
}

std::string partialPathName(const Node& node)
{
    if (!node.isDag())
        return node.name;
    // Only DAG nodes of the same name can make a shorter path ambiguous.
    std::vector<std::vector<std::string>> namesakes;
    for (const auto& other : state().nodes)
        if (other.get() != &node && other->isDag() && other->name == node.name)
            namesakes.push_back(pathParts(*other));
    const std::vector<std::string> parts = pathParts(node);
    for (size_t count = 1; count <= parts.size(); ++count)
    {
        const std::vector<std::string> tail(parts.end() - static_cast<long>(count), parts.end());
        const bool unique = std::none_of(namesakes.begin(), namesakes.end(), [&](const auto& other) {
            return matchesParts(tail, false, other);
        });
        if (unique)
        {
            std::string path = tail.front();
            for (size_t i = 1; i < tail.size(); ++i)
                path += "|" + tail[i];
            return path;
        }
    }
    return fullPathName(node);
}

bool nameTaken(const std::string& name, const Node* node, const Node* parent)
{
    const bool dag = node ? node->isDag() : false;
    for (const auto& other : state().nodes)
    {
        if (other.get() == node || other->name != name)
            continue;
        if (!other->isDag() || !dag)
            return true;
        if (other->parentNode().get() == parent)
            return true;
    }
    return false;
}

namespace {

// Decimal digits plus one ("" counts as 0).
std::string nextNumber(std::string digits)
{
    for (size_t at = digits.size(); at-- > 0;)
    {
        if (digits[at] != '9')
        {
            ++digits[at];
            return digits;
        }
        digits[at] = '0';
    }
    return "1" + digits;
}

} // namespace

std::string uniqueName(const std::string& wanted, const Node* node, const Node* parent)
{
    if (!nameTaken(wanted, node, parent))
        return wanted;
    size_t digits = wanted.size();
    while (digits > 0 && std::isdigit(static_cast<unsigned char>(wanted[digits - 1])))
        --digits;
    const std::string base = wanted.substr(0, digits);
    // The number counts on as decimal text, so a name's number may be longer
    // than any integer type ("a0012" -> "a13").
    std::string number = wanted.substr(std::min(wanted.find_first_not_of('0', digits), wanted.size()));
    for (;;)
    {
        number = nextNumber(number);
        std::string candidate = base + number;
        if (!nameTaken(candidate, node, parent))
            return candidate;
    }
}

std::string defaultName(const std::string& typeName, const Node* parent)
{
    // Maya numbers default names from 1 and reuses the lowest free number.
    // A DAG default name must not clash with any node, anywhere.
    for (long number = 1;; ++number)
    {
        std::string candidate = ns::join(ns::current(), typeName + std::to_string(number));
        if (!nameTaken(candidate, nullptr, parent))
            return candidate;
    }
}

} // namespace mayasim::scene

