// MEL at its limits, as outside fuzzing drove it: 32-bit ints that wrap,
// division by zero, nesting deeper than the parser takes.
#include "EngineTest.h"

#include <gmock/gmock.h>

using ::testing::ElementsAre;
using ::testing::HasSubstr;

using MelLimits = EngineTest;

TEST_F(MelLimits, IntsAre32BitsAndWrapAround)
{
    EXPECT_EQ(stringResult("$a = 2147483647 + 1"), "-2147483648");
    EXPECT_EQ(stringResult("$a = 65536 * 65536 + 7"), "7");
    EXPECT_EQ(stringResult("$a = (-2147483647 - 1) / -1"), "-2147483648");
    EXPECT_EQ(stringResult("$a = (-2147483647 - 1) % -1"), "0");
    EXPECT_EQ(stringResult("$a = 4294967298"), "2"); // a literal keeps its low 32 bits
    // These killed the process: a 64-bit quotient that overflowed.
    EXPECT_EQ(stringResult("$a = (-9223372036854775807 - 1) / -1"), "0");
    EXPECT_EQ(stringResult("$a = (-9223372036854775807 - 1) % -1"), "0");
    EXPECT_TRUE(mel("print ((-9223372036854775807 - 1) / -1)"));
    EXPECT_EQ(stringResult("$a = 99999999999999999999999 + 0"), "-159383553");
    // Floats made ints truncate; those beyond the range give its lowest.
    EXPECT_EQ(stringResult("int $i = -2.9; $i"), "-2");
    EXPECT_EQ(stringResult("int $i = 1e20; $i"), "-2147483648");
    EXPECT_EQ(stringResult("int $n[] = {4294967298, 3.5}; $n"), "2 3");
    // Int arguments of commands read the same way.
    EXPECT_EQ(stringResult("typedResult -i 4294967298"), "2");
    EXPECT_EQ(stringResult("typedResult -i 1e300"), "-2147483648");
}

TEST_F(MelLimits, IntDivisionByZeroFails)
{
    EXPECT_FALSE(mel("$a = 1 / 0"));
    EXPECT_FALSE(mel("$a = 1 % 0"));
    EXPECT_THAT(printed(), ElementsAre("// Error: line 1: Divide by zero. //", "// Error: line 1: Divide by zero. //"));
}

TEST_F(MelLimits, NestingDeeperThanTheParserTakesIsASyntaxError)
{
    // Each of these overflowed the stack.
    EXPECT_FALSE(mel("$a = " + std::string(10000, '(') + "1" + std::string(10000, ')')));
    EXPECT_FALSE(mel(std::string(20000, '{') + std::string(20000, '}')));
    EXPECT_FALSE(mel("$a = " + std::string(20000, '-') + "1"));
    EXPECT_FALSE(mel("$a = " + std::string(20000, '{') + "1" + std::string(20000, '}')));
    EXPECT_FALSE(mel("recordArgs " + std::string(10000, '(') + "1" + std::string(10000, ')')));
    ASSERT_EQ(printed().size(), 10u);
    EXPECT_THAT(printed()[1], HasSubstr("Syntax error"));
    EXPECT_THAT(printed()[3], HasSubstr("Syntax error"));
    EXPECT_THAT(printed()[9], HasSubstr("Syntax error"));
    EXPECT_EQ(record().args, std::vector<std::string>{}); // a syntax error runs nothing

    // Deep nesting real scripts might use still runs.
    EXPECT_EQ(stringResult("$a = " + std::string(200, '(') + "2" + std::string(200, ')')), "2");
    EXPECT_EQ(stringResult("$a = " + std::string(200, '-') + "2"), "2");
    ASSERT_TRUE(mel(std::string(200, '{') + "recordArgs deep;" + std::string(200, '}')));
    EXPECT_THAT(record().args, ElementsAre("deep"));
}
