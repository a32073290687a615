// Simplify Bake Keys on one long baked curve: the press (collection, sort by
// deviation, gap list), one step left at full drag (two thirds of the keys
// go) and one step right (a key in every gap of a curve baked on twos).
// Both steps run on a fresh press each time, and are undone untimed.
#include "KeyBlending/Data.h"

#include <maya/MFileIO.h>
#include <maya/MFnAnimCurve.h>
#include <maya/MFnDependencyNode.h>
#include <maya/MGlobal.h>
#include <maya/MSelectionList.h>
#include <mayasim/Host.h>

#include <benchmark/benchmark.h>

#include <cmath>
#include <memory>
#include <random>

namespace {

constexpr int Simplify = 16;

// A noisy sine keyed on every other frame, selected, the whole range highlighted.
MSelectionList bakeCurve(int keys)
{
    MFileIO::newFile(true);
    MGlobal::executeCommand("createNode transform -n baked");
    MSelectionList selection;
    selection.add("baked");
    MObject node;
    selection.getDependNode(0, node);
    MFnAnimCurve curve;
    curve.create(MFnDependencyNode(node).findPlug("tx", false));
    std::mt19937 random(3);
    std::uniform_real_distribution<double> noise(-0.5, 0.5);
    for (int k = 0; k < keys; ++k)
        curve.addKey(MTime(1.0 + 2.0 * k, MTime::uiUnit()), 10.0 * std::sin(k * 0.05) + noise(random));
    MGlobal::setActiveSelectionList(selection);
    mayasim::host::setTimeSliderHighlight(1, 2.0 * keys - 1);
    return selection;
}

std::unique_ptr<KeyBlending::Data> press(const MSelectionList& selection)
{
    auto data = std::make_unique<KeyBlending::Data>();
    data->setBlendType(Simplify);
    data->collect(selection);
    return data;
}

void Prepare(benchmark::State& state)
{
    const int keys = static_cast<int>(state.range(0));
    const MSelectionList selection = bakeCurve(keys);
    for (auto _ : state)
        benchmark::DoNotOptimize(press(selection));
    state.SetItemsProcessed(state.iterations() * keys);
}
BENCHMARK(Prepare)->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);

void Step(benchmark::State& state, double x)
{
    const int keys = static_cast<int>(state.range(0));
    const MSelectionList selection = bakeCurve(keys);
    for (auto _ : state) {
        state.PauseTiming();
        std::unique_ptr<KeyBlending::Data> data = press(selection);
        state.ResumeTiming();
        data->blend(x);
        state.PauseTiming();
        data->animCurveChange().undoIt();
        data.reset();
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations() * keys);
}

void StepLeft(benchmark::State& state) { Step(state, -1.0); }
BENCHMARK(StepLeft)->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);

void StepRight(benchmark::State& state) { Step(state, 1.0); }
BENCHMARK(StepRight)->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);

} // namespace
