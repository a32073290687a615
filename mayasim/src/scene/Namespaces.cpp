#include "scene/Namespaces.h"

#include "engine/Command.h"
#include "scene/Scene.h"

#include <algorithm>
#include <cctype>

namespace mayasim::ns {

namespace {

const char* const kInternal[] = {"UI", "shared"};

struct State
{
    std::vector<std::string> spaces; // created ones, in creation order
    std::string current;
    bool relative = false;
};

State& state()
{
    static State instance;
    return instance;
}

bool created(const std::string& space)
{
    const auto& spaces = state().spaces;
    return std::find(spaces.begin(), spaces.end(), space) != spaces.end();
}

// An edit that swaps the namespace state for another and back.
EditPtr changeTo(State next)
{
    State before = state();
    return editing::lambda([next] { state() = next; }, [before] { state() = before; });
}

} // namespace

std::string namespaceOf(const std::string& name)
{
    const size_t colon = name.rfind(':');
    return colon == std::string::npos ? std::string() : name.substr(0, colon);
}

std::string baseName(const std::string& name)
{
    const size_t colon = name.rfind(':');
    return colon == std::string::npos ? name : name.substr(colon + 1);
}

std::string join(const std::string& space, const std::string& name)
{
    return space.empty() ? name : space + ":" + name;
}

const std::string& current()
{
    return state().current;
}

bool internal(const std::string& space)
{
    return std::find(std::begin(kInternal), std::end(kInternal), space) != std::end(kInternal);
}

bool exists(const std::string& space)
{
    return space.empty() || internal(space) || created(space);
}

std::vector<std::string> all()
{
    std::vector<std::string> spaces(std::begin(kInternal), std::end(kInternal));
    spaces.insert(spaces.end(), state().spaces.begin(), state().spaces.end());
    return spaces;
}

namespace {

bool inside(const std::string& name, const std::string& space, bool recursive)
{
    if (!recursive)
        return namespaceOf(name) == space;
    return space.empty() || name.rfind(space + ":", 0) == 0;
}

} // namespace

std::vector<std::string> under(const std::string& space, bool recursive)
{
    std::vector<std::string> found;
    for (const std::string& candidate : all())
        if (inside(candidate, space, recursive))
            found.push_back(candidate);
    return found;
}

std::vector<NodePtr> nodesIn(const std::string& space, bool recursive)
{
    std::vector<NodePtr> found;
    for (const NodePtr& node : scene::nodes())
        if (inside(node->name, space, recursive))
            found.push_back(node);
    return found;
}

std::string resolve(const std::string& name)
{
    if (name.empty())
        throw MelError("Namespace does not exist: " + name);
    if (name == ":")
        return {};
    std::string found;
    if (name == "..")
        found = namespaceOf(current());
    else if (name[0] == ':')
        found = name.substr(1);
    else if (exists(join(current(), name)))
        found = join(current(), name);
    else
        found = name;
    if (!exists(found))
        throw MelError("Namespace does not exist: " + name);
    return found;
}

std::string qualify(const std::string& name)
{
    if (!name.empty() && name[0] == ':')
        return name.substr(1);
    return join(current(), name);
}

std::string lookupPath(const std::string& path)
{
    std::string result;
    size_t start = 0;
    for (;;)
    {
        const size_t bar = path.find('|', start);
        const std::string part = path.substr(start, bar == std::string::npos ? std::string::npos : bar - start);
        if (!part.empty() && part[0] == ':')
            result += part.substr(1);
        else if (!part.empty() && state().relative)
            result += join(current(), part);
        else
            result += part;
        if (bar == std::string::npos)
            return result;
        result += '|';
        start = bar + 1;
    }
}

std::string validName(const std::string& name)
{
    std::string valid;
    bool levelStart = true;
    for (char c : name)
    {
        if (c == ':')
        {
            valid += c;
            levelStart = true;
            continue;
        }
        if (levelStart && std::isdigit(static_cast<unsigned char>(c)))
            valid += '_';
        valid += std::isalnum(static_cast<unsigned char>(c)) || c == '_' ? c : '_';
        levelStart = false;
    }
    return valid;
}

std::string uniqueChild(const std::string& parent, const std::string& name)
{
    if (!exists(join(parent, name)))
        return join(parent, name);
    for (long number = 1;; ++number)
        if (const std::string candidate = join(parent, name + std::to_string(number)); !exists(candidate))
            return candidate;
}

void add(EditList& edits, const std::string& space)
{
    State next = state();
    std::string level;
    size_t start = 0;
    for (;;)
    {
        const size_t colon = space.find(':', start);
        level = space.substr(0, colon);
        if (!exists(level))
            next.spaces.push_back(level);
        if (colon == std::string::npos)
            break;
        start = colon + 1;
    }
    if (next.spaces.size() != state().spaces.size())
        edits.run(changeTo(std::move(next)));
}

void remove(EditList& edits, const std::string& space)
{
    State next = state();
    next.spaces.erase(std::remove(next.spaces.begin(), next.spaces.end(), space), next.spaces.end());
    // The current namespace can't outlive its removal: the root takes over.
    if (next.current == space || next.current.rfind(space + ":", 0) == 0)
        next.current.clear();
    edits.run(changeTo(std::move(next)));
}

void setCurrent(EditList& edits, const std::string& space)
{
    if (space == state().current)
        return;
    State next = state();
    next.current = space;
    edits.run(changeTo(std::move(next)));
}

ReadingInside::ReadingInside(const std::string& space) : fCurrent(state().current), fRelative(state().relative)
{
    state().current = space;
    state().relative = true;
}

ReadingInside::~ReadingInside()
{
    state().current = fCurrent;
    state().relative = fRelative;
}

void reset()
{
    state() = State{};
}

} // namespace mayasim::ns
