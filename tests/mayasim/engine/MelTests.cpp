// The MEL the plug-in sends, the tests write and .ma files hold.
#include "EngineTest.h"

#include <gmock/gmock.h>

using ::testing::ElementsAre;

using MelWords = EngineTest;

TEST_F(MelWords, NegativeNumbersAndDashedWordsStayArguments)
{
    ASSERT_TRUE(mel("recordArgs -value -1 -blendValue -0.5 -.25 - x"));
    EXPECT_THAT(record().args, ElementsAre("-value", "-1", "-blendValue", "-0.5", "-.25", "-", "x"));
}

TEST_F(MelWords, RepeatedAndTrailingBlanksMakeNoWords)
{
    ASSERT_TRUE(mel("recordArgs -e  -parent   \"BaseAnimation\" "));
    EXPECT_THAT(record().args, ElementsAre("-e", "-parent", "BaseAnimation"));
    ASSERT_TRUE(mel("recordArgs -hotkeys "));
    EXPECT_THAT(record().args, ElementsAre("-hotkeys"));
}

TEST_F(MelWords, QuotedStringsKeepBlanksAndUnescape)
{
    ASSERT_TRUE(mel(R"(recordArgs "a b" "say \"hi\"" "back\\slash" "tab\there")"));
    EXPECT_THAT(record().args, ElementsAre("a b", "say \"hi\"", "back\\slash", "tab\there"));
}

TEST_F(MelWords, PathsPlugsAndRangesAreSingleWords)
{
    ASSERT_TRUE(mel("recordArgs |MayaWindow|timeControl1 pCube1.translateX curve1.ktv[0:3] *"));
    EXPECT_THAT(record().args, ElementsAre("|MayaWindow|timeControl1", "pCube1.translateX", "curve1.ktv[0:3]", "*"));
}

TEST_F(MelWords, CommentsAreIgnored)
{
    ASSERT_TRUE(mel("recordArgs a // the rest of the line\n  b /* inside */ c;"));
    EXPECT_THAT(record().args, ElementsAre("a", "b", "c"));
}

TEST_F(MelWords, ValuesOfVariablesExpressionsAndBackTicksBecomeWords)
{
    ASSERT_TRUE(mel("string $names[] = {\"a\", \"b\"}; float $f = 0.5; recordArgs $names $f (1 + 2) `typedResult -s x`"));
    EXPECT_THAT(record().args, ElementsAre("a", "b", "0.5", "3", "x"));
}

TEST_F(MelWords, FunctionCallFormPassesItsArguments)
{
    ASSERT_TRUE(mel("recordArgs(\"a\", 1, 2.5)"));
    EXPECT_THAT(record().args, ElementsAre("a", "1", "2.5"));
}

using MelExpressions = EngineTest;

TEST_F(MelExpressions, AssignmentGivesItsValue)
{
    EXPECT_EQ(stringResult("$tmpVar=$gPlayBackSlider"), "timeControl1");
    EXPECT_EQ(stringResult("$box = $gChannelBoxName"), "mainChannelBox");
}

TEST_F(MelExpressions, ArithmeticFollowsMelTypes)
{
    EXPECT_EQ(stringResult("$a = 1 + 2 * 3"), "7");
    EXPECT_EQ(stringResult("$a = 7 / 2"), "3");        // int division truncates
    EXPECT_EQ(stringResult("$a = 7 / 2.0"), "3.5");
    EXPECT_EQ(stringResult("$a = -(2 - 5) % 2"), "1");
    EXPECT_EQ(stringResult("$a = \"frame\" + 12"), "frame12");
    EXPECT_EQ(stringResult("int $i = 2.9; $i"), "2");  // a declared int keeps ints
    EXPECT_EQ(stringResult("$a = 1; $a += 4"), "5");
}

TEST_F(MelExpressions, ComparisonsAndLogic)
{
    EXPECT_EQ(stringResult("$r = (\"Maya_Default\" == \"Maya_Default\")"), "1");
    EXPECT_EQ(stringResult("$r = (\"a\" != \"a\")"), "0");
    EXPECT_EQ(stringResult("$r = 2 < 3 && 3 >= 3"), "1");
    EXPECT_EQ(stringResult("$r = !1 || 0"), "0");
    EXPECT_EQ(stringResult("$r = !`typedResult -i 0`"), "1");
}

TEST_F(MelExpressions, BooleanWords)
{
    EXPECT_EQ(stringResult("$r = true + on + yes"), "3");
    EXPECT_EQ(stringResult("$r = false + off + no"), "0");
}

TEST_F(MelExpressions, ArraysGrowOnAssignment)
{
    EXPECT_EQ(stringResult("string $s[]; $s[2] = \"c\"; $s[0] = \"a\"; $s"), "a  c");
    EXPECT_EQ(stringResult("int $n[] = {1, 2}; $n[1]"), "2");
}

TEST_F(MelExpressions, IfElseAndNestedBlocksWithScopes)
{
    ASSERT_TRUE(mel("int $x = 1; if ($x == 2) { recordArgs two; } else if ($x == 1) { { recordArgs one; } } else recordArgs other;"));
    EXPECT_THAT(record().args, ElementsAre("one"));
    // A variable declared in a block is gone after it.
    EXPECT_FALSE(mel("{ int $inner = 1; } $inner = $inner + 1;"));
}

TEST_F(MelExpressions, GlobalsOutliveTheRunAndInitialiseOnce)
{
    ASSERT_TRUE(mel("global string $gTestGlobal = \"first\";"));
    ASSERT_TRUE(mel("global string $gTestGlobal = \"second\";"));
    EXPECT_EQ(stringResult("$v = $gTestGlobal"), "first");
    // Locals of one run are not seen by the next.
    ASSERT_TRUE(mel("string $local = \"x\";"));
    EXPECT_FALSE(mel("$copy = $local"));
}

TEST_F(MelExpressions, HotkeySetScriptRunsAsMayaWould)
{
    // Verbatim, double blanks included; only the command is the test's stand-in.
    std::string script = "if (`hotkeySet -q -current` == \"Maya_Default\") {  if (!`hotkeySet -q -exists "
                         "Orvane_Hotkey_Set`) {    hotkeySet -source Maya_Default Orvane_Hotkey_Set;  }  "
                         "hotkeySet -e -current Orvane_Hotkey_Set;}";
    for (size_t at = script.find("hotkeySet"); at != std::string::npos; at = script.find("hotkeySet", at + 14))
        script.replace(at, 9, "fakeHotkeySet");
    ASSERT_TRUE(MGlobal::executeCommand(script.c_str(), false, false));
    EXPECT_THAT(record().hotkeyCalls,
                ElementsAre("-q -current", "-q -exists Orvane_Hotkey_Set", "-source Maya_Default Orvane_Hotkey_Set",
                            "-e -current Orvane_Hotkey_Set"));
}

using MelErrors = EngineTest;

TEST_F(MelErrors, UnknownCommandInMayasWords)
{
    EXPECT_FALSE(mel("fooBar 1 2"));
    EXPECT_THAT(printed(), ElementsAre("// Error: line 1: Cannot find procedure \"fooBar\". //"));
}

TEST_F(MelErrors, ErrorsNameTheLineOfTheFailingStatement)
{
    EXPECT_FALSE(mel("recordArgs a;\nrecordArgs b;\nnoSuchThing;\nrecordArgs c;"));
    EXPECT_THAT(printed(), ElementsAre("// Error: line 3: Cannot find procedure \"noSuchThing\". //"));
    EXPECT_THAT(record().args, ElementsAre("b")); // the run stopped at the error
}

TEST_F(MelErrors, SyntaxErrorRunsNothing)
{
    EXPECT_FALSE(mel("recordArgs first;\nif (1 { recordArgs second; }"));
    EXPECT_TRUE(record().args.empty());
    EXPECT_THAT(printed(), ElementsAre("// Error: if (1 { recordArgs second; } //", "// Error: Line 2.7: Syntax error //"));
}

TEST_F(MelErrors, MalformedTextFails)
{
    for (const char* text : {"\"unterminated", "3 + 5;", "recordArgs a b c)", "string $;", "if (1) else x;",
                             "{ recordArgs", "/* open comment", "$a = ;", "recordArgs `recordArgs a"}) {
        mayasim::host::clearOutput();
        EXPECT_FALSE(mel(text)) << text;
        EXPECT_FALSE(mayasim::host::output().empty()) << text;
    }
}

TEST_F(MelErrors, UndeclaredVariable)
{
    EXPECT_FALSE(mel("recordArgs $nothing"));
    EXPECT_THAT(printed(), ElementsAre("// Error: line 1: \"$nothing\" is an undeclared variable. //"));
}

TEST_F(MelErrors, BuiltinFlagsAreCheckedToo)
{
    EXPECT_FALSE(mel("undoInfo -foo"));
    EXPECT_FALSE(mel("undoInfo -openChunk -chunkName"));
    EXPECT_THAT(printed(), ElementsAre("// Error: line 1: Invalid flag '-foo' //",
                                       "// Error: line 1: Flag 'chunkName' must be passed an argument //"));
    // The failed call opened no chunk: two commands stay two steps.
    ASSERT_TRUE(mel("counter"));
    ASSERT_TRUE(mel("counter"));
    ASSERT_TRUE(mel("undo"));
    EXPECT_EQ(record().counter, 1);
}
