// Python strings as the temporary pivot sends them, run for real: xform on
// a partial path, the scripts that attach the time slider to a selection
// connection and detach it, and Python's undo steps and failures.
#include "PythonTest.h"

#include <gmock/gmock.h>

using ::testing::ElementsAre;

namespace {

const std::string kConnection = "TempPivotConnection";

// The text that points the time slider at the objects' connection.
std::string attachScript(const std::string& list)
{
    return "if maya.cmds.selectionConnection(\"" + kConnection + "\", q=True, exists=True):\n\tmaya.cmds.deleteUI(\"" +
           kConnection + "\")\nselection_connection = maya.cmds.selectionConnection(\"" + kConnection +
           "\")\nfor obj in " + list +
           ":\n\tmaya.cmds.selectionConnection(selection_connection, edit=True, select=obj)\nplayBack_slider = "
           "maya.mel.eval('$tmpVar=$gPlayBackSlider')\nmaya.cmds.timeControl(playBack_slider, edit=True, "
           "mainListConnection=selection_connection)";
}

// The text that gives the time slider its own list back.
std::string detachScript()
{
    return "playBack_slider = maya.mel.eval('$tmpVar=$gPlayBackSlider')\nmaya.cmds.timeControl(playBack_slider, "
           "e=True, mainListConnection=\"animationList\")\nif maya.cmds.selectionConnection(\"" +
           kConnection + "\", q=True, exists=True):\n\tmaya.cmds.deleteUI(\"" + kConnection + "\")";
}

class ScriptTest : public PythonTest
{
protected:
    void SetUp() override
    {
        PythonTest::SetUp();
        // Two balls under their groups, and an arm in the namespace "rig".
        ASSERT_TRUE(MFileIO::open(ORVANE_TEST_DATA "/pivot_targets.ma", nullptr, true));
        ASSERT_TRUE(mel("select -r grpA; flushUndo"));
        mayasim::host::clearOutput();
    }
};

} // namespace

TEST_F(ScriptTest, XformOnAPartialPathSetsTheLocalChannelsInOneStep)
{
    const std::string text = "maya.cmds.xform(\"grpB|ball\", translation=[1, 2.5, -3], rotation=[0, 45, 90.5], "
                             "scale=[1, 2, 0.5], ws=False)";
    expectOneUndoStep([&] { EXPECT_TRUE(MGlobal::executePythonCommand(text.c_str(), false, true)); });
    EXPECT_EQ(melString("getAttr grpB|ball.translate"), "1 2.5 -3");
    EXPECT_EQ(melString("getAttr grpB|ball.rotate"), "0 45 90.5");
    EXPECT_EQ(melString("getAttr grpB|ball.scale"), "1 2 0.5");
    EXPECT_EQ(melString("getAttr grpA|ball.translate"), "0 0 0");
}

TEST_F(ScriptTest, AttachShowsTheObjectsKeysAndDetachGivesTheSliderItsListBack)
{
    const std::string list = "[\"grpA|ball\", \"rig:arm\"]";
    ASSERT_TRUE(python(attachScript(list)));
    EXPECT_EQ(melString("timeControl -q -mainListConnection $gPlayBackSlider"), kConnection);
    EXPECT_EQ(melString("selectionConnection -q -object " + kConnection), "grpA|ball rig:arm");
    EXPECT_THAT(mayasim::host::timeSliderObjects(), ElementsAre("grpA|ball", "rig:arm"));
    // Again, with the connection there: it is made anew.
    ASSERT_TRUE(python(attachScript("[\"rig:arm\"]")));
    EXPECT_THAT(mayasim::host::timeSliderObjects(), ElementsAre("rig:arm"));

    ASSERT_TRUE(python(detachScript()));
    EXPECT_EQ(melString("timeControl -q -mainListConnection $gPlayBackSlider"), "animationList");
    EXPECT_EQ(melNumber("selectionConnection -exists " + kConnection), 0.0);
    EXPECT_THAT(mayasim::host::timeSliderObjects(), ElementsAre("grpA"));
    // Detaching twice finds nothing to delete.
    EXPECT_TRUE(python(detachScript()));
    EXPECT_THAT(printed(), ElementsAre());
}

TEST_F(ScriptTest, APythonStatementIsOneUndoStep)
{
    expectOneUndoStep([] {
        EXPECT_TRUE(python("maya.cmds.setAttr('grpA.tx', 1)\nmaya.cmds.setAttr('grpA.ty', 2)\n"
                           "maya.cmds.setAttr('grpA.tz', 3)"));
    });
    EXPECT_EQ(melString("undoInfo -q -undoName"),
              "maya.cmds.setAttr('grpA.tx', 1)\nmaya.cmds.setAttr('grpA.ty', 2)\nmaya.cmds.setAttr('grpA.tz', 3)");
    // Through MEL's python command and mel.eval alike.
    expectOneUndoStep(
        [] { EXPECT_TRUE(mel("python(\"maya.cmds.setAttr('grpA.rx', 4); maya.cmds.setAttr('grpA.ry', 5)\")")); });
    expectOneUndoStep([] { EXPECT_TRUE(python("maya.mel.eval('setAttr grpA.sx 2; setAttr grpA.sy 3')")); });
    // Undo off: nothing joins the queue.
    const std::string undoName = melString("undoInfo -q -undoName");
    EXPECT_TRUE(MGlobal::executePythonCommand("maya.cmds.setAttr('grpA.sz', 4)", false, false));
    EXPECT_EQ(melNumber("getAttr grpA.sz"), 4.0);
    EXPECT_EQ(melString("undoInfo -q -undoName"), undoName);
}

TEST_F(ScriptTest, APythonErrorFailsTheCallAndChangesNothing)
{
    const std::string before = sceneText();
    EXPECT_FALSE(python("maya.cmds.setAttr('grpA.tx', 5)\nmaya.cmds.createNode('transform', n='extra')\n"
                        "raise ValueError('stop here')"));
    EXPECT_EQ(sceneText(), before);
    EXPECT_EQ(melString("undoInfo -q -undoName"), "");
    EXPECT_THAT(printed(), ElementsAre("# Error: ValueError: file <maya console> line 3: stop here"));
    // A failing command in the middle stops the rest.
    EXPECT_FALSE(python("maya.cmds.setAttr('grpA.tx', 5)\nmaya.cmds.setAttr('grpA.nothing', 1)\n"
                        "maya.cmds.setAttr('grpA.ty', 5)"));
    EXPECT_EQ(sceneText(), before);
}

TEST_F(ScriptTest, PythonOnIdleRunsAtTheNextIdleTickAsItsOwnStep)
{
    EXPECT_TRUE(MGlobal::executePythonCommandOnIdle("maya.cmds.setAttr('grpA.tx', 7)"));
    const auto& sent = mayasim::host::sentCommands().back();
    EXPECT_TRUE(sent.python && sent.onIdle);
    EXPECT_EQ(melNumber("getAttr grpA.tx"), 0.0);
    mayasim::host::pumpIdle();
    EXPECT_EQ(melNumber("getAttr grpA.tx"), 7.0);
    EXPECT_TRUE(mel("undo"));
    EXPECT_EQ(melNumber("getAttr grpA.tx"), 0.0);
}
