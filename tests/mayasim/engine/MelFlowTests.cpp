// MEL's loops, increments and procs, as Maya's MEL documentation gives them.
#include "EngineTest.h"
#include "SceneText.h"

#include <gmock/gmock.h>

using ::testing::ElementsAre;
using ::testing::HasSubstr;

using MelLoops = EngineTest;

TEST_F(MelLoops, ForWhileAndDoRunWithBreakAndContinue)
{
    EXPECT_EQ(stringResult("string $out; for ($i = 0; $i < 3; $i++) $out += $i; $out"), "012");
    EXPECT_EQ(stringResult("int $s = 0; for ($i = 0; $i < 10; ++$i) { if ($i == 2) continue; if ($i == 5) break; "
                           "$s += $i; } $s"),
              "8");
    // Every part of the header may be left out, and init and step take lists.
    EXPECT_EQ(stringResult("int $n = 0; for (;;) { if (++$n > 3) break; } $n"), "4");
    EXPECT_EQ(stringResult("int $a; int $b; for ($a = 0, $b = 10; $a < $b; $a++, $b--); $a"), "5");
    // A break leaves only the innermost loop.
    EXPECT_EQ(stringResult("string $p; for ($i = 0; $i < 2; $i++) for ($j = 0; $j < 5; $j++) { if ($j == 2) break; "
                           "$p += $i + \"\" + $j + \" \"; } $p"),
              "00 01 10 11 ");
    EXPECT_EQ(stringResult("int $n = 0; while ($n < 4) $n++; $n"), "4");
    EXPECT_EQ(stringResult("int $n = 3; do $n--; while ($n > 10); $n"), "2"); // the body runs once first
    EXPECT_EQ(stringResult("int $n = 0; int $seen = 0; do { $n++; if ($n % 2) continue; $seen++; } while ($n < 6); "
                           "$seen"),
              "3");

    // for-in, as the documentation's example writes it, with the variable
    // declared before, by the loop, or not at all (it takes the element type).
    EXPECT_EQ(stringResult("string $carType[3] = {\"Porsche\", \"Ferrari\", \"BMW\"}; string $car; string $out; "
                           "for ($car in $carType) $out += $car + \".\"; $out"),
              "Porsche.Ferrari.BMW.");
    EXPECT_EQ(stringResult("float $sum = 0; for (float $f in {1, 2.5}) $sum += $f; $sum"), "3.5");
    EXPECT_FALSE(mel("for (string $inLoop in {\"a\"}) ; $inLoop"));
    EXPECT_EQ(stringResult("for ($k in {4, 5}) ; $k + 1"), "6");
    EXPECT_EQ(stringResult("int $k = 0; for ($k in {1.9, 2.9}) ; $k"), "2"); // a declared int keeps ints
    ASSERT_TRUE(mel("string $all; for ($word in `typedResult -sa`) { recordArgs $word; $all += $word; } "
                    "recordArgs $all;"));
    EXPECT_THAT(record().args, ElementsAre("txry"));

    // break and continue outside a loop, a declaration in a for header and a
    // for-in over a single value read or run as errors.
    mayasim::host::clearOutput();
    for (const char* text : {"break;", "if (1) continue;", "for (int $i = 0; $i < 2; $i++) ;", "for ($x in) ;",
                             "do recordArgs a; (1);", "for ($x in 3) ;"}) {
        EXPECT_FALSE(mel(text)) << text;
    }
    EXPECT_THAT(printed().back(), HasSubstr("The expression after \"in\" is not an array."));
    EXPECT_THAT(record().args, ElementsAre("txry"));
}

TEST_F(MelLoops, IncrementsAndCompoundAssignments)
{
    EXPECT_EQ(stringResult("int $i = 5; int $j = $i++; int $k = ++$i; $i + \" \" + $j + \" \" + $k"), "7 5 7");
    EXPECT_EQ(stringResult("int $i = 5; $i--; --$i; $i"), "3");
    EXPECT_EQ(stringResult("float $f = 1.5; $f--; $f"), "0.5");
    EXPECT_EQ(stringResult("int $a[] = {1, 2}; $a[1]++; ++$a[0]; $a"), "2 3");
    EXPECT_EQ(stringResult("int $m = 7; $m *= 3; $m /= 2; $m -= 1; $m"), "9");
    EXPECT_EQ(stringResult("float $g = 3; $g /= 2; $g"), "1.5");
    EXPECT_EQ(stringResult("$r = 6 * -2 / 4"), "-3"); // no "*=" or "/=" hides in plain arithmetic
    EXPECT_EQ(stringResult("$r = --2"), "2");         // two negations, as before
    EXPECT_FALSE(mel("$undeclaredCount++"));
}

using MelProcs = EngineTest;

TEST_F(MelProcs, TypedProcsReturnRecurseAndAreCalledBothWays)
{
    ASSERT_TRUE(mel("global proc int mtAdd(int $a, int $b) { return $a + $b; }\n"
                    "global proc string[] mtPair(string $a) { return {$a, $a + \"!\"}; }\n"
                    "global proc int mtFact(int $n) { if ($n <= 1) return 1; return $n * mtFact($n - 1); }\n"
                    "global proc mtRecord(string $word) { recordArgs $word; return; recordArgs never; }"));
    // Later runs see global procs.
    EXPECT_EQ(stringResult("mtAdd(2, 3)"), "5");
    EXPECT_EQ(stringResult("mtAdd 2 3"), "5");
    EXPECT_EQ(stringResult("$v = mtAdd(\"4\", 1.9)"), "5"); // arguments take the parameters' types
    EXPECT_EQ(stringResult("string $p[] = mtPair(\"x\"); $p"), "x x!");
    EXPECT_EQ(stringResult("mtFact(10)"), "3628800");
    ASSERT_TRUE(mel("mtRecord(\"once\")"));
    EXPECT_THAT(record().args, ElementsAre("once"));
    // A typed proc that ends without return gives its type's empty value.
    EXPECT_EQ(stringResult("global proc float mtNothing() { } $v = mtNothing() + 1"), "1");

    // Arrays pass by reference (the documentation's example); other values by copy.
    EXPECT_EQ(stringResult("proc fred( string $myArray[] ) {\n"
                           " for ( $i=0; $i<size($myArray); ++$i ) {\n"
                           " $myArray[$i] = \"fred\";\n"
                           " }\n"
                           " $myArray[$i] = \"flintstone\"; // add to the end of the array.\n"
                           " }\n"
                           "string $a[] = {\"nurbConeShape1\", \"nurbSphereShape1\"}; fred($a); $a"),
              "fred fred flintstone");
    EXPECT_EQ(stringResult("global proc mtCopies(int $n, string $s) { $n = 9; $s = \"changed\"; }\n"
                           "int $n = 1; string $s = \"kept\"; mtCopies($n, $s); $s + $n"),
              "kept1");
    EXPECT_EQ(stringResult("$v = size(\"four\") + size({1, 2}) + `size \"ab\"`"), "8");

    // A proc sees its parameters and locals only; globals through `global`.
    ASSERT_TRUE(mel("global int $gMtCount = 0;\n"
                    "global proc mtBump() { global int $gMtCount; $gMtCount++; }\n"
                    "global proc int mtPeek() { return $gMtCount; }\n"
                    "global proc mtShadow() { $local = 2; }"));
    EXPECT_EQ(stringResult("mtBump; mtBump(); $gMtCount"), "2");
    EXPECT_EQ(stringResult("int $local = 1; mtShadow; $local"), "1");
    mayasim::host::clearOutput();
    EXPECT_FALSE(mel("mtPeek()"));
    EXPECT_THAT(printed(), ElementsAre("// Error: line 1: \"$gMtCount\" is an undeclared variable. //"));
}

TEST_F(MelProcs, LocalProcsBelongToTheirTextAndWrongCallsFailInMayasWords)
{
    ASSERT_TRUE(mel("proc string mtHelper() { return \"helped\"; }\n"
                    "global proc string mtUsesHelper() { return mtHelper(); }\n"
                    "recordArgs `mtHelper`;"));
    EXPECT_THAT(record().args, ElementsAre("helped"));
    EXPECT_EQ(stringResult("mtUsesHelper()"), "helped"); // through the global proc of its text
    mayasim::host::clearOutput();
    EXPECT_FALSE(mel("mtHelper()"));
    EXPECT_FALSE(mel("mtAdd2(1)"));
    ASSERT_TRUE(mel("global proc mtTwo(int $a, int $b[]) { }"));
    EXPECT_FALSE(mel("mtTwo(1)"));
    EXPECT_FALSE(mel("mtTwo 1 2 3"));
    EXPECT_FALSE(mel("mtTwo(1, 2)"));
    EXPECT_THAT(printed(), ElementsAre("// Error: line 1: Cannot find procedure \"mtHelper\". //",
                                       "// Error: line 1: Cannot find procedure \"mtAdd2\". //",
                                       "// Error: line 1: Wrong number of arguments on call to mtTwo. //",
                                       "// Error: line 1: Wrong number of arguments on call to mtTwo. //",
                                       "// Error: line 1: Cannot convert data of type int to type int[]. //"));

    // Maya's documented error for a value returned from a proc with no
    // return type; the text runs nothing.
    mayasim::host::clearOutput();
    EXPECT_FALSE(mel("recordArgs first;\nglobal proc mtVoid(int $x) {return $x+5;};"));
    EXPECT_THAT(printed(), ElementsAre("// Error: global proc mtVoid(int $x) {return $x+5;}; //",
                                       "// Error: This procedure has no return value. //"));
    EXPECT_THAT(record().args, ElementsAre("helped"));
    // return outside a proc, a typed proc's bare return, a proc inside a
    // block, and a malformed parameter list are syntax errors.
    for (const char* text : {"return 1;", "global proc int mtBare() { return; }", "{ proc mtInner() { } }",
                             "proc mtBad(int) { }", "proc mtBad($a) { }", "proc (int $a) { }"}) {
        mayasim::host::clearOutput();
        EXPECT_FALSE(mel(text)) << text;
        EXPECT_THAT(printed().back(), HasSubstr("Syntax error")) << text;
    }
}

TEST_F(MelProcs, RecursionDeeperThanTheLimitFailsCleanly)
{
    // Deep recursion through loops and blocks still runs...
    EXPECT_EQ(stringResult("global proc int mtDepth(int $n) { if ($n == 0) return 0; "
                           "for ($k = 0; $k < 1; $k++) { while (1) { if (1) { return 1 + mtDepth($n - 1); } } } "
                           "return -1; }\n"
                           "mtDepth(499)"),
              "499");
    // ...and beyond 500 calls is an error, not a stack overflow, through eval too.
    mayasim::host::clearOutput();
    EXPECT_FALSE(mel("global proc mtForever(int $n) { recordArgs $n; mtForever($n + 1); } mtForever(1)"));
    EXPECT_THAT(printed(), ElementsAre("// Error: line 1: Procedure calls nest more than 500 deep (calling "
                                       "mtForever). //"));
    EXPECT_EQ(record().args, std::vector<std::string>{"500"});
    EXPECT_EQ(stringResult("mtDepth(3)"), "3"); // the count came back down
}

TEST_F(MelProcs, AProcDefinedAnewWhileItRunsRunsOnToItsEnd)
{
    // The new definition freed the running one.
    ASSERT_TRUE(mel("global proc string mtAnew() { python(\"import maya.mel; maya.mel.eval('global proc string "
                    "mtAnew() { return \\\"new\\\"; }')\"); recordArgs after; return \"old\"; }"));
    EXPECT_EQ(stringResult("mtAnew()"), "old");
    EXPECT_THAT(record().args, ElementsAre("after"));
    EXPECT_EQ(stringResult("mtAnew()"), "new");
}

TEST_F(MelProcs, AHostMayBoundLoopPassesAndCallsOfARun)
{
    mayasim::host::setMelStepBudget(100);
    EXPECT_FALSE(mel("while (1) ;"));
    EXPECT_FALSE(mel("global proc mtTwice(int $n) { mtTwice($n + 1); mtTwice($n + 1); } mtTwice(0)"));
    EXPECT_THAT(printed(), ElementsAre("// Error: line 1: The run went past its budget of 100 loop passes and proc "
                                       "calls. //",
                                       "// Error: line 1: The run went past its budget of 100 loop passes and proc "
                                       "calls. //"));
    EXPECT_EQ(stringResult("int $n = 0; for ($i = 0; $i < 100; $i++) $n++; $n"), "100"); // each run counts anew
    mayasim::host::setMelStepBudget(0);
    EXPECT_EQ(stringResult("int $n = 0; while ($n < 100000) $n++; $n"), "100000");
}

TEST_F(MelProcs, ALoopAtTopLevelIsOneUndoStep)
{
    const std::string before = sceneText();
    ASSERT_TRUE(mel("global proc mtMake(string $name) { createNode transform -n $name; setAttr ($name + \".tx\") 2; }"));
    ASSERT_TRUE(mel("for ($name in {\"mtA\", \"mtB\", \"mtC\"}) mtMake $name;\n"
                    "int $i = 0; while ($i < 3) { counter; $i++; }"));
    const std::string after = sceneText();
    EXPECT_THAT(after, HasSubstr("\"mtC\""));
    EXPECT_EQ(record().counter, 3);
    ASSERT_TRUE(mel("undo")); // the while loop
    EXPECT_EQ(record().counter, 0);
    EXPECT_EQ(sceneText(), after);
    ASSERT_TRUE(mel("undo")); // the declaration of $i recorded nothing; the for loop
    EXPECT_EQ(sceneText(), before);
    ASSERT_TRUE(mel("redo"));
    EXPECT_EQ(sceneText(), after);
    ASSERT_TRUE(mel("undo"));
}
