// The graph editor panel: the selected objects' curves, framed; keys picked
// by click and box feed the key selection that keyframe -q -sl answers.
#include "GuiTest.h"

#include <maya/MDoubleArray.h>

#include <sstream>

#include <gmock/gmock.h>

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

class GraphEditorTest : public GuiTest
{
protected:
    void SetUp() override
    {
        GuiTest::SetUp();
        ASSERT_TRUE(mel("createNode transform -n ctrl; setKeyframe -t 1 -v 0 ctrl.tx; setKeyframe -t 10 -v 5 "
                        "ctrl.tx; setKeyframe -t 20 -v 0 ctrl.tx; select ctrl"));
        const std::vector<double> geometry = numbers("mayasimUi -q -geometry graphEditor1");
        ASSERT_EQ(geometry.size(), 4u);
        width = geometry[2];
        height = geometry[3];
    }
    // Frame all: the keys' times 1..20 and values 0..5, a tenth more all round.
    int x(double time) const { return static_cast<int>((time - (1 - 1.9)) / 22.8 * width); }
    int y(double value) const { return static_cast<int>(height - (value + 0.5) / 6.0 * height); }
    // The times of the picked keys; keyframe answers nothing when none are.
    static std::vector<double> pickedTimes()
    {
        MDoubleArray times;
        MGlobal::executeCommand("keyframe -q -sl -tc", times);
        return std::vector<double>(times.begin(), times.end());
    }
    std::string at(double time, double value) const { return std::to_string(x(time)) + " " + std::to_string(y(value)); }

    double width = 0, height = 0;
};

} // namespace

TEST_F(GraphEditorTest, KeysPickedByBoxAndClickAreTheSelectedKeys)
{
    EXPECT_THAT(strings("getPanel -scriptType graphEditor"), ElementsAre("graphEditor1"));
    EXPECT_THAT(strings("getPanel -type scriptedPanel"), ElementsAre("graphEditor1"));
    EXPECT_EQ(text("getPanel -typeOf graphEditor1"), "scriptedPanel");
    EXPECT_THAT(pickedTimes(), IsEmpty());

    // A box around the last two keys.
    ASSERT_TRUE(mel("mayasimUi -drag " + at(8, 5.4) + " " + at(21.5, -0.4) + " -steps 3 graphEditor1"));
    EXPECT_THAT(pickedTimes(), ElementsAre(10, 20));
    EXPECT_EQ(text("getPanel -withFocus"), "graphEditor1");
    EXPECT_EQ(text("mayasimUi -q -pixel " + at(10, 5) + " graphEditor1"), "255 255 0 255") << "picked keys are yellow";
    // The current time shows as a red line.
    ASSERT_TRUE(mel("currentTime 15"));
    int r = 0, g = 0;
    std::istringstream(text("mayasimUi -q -pixel " + at(15, 0.5) + " graphEditor1")) >> r >> g;
    EXPECT_GT(r, g + 40);

    // A click replaces the picked keys; Shift adds; a click on nothing clears.
    ASSERT_TRUE(mel("mayasimUi -click -at " + at(1, 0) + " graphEditor1"));
    EXPECT_THAT(pickedTimes(), ElementsAre(1));
    ASSERT_TRUE(mel("mayasimUi -click -at " + at(20, 0) + " -modifiers shift graphEditor1"));
    EXPECT_THAT(pickedTimes(), ElementsAre(1, 20));
    ASSERT_TRUE(mel("mayasimUi -click -at " + at(5, 4) + " graphEditor1"));
    EXPECT_THAT(pickedTimes(), IsEmpty());

    // The A key frames all anew: values 0..15 now.
    ASSERT_TRUE(mel("keyframe -e -r -vc 10 -t 10 ctrl.tx"));
    ASSERT_TRUE(mel("mayasimUi -key a"));
    ASSERT_TRUE(mel("mayasimUi -click -at " + std::to_string(x(1)) + " " +
                    std::to_string(static_cast<int>(height - 1.5 / 18.0 * height)) + " graphEditor1"));
    EXPECT_THAT(pickedTimes(), ElementsAre(1));
}

TEST_F(GraphEditorTest, WithAutoLoadOffTheEditorKeepsItsObjects)
{
    ASSERT_TRUE(mel("toggleAutoLoad graphEditor1OutlineEd false; createNode transform -n other"));
    EXPECT_THAT(strings("ls -sl"), ElementsAre("other"));
    ASSERT_TRUE(mel("mayasimUi -click -at " + at(10, 5) + " graphEditor1"));
    EXPECT_THAT(pickedTimes(), ElementsAre(10)) << "ctrl's curve is still shown";
    EXPECT_FALSE(mel("toggleAutoLoad graphEditor1Outliner false"));
    EXPECT_FALSE(mel("toggleAutoLoad graphEditor1OutlineEd maybe"));
    ASSERT_TRUE(mel("toggleAutoLoad graphEditor1OutlineEd true; select -r other"));
    ASSERT_TRUE(mel("mayasimUi -click -at " + at(10, 5) + " graphEditor1"));
    EXPECT_THAT(pickedTimes(), ElementsAre()) << "other has no curves";
}
