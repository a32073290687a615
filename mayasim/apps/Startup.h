#pragma once
// What mayasim-batch and mayasim-gui share: the flags that load plug-ins and
// a scene and name what to run, and running them in the order given.
#include <maya/MFileIO.h>
#include <maya/MGlobal.h>
#include <mayasim/Script.h>

#include <string>
#include <utility>
#include <vector>

namespace mayasim::apps {

// What runs after loading, in the order given.
enum class StepKind
{
    Command, // MEL text
    Script,  // a MEL file, statement by statement
    Python   // a Python file
};

struct Startup
{
    std::string file;
    std::vector<std::string> plugins;
    std::vector<std::pair<StepKind, std::string>> steps; // with the text or path
};

// Takes -file, -plugin, -command, -script and -python; false for any other
// flag, or a second -file.
inline bool parseStartupFlag(const std::string& flag, const std::string& value, Startup& startup)
{
    if (flag == "-file" && startup.file.empty())
        startup.file = value;
    else if (flag == "-plugin")
        startup.plugins.push_back(value);
    else if (flag == "-command")
        startup.steps.emplace_back(StepKind::Command, value);
    else if (flag == "-script")
        startup.steps.emplace_back(StepKind::Script, value);
    else if (flag == "-python")
        startup.steps.emplace_back(StepKind::Python, value);
    else
        return false;
    return true;
}

// MEL text in a string literal.
inline std::string melString(const std::string& text)
{
    std::string result = "\"";
    for (char c : text)
    {
        if (c == '"' || c == '\\')
            result += '\\';
        result += c;
    }
    return result + "\"";
}

// Loads the plug-ins, then the scene; false when one of them failed.
inline bool load(const Startup& startup)
{
    bool ok = true;
    for (const std::string& plugin : startup.plugins)
        ok = MGlobal::executeCommand(("loadPlugin " + melString(plugin)).c_str(), true, false) && ok;
    if (!startup.file.empty() && !MFileIO::open(startup.file.c_str(), nullptr, true))
        ok = false;
    return ok;
}

// Runs every step, each echoed as the script editor shows it; false when
// one of them failed.
inline bool runSteps(const Startup& startup)
{
    bool ok = true;
    for (const auto& [kind, text] : startup.steps)
    {
        switch (kind)
        {
        case StepKind::Script: ok = mayasim::host::runScript(text) && ok; break;
        case StepKind::Python: ok = mayasim::host::runPythonFile(text) && ok; break;
        case StepKind::Command: ok = MGlobal::executeCommand(text.c_str(), true, true) && ok; break;
        }
    }
    return ok;
}

} // namespace mayasim::apps
