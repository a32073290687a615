#include "FuzzHost.h"

#include "EmptyScene.h"

#include <maya/MFileIO.h>
#include <maya/MLibrary.h>
#define MNoVersionString // the plug-in emits the version symbols
#include <maya/MFnPlugin.h>
#include <mayasim/Host.h>

#include <QDir>
#include <QTemporaryDir>

#include <cctype>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <vector>

namespace fuzz {

namespace {

QTemporaryDir& folder()
{
    static QTemporaryDir instance;
    return instance;
}

bool isWordChar(char c) { return std::isalnum(static_cast<unsigned char>(c)) || c == '_'; }

bool namesWord(const std::string& text, const std::string& word)
{
    for (size_t at = text.find(word); at != std::string::npos; at = text.find(word, at + 1)) {
        const size_t end = at + word.size();
        if ((at == 0 || !isWordChar(text[at - 1])) && (end == text.size() || !isWordChar(text[end])))
            return true;
    }
    return false;
}

// A '/' anywhere but in a line that starts as a comment ("//Maya ASCII ...").
bool holdsFolderSeparator(const std::string& text)
{
    size_t lineStart = 0;
    while (lineStart < text.size()) {
        size_t lineEnd = text.find('\n', lineStart);
        if (lineEnd == std::string::npos)
            lineEnd = text.size();
        size_t first = lineStart;
        while (first < lineEnd && std::isspace(static_cast<unsigned char>(text[first])))
            ++first;
        const bool comment = text.compare(first, 2, "//") == 0;
        if (!comment && text.find('/', first) < lineEnd)
            return true;
        lineStart = lineEnd + 1;
    }
    return false;
}

} // namespace

const std::string& sandbox()
{
    static const std::string path = folder().path().toStdString();
    return path;
}

std::string dataFolder() { return sandbox() + "/Documents/maya/scripts/Orvane"; }

void resetScene()
{
    if (!openEmptyScene() || !mayasim::host::loadLinkedPlugin("orvane", initializePlugin, uninitializePlugin))
        std::abort();
    mayasim::host::clearOutput();
    mayasim::host::clearSentCommands();
    mayasim::host::clearRegistrations();
}

std::string text(const uint8_t* data, size_t size)
{
    return std::string(reinterpret_cast<const char*>(data), size);
}

bool mayLeaveSandbox(const std::string& text)
{
    for (const char* runsCode : {"python", "system", "exec"})
        if (namesWord(text, runsCode))
            return true;
    for (const char* takesPath : {"file", "loadPlugin", "source", "sysFile", "eval", "evalDeferred"})
        if (namesWord(text, takesPath) && holdsFolderSeparator(text))
            return true;
    return false;
}

void writeScene()
{
    MFileIO::exportAll((sandbox() + "/written.ma").c_str(), "mayaAscii");
}

} // namespace fuzz

namespace {

// libFuzzer reads its arguments after LLVMFuzzerInitialize: its files and
// folders, made absolute, name the same places once the working directory
// is the sandbox. Artifacts go to the starting directory, as they would
// without it, not into the sandbox that goes at exit.
void keepPathsOutsideSandbox(int* argc, char*** argv)
{
    static std::vector<std::string> arguments;
    static std::vector<char*> pointers;
    const char* const pathFlags[] = {"-artifact_prefix=", "-exact_artifact_path=", "-dict=", "-features_dir=",
                                     "-merge_control_file="};
    bool artifactPrefix = false;
    for (int i = 0; i < *argc; ++i) {
        std::string argument = (*argv)[i];
        size_t path = 0;
        if (i > 0 && argument[0] == '-') {
            for (const char* flag : pathFlags)
                if (argument.rfind(flag, 0) == 0)
                    path = std::strlen(flag);
            artifactPrefix = artifactPrefix || argument.rfind("-artifact_prefix=", 0) == 0;
        }
        if (i > 0 && (argument[0] != '-' || path > 0))
            argument = argument.substr(0, path) + std::filesystem::absolute(argument.substr(path)).string();
        arguments.push_back(argument);
    }
    if (!artifactPrefix)
        arguments.push_back("-artifact_prefix=" + std::filesystem::current_path().string() + "/");
    for (std::string& argument : arguments)
        pointers.push_back(argument.data());
    pointers.push_back(nullptr);
    *argc = static_cast<int>(arguments.size());
    *argv = pointers.data();
}

} // namespace

// libFuzzer calls this once before the first input, so that what mayasim
// allocates for good at start (the embedded Python among it) doesn't count
// as a leak of that input.
extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv)
{
    keepPathsOutsideSandbox(argc, argv);
    const QString home = fuzz::folder().path();
    QDir(home).mkpath(QStringLiteral("Documents/maya/scripts"));
    qputenv("HOME", home.toUtf8());
    qunsetenv("XDG_CONFIG_HOME");
    qunsetenv("MAYA_PLUG_IN_PATH");
    qunsetenv("MAYA_MODULE_PATH");
    QDir::setCurrent(home);
    if (!fuzz::folder().isValid() || !MLibrary::initialize("orvane_fuzz", true))
        std::abort();
    // MEL loops may be endless, as in Maya: bounded here, such an input
    // fails rather than stalls.
    mayasim::host::setMelStepBudget(10000);
    std::atexit([] { MLibrary::cleanup(0, false); });
    return 0;
}
