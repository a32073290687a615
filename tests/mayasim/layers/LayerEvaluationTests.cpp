// Layered values as Maya's blend nodes give them: output = A * weightA +
// B * weightB, the weights coming from the layer (weight, mute, solo,
// override and passthrough, and its parent's), scale multiplying.
#include "LayerTest.h"

#include <cmath>

namespace {

using namespace dgtest;

// cube.tx holds 3 before it goes into layers.
class LayerEvaluationTest : public LayerTest
{
protected:
    void SetUp() override
    {
        LayerTest::SetUp();
        ASSERT_TRUE(mel("setAttr cube.tx 3"));
    }

    // Layer `layer` (made when missing) holds cube.tx with a value of its own.
    static void layerOnTranslateX(const std::string& layer, double own = 4.0)
    {
        if (!nodeNamed(layer).hasFn(MFn::kAnimLayer))
        {
            ASSERT_TRUE(mel("animLayer " + layer));
        }
        ASSERT_TRUE(mel("animLayer -e -attribute cube.tx " + layer));
        ASSERT_TRUE(mel("setAttr cube_translateX_" + layer + ".inputB " + std::to_string(own)));
    }

    static double tx() { return melNumber("getAttr cube.tx"); }
};

TEST_F(LayerEvaluationTest, AdditiveLayerAddsItsWeightedValue)
{
    layerOnTranslateX("L1");
    EXPECT_DOUBLE_EQ(melNumber("getAttr cube_translateX_L1.inputA"), 3.0) << "the plug's value moves to input A";
    EXPECT_DOUBLE_EQ(tx(), 7.0);
    ASSERT_TRUE(mel("animLayer -e -weight 0.5 L1"));
    EXPECT_DOUBLE_EQ(tx(), 5.0);
    EXPECT_DOUBLE_EQ(melNumber("getAttr cube_translateX_L1.weightA"), 1.0);
    EXPECT_DOUBLE_EQ(melNumber("getAttr cube_translateX_L1.weightB"), 0.5);
}

TEST_F(LayerEvaluationTest, OverrideLayerBlendsTowardItsValue)
{
    ASSERT_TRUE(mel("animLayer -override 1 -weight 0.25 L1"));
    ASSERT_TRUE(mel("animLayer -e -attribute cube.tx L1"));
    EXPECT_DOUBLE_EQ(tx(), 3.0) << "an override layer starts at the present value";
    ASSERT_TRUE(mel("setAttr cube_translateX_L1.inputB 4"));
    EXPECT_DOUBLE_EQ(tx(), 3.0 * 0.75 + 4.0 * 0.25);
    // Without passthrough nothing from below shows through.
    ASSERT_TRUE(mel("animLayer -e -passthrough 0 L1"));
    EXPECT_DOUBLE_EQ(tx(), 1.0);
}

TEST_F(LayerEvaluationTest, MutedLayerAndMutedParentLeaveTheValueBelow)
{
    ASSERT_TRUE(mel("animLayer P; animLayer -parent P C"));
    layerOnTranslateX("C");
    ASSERT_TRUE(mel("animLayer -e -mute 1 C"));
    EXPECT_DOUBLE_EQ(tx(), 3.0);
    ASSERT_TRUE(mel("animLayer -e -mute 0 C; animLayer -e -mute 1 P"));
    EXPECT_DOUBLE_EQ(tx(), 3.0);
    ASSERT_TRUE(mel("animLayer -e -mute 0 P"));
    EXPECT_DOUBLE_EQ(tx(), 7.0);
}

TEST_F(LayerEvaluationTest, ParentWeightScalesChildren)
{
    ASSERT_TRUE(mel("animLayer -weight 0.5 P; animLayer -parent P -weight 0.5 C"));
    layerOnTranslateX("C");
    EXPECT_DOUBLE_EQ(tx(), 3.0 + 4.0 * 0.25);
}

TEST_F(LayerEvaluationTest, SoloMutesTheSiblings)
{
    layerOnTranslateX("L1");
    ASSERT_TRUE(mel("animLayer L2; animLayer -e -attribute cube.tx L2; setAttr cube_translateX_L2.inputB 10"));
    EXPECT_DOUBLE_EQ(tx(), 17.0);
    ASSERT_TRUE(mel("animLayer -e -solo 1 L1"));
    EXPECT_DOUBLE_EQ(tx(), 7.0);
    ASSERT_TRUE(mel("animLayer -e -solo 1 L2"));
    EXPECT_DOUBLE_EQ(tx(), 17.0);
}

TEST_F(LayerEvaluationTest, LayersStackInOrderWhateverOrderTheyGetThePlug)
{
    // L2 gets the plug first, then L1 below it; an override L2 on top hides
    // L1's addition.
    ASSERT_TRUE(mel("animLayer L1; animLayer -override 1 -passthrough 0 L2"));
    layerOnTranslateX("L2", 10.0);
    layerOnTranslateX("L1", 4.0);
    EXPECT_EQ(layerCurves("cube.tx"), (std::vector<std::string>{"BaseAnimation -> ", "L1 -> ", "L2 -> "}));
    EXPECT_DOUBLE_EQ(tx(), 10.0);
    ASSERT_TRUE(mel("animLayer -e -passthrough 1 -weight 0.5 L2"));
    EXPECT_DOUBLE_EQ(tx(), (3.0 + 4.0) * 0.5 + 10.0 * 0.5);
}

TEST_F(LayerEvaluationTest, RotationAddsByComponent)
{
    ASSERT_TRUE(mel("setAttr cube.r 30 10 0; animLayer -weight 0.5 L1; animLayer -e -attribute cube.rotate L1"));
    ASSERT_TRUE(mel("setAttr cube_rotate_L1.inputB 15 0 -20"));
    EXPECT_NEAR(melNumber("getAttr cube.rx"), 37.5, 1e-9);
    EXPECT_NEAR(melNumber("getAttr cube.ry"), 10.0, 1e-9);
    EXPECT_NEAR(melNumber("getAttr cube.rz"), -10.0, 1e-9);
    EXPECT_EQ(plugNamed("cube_rotate_L1.rotateOrder").source().name(), MString("cube.rotateOrder"));
}

TEST_F(LayerEvaluationTest, ScaleMultipliesUnlessAccumulatingAdditively)
{
    ASSERT_TRUE(mel("setAttr cube.sx 2; animLayer -weight 0.5 L1; animLayer -e -attribute cube.sx L1"));
    EXPECT_DOUBLE_EQ(melNumber("getAttr cube_scaleX_L1.inputB"), 1.0) << "an additive scale layer starts at 1";
    EXPECT_DOUBLE_EQ(melNumber("getAttr cube.sx"), 2.0);
    ASSERT_TRUE(mel("setAttr cube_scaleX_L1.inputB 3"));
    EXPECT_NEAR(melNumber("getAttr cube.sx"), 2.0 * std::sqrt(3.0), 1e-12);
    ASSERT_TRUE(mel("setAttr L1.scaleAccumulationMode 1"));
    EXPECT_DOUBLE_EQ(melNumber("getAttr cube.sx"), 2.0 + 3.0 * 0.5);
}

TEST_F(LayerEvaluationTest, BooleansSwitchToTheLayerWhileItWeighsAnything)
{
    ASSERT_TRUE(mel("animLayer -weight 0.1 L1; animLayer -e -attribute cube.v L1"));
    EXPECT_EQ(nodesOfType(MFn::kBlendNodeBoolean), (std::vector<std::string>{"cube_visibility_L1"}));
    EXPECT_EQ(melNumber("getAttr cube.v"), 1.0);
    ASSERT_TRUE(mel("setAttr cube_visibility_L1.inputB 0"));
    EXPECT_EQ(melNumber("getAttr cube.v"), 0.0);
    ASSERT_TRUE(mel("animLayer -e -weight 0 L1"));
    EXPECT_EQ(melNumber("getAttr cube.v"), 1.0);
}

TEST_F(LayerEvaluationTest, CurvesOnBothSidesEvaluateAtEachFrame)
{
    twoLayersOnTranslateX();
    ASSERT_TRUE(mel("setKeyframe -t 1 -v 1 cube.tx; setKeyframe -t 10 -v 3 cube.tx")); // into L2, the best layer
    ASSERT_TRUE(mel("animLayer -e -weight 0.5 L2"));
    ASSERT_TRUE(mel("currentTime 10"));
    EXPECT_DOUBLE_EQ(tx(), 20.0 + 3.0 * 0.5);
    EXPECT_DOUBLE_EQ(melNumber("getAttr -time 1 cube.tx"), 2.0 + 1.0 * 0.5);
}

} // namespace
