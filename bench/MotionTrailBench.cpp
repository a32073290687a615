// Motion trails' costs on a rig of 60 joints in six chains 10 deep, keyed
// over the playback range: one idle tick (one frame of one trail), the full
// fill of 10 trails over 250 to 1,000 frames (linear in frames times
// trails), a key edit with 0 and 10 trails (the marking), and the key
// slider's blend step with a trail on beside off.
#include "BenchScene.h"
#include "MotionTrail/Manager.h"

#include <maya/MAnimCurveChange.h>
#include <maya/MFnAnimCurve.h>
#define MNoVersionString // the plug-in emits the version symbols
#include <maya/MFnPlugin.h>

#include <benchmark/benchmark.h>

#include <cmath>
#include <optional>
#include <string>
#include <vector>

namespace {

void loadPlugin()
{
    static const bool loaded = mayasim::host::loadLinkedPlugin("orvane", initializePlugin, uninitializePlugin);
    (void)loaded;
}

std::string joint(int chain, int depth) { return "j" + std::to_string(chain) + "_" + std::to_string(depth); }

// Six chains of 10 joints, each joint one unit from its parent with rz and
// tx keyed every 10 frames over 1..frames; the playback range 1..frames, the
// current time in its middle. Returns the curves.
std::vector<MObject> buildRig(int frames)
{
    loadPlugin();
    MGlobal::executeCommand("OVMotionTrail -deleteAll");
    MFileIO::newFile(true);
    std::vector<MObject> curves;
    for (int c = 0; c < 6; ++c) {
        for (int d = 0; d < 10; ++d) {
            const std::string name = joint(c, d);
            std::string create = "createNode joint -n " + name;
            if (d > 0)
                create += " -p " + joint(c, d - 1);
            MGlobal::executeCommand(create.c_str());
            MGlobal::executeCommand(("setAttr " + name + ".tx 1").c_str());
            MSelectionList named;
            named.add(name.c_str());
            MObject node;
            named.getDependNode(0, node);
            for (const char* channel : {"rz", "ty"}) {
                MFnAnimCurve curve;
                curves.push_back(curve.create(MFnDependencyNode(node).findPlug(channel, false)));
                for (int f = 1; f <= frames; f += 10)
                    curve.addKey(MTime(f, MTime::uiUnit()), std::sin(f * 0.05 + c + d) * 0.3);
            }
        }
    }
    const std::string range = "playbackOptions -min 1 -max " + std::to_string(frames) + "; currentTime " +
                              std::to_string(frames / 2);
    MGlobal::executeCommand(range.c_str());
    return curves;
}

// Trails on the tips of the chains, then on the joints below them.
void addTrails(int trails)
{
    std::string objects;
    for (int t = 0; t < trails; ++t)
        objects += " " + joint(t % 6, 9 - t / 6);
    MGlobal::executeCommand(("OVMotionTrail" + objects).c_str());
}

void drain()
{
    while (MotionTrail::Manager::instance().hasPendingWork())
        mayasim::host::pumpIdle();
}

// One tick: one frame of a trail on a chain's tip, 10 joints deep, read at
// another time. A trail made anew starts each fill.
void MotionTrailIdleTick(benchmark::State& state)
{
    buildRig(1000);
    for (auto _ : state) {
        if (!MotionTrail::Manager::instance().hasPendingWork()) {
            state.PauseTiming();
            MGlobal::executeCommand("OVMotionTrail -deleteAll");
            addTrails(1);
            state.ResumeTiming();
        }
        mayasim::host::pumpIdle();
    }
    MGlobal::executeCommand("OVMotionTrail -deleteAll");
}
BENCHMARK(MotionTrailIdleTick)->Unit(benchmark::kMicrosecond);

// Every frame of the range for 10 trails, tick after tick until the queue
// is empty: per item, one frame of one trail.
void MotionTrailFullFill(benchmark::State& state)
{
    const int frames = static_cast<int>(state.range(0)), trails = static_cast<int>(state.range(1));
    buildRig(frames);
    for (auto _ : state) {
        state.PauseTiming();
        MGlobal::executeCommand("OVMotionTrail -deleteAll");
        addTrails(trails);
        state.ResumeTiming();
        drain();
    }
    MGlobal::executeCommand("OVMotionTrail -deleteAll");
    state.SetItemsProcessed(state.iterations() * frames * trails);
}
BENCHMARK(MotionTrailFullFill)
    ->Args({250, 10})
    ->Args({500, 10})
    ->Args({1000, 10})
    ->Unit(benchmark::kMillisecond);

// One key edit through the API on a chain without trails, with 0 and 10
// trails (filled) over 1,000 and 10,000 frames: the difference is the
// marking every trail does.
void MotionTrailKeyEdit(benchmark::State& state)
{
    const int frames = static_cast<int>(state.range(0)), trails = static_cast<int>(state.range(1));
    const std::vector<MObject> curves = buildRig(frames);
    if (trails > 0) {
        addTrails(trails);
        drain();
    }
    // The last chain's curves: no trail's object or parent moves.
    MAnimCurveChange change;
    const size_t first = curves.size() - 20;
    size_t next = first;
    double x = 0;
    for (auto _ : state) {
        MFnAnimCurve fn(curves[next]);
        fn.setValue(5, x, &change);
        MAnimMessage::flushAnimKeyframeEditedCallbacks(); // as the idle tick after the edit
        next = next + 1 < curves.size() ? next + 1 : first;
        x += 0.01;
    }
    MGlobal::executeCommand("OVMotionTrail -deleteAll");
}
BENCHMARK(MotionTrailKeyEdit)
    ->Args({1000, 0})
    ->Args({1000, 10})
    ->Args({10000, 0})
    ->Args({10000, 10})
    ->Unit(benchmark::kMicrosecond);

// The key slider's drag as the panel runs it, Tween Machine over 1,000 and
// 10,000 keys (100 keys a curve): without (0) and with (1) a trail on the
// first object, and with a keyframe-edited callback that only counts (2).
void KeySliderStepWithTrail(benchmark::State& state)
{
    loadPlugin();
    MGlobal::executeCommand("OVMotionTrail -deleteAll");
    const int keys = static_cast<int>(state.range(0));
    buildScene(keys / 100, 1, 100);
    MGlobal::executeCommand("playbackOptions -min 1 -max 100; currentTime 50");
    if (state.range(1) == 1) {
        MGlobal::executeCommand("OVMotionTrail obj0");
        drain();
    }
    std::optional<CountingListener> listener;
    if (state.range(1) == 2)
        listener.emplace(static_cast<CountingListener::Add>(MAnimMessage::addAnimKeyframeEditedCallback));
    keySliderSteps(state);
    MGlobal::executeCommand("OVMotionTrail -deleteAll");
    state.SetItemsProcessed(state.iterations() * keys);
    if (listener)
        state.counters["deltasPerKey"] = listener->count() / (static_cast<double>(state.iterations()) * keys);
}
BENCHMARK(KeySliderStepWithTrail)
    ->Args({1000, 0})
    ->Args({1000, 1})
    ->Args({1000, 2})
    ->Args({10000, 0})
    ->Args({10000, 1})
    ->Args({10000, 2})
    ->Unit(benchmark::kMicrosecond);

} // namespace
