// Which layer a plug is keyed in, and how the plug-in finds each layer's
// curve: "animLayer -q -bestLayer" and MAnimUtil::findAnimationLayers must
// agree, and setKeyframe keys the best layer's curve.
#include "LayerTest.h"

#include <maya/MFnAnimCurve.h>

namespace {

using namespace dgtest;

using Strings = std::vector<std::string>;

TEST_F(LayerTest, BestLayerIsNothingWithoutLayersAndTheRootForPlugsInNone)
{
    ASSERT_TRUE(mel("setKeyframe -t 1 -v 2 cube.tx"));
    MString answer("unset");
    EXPECT_TRUE(MGlobal::executeCommand("animLayer -q -bestLayer -attribute \"cube.tx\"", answer));
    EXPECT_EQ(answer, MString()) << "an empty answer, not a failure";
    EXPECT_TRUE(layerCurves("cube.tx").empty());
    ASSERT_TRUE(mel("animLayer L1"));
    EXPECT_EQ(bestLayer("cube.tx"), "BaseAnimation");
    EXPECT_TRUE(layerCurves("cube.tx").empty());
}

TEST_F(LayerTest, TwoLayersBestLayerAndFindAnimationLayersAgree)
{
    twoLayersOnTranslateX();
    EXPECT_EQ(layerCurves("cube.tx"), (Strings{"BaseAnimation -> cube_translateX", "L1 -> ", "L2 -> "}));
    EXPECT_EQ(curvesOf("cube.tx"), (Strings{"cube_translateX"})) << "the base curve through the blend nodes";
    EXPECT_TRUE(MAnimUtil::isAnimated(plugNamed("cube.tx")));

    // Nothing selected: the topmost layer holding the plug.
    EXPECT_EQ(bestLayer("cube.tx"), "L2");
    ASSERT_TRUE(mel("setKeyframe -t 1 -v 1 cube.tx"));
    EXPECT_EQ(layerCurves("cube.tx"),
              (Strings{"BaseAnimation -> cube_translateX", "L1 -> ", "L2 -> cube_translateX_L2_inputB"}));

    // A selected layer wins.
    ASSERT_TRUE(mel("animLayer -e -selected true L1"));
    EXPECT_EQ(bestLayer("cube.tx"), "L1");
    ASSERT_TRUE(mel("setKeyframe -t 1 -v 1 cube.tx"));
    EXPECT_EQ(layerCurves("cube.tx")[1], "L1 -> cube_translateX_L1_inputB");

    // The root, selected alone, takes the keys of the base animation.
    ASSERT_TRUE(mel("animLayer -e -selected false L1; animLayer -e -selected true BaseAnimation"));
    EXPECT_EQ(bestLayer("cube.tx"), "BaseAnimation");
    ASSERT_TRUE(mel("setKeyframe -t 5 -v 7 cube.tx"));
    EXPECT_EQ(MFnAnimCurve(nodeNamed("cube_translateX")).numKeys(), 3u);

    EXPECT_EQ(curvesOf("cube.tx"), (Strings{"cube_translateX", "cube_translateX_L1_inputB", "cube_translateX_L2_inputB"}));
}

TEST_F(LayerTest, KeyingALayerKeepsThePresentValue)
{
    ASSERT_TRUE(mel("setAttr cube.tx 3; animLayer L1; animLayer -e -attribute cube.tx L1"));
    ASSERT_TRUE(mel("setAttr cube_translateX_L1.inputB 4"));
    ASSERT_TRUE(mel("setKeyframe cube.tx"));
    EXPECT_EQ(MFnAnimCurve(nodeNamed("cube_translateX_L1_inputB")).value(0), 4.0);
    EXPECT_DOUBLE_EQ(melNumber("getAttr cube.tx"), 7.0);
}

TEST_F(LayerTest, BaseKeysOfAStaticLayeredPlugGetACurveOnInputA)
{
    ASSERT_TRUE(mel("setAttr cube.ty 3; animLayer -selected true L1; animLayer -e -attribute cube.ty L1"));
    ASSERT_TRUE(mel("animLayer -e -selected false L1; animLayer -e -selected true BaseAnimation"));
    ASSERT_TRUE(mel("setKeyframe -t 1 cube.ty"));
    EXPECT_EQ(layerCurves("cube.ty"), (Strings{"BaseAnimation -> cube_translateY_L1_inputA", "L1 -> "}));
    EXPECT_EQ(MFnAnimCurve(nodeNamed("cube_translateY_L1_inputA")).value(0), 3.0);
}

TEST_F(LayerTest, RotationLayerCurvesAreNamedByComponent)
{
    ASSERT_TRUE(mel("animLayer L1; animLayer -e -attribute cube.rotate L1"));
    ASSERT_TRUE(mel("setKeyframe -t 1 -v 45 cube.ry"));
    EXPECT_EQ(layerCurves("cube.ry"), (Strings{"BaseAnimation -> ", "L1 -> cube_rotate_L1_inputBY"}));
    EXPECT_NEAR(melNumber("getAttr cube.ry"), 45.0, 1e-9);
    EXPECT_EQ(curvesOf("cube.ry"), (Strings{"cube_rotate_L1_inputBY"}));
}

} // namespace
