// MAnimUtil: which nodes and plugs keys animate, and the curves behind a plug.
#include "SceneTest.h"

#include <maya/MAnimUtil.h>
#include <maya/MDagPath.h>
#include <maya/MFnAnimCurve.h>
#include <maya/MObjectArray.h>
#include <maya/MPlug.h>
#include <maya/MPlugArray.h>

using namespace animscene;

namespace {

class AnimUtil : public SceneTest
{
protected:
    void SetUp() override
    {
        SceneTest::SetUp();
        ASSERT_TRUE(mel("createNode transform -n parent; createNode transform -n child -p parent; "
                        "createNode transform -n driver"));
        ASSERT_TRUE(mel("setKeyframe -t 1 -v 2 -at ry -at tz parent"));
    }

    static std::vector<std::string> names(const MPlugArray& plugs)
    {
        std::vector<std::string> result;
        for (unsigned int i = 0; i < plugs.length(); ++i)
            result.push_back(plugs[i].name().asChar());
        return result;
    }
};

} // namespace

TEST_F(AnimUtil, FindsTheKeyedPlugsOfANodeInAttributeOrder)
{
    MPlugArray plugs;
    EXPECT_TRUE(MAnimUtil::findAnimatedPlugs(nodeNamed("parent"), plugs));
    EXPECT_EQ(names(plugs), (std::vector<std::string>{"parent.translateZ", "parent.rotateY"}));
    EXPECT_TRUE(MAnimUtil::isAnimated(nodeNamed("parent")));
    EXPECT_TRUE(MAnimUtil::isAnimated(plugNamed("parent.tz")));
    // A plug is looked at alone: the compound above a keyed child is not animated.
    EXPECT_FALSE(MAnimUtil::isAnimated(plugNamed("parent.translate")));
    EXPECT_FALSE(MAnimUtil::isAnimated(plugNamed("parent.tx")));
}

TEST_F(AnimUtil, CheckParentLooksUpTheHierarchy)
{
    MPlugArray plugs;
    EXPECT_FALSE(MAnimUtil::isAnimated(nodeNamed("child")));
    EXPECT_TRUE(MAnimUtil::isAnimated(nodeNamed("child"), true));
    MDagPath path;
    ASSERT_TRUE(MDagPath::getAPathTo(nodeNamed("child"), path));
    EXPECT_TRUE(MAnimUtil::findAnimatedPlugs(path, plugs, true));
    EXPECT_EQ(plugs.length(), 2u);
    EXPECT_FALSE(MAnimUtil::isAnimated(nodeNamed("driver"), true));
}

TEST_F(AnimUtil, FindAnimationGivesTheCurvesThatKeysDriveAPlugWith)
{
    MObjectArray curves;
    EXPECT_TRUE(MAnimUtil::findAnimation(plugNamed("parent.ry"), curves));
    ASSERT_EQ(curves.length(), 1u);
    EXPECT_EQ(curves[0], nodeNamed("parent_rotateY"));
    EXPECT_FALSE(MAnimUtil::findAnimation(plugNamed("parent.rx"), curves));
    EXPECT_EQ(curves.length(), 1u); // nothing added
    MStatus status;
    EXPECT_FALSE(MAnimUtil::findAnimation(MPlug(), curves, &status));
    EXPECT_FALSE(status);
}

TEST_F(AnimUtil, SetDrivenKeysAreNoAnimation)
{
    ASSERT_TRUE(mel("createNode animCurveUL -n driven; connectAttr driver.tx driven.input; "
                    "connectAttr driven.output child.tx"));
    MFnAnimCurve(nodeNamed("driven")).addKey(0.0, 1.0);
    EXPECT_FALSE(MAnimUtil::isAnimated(plugNamed("child.tx")));
    // A time curve whose input something else drives is a set driven key too.
    ASSERT_TRUE(mel("connectAttr driver.ty parent_translateZ.input"));
    EXPECT_FALSE(MAnimUtil::isAnimated(plugNamed("parent.tz")));
}

TEST_F(AnimUtil, NoLayersWithoutAnimationLayers)
{
    MObjectArray layers;
    MPlugArray plugs;
    MStatus status;
    EXPECT_FALSE(MAnimUtil::findAnimationLayers(plugNamed("parent.ry"), layers, plugs, &status));
    EXPECT_TRUE(status);
    EXPECT_EQ(layers.length(), 0u);
}
