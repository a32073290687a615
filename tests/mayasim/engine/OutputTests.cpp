// What reaches the script output and the log of sent commands.
#include "EngineTest.h"

#include <gmock/gmock.h>

using ::testing::ElementsAre;

using ScriptOutput = EngineTest;

TEST_F(ScriptOutput, DisplayEchoesTheCommandAndItsResult)
{
    ASSERT_TRUE(MGlobal::executeCommand("typedResult -da", true, false));
    ASSERT_TRUE(MGlobal::executeCommand("recordArgs", false, false)); // no display: silent
    ASSERT_TRUE(MGlobal::executeCommand("undoInfo -closeChunk", true, false)); // no result: no Result line
    EXPECT_THAT(printed(), ElementsAre("typedResult -da", "// Result: 10.75 -2.5 //", "undoInfo -closeChunk"));
}

TEST_F(ScriptOutput, MessagesAreDecoratedAsTheScriptEditorShowsThem)
{
    MGlobal::displayInfo("plain");
    MGlobal::displayWarning("careful");
    MGlobal::displayError("broken");
    EXPECT_THAT(printed(), ElementsAre("plain", "// Warning: careful //", "// Error: broken //"));
    EXPECT_EQ(mayasim::host::output()[1].text, "careful");
    EXPECT_EQ(mayasim::host::output()[1].kind, mayasim::host::OutputLine::Kind::Warning);
}

TEST_F(ScriptOutput, EverySentTextIsLoggedWithItsFlags)
{
    MGlobal::executeCommand("recordArgs a", false, true);
    MGlobal::executeCommand("noSuchCommand", true, false);
    MGlobal::executeCommandStringResult("$tmpVar=$gPlayBackSlider");
    MGlobal::executeCommandOnIdle("recordArgs later", true);
    EXPECT_TRUE(MGlobal::executePythonCommand("import maya.cmds", false, true));
    std::vector<std::string> log;
    for (const auto& sent : mayasim::host::sentCommands())
        log.push_back(sent.text + (sent.display ? " D" : "") + (sent.undo ? " U" : "") + (sent.python ? " py" : "") +
                      (sent.onIdle ? " idle" : ""));
    EXPECT_THAT(log, ElementsAre("recordArgs a U", "noSuchCommand D", "$tmpVar=$gPlayBackSlider",
                                 "recordArgs later D U idle", "import maya.cmds U py"));
    mayasim::host::pumpIdle(); // leave no queued work behind
}

// evalDeferred waits for the idle queue, in order with the commands queued before it.
TEST_F(EngineTest, EvalDeferredRunsAtIdleAfterWhatWasQueued)
{
    ASSERT_TRUE(MGlobal::executeCommand("global string $gDeferred = \"\""));
    MGlobal::executeCommandOnIdle("$gDeferred += \"a\"");
    ASSERT_TRUE(MGlobal::executeCommand("evalDeferred \"$gDeferred += \\\"b\\\"\""));
    EXPECT_EQ(MGlobal::executeCommandStringResult("$gDeferred = $gDeferred"), "");
    mayasim::host::pumpIdle();
    EXPECT_EQ(MGlobal::executeCommandStringResult("$gDeferred = $gDeferred"), "ab");
    EXPECT_FALSE(MGlobal::executeCommand("evalDeferred"));
    EXPECT_FALSE(MGlobal::executeCommand("evalDeferred -noSuchFlag \"print 1\""));
}

using EngineState = EngineTest;

TEST_F(EngineState, VersionAndMode)
{
    EXPECT_STREQ(MGlobal::mayaVersion().asChar(), "2022");
    EXPECT_EQ(MGlobal::apiVersion(), 20220000);
    EXPECT_EQ(MGlobal::mayaState(), MGlobal::kLibraryApp);
}

TEST_F(EngineState, OptionVarsKeepTheirType)
{
    bool exists = true;
    EXPECT_EQ(MGlobal::optionVarIntValue("engineTestMissing", &exists), 0);
    EXPECT_FALSE(exists);
    MGlobal::setOptionVarValue("engineTestInt", 3);
    MGlobal::setOptionVarValue("engineTestText", MString("on"));
    EXPECT_EQ(MGlobal::optionVarIntValue("engineTestInt", &exists), 3);
    EXPECT_TRUE(exists);
    EXPECT_STREQ(MGlobal::optionVarStringValue("engineTestText").asChar(), "on");
    MGlobal::removeOptionVar("engineTestInt");
    EXPECT_FALSE(MGlobal::optionVarExists("engineTestInt"));
}

TEST_F(EngineState, FileInfoKeepsKeysInOrder)
{
    ASSERT_TRUE(mel("fileInfo \"application\" \"maya\"; fileInfo \"version\" \"2022\"; fileInfo \"application\" \"mayasim\""));
    MStringArray all;
    ASSERT_TRUE(MGlobal::executeCommand("fileInfo -q", all));
    ASSERT_EQ(all.length(), 4u);
    EXPECT_STREQ(all[0].asChar(), "application");
    EXPECT_STREQ(all[1].asChar(), "mayasim");
    EXPECT_STREQ(all[3].asChar(), "2022");
    EXPECT_EQ(stringResult("fileInfo -q \"version\""), "2022");
    // In query mode -remove takes no key, and the query removes nothing.
    EXPECT_EQ(stringResult("fileInfo -rm \"version\" -q"), "2022");
    EXPECT_EQ(stringResult("fileInfo -q -rm \"version\""), "2022");
    ASSERT_TRUE(mel("fileInfo -rm \"version\"; fileInfo -rm \"application\""));
    EXPECT_EQ(stringResult("fileInfo -q"), "");
    EXPECT_TRUE(mel("requires maya \"2022\"; requires -nodeType \"OVSceneId\" \"orvane\" \"1.2.2\""));
}
