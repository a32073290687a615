// OVKeyBlending end to end: which keys the collection picks, the Tween
// Machine formula, the reports and the undo record.
#include "PluginTest.h"

#include "BlendTest.h"
#include "KeyBlending/Data.h"

#include <maya/MGlobal.h>
#include <maya/MSelectionList.h>
#include <mayasim/Host.h>

#include <gmock/gmock.h>

using ::testing::ElementsAre;
using ::testing::HasSubstr;

namespace {

class TweenMachine : public BlendTest<PluginTest>
{
protected:
    void SetUp() override
    {
        BlendTest::SetUp();
        ASSERT_TRUE(mel("createNode transform -n obj"));
        // Keys at frames 1..8 with values 0, 10, 20, ... 70 on tx; ty stays flat.
        std::vector<std::pair<double, double>> keys;
        for (int frame = 1; frame <= 8; ++frame)
            keys.emplace_back(frame, (frame - 1) * 10.0);
        keyPlug("obj.tx", keys);
        keyPlug("obj.ty", {{1, 5}, {8, 5}});
        ASSERT_TRUE(mel("select -r obj"));
        mayasim::host::clearOutput();
    }
};

TEST_F(TweenMachine, SelectedKeysFormRunsThatShareTheirNeighbours)
{
    pickKeys("obj_translateX", {2, 3, 7});
    expectOneUndoStep([] {
        ASSERT_TRUE(mel("OVKeyBlending -bt 0 -bv 0"));
        // Keys 2 and 3 go to the mean of keys 1 and 4; key 7, the last, is its
        // own right neighbour and goes halfway from key 6.
        EXPECT_THAT(keyValues("obj_translateX"), ElementsAre(0, 10, 25, 25, 40, 50, 60, 65));
        EXPECT_THAT(keyValues("obj_translateY"), ElementsAre(5, 5));
    });
}

TEST_F(TweenMachine, ExtremesGiveTheNeighboursAndOvershootIsLinear)
{
    pickKeys("obj_translateX", {3});
    ASSERT_TRUE(mel("OVKeyBlending -bt 0 -bv -1"));
    EXPECT_EQ(keyValues("obj_translateX")[3], 20);
    ASSERT_TRUE(mel("OVKeyBlending -bt 0 -bv 1"));
    EXPECT_EQ(keyValues("obj_translateX")[3], 40);
    ASSERT_TRUE(mel("OVKeyBlending -bt 0 -bv 3"));
    EXPECT_EQ(keyValues("obj_translateX")[3], 60);
}

TEST_F(TweenMachine, FirstKeyIsItsOwnLeftNeighbour)
{
    pickKeys("obj_translateX", {0});
    ASSERT_TRUE(mel("OVKeyBlending -bt 0 -bv -1"));
    EXPECT_EQ(keyValues("obj_translateX")[0], 0);
    ASSERT_TRUE(mel("OVKeyBlending -bt 0 -bv 1"));
    EXPECT_EQ(keyValues("obj_translateX")[0], 10);
}

TEST_F(TweenMachine, HighlightedRangeIsOneRun)
{
    mayasim::host::setTimeSliderHighlight(3, 5);
    ASSERT_TRUE(mel("OVKeyBlending -bt 0 -bv 0"));
    // Frames 3..5 (keys 2..4) between frame 2 (10) and frame 6 (50); ty has no key in range.
    EXPECT_THAT(keyValues("obj_translateX"), ElementsAre(0, 10, 30, 30, 30, 50, 60, 70));
    EXPECT_THAT(keyValues("obj_translateY"), ElementsAre(5, 5));
}

TEST_F(TweenMachine, SingleFrameHighlightUsesTheCurrentFrame)
{
    mayasim::host::setTimeSliderHighlight(4, 4);
    ASSERT_TRUE(mel("currentTime 4"));
    ASSERT_TRUE(mel("OVKeyBlending -bt 0 -bv 0"));
    EXPECT_THAT(keyValues("obj_translateX"), ElementsAre(0, 10, 20, 30, 40, 50, 60, 70));
}

TEST_F(TweenMachine, CurrentFrameWithoutKeyInsertsOneAndUndoRemovesIt)
{
    ASSERT_TRUE(mel("currentTime 4.5"));
    const std::string before = sceneText();
    ASSERT_TRUE(mel("OVKeyBlending -bt 0 -bv 0.5"));
    // A key at 4.5 between frames 4 (30) and 5 (40), three quarters of the way.
    EXPECT_THAT(keyTimes("obj_translateX"), ElementsAre(1, 2, 3, 4, 4.5, 5, 6, 7, 8));
    EXPECT_EQ(keyValues("obj_translateX")[4], 37.5);
    ASSERT_TRUE(mel("undo"));
    EXPECT_EQ(sceneText(), before);
}

TEST_F(TweenMachine, CurrentFrameOnAKeyUsesItsNeighbours)
{
    ASSERT_TRUE(mel("currentTime 4"));
    ASSERT_TRUE(mel("OVKeyBlending -bt 0 -bv 0"));
    EXPECT_EQ(keyValues("obj_translateX")[3], 30);
    ASSERT_TRUE(mel("OVKeyBlending -bt 0 -bv 1"));
    EXPECT_EQ(keyValues("obj_translateX")[3], 40);
}

TEST_F(TweenMachine, ChannelBoxHighlightRestrictsTheChannels)
{
    keyPlug("obj.ty", {{4, 50}});
    mayasim::host::setChannelBoxHighlight(mayasim::host::ChannelBoxSection::Main, {"ty"});
    ASSERT_TRUE(mel("currentTime 4"));
    ASSERT_TRUE(mel("OVKeyBlending -bt 0 -bv 0"));
    EXPECT_EQ(keyValues("obj_translateX")[3], 30);
    EXPECT_THAT(keyValues("obj_translateY"), ElementsAre(5, 5, 5));
}

TEST_F(TweenMachine, GraphEditorCurvesTakePrecedenceOverTheHighlight)
{
    mayasim::host::setChannelBoxHighlight(mayasim::host::ChannelBoxSection::Main, {"ty"});
    pickKeys("obj_translateX", {3});
    ASSERT_TRUE(mel("OVKeyBlending -bt 0 -bv 0"));
    EXPECT_EQ(keyValues("obj_translateX")[3], 30);
    EXPECT_THAT(keyValues("obj_translateY"), ElementsAre(5, 5));
}

TEST_F(TweenMachine, LockedChannelIsLeftOutUnlessItsCurveIsPicked)
{
    ASSERT_TRUE(mel("setAttr -l true obj.tx"));
    ASSERT_TRUE(mel("currentTime 4"));
    ASSERT_TRUE(mel("OVKeyBlending -bt 0 -bv 1"));
    EXPECT_EQ(keyValues("obj_translateX")[3], 30);
}

TEST_F(TweenMachine, CurvesPickedWithoutTheirObjectAreNotFound)
{
    ASSERT_TRUE(mayasim::host::selectKeys("obj_translateX", {3}));
    ASSERT_TRUE(mel("select -d obj"));
    // An empty collection is nothing to do, not a failure.
    EXPECT_TRUE(mel("OVKeyBlending -bt 0 -bv 1"));
    EXPECT_EQ(keyValues("obj_translateX")[3], 30);
}

TEST_F(TweenMachine, NothingSelectedFailsWithItsReport)
{
    ASSERT_TRUE(mel("select -cl"));
    EXPECT_FALSE(mel("OVKeyBlending -bv 0.5"));
    ASSERT_EQ(reports().size(), 1u);
    EXPECT_THAT(reports()[0], HasSubstr("Message: no object/s specified\n"));
    EXPECT_THAT(reports()[0], HasSubstr("Function: doIt\n"));
    EXPECT_THAT(reports()[0], HasSubstr("File: Cmd\n"));
}

TEST_F(TweenMachine, MissingValueAndTypeAreReportedAndDefaulted)
{
    ASSERT_TRUE(mel("currentTime 4"));
    ASSERT_TRUE(mel("OVKeyBlending"));
    EXPECT_EQ(keyValues("obj_translateX")[3], 30);
    const auto blocks = reports();
    ASSERT_EQ(blocks.size(), 2u);
    EXPECT_THAT(blocks[0], HasSubstr("Message: no blend value specified so, the value 0 will be used\nto specify "
                                     "blend value use flag [-bv, -blendValue]\n\n\n"));
    EXPECT_THAT(blocks[1], HasSubstr("Message: no blend type specified\nso, the default blend type [Tween Machine] "
                                     "will be used\n\nuse flag [-bt, -blendType] with any of these types:\n"
                                     "Tween Machine               => 0\nNeighbors                   => 1\n"));
    EXPECT_THAT(blocks[1], HasSubstr("Blend To Ease               => 24\n\n\nFunction: doIt\n"));
}

TEST_F(TweenMachine, BlendTypesAreTruncatedAndCheckedAgainstTheTable)
{
    ASSERT_TRUE(mel("currentTime 4"));
    ASSERT_TRUE(mel("OVKeyBlending -bt 25 -bv 1"));
    ASSERT_EQ(reports().size(), 1u);
    EXPECT_THAT(reports()[0], HasSubstr("Message: Invalid Blend Type\nThe Defuald Belnd Type [ Tween Machine ] "
                                        "Will Be Use\n\nValid Blend Types is:\nTween Machine "));
    EXPECT_THAT(reports()[0], HasSubstr("Function: setBlendType\n"));
    EXPECT_THAT(reports()[0], HasSubstr("File: Data\n"));
    EXPECT_EQ(keyValues("obj_translateX")[3], 40);

    mayasim::host::clearOutput();
    ASSERT_TRUE(mel("OVKeyBlending -bt -0.5 -bv -1"));
    EXPECT_TRUE(reports().empty());
    EXPECT_EQ(keyValues("obj_translateX")[3], 20);

    // 24.9 is type 24, Blend To Ease: valid, so no report.
    ASSERT_TRUE(mel("OVKeyBlending -bt 24.9 -bv 1"));
    EXPECT_TRUE(reports().empty());

    // Types beyond any int are invalid types like 25, not casts out of range.
    for (const char* type : {"1e12", "-1e12", "3e9"}) {
        mayasim::host::clearOutput();
        ASSERT_TRUE(mel(std::string("OVKeyBlending -bv -1 -bt ") + type)) << type;
        ASSERT_EQ(reports().size(), 1u) << type;
        EXPECT_THAT(reports()[0], HasSubstr("Message: Invalid Blend Type\n")) << type;
        EXPECT_EQ(keyValues("obj_translateX")[3], 20) << type;
    }
}

TEST_F(TweenMachine, BadFlagsFailAndChangeNothing)
{
    ASSERT_TRUE(mel("currentTime 4"));
    ASSERT_TRUE(mel("OVKeyBlending -bt 0 -bv 1"));
    const std::string before = sceneText();
    EXPECT_FALSE(mel("OVKeyBlending -bv abc"));
    EXPECT_FALSE(mel("OVKeyBlending -bt 0 -bv 1 -nosuchflag"));
    EXPECT_EQ(sceneText(), before);

    // Numbers too large for a double read as infinities: each is reported
    // with its flag, the command fails before it touches a key, and it
    // leaves nothing on the undo queue, even with -internal.
    const std::vector<std::pair<std::string, std::string>> calls = {
        {"-bt 0 -bv 1e400", "[-bv, -blendValue]"},
        {"-bt -1e400 -bv 1", "[-bt, -blendType]"},
        {"-bt 2 -bv 1 -ft 1 1e400", "[-ft, -frameTimes]"},
        {"-bt 2 -bv 1 -ft -1e999 8", "[-ft, -frameTimes]"},
        {"-internal -bv 1e400", "[-bv, -blendValue]"},
    };
    for (const auto& [flags, flag] : calls) {
        mayasim::host::clearOutput();
        EXPECT_FALSE(mel("OVKeyBlending " + flags)) << flags;
        ASSERT_EQ(reports().size(), 1u) << flags;
        EXPECT_THAT(reports()[0], HasSubstr("Message: " + flag + " flag needs a finite number\n")) << flags;
        EXPECT_THAT(reports()[0], HasSubstr("Function: doIt\n"));
        EXPECT_THAT(reports()[0], HasSubstr("File: Cmd\n"));
        EXPECT_EQ(sceneText(), before) << flags;
    }
    EXPECT_EQ(KeyBlending::activeData, nullptr);
    // The last undo step is still the blend that succeeded.
    ASSERT_TRUE(mel("undo"));
    EXPECT_EQ(keyValues("obj_translateX")[3], 30);
}

TEST_F(TweenMachine, BlendTypeListHasEveryRowInOrder)
{
    const QString list = KeyBlending::Data::blendTypeList();
    EXPECT_EQ(list.count(QLatin1Char('\n')), KeyBlending::BlendTypeCount);
    EXPECT_TRUE(list.startsWith(QStringLiteral("Tween Machine               => 0\n")));
    EXPECT_TRUE(list.contains(QStringLiteral("Scale From Neighbor Right   => 15\n")));
    EXPECT_EQ(KeyBlending::Data::blendTypeName(25), QString());
}

// The slider's drag: one command carries the Data; each step starts from the
// values captured at the press.
TEST_F(TweenMachine, DragIsOneUndoStepWithoutDrift)
{
    ASSERT_TRUE(mel("currentTime 4.5"));
    const std::string before = sceneText();

    ASSERT_TRUE(MGlobal::executeCommand("OVKeyBlending -internal", false, true));
    KeyBlending::Data* data = KeyBlending::activeData;
    ASSERT_NE(data, nullptr);
    EXPECT_THAT(keyValues("obj_translateX"), ElementsAre(0, 10, 20, 30, 40, 50, 60, 70));

    MSelectionList selection;
    MGlobal::getActiveSelectionList(selection);
    data->setBlendType(0);
    data->collect(selection);
    for (double x : {0.3, -0.9, 1.7, 0.5})
        data->blend(x);
    const double afterMoves = keyValues("obj_translateX")[4];
    data->finish();
    KeyBlending::activeData = nullptr;
    EXPECT_EQ(afterMoves, 37.5);

    ASSERT_TRUE(mel("undo"));
    EXPECT_EQ(sceneText(), before);
}

TEST_F(TweenMachine, InternalAloneTouchesNoKey)
{
    const std::string before = sceneText();
    ASSERT_TRUE(MGlobal::executeCommand("OVKeyBlending -internal", false, true));
    EXPECT_NE(KeyBlending::activeData, nullptr);
    KeyBlending::activeData = nullptr;
    EXPECT_EQ(sceneText(), before);
}

} // namespace
