// The current time and the playback and animation ranges, through
// MAnimControl and through currentTime, playbackOptions and currentUnit.
#include "SceneTest.h"

#include <maya/MCallbackIdArray.h>
#include <maya/MDGMessage.h>
#include <maya/MDGModifier.h>
#include <maya/MEventMessage.h>

using namespace animscene;

namespace {

class TimeControl : public SceneTest
{
protected:
    struct Heard
    {
        std::vector<std::string> events;
        std::vector<double> times;
    };

    // Listens to the time and range events for the length of a test.
    void listen()
    {
        for (const char* event : {"timeChanged", "playbackRangeChanged", "playbackRangeSliderChanged"})
        {
            tags.push_back(new EventTag{&heard, event});
            ids.append(MEventMessage::addEventCallback(event, onEvent, tags.back()));
        }
        ids.append(MDGMessage::addTimeChangeCallback(onTime, &heard));
    }
    void TearDown() override
    {
        MMessage::removeCallbacks(ids);
        for (EventTag* tag : tags)
            delete tag;
        SceneTest::TearDown();
    }

    Heard heard;
    MCallbackIdArray ids;

private:
    struct EventTag
    {
        Heard* heard;
        std::string name;
    };
    std::vector<EventTag*> tags;

    static void onEvent(void* data)
    {
        auto* tag = static_cast<EventTag*>(data);
        tag->heard->events.push_back(tag->name);
    }
    static void onTime(MTime& time, void* data)
    {
        static_cast<Heard*>(data)->times.push_back(time.as(MTime::uiUnit()));
    }
};

} // namespace

TEST_F(TimeControl, MayaStartsAtFrameOneWithItsDefaultRanges)
{
    EXPECT_EQ(MAnimControl::currentTime().value(), 1.0);
    EXPECT_EQ(MAnimControl::currentTime().unit(), MTime::kFilm);
    EXPECT_EQ(MAnimControl::minTime().value(), 1.0);
    EXPECT_EQ(MAnimControl::maxTime().value(), 120.0);
    EXPECT_EQ(MAnimControl::animationStartTime().value(), 1.0);
    EXPECT_EQ(MAnimControl::animationEndTime().value(), 200.0);
    EXPECT_EQ(melNumber("playbackOptions -q -min"), 1.0);
    EXPECT_EQ(melNumber("playbackOptions -q -aet"), 200.0);
    EXPECT_EQ(melString("currentUnit -q -linear"), "cm");
    EXPECT_EQ(melString("currentUnit -q -fullName -linear"), "centimeter");
    EXPECT_EQ(melString("currentUnit -q -angle"), "deg");
    EXPECT_EQ(melString("currentUnit -q -fullName -angle"), "degree");
    EXPECT_EQ(melString("currentUnit -q -time"), "film");
}

TEST_F(TimeControl, MovingTheTimeRaisesTheTimeMessagesWithTheNewTime)
{
    listen();
    ASSERT_TRUE(MAnimControl::setCurrentTime(frame(12)));
    EXPECT_EQ(melNumber("currentTime 30"), 30.0);
    EXPECT_EQ(melNumber("currentTime -e 2sec"), 48.0);
    EXPECT_EQ(melNumber("currentTime -q"), 48.0);
    EXPECT_EQ(heard.times, (std::vector<double>{12, 30, 48}));
    EXPECT_EQ(heard.events, (std::vector<std::string>{"timeChanged", "timeChanged", "timeChanged"}));
    EXPECT_FALSE(mel("currentTime 1two"));
    EXPECT_EQ(MAnimControl::currentTime().value(), 48.0);
}

TEST_F(TimeControl, ANewTimeReevaluatesADrivenPlugThatWasSet)
{
    ASSERT_TRUE(mel("createNode transform -n box; setKeyframe -t 1 -v 0 -at tx box; setKeyframe -t 11 -v 10 "
                    "-at tx box"));
    ASSERT_TRUE(MAnimControl::setCurrentTime(frame(11)));
    MDGModifier modifier;
    modifier.newPlugValueDouble(plugNamed("box.tx"), 3.5);
    ASSERT_TRUE(modifier.doIt());
    EXPECT_EQ(melNumber("getAttr box.tx"), 3.5); // held until the time changes
    ASSERT_TRUE(MAnimControl::setCurrentTime(frame(11)));
    EXPECT_EQ(melNumber("getAttr box.tx"), 10.0);
}

TEST_F(TimeControl, PlaybackOptionsMoveTheRangesAndUndoPutsThemBack)
{
    listen();
    ASSERT_TRUE(mel("playbackOptions -min 10 -max 50"));
    EXPECT_EQ(MAnimControl::minTime().value(), 10.0);
    EXPECT_EQ(MAnimControl::maxTime().value(), 50.0);
    EXPECT_EQ(heard.events, (std::vector<std::string>{"playbackRangeChanged"}));
    heard.events.clear();
    ASSERT_TRUE(mel("undo"));
    EXPECT_EQ(MAnimControl::minTime().value(), 1.0);
    EXPECT_EQ(MAnimControl::maxTime().value(), 120.0);
    EXPECT_EQ(heard.events, (std::vector<std::string>{"playbackRangeChanged"}));
    ASSERT_TRUE(mel("redo"));
    EXPECT_EQ(MAnimControl::minTime().value(), 10.0);
}

TEST_F(TimeControl, RangeEndsCarryTheirPartnersAndKeepPlaybackInsideTheAnimationRange)
{
    // A playback end beyond the other end carries it; the animation range widens.
    ASSERT_TRUE(mel("playbackOptions -min 300"));
    EXPECT_EQ(MAnimControl::maxTime().value(), 300.0);
    EXPECT_EQ(MAnimControl::animationEndTime().value(), 300.0);
    ASSERT_TRUE(MAnimControl::setMinTime(frame(-5)));
    EXPECT_EQ(MAnimControl::animationStartTime().value(), -5.0);
    // An animation end moved inside the playback range narrows it.
    ASSERT_TRUE(mel("playbackOptions -ast 20 -aet 40"));
    EXPECT_EQ(MAnimControl::minTime().value(), 20.0);
    EXPECT_EQ(MAnimControl::maxTime().value(), 40.0);
    // A file's line sets the ranges exactly, whatever they were.
    ASSERT_TRUE(mel("playbackOptions -min 100 -max 300 -ast 90 -aet 400"));
    EXPECT_EQ(MAnimControl::minTime().value(), 100.0);
    EXPECT_EQ(MAnimControl::maxTime().value(), 300.0);
    EXPECT_EQ(MAnimControl::animationStartTime().value(), 90.0);
    EXPECT_EQ(MAnimControl::animationEndTime().value(), 400.0);
    EXPECT_FALSE(MAnimControl::setMinMaxTime(frame(50), frame(40)));
    ASSERT_TRUE(MAnimControl::setMinMaxTime(frame(500), frame(600)));
    EXPECT_EQ(MAnimControl::minTime().value(), 500.0);
}

TEST_F(TimeControl, CurrentUnitChangesTheUnitsTheUiReadsIn)
{
    ASSERT_TRUE(mel("currentTime 24; currentUnit -t ntsc -l mm -a rad"));
    EXPECT_EQ(MTime::uiUnit(), MTime::kNTSCFrame);
    EXPECT_EQ(melNumber("currentTime -q"), 30.0); // one second is 30 NTSC frames
    EXPECT_EQ(melString("currentUnit -q -t"), "ntsc");
    EXPECT_EQ(melString("currentUnit -q -f -l"), "millimeter");
    EXPECT_EQ(melString("currentUnit -q -a"), "rad");
    ASSERT_TRUE(mel("currentUnit -t 23.976fps"));
    EXPECT_EQ(melString("currentUnit -q -t"), "23.976fps");
    EXPECT_FALSE(mel("currentUnit -l parsec -t film"));
    EXPECT_EQ(MTime::uiUnit(), MTime::k23_976FPS); // nothing changed
}

TEST_F(TimeControl, GlobalTangentTypesStartAsAutoAndRefuseGlobal)
{
    EXPECT_EQ(MAnimControl::globalInTangentType(), MFnAnimCurve::kTangentAuto);
    EXPECT_EQ(MAnimControl::globalOutTangentType(), MFnAnimCurve::kTangentAuto);
    EXPECT_FALSE(MAnimControl::setGlobalInTangentType(MFnAnimCurve::kTangentGlobal));
    ASSERT_TRUE(MAnimControl::setGlobalOutTangentType(MFnAnimCurve::kTangentStep));
    EXPECT_EQ(melStrings("keyTangent -q -g -ott"), std::vector<std::string>{"step"});
}
