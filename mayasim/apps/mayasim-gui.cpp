// mayasim-gui: Maya with its interface on mayasim. Opens the main window
// (offscreen when there is no display), loads plug-ins and a scene, runs MEL
// and Python once the window is shown, and saves a screenshot when asked.
#include <maya/MGlobal.h>
#include <maya/MLibrary.h>
#include <mayasim/Gui.h>
#include <mayasim/Host.h>

#include "Startup.h"

#include <QtWidgets/QApplication>
#include <QtWidgets/QWidget>

#include <iostream>
#include <regex>
#include <string>

namespace {

const char* const kUsage =
    "usage: mayasim-gui [-file scene.ma] [-plugin path]... [-command \"MEL\"]... [-script file.mel]... "
    "[-python file.py]... [-size WxH] [-screenshot out.png] [-exit]\n";

struct Options
{
    mayasim::apps::Startup startup;
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
        if (mayasim::apps::parseStartupFlag(flag, value, options.startup))
            continue;
        if (flag == "-size" && std::regex_match(value, size, std::regex("([0-9]{2,5})x([0-9]{2,5})")))
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

bool run(const Options& options)
{
    bool ok = mayasim::apps::load(options.startup);
    mayasim::gui::openMainWindow(options.width, options.height);
    QApplication::processEvents();
    ok = mayasim::apps::runSteps(options.startup) && ok;
    if (!options.screenshot.empty())
    {
        const std::string command = "mayasimUi -screenshot " + mayasim::apps::melString(options.screenshot);
        const bool saved = MGlobal::executeCommand(command.c_str(), false, false);
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
