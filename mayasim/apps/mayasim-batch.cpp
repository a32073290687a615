// mayasim-batch: Maya's batch mode on mayasim. Loads plug-ins and a scene,
// runs MEL, saves, and prints what Maya's script editor would show.
#include <maya/MFileIO.h>
#include <maya/MGlobal.h>
#include <maya/MLibrary.h>
#include <mayasim/Host.h>
#include <mayasim/Script.h>

#include <iostream>
#include <string>
#include <vector>

namespace {

const char* const kUsage =
    "usage: mayasim-batch [-file scene.ma] [-plugin path]... [-command \"MEL\"]... [-script file.mel]... "
    "[-python file.py]... [-save out.ma]\n";

// What runs after loading, in the order given.
enum class StepKind
{
    Command, // MEL text
    Script,  // a MEL file, statement by statement
    Python   // a Python file
};

struct Options
{
    std::string file;
    std::vector<std::string> plugins;
    std::vector<std::pair<StepKind, std::string>> steps; // with the text or path
    std::string save;
};

bool parse(int argc, char** argv, Options& options)
{
    for (int i = 1; i < argc; ++i)
    {
        const std::string flag = argv[i];
        if (i + 1 >= argc)
            return false;
        const std::string value = argv[++i];
        if (flag == "-file" && options.file.empty())
            options.file = value;
        else if (flag == "-plugin")
            options.plugins.push_back(value);
        else if (flag == "-command")
            options.steps.emplace_back(StepKind::Command, value);
        else if (flag == "-script")
            options.steps.emplace_back(StepKind::Script, value);
        else if (flag == "-python")
            options.steps.emplace_back(StepKind::Python, value);
        else if (flag == "-save" && options.save.empty())
            options.save = value;
        else
            return false;
    }
    return true;
}

// MEL text in a string literal.
std::string melString(const std::string& text)
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

bool run(StepKind kind, const std::string& text)
{
    switch (kind)
    {
    case StepKind::Script: return mayasim::host::runScript(text);
    case StepKind::Python: return mayasim::host::runPythonFile(text);
    case StepKind::Command: break;
    }
    return MGlobal::executeCommand(text.c_str(), true, true);
}

int run(const Options& options)
{
    bool ok = true;
    for (const std::string& plugin : options.plugins)
        ok = MGlobal::executeCommand(("loadPlugin " + melString(plugin)).c_str(), true, false) && ok;
    if (!options.file.empty() && !MFileIO::open(options.file.c_str(), nullptr, true))
        ok = false;
    for (const auto& [kind, text] : options.steps)
        ok = run(kind, text) && ok;
    if (!options.save.empty() && !MFileIO::saveAs(options.save.c_str(), "mayaAscii", true))
        ok = false;
    return ok ? 0 : 1;
}

} // namespace

int main(int argc, char** argv)
{
    Options options;
    if (argc < 2 || !parse(argc, argv, options))
    {
        std::cerr << kUsage;
        return 2;
    }
    if (!MLibrary::initialize(true, argv[0], true))
    {
        std::cerr << "mayasim-batch: initialisation failed\n";
        return 1;
    }
    mayasim::host::setEchoOutput(true);
    const int status = run(options);
    MLibrary::cleanup(status, false);
    return status;
}
