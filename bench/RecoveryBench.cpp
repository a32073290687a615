// Animation recovery's costs: what a key edit pays while recording (marking
// its curve), what one idle tick pays on a 500-curve rig (encoding one curve,
// or writing the burst's file), and the key slider's blend step with
// recording on beside off. Each runs on a scene saved in a throwaway data
// folder, as recovery writes only for a scene with a file.
#include "BenchScene.h"

#include <maya/MAnimCurveChange.h>
#include <maya/MFnAnimCurve.h>
#define MNoVersionString // the plug-in emits the version symbols
#include <maya/MFnPlugin.h>

#include <benchmark/benchmark.h>

#include <QDir>

#include <algorithm>
#include <chrono>
#include <ctime>
#include <optional>
#include <vector>

namespace {

// The plug-in loaded once, into a home of its own.
const ThrowawayHome& session()
{
    static const ThrowawayHome home;
    static const bool loaded = [] {
        QDir().mkpath(home.path() + QStringLiteral("/Documents/maya/scripts"));
        return mayasim::host::loadLinkedPlugin("orvane", initializePlugin, uninitializePlugin);
    }();
    (void)loaded;
    return home;
}

// A rig of `objects` controls with keyed channels, saved; recording as asked.
std::vector<MObject> savedRig(int objects, int channels, int keys, bool recording)
{
    const QString scene = session().path() + QStringLiteral("/rig.ma");
    MGlobal::executeCommand("OVAnimationRecovery -enable false");
    std::vector<MObject> curves = buildScene(objects, channels, keys);
    MFileIO::saveAs(scene.toUtf8().constData(), "mayaAscii", true);
    if (recording)
        MGlobal::executeCommand("OVAnimationRecovery -enable true");
    return curves;
}

struct Tick
{
    double wall = 0; // µs, with the wait for the disk
    double cpu = 0;  // µs of this process's own work
};

// Ticks idle until recovery has nothing left, when its idle callback goes;
// the time of each tick.
std::vector<Tick> drain()
{
    std::vector<Tick> ticks;
    for (size_t before = 0; ticks.size() < 100000 && mayasim::host::callbackCount() >= before;) {
        before = mayasim::host::callbackCount();
        const auto start = std::chrono::steady_clock::now();
        const std::clock_t cpuStart = std::clock();
        mayasim::host::pumpIdle();
        ticks.push_back({std::chrono::duration<double, std::micro>(std::chrono::steady_clock::now() - start).count(),
                         (std::clock() - cpuStart) * 1e6 / CLOCKS_PER_SEC});
    }
    return ticks;
}

// Curves of a 500-curve rig edited at once, 10 of them (a pose) or all
// (a blend over the whole rig), then saved tick by tick: one curve encoded a
// tick, then one file. Arguments: keys a curve, curves edited. Iteration
// time is the whole save; the counters give the mean tick and the longest
// (the file's write).
void RecoveryIdleTick(benchmark::State& state)
{
    const std::vector<MObject> rig = savedRig(50, 10, static_cast<int>(state.range(0)), true);
    const std::vector<MObject> curves(rig.begin(), rig.begin() + state.range(1));
    double longest = 0, longestCpu = 0, total = 0, count = 0;
    for (auto _ : state) {
        MAnimCurveChange change;
        for (const MObject& curve : curves) {
            MFnAnimCurve fn(curve);
            fn.setValue(0, fn.value(0) + 1.0, &change);
        }
        const std::vector<Tick> ticks = drain();
        double sum = 0;
        for (const Tick& tick : ticks) {
            sum += tick.wall;
            longest = std::max(longest, tick.wall);
            longestCpu = std::max(longestCpu, tick.cpu);
        }
        state.SetIterationTime(sum / 1e6);
        total += sum;
        count += static_cast<double>(ticks.size());
    }
    state.counters["mean_tick_us"] = total / count;
    state.counters["longest_tick_us"] = longest;
    state.counters["longest_tick_cpu_us"] = longestCpu;
    state.counters["ticks"] = count / static_cast<double>(state.iterations());
}
BENCHMARK(RecoveryIdleTick)
    ->Args({24, 10})
    ->Args({24, 500})
    ->Args({100, 10})
    ->Args({100, 500})
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

// One key edit through the API, recording off (0) and on (1): the difference
// is what recovery adds to an edit, the marking of its curve.
void RecoveryKeyEdit(benchmark::State& state)
{
    const std::vector<MObject> curves = savedRig(50, 10, 24, state.range(0) != 0);
    MAnimCurveChange change;
    size_t next = 0;
    double x = 0;
    for (auto _ : state) {
        MFnAnimCurve fn(curves[next]);
        fn.setValue(3, x, &change);
        MAnimMessage::flushAnimKeyframeEditedCallbacks(); // as the idle tick after the edit
        next = (next + 1) % curves.size();
        x += 0.01;
    }
    MGlobal::executeCommand("OVAnimationRecovery -enable false");
}
BENCHMARK(RecoveryKeyEdit)->Arg(0)->Arg(1)->Unit(benchmark::kMicrosecond);

// The key slider's drag as the panel runs it: OVKeyBlending -internal, then
// Tween Machine steps through the published blend, over 1,000 and 10,000
// keys (100 keys a curve): recording off (0) and on (1), and off with a
// curve-edited callback that only counts (2).
void KeySliderStepWithRecovery(benchmark::State& state)
{
    const int keys = static_cast<int>(state.range(0));
    savedRig(keys / 100, 1, 100, state.range(1) == 1);
    std::optional<CountingListener> listener;
    if (state.range(1) == 2)
        listener.emplace(static_cast<CountingListener::Add>(MAnimMessage::addAnimCurveEditedCallback));
    keySliderSteps(state);
    MGlobal::executeCommand("OVAnimationRecovery -enable false");
    state.SetItemsProcessed(state.iterations() * keys);
}
BENCHMARK(KeySliderStepWithRecovery)
    ->Args({1000, 0})
    ->Args({1000, 1})
    ->Args({1000, 2})
    ->Args({10000, 0})
    ->Args({10000, 1})
    ->Args({10000, 2})
    ->Unit(benchmark::kMicrosecond);

} // namespace
