#pragma once
// Shared set-up for the tests of anim curves in scene files: the scene file
// tests' fixture (a new scene, bundled and scratch files) with opening and
// saving through MEL and curve values read at other frames.
#include "../animscene/SceneTest.h"
#include "../file/FileTest.h"

#include <maya/MFnAnimCurve.h>

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

class AnimFileTest : public FileTest
{
protected:
    // Files may change the units.
    void TearDown() override { mel("currentUnit -l centimeter -a degree -t film"); }

    static bool open(const std::string& path) { return mel("file -f -o \"" + path + "\""); }
    static bool saveAs(const std::string& path)
    {
        return mel("file -rename \"" + path + "\"; file -f -save -type \"mayaAscii\"");
    }
};

} // namespace animfile
