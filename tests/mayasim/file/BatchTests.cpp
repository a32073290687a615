// mayasim-batch as a user runs it: the script editor's output on stdout and
// an exit status that says whether every command worked.
#include "FileTest.h"

#include "BatchRun.h"

#include <gmock/gmock.h>

using ::testing::HasSubstr;
using ::testing::Not;

namespace {

class Batch : public FileTest
{
protected:
    void SetUp() override
    {
        FileTest::SetUp();
        if (!std::filesystem::exists(batchProgram()))
            GTEST_SKIP() << "mayasim-batch is not built";
    }

    static BatchRun run(const std::string& arguments) { return runBatch(arguments); }
};

} // namespace

TEST_F(Batch, CommandPrintsItsResult)
{
    const BatchRun result = run("-command \"createNode transform -n a; setAttr a.tx 5; getAttr a.tx\"");
    EXPECT_THAT(result.output, HasSubstr("// Result: 5 //\n"));
    EXPECT_EQ(result.status, 0);
}

TEST_F(Batch, FailingCommandGivesAnErrorAndANonZeroStatus)
{
    const BatchRun result = run("-command \"setAttr nothing.tx 1\"");
    EXPECT_THAT(result.output, HasSubstr("// Error: "));
    EXPECT_EQ(result.status, 1);
}

TEST_F(Batch, LoadsRunsAScriptAndSaves)
{
    const std::string script = scratchFile("query.mel");
    const std::string saved = scratchFile("out.ma");
    write(script, "setAttr hand.tz 4;\ngetAttr hand.worldMatrix;\n");
    const BatchRun result =
        run("-file \"" + dataFile("pivoted_hierarchy.ma") + "\" -script \"" + script + "\" -save \"" + saved + "\"");
    EXPECT_EQ(result.status, 0) << result.output;
    EXPECT_THAT(result.output, HasSubstr("getAttr hand.worldMatrix;\n// Result: "));
    ASSERT_TRUE(MFileIO::open(saved.c_str(), nullptr, true));
    EXPECT_EQ(melString("getAttr hand.tz"), "4");
}

TEST_F(Batch, AScriptRunsAsSourcingDoes)
{
    // Its locals and local procs last to its end; a loop's header or an
    // else stays with its statement.
    const std::string script = scratchFile("loops.mel");
    write(script, "proc string twice(string $s) { return $s + $s; }\n"
                  "string $digits;\n"
                  "for ($i = 0; $i < 3; $i++) $digits += $i;\n"
                  "if ($digits == \"012\") print (twice($digits) + \"\\n\"); else print \"split\\n\";\n");
    BatchRun result = run("-script \"" + script + "\"");
    EXPECT_EQ(result.status, 0) << result.output;
    EXPECT_THAT(result.output, HasSubstr("for ($i = 0; $i < 3; $i++) $digits += $i;\n"));
    EXPECT_THAT(result.output, HasSubstr("\n012012\n"));

    // A syntax error anywhere runs nothing.
    write(script, "print \"ran\\n\";\nfor ($i = 0; $i < 3; $i++ print $i;\n");
    result = run("-script \"" + script + "\"");
    EXPECT_EQ(result.status, 1);
    EXPECT_THAT(result.output, HasSubstr("// Error: Line 2.27: Syntax error //"));
    EXPECT_THAT(result.output, Not(HasSubstr("\nran\n")));
}

TEST_F(Batch, BadArgumentsPrintTheUsage)
{
    const BatchRun result = run("-file");
    EXPECT_THAT(result.output, HasSubstr("usage: mayasim-batch"));
    EXPECT_EQ(result.status, 2);
}
