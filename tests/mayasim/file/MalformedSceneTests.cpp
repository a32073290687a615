// Scenes and commands that outside fuzzing found to break mayasim: values of
// an attribute that was taken back, nesting too deep for the parser, and
// numbers too large for their place in a name.
#include "FileTest.h"

#include <maya/MDGModifier.h>
#include <maya/MPlug.h>

#include <gmock/gmock.h>

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::Not;

namespace {

class MalformedScene : public FileTest
{
protected:
    // The scene as saved, from a new untitled scene state.
    std::string saved()
    {
        const std::string path = scratchFile("saved.ma");
        EXPECT_TRUE(mel("file -rename \"" + path + "\"; file -save"));
        return contents(path);
    }
};

TEST_F(MalformedScene, ValuesOfAnAttributeTakenBackGoWithIt)
{
    ASSERT_TRUE(mel("createNode transform -n a; addAttr -ln foo -at double a; setAttr a.foo 3"));
    ASSERT_TRUE(mel("undo; undo; redo; redo"));
    EXPECT_EQ(melNumber("getAttr a.foo"), 3.0);
    // The node kept the value keyed by the attribute the flush freed, and
    // writing the scene read it.
    ASSERT_TRUE(mel("undo; undo; flushUndo"));
    EXPECT_THAT(saved(), Not(HasSubstr("foo")));
}

TEST_F(MalformedScene, AFailedSetAttrTakesBackTheAttributeItGrewAndItsValues)
{
    const std::string path = scratchFile("mystery.ma");
    write(path, "//Maya ASCII 2022 scene\nrequires maya \"2022\";\ncreateNode mystery -n \"u\";\n"
                "\tsetAttr -s 2 \".kox[0:1]\" 0.5;\n");
    ASSERT_TRUE(MFileIO::open(path.c_str(), nullptr, true));
    EXPECT_THAT(errors(), ElementsAre(HasSubstr("line 4: ")));
    EXPECT_THAT(saved(), Not(HasSubstr("kox")));
}

TEST_F(MalformedScene, RemovingAnAttributeBreaksItsConnectionsFirst)
{
    ASSERT_TRUE(mel("createNode transform -n a; createNode transform -n b; addAttr -ln w -at double a; "
                    "connectAttr b.tx a.w"));
    MFnDependencyNode a(nodeNamed("a"));
    MDGModifier modifier;
    ASSERT_TRUE(modifier.removeAttribute(a.object(), a.attribute("w")));
    ASSERT_TRUE(modifier.doIt());
    EXPECT_THAT(saved(), Not(HasSubstr("a.w")));
    ASSERT_TRUE(modifier.undoIt());
    EXPECT_TRUE(a.findPlug("w", true).isDestination());
}

TEST_F(MalformedScene, NestingTooDeepIsASyntaxErrorAndLoadingGoesOn)
{
    const std::string path = scratchFile("deep.ma");
    write(path, "//Maya ASCII 2022 scene\ncreateNode transform -n \"before\";\nsetAttr \".tx\" " +
                    std::string(10000, '(') + "1" + std::string(10000, ')') + ";\ncreateNode transform -n \"after\";\n");
    ASSERT_TRUE(MFileIO::open(path.c_str(), nullptr, true));
    ASSERT_EQ(errors().size(), 2u); // the statement's text, then where parsing stopped
    EXPECT_EQ(errors()[1], "Line 3.515: Syntax error");
    EXPECT_EQ(typeOf("after"), "transform");
}

TEST_F(MalformedScene, AConnectionCycleEvaluatesOnceRoundWithMayasWarning)
{
    // Reading round the cycle overflowed the stack.
    ASSERT_TRUE(mel("createNode transform -n a; createNode transform -n b; setAttr a.tx 2; "
                    "connectAttr a.tx b.tx; connectAttr b.tx a.tx"));
    mayasim::host::clearOutput();
    EXPECT_EQ(melNumber("getAttr b.tx"), 0.0); // where the read came round: b's own value
    EXPECT_THAT(warnings(), ElementsAre("Cycle on 'b.translateX' may not evaluate as expected.  (Use 'cycleCheck -e "
                                        "off' to disable this warning.)"));
}

TEST_F(MalformedScene, NumbersTooLargeForTheirPlaceGetMayasWords)
{
    ASSERT_TRUE(mel("createNode transform -n a; addAttr -ln w -at double -m a"));
    EXPECT_FALSE(mel("getAttr a.t[99999999999]"));
    EXPECT_FALSE(mel("setAttr a.w[99999999999] 1"));
    EXPECT_FALSE(mel("setAttr a.w[0:99999999999] 1"));
    EXPECT_FALSE(mel("addAttr -ln e -at \"enum\" -en \"x=zz\" a"));
    EXPECT_FALSE(mel("addAttr -ln e -at \"enum\" -en \"x=40000\" a"));
    EXPECT_THAT(errors(),
                ElementsAre("line 1: No object matches name: a.t[99999999999]",
                            "line 1: setAttr: No object matches name: a.w[99999999999]",
                            "line 1: setAttr: No object matches name: a.w[0:99999999999]",
                            "line 1: addAttr: The value 'zz' of enum field 'x' is not a whole number from -32768 to 32767.",
                            "line 1: addAttr: The value '40000' of enum field 'x' is not a whole number from -32768 to 32767."));
    ASSERT_TRUE(mel("setAttr a.w[2147483647] 4"));
    EXPECT_EQ(melNumber("getAttr a.w[2147483647]"), 4.0);

    // A name's number counts on past any integer type.
    ASSERT_TRUE(mel("createNode transform -n n99999999999999999999; createNode transform -n n99999999999999999999"));
    EXPECT_EQ(typeOf("n100000000000000000000"), "transform");
}

} // namespace
