// mayasim-batch: Maya's batch mode on mayasim. Loads plug-ins and a scene,
// runs MEL, saves, and prints what Maya's script editor would show.
#include <maya/MFileIO.h>
#include <maya/MLibrary.h>
#include <mayasim/Host.h>

#include "Startup.h"

#include <iostream>
#include <string>

namespace {

const char* const kUsage =
    "usage: mayasim-batch [-file scene.ma] [-plugin path]... [-command \"MEL\"]... [-script file.mel]... "
    "[-python file.py]... [-save out.ma]\n";

struct Options
{
    mayasim::apps::Startup startup;
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
        if (mayasim::apps::parseStartupFlag(flag, value, options.startup))
            continue;
        if (flag != "-save" || !options.save.empty())
            return false;
        options.save = value;
    }
    return true;
}

int run(const Options& options)
{
    bool ok = mayasim::apps::load(options.startup);
    ok = mayasim::apps::runSteps(options.startup) && ok;
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
