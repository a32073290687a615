// Undo as a property: random runs of the tools on a small rig, with fixed
// seeds. After each step the scene must be sound; undoing every step must
// give back each earlier scene text byte for byte, down to the first, and
// redoing them each later one, up to the last.
#include "DataFolderTest.h"

#include "KeyBlending/Data.h"
#include "Utils/Nodes/SceneId/Manager.h"

#include <maya/MFileIO.h>
#include <maya/MFnAnimCurve.h>
#include <maya/MGlobal.h>
#include <maya/MItDependencyNodes.h>
#include <maya/MSelectionList.h>
#include <maya/MStringArray.h>
#include <mayasim/Host.h>

#include <cmath>
#include <functional>
#include <random>
#include <regex>
#include <sstream>

namespace {

// Draws of one seeded engine, as MEL text.
class Random
{
public:
    explicit Random(unsigned int seed) : fEngine(seed) {}

    int integer(int low, int high) { return std::uniform_int_distribution<int>(low, high)(fEngine); }
    bool chance(double probability) { return std::bernoulli_distribution(probability)(fEngine); }
    // A multiple of step within low..high, as MEL text.
    std::string number(double low, double high, double step)
    {
        std::ostringstream text;
        text << step * integer(static_cast<int>(std::ceil(low / step)), static_cast<int>(std::floor(high / step)));
        return text.str();
    }
    const std::string& pick(const std::vector<std::string>& items)
    {
        return items[static_cast<size_t>(integer(0, static_cast<int>(items.size()) - 1))];
    }
    // One to three of the items, blank separated.
    std::string some(const std::vector<std::string>& items)
    {
        std::string text = pick(items);
        for (int more = integer(0, 2); more > 0; --more)
            text += " " + pick(items);
        return text;
    }
    // A frame range "a:b" within the rig's keyed frames.
    std::string range()
    {
        const int first = integer(0, 24);
        return std::to_string(first) + ":" + std::to_string(first + integer(0, 12));
    }
    // A blend value: mostly the slider's own span, sometimes its fast mode.
    std::string blendValue() { return chance(0.8) ? number(-1, 1, 0.05) : number(-4, 4, 0.25); }
    // Which tangent sides a tangent command names, if any.
    std::string sides()
    {
        static const std::vector<std::string> flags{"", "", " -i", " -o", " -i -o"};
        return pick(flags);
    }

private:
    std::mt19937 fEngine;
};

const std::vector<std::string> controls{"body_ctrl", "arm_L_ctrl", "arm_R_ctrl", "spine_jnt", "root_jnt", "rig"};
// Keyed plugs of the rig and some that start unkeyed.
const std::vector<std::string> channels{"body_ctrl.tx",   "body_ctrl.ty",  "body_ctrl.ry",     "body_ctrl.tz",
                                        "arm_L_ctrl.tx",  "arm_L_ctrl.rz", "arm_L_ctrl.reach", "arm_L_ctrl.sy",
                                        "arm_R_ctrl.tx",  "arm_R_ctrl.rz", "arm_R_ctrl.sx",    "spine_jnt.rx",
                                        "spine_jnt.rz",   "spine_jnt.ry",  "root_jnt.tx"};

// One step of a run: MEL it runs, or a gesture of the panel it plays.
struct Tool
{
    const char* name;
    int weight; // how often it comes up, relative to the others
    std::function<std::string(Random&)> step;
    // The undo entries the action makes at most: its own, then those that
    // its callbacks add after it, as a mode's follow-up edits do.
    size_t undoSteps = 1;
};

std::string keyBlend(Random& random)
{
    std::string command = "OVKeyBlending -bt " + std::to_string(random.integer(0, 24)) + " -bv " + random.blendValue();
    if (random.chance(0.5))
        command += " -ft " + std::to_string(random.integer(0, 12)) + " " + std::to_string(random.integer(8, 30));
    return command;
}

// The key slider's drag: one command on the undo queue, several moves.
std::string keySliderDrag(Random& random)
{
    MSelectionList selection;
    MGlobal::getActiveSelectionList(selection);
    if (selection.isEmpty() || !MGlobal::executeCommand("OVKeyBlending -internal", false, true))
        return "";
    KeyBlending::Data& data = *KeyBlending::activeData;
    data.setBlendType(random.integer(0, 24));
    data.setFrameTimes(random.integer(0, 12), random.integer(8, 30));
    data.collect(selection);
    for (int moves = random.integer(1, 6); moves > 0; --moves)
        data.blend(random.integer(-100, 100) / 100.0 * (random.chance(0.8) ? 1.0 : 4.0));
    data.finish();
    KeyBlending::activeData = nullptr;
    return "";
}

// A key edit with the offset mode on, as the user makes it: the edit, then
// the spread to the curve's other keys in the span, each an undo entry.
std::string offsetEdit(Random& random)
{
    MGlobal::executeCommand("OVAnimationOffset", false, true);
    // Its run closes the step's chunk, so that the spread, which comes after
    // the run, lands in an entry of its own.
    static const std::vector<std::string> keyedFrames{"1", "6", "12", "18", "24"};
    MGlobal::executeCommand(("keyframe -e -r -vc " + random.number(-5, 5, 0.5) + " -t " + random.pick(keyedFrames)
                             + " " + random.pick(channels) + ";\nundoInfo -cck")
                                .c_str(),
                            false, true);
    MGlobal::executeCommand("OVAnimationOffset", false, true);
    return "";
}

// The temporary pivot as a user drives it: on for some controls, a drag of
// the pivot in a few moves (one chunk, closed at the next idle), then off.
std::string pivotDrag(Random& random)
{
    if (!MGlobal::executeCommand(("OVTempPivot -e true " + random.some(controls)).c_str(), false, true))
        return "";
    MStringArray selected;
    MGlobal::executeCommand("ls -sl", selected);
    const std::string pivot = selected.length() == 1 ? selected[0].asChar() : "";
    static const std::vector<std::string> pivotChannels{".tx", ".ty", ".rx", ".ry", ".rz", ".sx"};
    for (int moves = random.integer(1, 4); moves > 0 && !pivot.empty(); --moves)
        MGlobal::executeCommand(
            ("setAttr " + pivot + random.pick(pivotChannels) + " " + random.number(-2, 2, 0.25)).c_str(), false, true);
    mayasim::host::pumpIdle();
    MGlobal::executeCommand("OVTempPivot -e false", false, true);
    return "";
}

// The tools of a run. A new tool joins with one row.
const std::vector<Tool> tools{
    {"select objects", 3, [](Random& r) { return "select -r " + r.some(controls); }},
    {"pick keys", 3, [](Random& r) { return "selectKey -t \"" + r.range() + "\" " + r.some(channels); }},
    {"clear key picks", 1, [](Random&) { return std::string("selectKey -cl"); }},
    {"key blend", 8, keyBlend},
    {"key slider drag", 3, keySliderDrag},
    {"tangent blend", 3,
     [](Random& r) {
         return "OVTangentBlending -bt " + std::to_string(r.integer(0, 6)) + " -bv " + r.blendValue() + r.sides();
     }},
    {"tangent type", 2, [](Random& r) { return "OVTangent -bt " + std::to_string(r.integer(0, 6)) + r.sides(); }},
    {"snapshot", 1, [](Random& r) { return "OVSnapshot " + r.some(controls); }},
    {"reset pose", 2,
     [](Random& r) {
         static const std::vector<std::string> flags{"", " -t", " -r", " -s", " -t -r -s"};
         return "OVResetPose" + r.pick(flags);
     }},
    {"mirror", 2,
     [](Random& r) {
         static const std::vector<std::string> flags{"", "", " -fa", " -s"};
         return "OVMirror" + r.pick(flags);
     }},
    {"select opposite", 1,
     [](Random& r) {
         static const std::vector<std::string> flags{"", " -ao", " -dr", " -dl", " -dc", " -fp"};
         return "OVSelectOpposite" + r.pick(flags);
     }},
    {"set key", 3,
     [](Random& r) {
         return "setKeyframe -t " + r.number(0, 30, 0.5) + " -v " + r.number(-20, 20, 0.5) + " " + r.pick(channels);
     }},
    {"cut keys", 1, [](Random& r) { return "cutKey -cl -t \"" + r.range() + "\" " + r.pick(channels); }},
    {"edit key values", 2,
     [](Random& r) {
         return "keyframe -e -r -vc " + r.number(-5, 5, 0.5) + " -t \"" + r.range() + "\" " + r.pick(channels);
     }},
    {"move keys", 1,
     [](Random& r) {
         return "keyframe -e -r -tc " + std::to_string(r.integer(-3, 3)) + " -t \"" + r.range() + "\" "
                + r.pick(channels);
     }},
    {"current time", 2, [](Random& r) { return "currentTime " + r.number(0, 26, 0.5); }},
    {"selection set", 3,
     [](Random& r) {
         // Sets labelled "set" on the rig's controls: made, selected, changed, hidden, removed.
         const std::string set = " x1E" + std::to_string(r.integer(0, 2)) + "x1Eset";
         switch (r.integer(0, 4)) {
         case 0: return "OVSelectionSet set " + r.some(controls);
         case 1: return "OVSelectionSet -s " + std::to_string(r.integer(0, 2)) + set;
         case 2: return "OVSelectionSet -m " + std::to_string(r.integer(0, 2)) + set + " " + r.some(controls);
         case 3: return "OVSelectionSet -h " + std::to_string(r.integer(0, 1)) + set;
         default: return "OVSelectionSet -r" + set;
         }
     }},
    {"recovery restore", 1, [](Random&) { return std::string("OVAnimationRecovery -restore"); }},
    {"retime", 3,
     [](Random& r) {
         return "OVRetiming -v " + r.number(-6, 6, 0.5) + " -rt " + std::to_string(r.integer(0, 6))
                + (r.chance(0.5) ? " -j" : "");
     }},
    {"animation offset edit", 3, offsetEdit, 2},
    {"world-space copy", 1, [](Random&) { return std::string("OVXFormWorldSpace"); }},
    {"world-space paste", 2, [](Random&) { return std::string("OVXFormWorldSpace -p"); }},
    {"relationship copy", 1, [](Random& r) { return "OVRelationship " + r.pick(controls) + " " + r.pick(controls); }},
    {"relationship paste", 2, [](Random&) { return std::string("OVRelationship -p"); }},
    {"temporary pivot drag", 2, pivotDrag},
};

std::string undoName()
{
    MString name;
    MGlobal::executeCommand("undoInfo -q -un", name);
    return name.asChar();
}

const Tool& drawTool(Random& random)
{
    int total = 0;
    for (const Tool& tool : tools)
        total += tool.weight;
    int draw = random.integer(1, total);
    for (const Tool& tool : tools) {
        draw -= tool.weight;
        if (draw <= 0)
            return tool;
    }
    return tools.back();
}

// Why the scene is unsound, or empty when it is sound: every curve keeps
// its keys in strictly rising time with finite values and tangents, and the
// file text holds no infinite or undefined number.
std::string unsoundness(const std::string& text)
{
    static const std::regex badNumber(R"((^|[\s"])[-+]?(nan|inf)\b)", std::regex::icase);
    if (text.empty())
        return "the scene could not be written";
    if (std::regex_search(text, badNumber))
        return "the scene file holds an undefined or infinite number";
    for (MItDependencyNodes it(MFn::kAnimCurve); !it.isDone(); it.next()) {
        MFnAnimCurve curve(it.thisNode());
        const std::string name = curve.name().asChar();
        for (unsigned int i = 0; i < curve.numKeys(); ++i) {
            if (i > 0 && !(curve.time(i - 1) < curve.time(i)))
                return name + ": key times don't rise at key " + std::to_string(i);
            if (!std::isfinite(curve.value(i)))
                return name + ": value of key " + std::to_string(i) + " isn't finite";
            for (bool in : {true, false}) {
                MFnAnimCurve::TangentValue x = 0;
                MFnAnimCurve::TangentValue y = 0;
                curve.getTangent(i, x, y, in);
                if (!std::isfinite(x) || !std::isfinite(y))
                    return name + ": tangent of key " + std::to_string(i) + " isn't finite";
            }
        }
    }
    return "";
}

class UndoProperty : public DataFolderTest, public ::testing::WithParamInterface<unsigned int>
{
protected:
    void SetUp() override
    {
        DataFolderTest::SetUp();
        scriptsDir(); // snapshots land in this test's own data folder
        ASSERT_TRUE(MFileIO::open(ORVANE_TEST_DATA "/rig.ma", nullptr, true));
        // The scene's identity, which the first tool that needs it would
        // make outside the undo queue.
        ASSERT_FALSE(SceneId::manager().findOrCreateNode().isNull());
    }
};

TEST_P(UndoProperty, UndoAndRedoRetraceEveryStep)
{
    const int stepCount = 200;
    Random random(GetParam());
    // The scene after each recorded undo step, the first scene first.
    std::vector<std::string> scenes{sceneText()};
    ASSERT_EQ(unsoundness(scenes.front()), "");
    std::string log; // what ran, to replay a failure by hand
    for (int step = 0; step < stepCount; ++step) {
        const Tool& tool = drawTool(random);
        // One named chunk per step, so that a step is one undo entry, or
        // none when it changed nothing undoable; a row's later entries follow it.
        const std::string chunk = "step " + std::to_string(step);
        ASSERT_TRUE(mel("undoInfo -ock -cn \"" + chunk + "\""));
        const std::string command = tool.step(random);
        if (!command.empty())
            mel(command); // a step may fail, as long as the scene stays sound
        ASSERT_TRUE(mel("undoInfo -cck"));
        log += std::to_string(step) + " " + tool.name + ": " + command + "\n";

        const std::string text = sceneText();
        ASSERT_EQ(unsoundness(text), "") << log;
        // The scenes of the entries the step made, newest first: undone one
        // by one down to the step's own, then redone.
        std::vector<std::string> made;
        if (undoName() == chunk || text != scenes.back())
            made.push_back(text);
        while (!made.empty() && undoName() != chunk) {
            ASSERT_LT(made.size(), tool.undoSteps) << "a step changed the scene in more undo entries than its "
                                                      "row makes, or outside its own\n"
                                                   << log;
            ASSERT_TRUE(mel("undo"));
            made.push_back(sceneText());
        }
        for (size_t later = 1; later < made.size(); ++later)
            ASSERT_TRUE(mel("redo"));
        ASSERT_EQ(sceneText(), text) << "redo of a step's later entries\n" << log;
        scenes.insert(scenes.end(), made.rbegin(), made.rend());
    }

    for (size_t entry = scenes.size() - 1; entry > 0; --entry) {
        ASSERT_TRUE(mel("undo"));
        ASSERT_EQ(sceneText(), scenes[entry - 1]) << "undo of entry " << entry << "\n" << log;
    }
    for (size_t entry = 1; entry < scenes.size(); ++entry) {
        ASSERT_TRUE(mel("redo"));
        ASSERT_EQ(sceneText(), scenes[entry]) << "redo of entry " << entry << "\n" << log;
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, UndoProperty, ::testing::Values(1u, 2u, 3u, 4u));

} // namespace
