// mayasim-gui: Maya with its interface on mayasim. Opens the main window
// (offscreen when there is no display), loads plug-ins and a scene, runs MEL
// once the window is shown, and saves a screenshot when asked.
#include <maya/MFileIO.h>
#include <maya/MGlobal.h>
#include <maya/MLibrary.h>
#include <mayasim/Gui.h>
#include <mayasim/Host.h>
#include <mayasim/Script.h>

#include <QtWidgets/QApplication>
#include <QtWidgets/QWidget>

#include <iostream>
#include <regex>
#include <string>
#include <vector>

namespace {

const char* const kUsage =
    "usage: mayasim-gui [-file scene.ma] [-plugin path]... [-command \"MEL\"]... [-script file.mel] "
    "[-size WxH] [-screenshot out.png] [-exit]\n";

struct Options
{
    std::string file;
    std::vector<std::string> plugins;
    // -command and -script, in the order given: {is a script, text or path}
    std::vector<std::pair<bool, std::string>> steps;
    int width = 1280;
    int height = 800;
    std::string screenshot;
    bool exit = false;
};

bool parse(int argc, char** argv, Options& options)
{
    for (int i = 1; i < argc; ++i)
    {
        const std::string flag = argv[i];
        if (flag == "-exit")
        {
            options.exit = true;
            continue;
        }
        if (i + 1 >= argc)
            return false;
        const std::string value = argv[++i];
        std::smatch size;
        if (flag == "-file" && options.file.empty())
            options.file = value;
        else if (flag == "-plugin")
            options.plugins.push_back(value);
        else if (flag == "-command")
            options.steps.emplace_back(false, value);
        else if (flag == "-script")
            options.steps.emplace_back(true, value);
        else if (flag == "-size" && std::regex_match(value, size, std::regex("([0-9]{2,5})x([0-9]{2,5})")))
        {
            options.width = std::stoi(size[1]);
            options.height = std::stoi(size[2]);
        }
        else if (flag == "-screenshot" && options.screenshot.empty())
            options.screenshot = value;
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

bool run(const Options& options)
{
    bool ok = true;
    for (const std::string& plugin : options.plugins)
        ok = MGlobal::executeCommand(("loadPlugin " + melString(plugin)).c_str(), true, false) && ok;
    if (!options.file.empty() && !MFileIO::open(options.file.c_str(), nullptr, true))
        ok = false;
    mayasim::gui::openMainWindow(options.width, options.height);
    QApplication::processEvents();
    for (const auto& [isScript, text] : options.steps)
        ok = (isScript ? mayasim::host::runScript(text) : MGlobal::executeCommand(text.c_str(), true, true)) && ok;
    if (!options.screenshot.empty())
    {
        const bool saved =
            MGlobal::executeCommand(("mayasimUi -screenshot " + melString(options.screenshot)).c_str(), false, false);
        if (saved)
            std::cout << "Screenshot: " << options.screenshot << std::endl;
        ok = saved && ok;
    }
    return ok;
}

} // namespace

int main(int argc, char** argv)
{
    Options options;
    if (!parse(argc, argv, options))
    {
        std::cerr << kUsage;
        return 2;
    }
    mayasim::gui::prepareEnvironment();
    QApplication application(argc, argv);
    mayasim::gui::applyLook();
    if (!MLibrary::initialize(true, argv[0], false))
    {
        std::cerr << "mayasim-gui: initialisation failed\n";
        return 1;
    }
    mayasim::host::setEchoOutput(true);
    int status = run(options) ? 0 : 1;
    if (!options.exit)
        status = QApplication::exec();
    mayasim::gui::closeMainWindow();
    MLibrary::cleanup(status, false);
    return status;
}
