#pragma once
// A test with the plug-in loaded into a fresh scene, as Maya would load the
// module, and helpers to drive it through MEL and look at the whole scene.
#include <maya/MObject.h>
#include <maya/MStatus.h>

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

// The node (an animation curve, say) of that name; a null object if none.
MObject nodeNamed(const std::string& name);
// The string array a MEL command answers; the command must succeed.
std::vector<std::string> strings(const std::string& command);

class PluginTest : public ::testing::Test
{
protected:
    void SetUp() override;
    void TearDown() override;

    // Runs MEL as typed into the script editor: undoable, not echoed.
    static MStatus mel(const std::string& text);
    // Keys a plug: (frame, value) pairs, then sets the current time to 1.
    static void keyPlug(const std::string& plug, const std::vector<std::pair<double, double>>& keys);
    // The key values of a curve (or of the curve driving a plug).
    static std::vector<double> keyValues(const std::string& curveOrPlug);
    static std::vector<double> keyTimes(const std::string& curveOrPlug);
    // The whole scene as Maya ASCII text, for comparisons of entire scenes.
    static std::string sceneText();
    // Runs the action and checks that it made one undo step: undo gives back
    // the scene from before it, redo the scene it left, which stays.
    static void expectOneUndoStep(const std::function<void()>& action);
    // The framed report blocks written since the test began.
    static std::vector<std::string> reports();
};
