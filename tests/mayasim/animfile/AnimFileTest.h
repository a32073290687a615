#pragma once
// Shared set-up for the tests of anim curves in scene files: the animation
// scene defaults, the bundled test files and per-test scratch files, and
// curve values read through MEL.
#include "../animscene/SceneTest.h"

#include <maya/MFnAnimCurve.h>

#include <filesystem>
#include <fstream>
#include <sstream>

namespace animfile {

using namespace animscene;

constexpr double kPi = 3.14159265358979323846;

// The plug's value at a frame, in UI units.
inline double at(const std::string& plug, double time)
{
    return melNumber("getAttr -t " + std::to_string(time) + " " + plug);
}

inline MFnAnimCurve curve(const std::string& name)
{
    return MFnAnimCurve(nodeNamed(name));
}

inline std::vector<std::string> errors()
{
    std::vector<std::string> lines;
    for (const auto& line : mayasim::host::output())
        if (line.kind == mayasim::host::OutputLine::Kind::Error)
            lines.push_back(line.text);
    return lines;
}

class AnimFileTest : public SceneTest
{
protected:
    static std::string dataFile(const std::string& name) { return std::string(ORVANE_TEST_DATA) + "/" + name; }

    // A file of this test's own in the build folder.
    static std::string scratchFile(const std::string& name)
    {
        const auto* test = ::testing::UnitTest::GetInstance()->current_test_info();
        const auto folder = std::filesystem::path(ORVANE_BINARY_DIR) / "animfile_tests" / test->test_suite_name();
        std::filesystem::create_directories(folder);
        return (folder / (std::string(test->name()) + "_" + name)).generic_string();
    }

    static std::string contents(const std::string& path)
    {
        std::ifstream in(path, std::ios::binary);
        std::ostringstream text;
        text << in.rdbuf();
        return text.str();
    }

    static bool open(const std::string& path) { return mel("file -f -o \"" + path + "\""); }
    static bool saveAs(const std::string& path)
    {
        return mel("file -rename \"" + path + "\"; file -f -save -type \"mayaAscii\"");
    }
};

} // namespace animfile
