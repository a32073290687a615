// The MEL commands the Python strings reach: selectionConnection, deleteUI,
// timeControl's main list and xform, with their failures in Maya's words.
#include "PythonTest.h"

#include <gmock/gmock.h>

using ::testing::ElementsAre;

namespace {

using UiCommandTest = PythonTest;

std::string lastError()
{
    std::string text;
    for (const auto& line : mayasim::host::output())
        if (line.kind == mayasim::host::OutputLine::Kind::Error)
            text = line.text;
    return text;
}

std::vector<double> numbers(const std::string& text)
{
    MDoubleArray result;
    EXPECT_TRUE(MGlobal::executeCommand(text.c_str(), result, false, true)) << text;
    return std::vector<double>(result.begin(), result.end());
}

void expectNear(const std::vector<double>& actual, const std::vector<double>& expected)
{
    ASSERT_EQ(actual.size(), expected.size());
    for (size_t k = 0; k < actual.size(); ++k)
        EXPECT_NEAR(actual[k], expected[k], 1e-9) << "value " << k;
}

} // namespace

TEST_F(UiCommandTest, SelectionConnectionsHoldObjectsOutsideTheScene)
{
    ASSERT_TRUE(mel("createNode transform -n a; createNode transform -n b; createNode transform -n c"));
    EXPECT_EQ(melString("selectionConnection"), "selectionConnection1");
    EXPECT_EQ(melString("selectionConnection -select a -select b keys"), "keys");
    EXPECT_FALSE(mel("selectionConnection keys"));
    EXPECT_EQ(lastError(), "line 1: Object's name 'keys' is not unique.");
    ASSERT_TRUE(mel("selectionConnection -e -select c -deselect a keys"));
    EXPECT_EQ(melString("selectionConnection -q -object keys"), "b c");
    ASSERT_TRUE(mel("selectionConnection -e -object a keys"));
    EXPECT_EQ(melString("selectionConnection -q -obj keys"), "a");
    EXPECT_FALSE(mel("selectionConnection -e -select nothing keys"));
    EXPECT_EQ(lastError(), "line 1: No object matches name: nothing");
    EXPECT_FALSE(mel("selectionConnection -q -object lost"));
    EXPECT_EQ(lastError(), "line 1: selectionConnection: Object 'lost' not found.");
    // Deleted nodes drop out; new scenes leave UI objects alone.
    ASSERT_TRUE(mel("delete a"));
    EXPECT_EQ(melString("selectionConnection -q -object keys"), "");
    ASSERT_TRUE(MFileIO::newFile(true));
    EXPECT_EQ(melNumber("selectionConnection -ex keys"), 1.0);

    EXPECT_FALSE(mel("deleteUI keys lost"));
    EXPECT_EQ(lastError(), "line 1: deleteUI: Object 'lost' not found.");
    EXPECT_EQ(melNumber("selectionConnection -ex keys"), 1.0); // nothing went
    ASSERT_TRUE(mel("deleteUI keys selectionConnection1"));
    EXPECT_EQ(melNumber("selectionConnection -ex keys"), 0.0);
}

TEST_F(UiCommandTest, TheTimeSlidersMainListFollowsItsConnection)
{
    ASSERT_TRUE(mel("createNode transform -n a; createNode transform -n b; select -r a; "
                    "selectionConnection -select b onB"));
    EXPECT_EQ(melString("timeControl -q -mainListConnection $gPlayBackSlider"), "animationList");
    EXPECT_THAT(mayasim::host::timeSliderObjects(), ElementsAre("a"));
    ASSERT_TRUE(mel("timeControl -e -mlc onB $gPlayBackSlider"));
    EXPECT_THAT(mayasim::host::timeSliderObjects(), ElementsAre("b"));
    EXPECT_FALSE(mel("timeControl -e -mlc lost $gPlayBackSlider"));
    EXPECT_EQ(lastError(), "line 1: timeControl: Object 'lost' not found.");
    // A deleted connection leaves the slider on its own list.
    ASSERT_TRUE(mel("deleteUI onB"));
    EXPECT_EQ(melString("timeControl -q -mainListConnection $gPlayBackSlider"), "animationList");
    EXPECT_THAT(mayasim::host::timeSliderObjects(), ElementsAre("a"));
}

TEST_F(UiCommandTest, XformReadsAndSetsObjectAndWorldSpace)
{
    // A parent moved, turned 90 degrees about y and scaled by 2.
    ASSERT_TRUE(mel("createNode transform -n rig; setAttr rig.t 10 0 0; setAttr rig.ry 90; setAttr rig.s 2 2 2; "
                    "createNode transform -n child -p rig; setAttr child.t 1 0 0"));
    expectNear(numbers("xform -q -t child"), {1, 0, 0});
    expectNear(numbers("xform -q -ws -t child"), {10, 0, -2});
    expectNear(numbers("xform -q -ws -ro child"), {0, 90, 0});
    expectNear(numbers("xform -q -ws -s child"), {2, 2, 2});

    expectOneUndoStep([] { EXPECT_TRUE(mel("xform -ws -t 10 4 0 -ro 0 0 0 -s 1 1 1 child")); });
    expectNear(numbers("xform -q -ws -t child"), {10, 4, 0});
    expectNear(numbers("xform -q -ws -ro child"), {0, 0, 0});
    expectNear(numbers("xform -q -ro child"), {0, -90, 0});
    expectNear(numbers("xform -q -s child"), {0.5, 0.5, 0.5});
    expectNear(numbers("xform -q -t child"), {0, 2, 0});

    // The selection is the default object; object space is the default space.
    ASSERT_TRUE(mel("select -r child; xform -t 1 2 3 -os"));
    expectNear(numbers("xform -q -t"), {1, 2, 3});
    EXPECT_FALSE(mel("xform -t 1 2 child"));
    EXPECT_FALSE(mel("xform -t 1 2 x child"));
    EXPECT_EQ(lastError(), "line 1: Error while parsing arguments.");
    EXPECT_FALSE(mel("select -cl; xform -t 1 2 3"));
    EXPECT_EQ(lastError(), "line 1: xform: No object was specified or selected.");
    expectNear(numbers("xform -q -t child"), {1, 2, 3});
}
