#pragma once
// The tangent tools' scene, loaded with the plug-in, and ways to read a key's
// tangents through the API.
#include "PluginTest.h"

#include <maya/MAngle.h>
#include <maya/MFnAnimCurve.h>
#include <mayasim/Host.h>

// One side of a key as Maya reports it: angle in radians, weight, type.
struct TangentSide
{
    double angle = 0.0;
    double weight = 0.0;
    MFnAnimCurve::TangentType type = MFnAnimCurve::kTangentGlobal;
};

inline TangentSide tangentSide(const char* curve, unsigned int index, bool in)
{
    const MFnAnimCurve fn(nodeNamed(curve));
    MAngle angle;
    TangentSide result;
    fn.getTangent(index, angle, result.weight, in);
    result.angle = angle.asRadians();
    result.type = in ? fn.inTangentType(index) : fn.outTangentType(index);
    return result;
}

class TangentCurvesTest : public PluginTest
{
protected:
    void SetUp() override
    {
        PluginTest::SetUp();
        // ball_translateX: spline keys (1, 0) (5, 10) (10, 4) (15, 20) (20, 20),
        // key 3 unlocked. ball_translateY: weighted spline keys (1, 0) (8, 12) (14,
        // 3) (20, 6). ball_scaleX: one key at frame 5.
        ASSERT_TRUE(mel("file -f -o \"" ORVANE_TEST_DATA "/tangent_curves.ma\""));
        ASSERT_TRUE(mel("select -r ball"));
        mayasim::host::clearOutput();
    }

    // Picks keys in the graph editor, with the object selected.
    static void pickKeys(const char* curve, const std::vector<unsigned int>& indices)
    {
        ASSERT_TRUE(mayasim::host::selectKeys(curve, indices));
        ASSERT_TRUE(mel("select -add ball"));
    }
};
