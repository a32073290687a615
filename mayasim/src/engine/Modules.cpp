#include "engine/Modules.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <set>
#include <sstream>
#include <string>
#include <vector>

namespace mayasim::modules {

namespace {

namespace fs = std::filesystem;

#if defined(__APPLE__)
const char* const kPlatform = "mac";
#else
const char* const kPlatform = "linux";
#endif
const char kListSeparator = ':';

std::string trimmed(const std::string& text)
{
    const size_t first = text.find_first_not_of(" \t\r");
    if (first == std::string::npos)
        return "";
    return text.substr(first, text.find_last_not_of(" \t\r") - first + 1);
}

std::vector<std::string> splitList(const std::string& list)
{
    std::vector<std::string> items;
    std::stringstream in(list);
    for (std::string item; std::getline(in, item, kListSeparator);)
        if (!item.empty())
            items.push_back(item);
    return items;
}

std::string environment(const std::string& name)
{
    const char* value = std::getenv(name.c_str());
    return value ? value : "";
}

// Appends to a path list, once.
void appendToList(const std::string& variable, const std::string& item)
{
    const std::vector<std::string> items = splitList(environment(variable));
    if (std::find(items.begin(), items.end(), item) != items.end())
        return;
    const std::string list = environment(variable);
    setenv(variable.c_str(), (list.empty() ? item : list + kListSeparator + item).c_str(), 1);
}

// An entry's path: absolute, or relative to the folder named.
std::string resolved(const fs::path& base, const std::string& path)
{
    const fs::path given(path);
    return (given.is_absolute() ? given : base / given).lexically_normal().string();
}

// One "+ [conditions] name version path" entry that fits this Maya.
struct Entry
{
    std::string name;
    fs::path root;
    fs::path pluginFolder;
    bool recursivePlugins = false;
};

// The entry a "+" line describes, if it fits this Maya; conditions are
// MAYAVERSION, PLATFORM and LOCALE.
bool parseEntry(const std::string& line, const fs::path& moduleFileFolder, Entry& entry)
{
    std::istringstream in(line.substr(1));
    std::vector<std::string> fields;
    for (std::string word; in >> word;) {
        const size_t colon = word.find(':');
        if (fields.empty() && colon != std::string::npos) {
            const std::string key = word.substr(0, colon);
            const std::string value = word.substr(colon + 1);
            if ((key == "MAYAVERSION" && value != "2022") || (key == "PLATFORM" && value != kPlatform)
                || (key == "LOCALE" && value != "en_US"))
                return false;
            continue;
        }
        fields.push_back(word);
        if (fields.size() == 2)
            break;
    }
    std::string path;
    std::getline(in, path);
    path = trimmed(path);
    if (fields.size() < 2 || path.empty())
        return false;
    entry.name = fields[0];
    entry.root = resolved(moduleFileFolder, path);
    entry.pluginFolder = entry.root / "plug-ins";
    return true;
}

// A line under an entry: "[r] folder: path" moves one of the module's
// folders; "NAME:=value" and "NAME+:=value" set or extend a variable with a
// path in the module, "NAME=value" and "NAME+=value" with the value as is.
void applyLine(const std::string& line, Entry& entry)
{
    std::string text = line;
    bool recursive = false;
    if (text.rfind("[r]", 0) == 0) {
        recursive = true;
        text = trimmed(text.substr(3));
    }
    const size_t equals = text.find('=');
    const size_t colon = text.find(':');
    if (colon != std::string::npos && (equals == std::string::npos || colon + 1 < equals)) {
        if (trimmed(text.substr(0, colon)) == "plug-ins") {
            entry.pluginFolder = resolved(entry.root, trimmed(text.substr(colon + 1)));
            entry.recursivePlugins = recursive;
        }
        return;
    }
    if (equals == std::string::npos || equals == 0)
        return;
    std::string name = text.substr(0, equals);
    const bool inModule = name.back() == ':';
    if (inModule)
        name.pop_back();
    const bool append = !name.empty() && name.back() == '+';
    if (append)
        name.pop_back();
    name = trimmed(name);
    std::string value = trimmed(text.substr(equals + 1));
    if (name.empty())
        return;
    if (inModule)
        value = value.empty() ? entry.root.string() : resolved(entry.root, value);
    if (append)
        appendToList(name, value);
    else
        setenv(name.c_str(), value.c_str(), 1);
}

void addPluginFolders(const Entry& entry)
{
    std::error_code error;
    if (!fs::is_directory(entry.pluginFolder, error))
        return;
    appendToList("MAYA_PLUG_IN_PATH", entry.pluginFolder.string());
    if (!entry.recursivePlugins)
        return;
    for (fs::recursive_directory_iterator it(entry.pluginFolder, error), end; !error && it != end;
         it.increment(error)) {
        // Hidden folders stay out, with all they hold.
        if (it->path().filename().string().rfind('.', 0) == 0) {
            it.disable_recursion_pending();
            continue;
        }
        if (it->is_directory(error))
            appendToList("MAYA_PLUG_IN_PATH", it->path().string());
    }
}

void readModuleFile(const fs::path& file, std::set<std::string>& known)
{
    std::ifstream in(file);
    bool inEntry = false;
    Entry entry;
    const auto finish = [&] {
        if (inEntry)
            addPluginFolders(entry);
        inEntry = false;
    };
    for (std::string raw; std::getline(in, raw);) {
        const std::string line = trimmed(raw);
        if (line.empty() || line[0] == '#')
            continue;
        if (line[0] == '+' || line[0] == '-') {
            finish();
            Entry next;
            if (line[0] == '+' && parseEntry(line, file.parent_path(), next) && known.insert(next.name).second) {
                entry = next;
                inEntry = true;
            }
            continue;
        }
        if (inEntry)
            applyLine(line, entry);
    }
    finish();
}

} // namespace

void load()
{
    std::set<std::string> known;
    for (const std::string& folder : splitList(environment("MAYA_MODULE_PATH"))) {
        std::error_code error;
        std::vector<fs::path> files;
        for (fs::directory_iterator it(folder, error), end; !error && it != end; it.increment(error))
            if (it->is_regular_file(error))
                files.push_back(it->path());
        std::sort(files.begin(), files.end());
        for (const fs::path& file : files)
            readModuleFile(file, known);
    }
}

} // namespace mayasim::modules
