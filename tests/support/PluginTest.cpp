#include "PluginTest.h"

#include "EmptyScene.h"
#include "SceneText.h"

#include <maya/MDoubleArray.h>
#include <maya/MFileIO.h>
#define MNoVersionString // the plug-in emits the version symbols
#include <maya/MFnPlugin.h>
#include <maya/MGlobal.h>
#include <maya/MSelectionList.h>
#include <maya/MStringArray.h>
#include <mayasim/Host.h>

MObject nodeNamed(const std::string& name)
{
    MSelectionList list;
    list.add(name.c_str());
    MObject node;
    list.getDependNode(0, node);
    return node;
}

std::vector<std::string> strings(const std::string& command)
{
    MStringArray result;
    EXPECT_TRUE(MGlobal::executeCommand(command.c_str(), result)) << command;
    std::vector<std::string> texts;
    for (unsigned int i = 0; i < result.length(); ++i)
        texts.push_back(result[i].asChar());
    return texts;
}

void PluginTest::SetUp()
{
    ASSERT_TRUE(openEmptyScene());
    ASSERT_TRUE(mayasim::host::loadLinkedPlugin("orvane", initializePlugin, uninitializePlugin));
    mayasim::host::clearOutput();
}

void PluginTest::TearDown()
{
    // Maya keeps a plug-in whose nodes are in the scene, or on the undo queue.
    EXPECT_TRUE(MFileIO::newFile(true));
    EXPECT_TRUE(MGlobal::executeCommand("unloadPlugin orvane"));
}

MStatus PluginTest::mel(const std::string& text) { return MGlobal::executeCommand(text.c_str(), false, true); }

void PluginTest::keyPlug(const std::string& plug, const std::vector<std::pair<double, double>>& keys)
{
    for (const auto& [frame, value] : keys) {
        const std::string command = "setKeyframe -t " + std::to_string(frame) + " -v " + std::to_string(value) + " "
                                    + plug;
        ASSERT_TRUE(mel(command)) << command;
    }
    ASSERT_TRUE(mel("currentTime 1"));
}

namespace {

std::vector<double> keyQuery(const std::string& flags, const std::string& curveOrPlug)
{
    MDoubleArray values;
    MGlobal::executeCommand(("keyframe -q " + flags + " " + curveOrPlug).c_str(), values);
    return std::vector<double>(values.begin(), values.end());
}

} // namespace

std::vector<double> PluginTest::keyValues(const std::string& curveOrPlug) { return keyQuery("-vc", curveOrPlug); }

std::vector<double> PluginTest::keyTimes(const std::string& curveOrPlug) { return keyQuery("-tc", curveOrPlug); }

std::string PluginTest::sceneText()
{
    return ::sceneText();
}

void PluginTest::expectOneUndoStep(const std::function<void()>& action)
{
    const std::string before = sceneText();
    action();
    if (HasFatalFailure())
        return;
    const std::string after = sceneText();
    EXPECT_TRUE(mel("undo"));
    EXPECT_EQ(sceneText(), before);
    EXPECT_TRUE(mel("redo"));
    EXPECT_EQ(sceneText(), after);
}

std::vector<std::string> PluginTest::reports()
{
    std::vector<std::string> blocks;
    for (const auto& line : mayasim::host::output()) {
        if (line.kind == mayasim::host::OutputLine::Kind::Info && line.text.find("[Orvane]") != std::string::npos)
            blocks.push_back(line.text);
    }
    return blocks;
}
