// Retiming a large set of curves: 20 curves of n keys each on two objects,
// every key behind the current frame moved. Beside it, mayasim's own
// `keyframe -e -r -tc` moving the same keys, so the plug-in's overhead
// shows as a ratio. Each run is undone untimed.
#include <maya/MFileIO.h>
#include <maya/MFnAnimCurve.h>
#include <maya/MFnDependencyNode.h>
#include <maya/MGlobal.h>
#include <maya/MSelectionList.h>
#define MNoVersionString // the plug-in emits the version symbols
#include <maya/MFnPlugin.h>
#include <mayasim/Host.h>

#include <benchmark/benchmark.h>

#include <string>

namespace {

constexpr int Curves = 20;
const char* const Channels[] = {"tx", "ty", "tz", "rx", "ry", "rz", "sx", "sy", "sz", "v"};

// Keys on every other frame from frame 1, on 20 channels of two objects,
// both selected, the current time on the first key.
void keyedScene(int keys)
{
    MFileIO::newFile(true);
    MGlobal::executeCommand("createNode transform -n a; createNode transform -n b; select -r a b; currentTime 1");
    MSelectionList nodes;
    nodes.add("a");
    nodes.add("b");
    for (int c = 0; c < Curves; ++c) {
        MObject node;
        nodes.getDependNode(static_cast<unsigned int>(c / 10), node);
        MFnAnimCurve curve;
        curve.create(MFnDependencyNode(node).findPlug(Channels[c % 10], false));
        for (int k = 0; k < keys; ++k)
            curve.addKey(MTime(1.0 + 2.0 * k, MTime::uiUnit()), static_cast<double>(k % 7));
    }
    mayasim::host::clearTimeSliderHighlight();
}

void run(benchmark::State& state, const std::string& command)
{
    static const bool loaded = mayasim::host::loadLinkedPlugin("orvane", initializePlugin, uninitializePlugin);
    if (!loaded) {
        state.SkipWithError("the plug-in didn't load");
        return;
    }
    const int keys = static_cast<int>(state.range(0));
    keyedScene(keys);
    for (auto _ : state) {
        MGlobal::executeCommand(command.c_str(), false, true);
        state.PauseTiming();
        MGlobal::executeCommand("undo", false, false);
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations() * keys * Curves);
}

// Insert inbetween at the first key: a plan per curve, every later key rippled.
void Ripple(benchmark::State& state) { run(state, "OVRetiming -v 2 -rt 3"); }
BENCHMARK(Ripple)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);

// Fixed gaps from the first key: the first gap set, the rest pushed along.
void FixedGaps(benchmark::State& state) { run(state, "OVRetiming -v 3 -rt 6"); }
BENCHMARK(FixedGaps)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);

// All keys of the objects shifted.
void ShiftAll(benchmark::State& state) { run(state, "OVRetiming -v 2 -rt 1"); }
BENCHMARK(ShiftAll)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);

// The same keys moved by Maya's own command.
void KeyframeCommand(benchmark::State& state) { run(state, "keyframe -e -r -tc 2 a b"); }
BENCHMARK(KeyframeCommand)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);

} // namespace
