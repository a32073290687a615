// maya.cmds and maya.mel: commands from the registry, flags from keyword
// arguments, Maya's Python values back, and RuntimeError on failure.
#include "ProbePlugin.h"
#include "PythonTest.h"

#include <gmock/gmock.h>

using ::testing::ElementsAre;
using ::testing::HasSubstr;

namespace {

using CmdsTest = PythonTest;

// What the Python printed, line by line.
std::vector<std::string> pythonOutput(const std::string& text)
{
    mayasim::host::clearOutput();
    EXPECT_TRUE(MGlobal::executePythonCommand(text.c_str(), false, true)) << text;
    return [] {
        std::vector<std::string> lines;
        for (const auto& line : mayasim::host::output())
            lines.push_back(line.printed);
        return lines;
    }();
}

} // namespace

TEST_F(CmdsTest, ResultsComeBackAsPythonValues)
{
    ASSERT_TRUE(mel("createNode transform -n ball; addAttr -ln count -at long ball; setAttr ball.count 4"));
    EXPECT_THAT(pythonOutput("r = maya.cmds.getAttr('ball.count'); print(type(r).__name__, r)"),
                ElementsAre("int 4"));
    EXPECT_THAT(pythonOutput("r = maya.cmds.getAttr('ball.tx'); print(type(r).__name__, r)"),
                ElementsAre("float 0.0"));
    EXPECT_THAT(pythonOutput("print(repr(maya.cmds.ls(type='transform')))"), ElementsAre("['persp', 'top', 'front', 'side', 'ball']"))
        << "the default cameras first";
    EXPECT_THAT(pythonOutput("print(maya.cmds.xform('ball', q=True, t=True))"), ElementsAre("[0.0, 0.0, 0.0]"));
    EXPECT_THAT(pythonOutput("print(maya.cmds.setAttr('ball.tx', 2))"), ElementsAre("None"));
    EXPECT_THAT(pythonOutput("print(repr(maya.cmds.createNode('transform', name='box')))"), ElementsAre("'box'"));
}

TEST_F(CmdsTest, KeywordsAreFlagsByLongOrShortNameWithListsAndBooleans)
{
    ASSERT_TRUE(pythontest::loadProbe());
    python("maya.cmds.pyProbe('a', ['b', 'c'], name='x', v=(1, 2.5, -3), enabled=False, sw=True, "
           "it=['p', 'q'], e=True)");
    pythontest::ProbeCall call = pythontest::lastProbe();
    EXPECT_TRUE(call.edit);
    EXPECT_FALSE(call.query);
    EXPECT_THAT(call.objects, ElementsAre("a", "b", "c"));
    using Uses = std::vector<std::vector<std::string>>;
    EXPECT_EQ(call.flags["name"], (Uses{{"x"}}));
    EXPECT_EQ(call.flags["values"], (Uses{{"1", "2.5", "-3"}}));
    EXPECT_EQ(call.flags["enabled"], (Uses{{"0"}})); // a boolean argument, not a switch
    EXPECT_EQ(call.flags["switch"], (Uses{{}}));
    EXPECT_EQ(call.flags["item"], (Uses{{"p"}, {"q"}})); // one use per item

    // False turns a switch off, query flags take no arguments.
    python("maya.cmds.pyProbe(sw=False, e=False, query=True, name=True)");
    call = pythontest::lastProbe();
    EXPECT_FALSE(call.edit);
    EXPECT_TRUE(call.query);
    EXPECT_EQ(call.flags.count("switch"), 0u);
    EXPECT_EQ(call.flags["name"], (Uses{{}}));

    EXPECT_THAT(pythonOutput("print(maya.cmds.pyProbe('u', 'v'))"), ElementsAre("['u', 'v']"));
    EXPECT_TRUE(pythontest::unloadProbe());
}

TEST_F(CmdsTest, AFailingCommandRaisesRuntimeErrorWithMayasWords)
{
    ASSERT_TRUE(mel("createNode transform -n ball"));
    EXPECT_THAT(pythonOutput("try:\n\tmaya.cmds.deleteUI('lost')\nexcept RuntimeError as e:\n\tprint(e)"),
                ElementsAre("deleteUI: Object 'lost' not found."));
    EXPECT_THAT(pythonOutput("try:\n\tmaya.cmds.xform('ball', translation=[1, 2])\nexcept RuntimeError as e:\n\t"
                             "print(e)"),
                ElementsAre("Invalid arguments for flag 'translation'. Expected 3 values."));
    EXPECT_THAT(pythonOutput("try:\n\tmaya.cmds.xform('ball', bogus=1)\nexcept RuntimeError as e:\n\tprint(e)"),
                ElementsAre("Invalid flag '-bogus'"));
    EXPECT_THAT(pythonOutput("try:\n\tmaya.cmds.setAttr('ball.tx', None)\nexcept TypeError as e:\n\tprint(e)"),
                ElementsAre("Invalid argument type: NoneType"));
    EXPECT_THAT(pythonOutput("print(hasattr(maya.cmds, 'noSuchCommand'), 'xform' in dir(maya.cmds))"),
                ElementsAre("False True"));
}

TEST_F(CmdsTest, PluginCommandsComeAndGoWithTheirPlugin)
{
    const std::string check = "print(hasattr(maya.cmds, 'pyProbe'), 'pyProbe' in dir(maya.cmds))";
    EXPECT_THAT(pythonOutput(check), ElementsAre("False False"));
    ASSERT_TRUE(pythontest::loadProbe());
    EXPECT_THAT(pythonOutput(check), ElementsAre("True True"));
    EXPECT_THAT(pythonOutput("probe = maya.cmds.pyProbe\nprint(probe.__name__, probe('a'))"),
                ElementsAre("pyProbe ['a']"));
    ASSERT_TRUE(pythontest::unloadProbe());
    EXPECT_THAT(pythonOutput(check), ElementsAre("False False"));
    // A function kept from before the unload fails as MEL would.
    EXPECT_THAT(pythonOutput("try:\n\tprobe('a')\nexcept RuntimeError as e:\n\tprint(e)"),
                ElementsAre("Cannot find procedure \"pyProbe\"."));
}

TEST_F(CmdsTest, MelEvalRunsMelAndReturnsItsValue)
{
    EXPECT_THAT(pythonOutput("print(repr(maya.mel.eval('$tmpVar=$gPlayBackSlider')))"),
                ElementsAre("'timeControl1'"));
    EXPECT_THAT(pythonOutput("print(maya.mel.eval('$a = 1 + 2'), maya.mel.eval('$b = {1.5, 2}'))"),
                ElementsAre("3 [1.5, 2.0]"));
    EXPECT_THAT(pythonOutput("try:\n\tmaya.mel.eval('deleteUI lost')\nexcept RuntimeError as e:\n\tprint(e)"),
                ElementsAre("// Error: line 1: deleteUI: Object 'lost' not found. //",
                            "Error occurred during execution of MEL script"));
}

TEST_F(CmdsTest, MelsPythonCommandReturnsMelValues)
{
    EXPECT_EQ(melNumber("python(\"1 + 2\")"), 3.0);
    EXPECT_EQ(melString("python(\"'a' + 'b'\")"), "ab");
    EXPECT_EQ(melString("python(\"[1, 2.5]\")"), "1 2.5");
    EXPECT_EQ(melString("python(\"['a', 1]\")"), "a 1");
    EXPECT_EQ(melString("python(\"x = 3\")"), "");
    EXPECT_EQ(melNumber("python(\"x\")"), 3.0); // one __main__ for every run
    mayasim::host::clearOutput();
    EXPECT_FALSE(mel("python(\"1 / 0\"); print \"not reached\""));
    EXPECT_THAT(printed(), ElementsAre("# Error: ZeroDivisionError: file <maya console> line 1: division by zero"));
}

TEST_F(CmdsTest, TypedResultsAndEchoOfExecutePythonCommand)
{
    int number = 0;
    EXPECT_TRUE(MGlobal::executePythonCommand("6 * 7", number));
    EXPECT_EQ(number, 42);
    EXPECT_FALSE(MGlobal::executePythonCommand("'text'", number));
    MString text;
    EXPECT_TRUE(MGlobal::executePythonCommand("'te' + 'xt'", text));
    EXPECT_STREQ(text.asChar(), "text");
    MStatus status;
    EXPECT_STREQ(MGlobal::executePythonCommandStringResult("['a', 1]", false, false, &status).asChar(), "['a', 1]");
    EXPECT_TRUE(status);
    MGlobal::executePythonCommandStringResult("raise KeyError('k')", false, false, &status);
    EXPECT_FALSE(status);

    mayasim::host::clearOutput();
    EXPECT_TRUE(MGlobal::executePythonCommand("1 + 1", true, false));
    EXPECT_TRUE(MGlobal::executePythonCommand("print('a\\nb'); print('c', end='')", true, false));
    EXPECT_THAT(printed(), ElementsAre("1 + 1", "# Result: 2", "print('a\\nb'); print('c', end='')", "a", "b", "c"));
    const auto& sent = mayasim::host::sentCommands().back();
    EXPECT_TRUE(sent.python);
    EXPECT_TRUE(sent.display);
    EXPECT_FALSE(sent.undo);
}

TEST_F(CmdsTest, MessagesWrittenWhilePythonRunsTakePythonsMark)
{
    ASSERT_TRUE(pythontest::loadProbe());
    mayasim::host::clearOutput();
    EXPECT_TRUE(python("maya.cmds.pyProbe(name='warn')"));
    EXPECT_TRUE(mel("pyProbe -name warn"));
    EXPECT_THAT(printed(), ElementsAre("# Warning: probe warning", "// Warning: probe warning //"));
    EXPECT_TRUE(pythontest::unloadProbe());

    mayasim::host::clearOutput();
    EXPECT_FALSE(python("maya.cmds.getAttr('nothing.tx')"));
    EXPECT_THAT(printed(), ElementsAre("# Error: RuntimeError: file <maya console> line 1: No object matches name: "
                                       "nothing.tx"));
    // The line is where the exception was raised.
    mayasim::host::clearOutput();
    EXPECT_FALSE(python("def f():\n    raise ValueError('deep')\n\nf()"));
    EXPECT_THAT(printed(), ElementsAre("# Error: ValueError: file <maya console> line 2: deep"));
    mayasim::host::clearOutput();
    EXPECT_FALSE(python("print('unclosed'"));
    ASSERT_EQ(printed().size(), 1u);
    EXPECT_THAT(printed()[0], HasSubstr("# Error: SyntaxError: file <maya console> line 1: "));
}
