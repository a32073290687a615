// What Maya's panels hold, as the host sets it and MEL reads it: the time
// slider highlight, the channel box highlight and the graph editor's key
// selection.
#include "SceneTest.h"

using namespace animscene;
using mayasim::host::ChannelBoxSection;

namespace {

class UiState : public SceneTest
{
protected:
    void SetUp() override
    {
        SceneTest::SetUp();
        ASSERT_TRUE(mel("createNode transform -n box; setKeyframe -t 1 -v 0 -at tx -at ty box; "
                        "setKeyframe -t 5 -v 1 -at tx -at ty box; setKeyframe -t 9 -v 2 -at tx box"));
        ASSERT_TRUE(mel("select -r box"));
    }
};

} // namespace

TEST_F(UiState, TimeSliderRangeRunsOneFramePastTheHighlight)
{
    ASSERT_TRUE(mel("currentTime 10"));
    EXPECT_EQ(melNumbers("timeControl -q -rangeArray $gPlayBackSlider"), (std::vector<double>{10, 11}));
    EXPECT_EQ(melNumber("timeControl -q -rangeVisible timeControl1"), 0.0);
    mayasim::host::setTimeSliderHighlight(10, 11); // two frames
    const std::string slider = "MayaWindow|mayaMainWindowForm|TimeSliderForm|formLayout16|timeControl1";
    EXPECT_EQ(melNumbers("timeControl -q -rangeArray " + slider), (std::vector<double>{10, 12}));
    EXPECT_EQ(melString("timeControl -q -range " + slider), "\"10:12\"");
    ASSERT_TRUE(mel("timeControl -e -range \"20:25\" " + slider));
    EXPECT_EQ(melNumbers("timeControl -q -ra timeControl1"), (std::vector<double>{20, 25}));
    EXPECT_FALSE(mel("timeControl -q -rangeArray someOtherControl"));
    EXPECT_FALSE(mel("timeControl -e -range \"25:20\" timeControl1"));
    mayasim::host::clearTimeSliderHighlight();
    EXPECT_EQ(melNumbers("timeControl -q -rangeArray timeControl1"), (std::vector<double>{10, 11}));
}

TEST_F(UiState, ChannelBoxAnswersEachSectionWithShortNames)
{
    EXPECT_EQ(melString("$tmpVar=$gChannelBoxName"), "mainChannelBox");
    MStringArray names;
    // Nothing highlighted: no answer at all.
    EXPECT_FALSE(MGlobal::executeCommand("channelBox -q -selectedMainAttributes $gChannelBoxName", names));
    mayasim::host::setChannelBoxHighlight(ChannelBoxSection::Main, {"tx", "ry"});
    mayasim::host::setChannelBoxHighlight(ChannelBoxSection::History, {"w"});
    EXPECT_EQ(melStrings("channelBox -q -selectedMainAttributes $gChannelBoxName"),
              (std::vector<std::string>{"tx", "ry"}));
    EXPECT_EQ(melStrings("channelBox -q -selectedHistoryAttributes $gChannelBoxName"), std::vector<std::string>{"w"});
    EXPECT_FALSE(MGlobal::executeCommand("channelBox -q -selectedShapeAttributes $gChannelBoxName", names));
    EXPECT_FALSE(MGlobal::executeCommand("channelBox -q -selectedOutputAttributes $gChannelBoxName", names));
    EXPECT_FALSE(mel("channelBox -q -sma otherChannelBox"));
}

TEST_F(UiState, PickedKeysPutTheirCurvesIntoTheActiveSelection)
{
    std::vector<int> indices;
    EXPECT_FALSE(melInts("keyframe -q -selected -indexValue box_translateX", indices));
    MDoubleArray times;
    EXPECT_FALSE(MGlobal::executeCommand("keyframe -query -selected", times));

    ASSERT_TRUE(mayasim::host::selectKeys("box_translateX", {2, 0}));
    EXPECT_EQ(melStrings("ls -sl"), (std::vector<std::string>{"box", "box_translateX"}));
    ASSERT_TRUE(melInts("keyframe -q -selected -indexValue box_translateX", indices));
    EXPECT_EQ(indices, (std::vector<int>{0, 2}));
    EXPECT_EQ(melNumbers("keyframe -query -selected box_translateX"), (std::vector<double>{1, 9}));
    EXPECT_FALSE(melInts("keyframe -q -selected -indexValue box_translateY", indices));

    ASSERT_TRUE(mayasim::host::selectKeys("box_translateY", {1}));
    EXPECT_EQ(melNumbers("keyframe -query -selected"), (std::vector<double>{1, 9, 5}));
    ASSERT_TRUE(mayasim::host::deselectKeys("box_translateX", {0, 2}));
    EXPECT_EQ(melStrings("ls -sl"), (std::vector<std::string>{"box", "box_translateY"}));
    EXPECT_FALSE(mayasim::host::selectKeys("box_translateY", {7}));
    EXPECT_FALSE(mayasim::host::selectKeys("box", {0}));

    // A curve that leaves the active selection takes its picks along.
    ASSERT_TRUE(mel("select -r box"));
    EXPECT_TRUE(mayasim::host::selectedKeys("box_translateY").empty());
    EXPECT_FALSE(MGlobal::executeCommand("keyframe -query -selected", times));
}

TEST_F(UiState, UndoingTheDeletionOfACurveBringsBackItsPicks)
{
    ASSERT_TRUE(mel("selectKey -t \"4:10\" box_translateX"));
    ASSERT_TRUE(mel("delete box_translateX"));
    EXPECT_EQ(melStrings("ls -sl"), (std::vector<std::string>{"box"}));
    ASSERT_TRUE(mel("undo"));
    EXPECT_EQ(melStrings("ls -sl"), (std::vector<std::string>{"box", "box_translateX"}));
    EXPECT_EQ(mayasim::host::selectedKeys("box_translateX"), (std::vector<unsigned int>{1, 2}));
    ASSERT_TRUE(mel("redo"));
    EXPECT_EQ(melStrings("ls -sl"), (std::vector<std::string>{"box"}));
}

TEST_F(UiState, PicksStayWithTheirKeysWhenKeysComeAndGo)
{
    ASSERT_TRUE(mayasim::host::selectKeys("box_translateX", {1}));
    ASSERT_TRUE(mel("setKeyframe -t 3 -v 7 -at tx box"));
    EXPECT_EQ(mayasim::host::selectedKeys("box_translateX"), std::vector<unsigned int>{2});
    ASSERT_TRUE(mel("keyframe -e -r -tc 2"));  // the picked keys, as none are named
    EXPECT_EQ(melNumbers("keyframe -q -sl box_translateX"), std::vector<double>{7});
    ASSERT_TRUE(mel("undo"));
    EXPECT_EQ(melNumbers("keyframe -q -sl box_translateX"), std::vector<double>{5});
}

TEST_F(UiState, SelectKeyReplacesAddsRemovesAndClearsUndoably)
{
    EXPECT_EQ(melNumber("selectKey -t \"4:10\" box_translateX"), 1.0);
    EXPECT_EQ(mayasim::host::selectedKeys("box_translateX"), (std::vector<unsigned int>{1, 2}));
    EXPECT_EQ(melStrings("ls -sl"), (std::vector<std::string>{"box", "box_translateX"}));
    ASSERT_TRUE(mel("selectKey -add -t 1 -at ty box"));
    EXPECT_EQ(mayasim::host::selectedKeys("box_translateY"), std::vector<unsigned int>{0});
    ASSERT_TRUE(mel("selectKey -rm -t 9 box_translateX"));
    EXPECT_EQ(mayasim::host::selectedKeys("box_translateX"), std::vector<unsigned int>{1});
    ASSERT_TRUE(mel("selectKey -tgl box_translateX"));
    EXPECT_EQ(mayasim::host::selectedKeys("box_translateX"), (std::vector<unsigned int>{0, 2}));
    ASSERT_TRUE(mel("selectKey box_translateY"));
    EXPECT_TRUE(mayasim::host::selectedKeys("box_translateX").empty());
    EXPECT_EQ(melStrings("ls -sl"), (std::vector<std::string>{"box", "box_translateY"}));
    ASSERT_TRUE(mel("selectKey -cl"));
    EXPECT_EQ(melStrings("ls -sl"), std::vector<std::string>{"box"});
    ASSERT_TRUE(mel("undo; undo"));
    EXPECT_EQ(mayasim::host::selectedKeys("box_translateX"), (std::vector<unsigned int>{0, 2}));
    EXPECT_EQ(melStrings("ls -sl"), (std::vector<std::string>{"box", "box_translateX", "box_translateY"}));
}

TEST_F(UiState, KeyCommandsWithoutObjectsActOnPickedKeys)
{
    ASSERT_TRUE(mayasim::host::selectKeys("box_translateX", {1}));
    ASSERT_TRUE(mel("keyTangent -e -itt linear"));
    EXPECT_EQ(melStrings("keyTangent -q -itt box_translateX"), (std::vector<std::string>{"auto", "linear", "auto"}));
    ASSERT_TRUE(mel("cutKey -clear"));
    EXPECT_EQ(melNumbers("keyframe -q box_translateX"), (std::vector<double>{1, 9}));
    EXPECT_EQ(melNumbers("keyframe -q box_translateY"), (std::vector<double>{1, 5}));
}
