#pragma once
// Shared set-up for the animation scene tests: an empty scene, frame 1,
// Maya's default ranges, units and tangent types, and nothing highlighted
// or picked in the UI.
#include "../dg/DgTest.h"

#include <maya/MAngle.h>
#include <maya/MAnimControl.h>
#include <maya/MDistance.h>
#include <maya/MIntArray.h>

namespace animscene {

using namespace dgtest;

inline MTime frame(double value)
{
    return MTime(value, MTime::uiUnit());
}

// Runs MEL for an int array answer; false when the command fails or gives
// no such answer.
inline bool melInts(const std::string& text, std::vector<int>& values)
{
    MIntArray result;
    const bool ok = MGlobal::executeCommand(text.c_str(), result, false, true);
    values.assign(result.begin(), result.end());
    return ok;
}

class SceneTest : public DgTest
{
protected:
    void SetUp() override
    {
        DgTest::SetUp();
        restoreDefaults();
    }
    void TearDown() override
    {
        DgTest::TearDown();
        restoreDefaults();
    }

    static void restoreDefaults()
    {
        MTime::setUIUnit(MTime::kFilm);
        MAngle::setUIUnit(MAngle::kDegrees);
        MDistance::setUIUnit(MDistance::kCentimeters);
        MAnimControl::setAnimationStartEndTime(frame(1), frame(200));
        MAnimControl::setMinMaxTime(frame(1), frame(120));
        MAnimControl::setCurrentTime(frame(1));
        MAnimControl::setGlobalInTangentType(MFnAnimCurve::kTangentAuto);
        MAnimControl::setGlobalOutTangentType(MFnAnimCurve::kTangentAuto);
        mayasim::host::clearKeySelection();
        mayasim::host::clearTimeSliderHighlight();
        for (auto section : {mayasim::host::ChannelBoxSection::Main, mayasim::host::ChannelBoxSection::Shape,
                             mayasim::host::ChannelBoxSection::Output, mayasim::host::ChannelBoxSection::History})
            mayasim::host::setChannelBoxHighlight(section, {});
    }
};

} // namespace animscene
