// Plug-in commands: parsing against their MSyntax, typed results, and the
// registration record.
#include "EngineTest.h"

#include <maya/MArgList.h>
#include <maya/MDoubleArray.h>
#include <maya/MIntArray.h>
#include <maya/MStringArray.h>
#define MNoVersionString // the test plug-in's file emits the version symbols
#include <maya/MFnPlugin.h>

#include <gmock/gmock.h>

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Pair;
using ::testing::UnorderedElementsAre;

using CommandSyntax = EngineTest;

TEST_F(CommandSyntax, FlagsOfEachTypeByShortAndLongName)
{
    ASSERT_TRUE(mel("probe -d -0.5 -bool off -unsigned 7 -l -3 -s \"two words\" -color 1 0.5 -1e-3 -onlyLong true set1"));
    const auto& probe = record().probe;
    ASSERT_TRUE(probe.parsed);
    EXPECT_THAT(probe.flags, UnorderedElementsAre(Pair("double", ElementsAre("-0.500000")),
                                                  Pair("bool", ElementsAre("false")),
                                                  Pair("unsigned", ElementsAre("7")),
                                                  Pair("long", ElementsAre("-3")),
                                                  Pair("string", ElementsAre("two words")),
                                                  Pair("color", ElementsAre("1.000000", "0.500000", "-0.001000")),
                                                  Pair("onlyLong", ElementsAre("true"))));
    EXPECT_EQ(probe.argument, "set1");
    EXPECT_FALSE(probe.edit);
}

TEST_F(CommandSyntax, BooleansInEveryMayaSpelling)
{
    for (const char* word : {"1", "true", "on", "yes"}) {
        ASSERT_TRUE(mel(std::string("probe -b ") + word + " n")) << word;
        EXPECT_THAT(record().probe.flags["bool"], ElementsAre("true")) << word;
    }
    for (const char* word : {"0", "false", "off", "no"}) {
        ASSERT_TRUE(mel(std::string("probe -b ") + word + " n")) << word;
        EXPECT_THAT(record().probe.flags["bool"], ElementsAre("false")) << word;
    }
}

TEST_F(CommandSyntax, CommandArgumentFirstThenObjects)
{
    ASSERT_TRUE(mel("probe -m a -m b setName pCube1 pSphere1"));
    EXPECT_EQ(record().probe.argument, "setName");
    EXPECT_THAT(record().probe.objects, ElementsAre("pCube1", "pSphere1"));
    EXPECT_THAT(record().probe.flags["multi"], ElementsAre("a", "b"));
}

TEST_F(CommandSyntax, EditAndQueryModes)
{
    ASSERT_TRUE(mel("probe -e n"));
    EXPECT_TRUE(record().probe.edit);
    ASSERT_TRUE(mel("probe -edit n"));
    EXPECT_TRUE(record().probe.edit);
    // In query mode flags name what is asked and take no arguments.
    ASSERT_TRUE(mel("probe -q -double n"));
    EXPECT_TRUE(record().probe.query);
    EXPECT_EQ(record().probe.argument, "n");
}

TEST_F(CommandSyntax, MalformedCallsFailBeforeTheCommandRuns)
{
    const std::pair<const char*, const char*> cases[] = {
        {"probe -nope n", "// Error: line 1: Invalid flag '-nope' //"},
        {"probe -d abc n", "// Error: line 1: Flag 'd' must be passed a float argument //"},
        {"probe -b maybe n", "// Error: line 1: Flag 'b' must be passed a boolean argument //"},
        {"probe -u -2 n", "// Error: line 1: Flag 'u' must be passed an unsigned int argument //"},
        {"probe -c 1 2", "// Error: line 1: Flag 'c' must be passed a float argument //"},
        {"probe", "// Error: line 1: Wrong number of arguments. //"},
        {"typedResult extra", "// Error: line 1: Too many arguments. //"},
    };
    for (const auto& [text, message] : cases) {
        mayasim::host::clearOutput();
        record().probe.parsed = false;
        EXPECT_FALSE(mel(text)) << text;
        EXPECT_THAT(printed(), ElementsAre(message)) << text;
        EXPECT_FALSE(record().probe.parsed) << text;
    }
}

TEST_F(CommandSyntax, AFailedDoItFailsTheRunWithTheCommandsOwnReport)
{
    EXPECT_FALSE(mel("failing; recordArgs after"));
    EXPECT_THAT(printed(), ElementsAre("// Error: failing: refused //"));
    EXPECT_TRUE(record().args.empty());
}

TEST(ArgList, ReadsWordsAsTheTypesAsked)
{
    MArgList args;
    args.addArg(MString("-value"));
    args.addArg(-1.5);
    args.addArg(true);
    args.addArg(MString("name"));
    EXPECT_EQ(args.length(), 4u);
    EXPECT_EQ(args.flagIndex("v", "value"), 0u);
    EXPECT_EQ(args.flagIndex("x"), MArgList::kInvalidArgIndex);
    EXPECT_EQ(args.asDouble(1), -1.5);
    EXPECT_EQ(args.asInt(1), -1);
    EXPECT_TRUE(args.asBool(2));
    MStatus status;
    args.asDouble(3, &status);
    EXPECT_FALSE(status);
    args.asString(4, &status);
    EXPECT_FALSE(status);
}

using CommandObjects = EngineTest;

TEST_F(CommandObjects, NamedObjectsOrTheActiveSelection)
{
    ASSERT_TRUE(mel("createNode transform -n objA; createNode transform -n objB; select -cl"));
    ASSERT_TRUE(mel("selectProbe objA objB"));
    EXPECT_TRUE(record().objectsRead);
    EXPECT_THAT(record().objects, ElementsAre("objA", "objB"));
    ASSERT_TRUE(mel("select objB; selectProbe"));
    EXPECT_TRUE(record().objectsRead);
    EXPECT_THAT(record().objects, ElementsAre("objB"));
    ASSERT_TRUE(mel("delete objA objB"));
}

TEST_F(CommandObjects, TooFewObjectsFailGetObjectsNotTheCall)
{
    ASSERT_TRUE(mel("select -cl; selectProbe"));
    EXPECT_EQ(record().selectProbeRuns, 1);
    EXPECT_FALSE(record().objectsRead);
}

TEST_F(CommandObjects, UnknownNamesFailTheCall)
{
    EXPECT_FALSE(mel("selectProbe noSuchNode"));
    EXPECT_EQ(record().selectProbeRuns, 0);
    EXPECT_THAT(printed(), ElementsAre("// Error: line 1: No object matches name: noSuchNode //"));
}

using TypedResults = EngineTest;

TEST_F(TypedResults, EachOverloadReadsItsKind)
{
    int i = 0;
    double d = 0;
    MString s;
    MIntArray ia;
    MDoubleArray da;
    MStringArray sa;
    ASSERT_TRUE(MGlobal::executeCommand("typedResult -i 42", i));
    EXPECT_EQ(i, 42);
    ASSERT_TRUE(MGlobal::executeCommand("typedResult -b yes", i));
    EXPECT_EQ(i, 1);
    ASSERT_TRUE(MGlobal::executeCommand("typedResult -d 2.5", d));
    EXPECT_EQ(d, 2.5);
    ASSERT_TRUE(MGlobal::executeCommand("typedResult -i 3", d));
    EXPECT_EQ(d, 3.0);
    ASSERT_TRUE(MGlobal::executeCommand("typedResult -s BaseAnimation", s));
    EXPECT_STREQ(s.asChar(), "BaseAnimation");
    ASSERT_TRUE(MGlobal::executeCommand("typedResult -ia", ia));
    EXPECT_EQ(ia.length(), 2u);
    EXPECT_EQ(ia[1], -1);
    ASSERT_TRUE(MGlobal::executeCommand("typedResult -da", da));
    EXPECT_EQ(da[0], 10.75);
    ASSERT_TRUE(MGlobal::executeCommand("typedResult -sa", sa));
    EXPECT_STREQ(sa[1].asChar(), "ry");
    ASSERT_TRUE(MGlobal::executeCommand("typedResult -ap", da));
    EXPECT_EQ(da.length(), 2u);
    EXPECT_EQ(da[1], 2.5);
}

TEST_F(TypedResults, FloatsReadAsIntegersAreTruncated)
{
    MIntArray frames;
    ASSERT_TRUE(MGlobal::executeCommand("typedResult -da", frames));
    EXPECT_EQ(frames[0], 10);
    EXPECT_EQ(frames[1], -2);
}

TEST_F(TypedResults, AMissingKindIsAFailure)
{
    int i = 7;
    MString s;
    MIntArray ia;
    MStringArray sa;
    EXPECT_FALSE(MGlobal::executeCommand("typedResult", ia)); // no result at all
    EXPECT_FALSE(MGlobal::executeCommand("typedResult -s x", i));
    EXPECT_EQ(i, 7);
    EXPECT_FALSE(MGlobal::executeCommand("typedResult -i 1", s));
    EXPECT_FALSE(MGlobal::executeCommand("typedResult -ia", sa));
    EXPECT_FALSE(MGlobal::executeCommand("typedResult -d 1.5", i));
}

TEST_F(TypedResults, StringResultOfAnyKind)
{
    EXPECT_STREQ(MGlobal::executeCommandStringResult("typedResult -i 5").asChar(), "5");
    EXPECT_STREQ(MGlobal::executeCommandStringResult("typedResult -da").asChar(), "10.75 -2.5");
    MStatus status;
    EXPECT_STREQ(MGlobal::executeCommandStringResult("noSuchCommand", false, false, &status).asChar(), "");
    EXPECT_FALSE(status);
}

using Registration = EngineTest;

TEST_F(Registration, RecordsCallsInOrder)
{
    enginetest::unload();
    mayasim::host::clearRegistrations();
    enginetest::load();
    std::vector<std::string> calls;
    for (const auto& r : mayasim::host::registrations())
        calls.push_back(r.plugin + " " + r.call + " " + r.name + (r.succeeded ? "" : " failed"));
    EXPECT_THAT(calls, ElementsAre("engineTest registerCommand recordArgs", "engineTest registerCommand typedResult",
                                   "engineTest registerCommand probe", "engineTest registerCommand selectProbe",
                                   "engineTest registerCommand counter",
                                   "engineTest registerCommand nested", "engineTest registerCommand failing",
                                   "engineTest registerCommand fakeHotkeySet"));
}

TEST_F(Registration, AFailedInitializeUnloadsThePluginWithMayasMessage)
{
    enginetest::unload();
    mayasim::host::clearOutput();
    mayasim::host::failRegistrationAt(3);
    EXPECT_FALSE(mayasim::host::loadLinkedPlugin("engineTest", &enginetest::initialize, &enginetest::uninitialize));
    const auto& last = mayasim::host::registrations().back();
    EXPECT_EQ(last.name, "probe");
    EXPECT_FALSE(last.succeeded);
    // The two commands registered before the failure were not taken back by
    // the plug-in: the engine drops them and says so.
    EXPECT_THAT(printed(), ElementsAre("// Warning: Plug-in engineTest did not deregister command recordArgs //",
                                       "// Warning: Plug-in engineTest did not deregister command typedResult //",
                                       "// Error: initializePlugin function failed (engineTest) //"));
    EXPECT_FALSE(mel("recordArgs"));
    enginetest::load(); // for TearDown
}

TEST_F(Registration, AFailedUninitializeKeepsThePluginLoaded)
{
    mayasim::host::failRegistrationAt(1);
    EXPECT_FALSE(MGlobal::executeCommand("unloadPlugin engineTest"));
    EXPECT_EQ(printed().back(), "// Error: line 1: uninitializePlugin function failed (engineTest) //");
    EXPECT_TRUE(mel("fakeHotkeySet -q -current"));
}

TEST_F(Registration, CommandNamesAreUniqueAcrossBuiltinsAndPlugins)
{
    mayasim::host::clearRegistrations();
    ASSERT_TRUE(mayasim::host::loadLinkedPlugin("clashTest", &enginetest::initializeClashing,
                                                &enginetest::uninitializeClashing));
    std::vector<std::string> calls;
    for (const auto& r : mayasim::host::registrations())
        calls.push_back(r.name + (r.succeeded ? " ok" : " refused"));
    EXPECT_THAT(calls, ElementsAre("undo refused", "recordArgs refused", "clashFree ok"));
    EXPECT_TRUE(MGlobal::executeCommand("unloadPlugin clashTest"));
}

TEST_F(Registration, ThePluginObjectDescribesTheModule)
{
    MObject plugin = MFnPlugin::findPlugin("engineTest");
    ASSERT_FALSE(plugin.isNull());
    MFnPlugin fn(plugin);
    EXPECT_STREQ(fn.name().asChar(), "engineTest");
    EXPECT_STREQ(fn.vendor().asChar(), "Engine Tests");
    EXPECT_STREQ(fn.version().asChar(), "1.0");
    EXPECT_TRUE(MFnPlugin::findPlugin("notLoaded").isNull());
}

TEST_F(Registration, LoadPluginReportsMissingModules)
{
    EXPECT_FALSE(MGlobal::executeCommand("loadPlugin \"/nonexistent/nothing.so\""));
    EXPECT_THAT(printed(),
                ElementsAre("// Error: line 1: Plug-in, \"/nonexistent/nothing.so\", was not found on MAYA_PLUG_IN_PATH. //"));
}
