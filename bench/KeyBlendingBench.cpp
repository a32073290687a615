// The blend step runs at every mouse move of the slider: Tween Machine,
// Neighbors, Ease, Value Offset and World Space over many keys, beside the bare
// MFnAnimCurve::setValue loop they are built on; and the press (collection)
// over many animated channels.
#include "BenchScene.h"
#include "KeyBlending/Data.h"

#include <maya/MAnimCurveChange.h>
#include <maya/MFnAnimCurve.h>
#include <maya/MGlobal.h>
#include <maya/MSelectionList.h>

#include <benchmark/benchmark.h>

#include <vector>

namespace {

void shapeArgs(benchmark::internal::Benchmark* bench)
{
    // Total keys 1k, 10k, 100k: as many short curves of a rig (100 keys each)
    // and as few long ones (10 curves).
    for (int total : {1000, 10000, 100000}) {
        bench->Args({total / 100, 100});
        bench->Args({10, total / 10});
    }
}

// One blend type's step over the scene, from a single press.
void BlendStep(benchmark::State& state, int blendType, int channelsPerObject = 1)
{
    const int curves = static_cast<int>(state.range(0)) * channelsPerObject;
    const int keys = static_cast<int>(state.range(1));
    buildScene(static_cast<int>(state.range(0)), channelsPerObject, keys);
    KeyBlending::Data data;
    MSelectionList selection;
    MGlobal::getActiveSelectionList(selection);
    data.setBlendType(blendType);
    data.collect(selection);
    double x = -1.0;
    for (auto _ : state) {
        data.blend(x);
        x = x > 1.0 ? -1.0 : x + 0.01;
    }
    data.finish();
    state.SetItemsProcessed(state.iterations() * curves * keys);
}

void TweenMachineStep(benchmark::State& state) { BlendStep(state, 0); }
BENCHMARK(TweenMachineStep)->Apply(shapeArgs)->Unit(benchmark::kMicrosecond);

void NeighborsStep(benchmark::State& state) { BlendStep(state, 1); }
BENCHMARK(NeighborsStep)->Apply(shapeArgs)->Unit(benchmark::kMicrosecond);

void EaseStep(benchmark::State& state) { BlendStep(state, 10); }
BENCHMARK(EaseStep)->Apply(shapeArgs)->Unit(benchmark::kMicrosecond);

// Each key reads the resting duplicate once (evaluate) and copies its
// tangents from it.
void ValueOffsetStep(benchmark::State& state) { BlendStep(state, 22); }
BENCHMARK(ValueOffsetStep)->Apply(shapeArgs)->Unit(benchmark::kMicrosecond);

// World Space on objects with their nine transform channels keyed: a pose
// blend per key time and the parent's inverse at that time, at each step.
void WorldSpaceStep(benchmark::State& state) { BlendStep(state, 4, 9); }
BENCHMARK(WorldSpaceStep)
    ->Args({10, 100})
    ->Args({100, 100})
    ->Args({1, 1000})
    ->Args({1, 10000})
    ->Unit(benchmark::kMillisecond);

// Every key of every curve set once, as a blend step does.
void setEveryValue(const std::vector<MObject>& curves, int keys, double x, MAnimCurveChange& change)
{
    for (const MObject& curve : curves) {
        MFnAnimCurve fn(curve);
        for (int k = 0; k < keys; ++k)
            fn.setValue(static_cast<unsigned int>(k), x, &change);
    }
}

// All passes recorded in one change, as a drag records its steps.
void BareSetValueLoop(benchmark::State& state)
{
    const int curveCount = static_cast<int>(state.range(0));
    const int keys = static_cast<int>(state.range(1));
    const std::vector<MObject> curves = buildScene(curveCount, 1, keys);
    MAnimCurveChange change;
    double x = -1.0;
    for (auto _ : state) {
        setEveryValue(curves, keys, x, change);
        x = x > 1.0 ? -1.0 : x + 0.01;
    }
    state.SetItemsProcessed(state.iterations() * curveCount * keys);
}
BENCHMARK(BareSetValueLoop)->Apply(shapeArgs)->Unit(benchmark::kMicrosecond);

// Each pass in a change of its own, which records every key for the first
// time: what the change log's growth costs.
void BareSetValueLoopFreshChange(benchmark::State& state)
{
    const int curveCount = static_cast<int>(state.range(0));
    const int keys = static_cast<int>(state.range(1));
    const std::vector<MObject> curves = buildScene(curveCount, 1, keys);
    double x = -1.0;
    for (auto _ : state) {
        MAnimCurveChange change;
        setEveryValue(curves, keys, x, change);
        x = x > 1.0 ? -1.0 : x + 0.01;
    }
    state.SetItemsProcessed(state.iterations() * curveCount * keys);
}
BENCHMARK(BareSetValueLoopFreshChange)->Args({1000, 100})->Args({10, 10000})->Unit(benchmark::kMicrosecond);

// The press: one collection over N animated channels (10 per object).
void CollectAtPress(benchmark::State& state)
{
    const int channelCount = static_cast<int>(state.range(0));
    buildScene(channelCount / 10, 10, 10);
    MSelectionList selection;
    MGlobal::getActiveSelectionList(selection);
    for (auto _ : state) {
        KeyBlending::Data data;
        data.collect(selection);
        benchmark::DoNotOptimize(data.nodes().size());
    }
    state.SetItemsProcessed(state.iterations() * channelCount);
}
BENCHMARK(CollectAtPress)->Arg(100)->Arg(1000)->Unit(benchmark::kMillisecond);

} // namespace
