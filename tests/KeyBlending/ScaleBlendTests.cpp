// Scale From Average, Frame, Neighbor Left and Right, Default and Scale From
// Default end to end: pivots at x = -1, 0 and 1, the edge cases, and one undo
// step per command and per drag.
#include "DataFolderTest.h"

#include "BlendTest.h"
#include "SliderDrag.h"

#include <mayasim/Host.h>

#include <gmock/gmock.h>

using ::testing::DoubleNear;
using ::testing::ElementsAre;

namespace {

enum BlendType {
    Default = 9,
    ScaleFromDefault = 11,
    ScaleFromAverage = 12,
    ScaleFromFrame = 13,
    ScaleFromNeighborLeft = 14,
    ScaleFromNeighborRight = 15
};

// The data folder is a throwaway one: Default reads the stored poses.
class ScaleBlends : public BlendTest<DataFolderTest>
{
protected:
    void SetUp() override
    {
        BlendTest::SetUp();
        scriptsDir();
        ASSERT_TRUE(mel("createNode transform -n obj"));
        keyPlug("obj.tx", {{1, 0}, {2, 10}, {3, 40}, {4, 20}, {5, 30}});
        mayasim::host::clearOutput();
    }
};

TEST_F(ScaleBlends, ScaleFromAverageScalesAboutTheMiddleOfTheExtremes)
{
    // Keys 10, 40, 20: the pivot is 25, not their mean.
    pickKeys("obj_translateX", {1, 2, 3});
    EXPECT_THAT(blended(ScaleFromAverage, -1), ElementsAre(0, 25, 25, 25, 30));
    EXPECT_THAT(blended(ScaleFromAverage, 0), ElementsAre(0, 10, 40, 20, 30));
    EXPECT_THAT(blended(ScaleFromAverage, 1), ElementsAre(0, -5, 55, 15, 30));
}

TEST_F(ScaleBlends, ScaleFromAverageOfALoneKeyUsesTheWholeCurve)
{
    // Key 1 (10) on a curve from 0 to 40: pivot 20.
    pickKeys("obj_translateX", {1});
    EXPECT_THAT(blended(ScaleFromAverage, -1)[1], 20);
    EXPECT_THAT(blended(ScaleFromAverage, 1)[1], 0);

    // A curve of one key: the key is its own pivot and never moves.
    keyPlug("obj.ty", {{1, 7}});
    mayasim::host::clearKeySelection();
    pickKeys("obj_translateY", {0});
    for (double x : {-1.0, 0.0, 1.0})
        EXPECT_THAT(blended(ScaleFromAverage, x, "obj_translateY"), ElementsAre(7));
}

TEST_F(ScaleBlends, ScaleFromFrameTakesItsPivotFromTheSideOfX)
{
    // Frame 1 gives 0, frame 5 gives 30.
    pickKeys("obj_translateX", {1, 2, 3});
    EXPECT_THAT(blended(ScaleFromFrame, -1, "obj_translateX", "-ft 1 5"), ElementsAre(0, 0, 0, 0, 30));
    EXPECT_THAT(blended(ScaleFromFrame, 0, "obj_translateX", "-ft 1 5"), ElementsAre(0, 10, 40, 20, 30));
    EXPECT_THAT(blended(ScaleFromFrame, 1, "obj_translateX", "-ft 1 5"), ElementsAre(0, -10, 50, 10, 30));
    EXPECT_THAT(blended(ScaleFromFrame, -0.5, "obj_translateX", "-ft 1 5"), ElementsAre(0, 5, 20, 10, 30));
}

TEST_F(ScaleBlends, ScaleFromFrameDragStaysContinuousAcrossZero)
{
    pickKeys("obj_translateX", {2});
    expectOneUndoStep([] {
        ASSERT_TRUE(MGlobal::executeCommand("OVKeyBlending -internal", false, true));
        KeyBlending::Data* data = KeyBlending::activeData;
        ASSERT_NE(data, nullptr);
        MSelectionList selection;
        MGlobal::getActiveSelectionList(selection);
        data->setBlendType(ScaleFromFrame);
        data->setFrameTimes(1, 5);
        data->collect(selection);
        data->blend(-0.01);
        EXPECT_THAT(keyValues("obj_translateX")[2], DoubleNear(39.6, 1e-9));
        data->blend(0.0);
        EXPECT_EQ(keyValues("obj_translateX")[2], 40);
        data->blend(0.01);
        EXPECT_THAT(keyValues("obj_translateX")[2], DoubleNear(40.1, 1e-9));
        data->blend(1.0);
        releaseSlider(*data);
        EXPECT_EQ(keyValues("obj_translateX")[2], 50);
    });
}

TEST_F(ScaleBlends, ScaleFromNeighboursPivotOnTheRunsNeighbours)
{
    // Keys 40, 20 between 10 and 30.
    pickKeys("obj_translateX", {2, 3});
    EXPECT_THAT(blended(ScaleFromNeighborLeft, -1), ElementsAre(0, 10, 10, 10, 30));
    EXPECT_THAT(blended(ScaleFromNeighborLeft, 1), ElementsAre(0, 10, 70, 30, 30));
    EXPECT_THAT(blended(ScaleFromNeighborRight, -1), ElementsAre(0, 10, 30, 30, 30));
    EXPECT_THAT(blended(ScaleFromNeighborRight, 1), ElementsAre(0, 10, 50, 10, 30));
    EXPECT_THAT(blended(ScaleFromNeighborRight, 0), ElementsAre(0, 10, 40, 20, 30));
}

TEST_F(ScaleBlends, ScaleFromNeighborLeftLeavesTheFirstKeyOfACurve)
{
    ASSERT_TRUE(mel("currentTime 1; select -r obj"));
    for (double x : {-1.0, 1.0})
        EXPECT_THAT(blended(ScaleFromNeighborLeft, x), ElementsAre(0, 10, 40, 20, 30));
}

TEST_F(ScaleBlends, DefaultWithoutSnapshotMovesTowardTheAttributeDefault)
{
    pickKeys("obj_translateX", {2});
    EXPECT_EQ(blended(Default, 1)[2], 0);
    EXPECT_EQ(blended(Default, 0.25)[2], 30);
    EXPECT_EQ(blended(Default, 0)[2], 40);
    EXPECT_EQ(blended(Default, -1)[2], 80);
    // Scale From Default runs the other way.
    EXPECT_EQ(blended(ScaleFromDefault, -1)[2], 0);
    EXPECT_EQ(blended(ScaleFromDefault, 0)[2], 40);
    EXPECT_EQ(blended(ScaleFromDefault, 1)[2], 80);
}

TEST_F(ScaleBlends, DefaultUsesTheStoredPoseFirst)
{
    ASSERT_TRUE(mel("createNode transform -n posed; setAttr posed.tx 20; setAttr posed.sx 2; OVSnapshot posed"));
    keyPlug("posed.tx", {{1, 40}, {5, 60}});
    keyPlug("posed.sx", {{1, 3}});
    ASSERT_TRUE(mayasim::host::selectKeys("posed_translateX", {0, 1}));
    ASSERT_TRUE(mayasim::host::selectKeys("posed_scaleX", {0}));
    ASSERT_TRUE(mel("select -add posed"));
    EXPECT_THAT(blended(Default, 1, "posed_translateX"), ElementsAre(20, 20));
    EXPECT_THAT(blended(Default, 0.5, "posed_translateX"), ElementsAre(30, 40));
    EXPECT_THAT(blended(ScaleFromDefault, -1, "posed_scaleX"), ElementsAre(2));
    EXPECT_THAT(blended(ScaleFromDefault, 1, "posed_scaleX"), ElementsAre(4));
}

TEST_F(ScaleBlends, DefaultSkipsAPlugWithoutAnyDefault)
{
    // A byte attribute has no default the blend can use.
    ASSERT_TRUE(mel("addAttr -ln level -at byte -k true obj"));
    keyPlug("obj.level", {{1, 5}, {3, 9}});
    pickKeys("obj_translateX", {2});
    pickKeys("obj_level", {1});
    for (double x : {-1.0, 0.5, 1.0}) {
        EXPECT_THAT(blended(Default, x, "obj_level"), ElementsAre(5, 9));
        EXPECT_THAT(blended(ScaleFromDefault, x, "obj_level"), ElementsAre(5, 9));
    }
    EXPECT_EQ(blended(Default, 1)[2], 0) << "the other curve still moves";
}

TEST_F(ScaleBlends, DefaultDragIsOneUndoStep)
{
    pickKeys("obj_translateX", {1, 2});
    expectOneUndoStep([] {
        KeyBlending::Data* data = pressSlider(Default);
        ASSERT_NE(data, nullptr);
        for (double x : {0.2, 0.6, 1.0, 0.5})
            data->blend(x);
        releaseSlider(*data);
        EXPECT_THAT(keyValues("obj_translateX"), ElementsAre(0, 5, 20, 20, 30));
    });
}

} // namespace
