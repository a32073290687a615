// The opposite lookup as the auto-select callback pays it on every selection
// change: a control without an opposite tries all twenty token rows on three
// name forms, each a name lookup. Beside it one name lookup of mayasim's, so
// that the lookup's cost shows as a multiple of Maya's own.
#include "BenchScene.h"
#include "SelectOpposite/Manager.h"

#include <maya/MFileIO.h>
#include <maya/MGlobal.h>
#include <maya/MSelectionList.h>

#include <benchmark/benchmark.h>

#include <string>

namespace {

// Pairs of arm controls under one body control, and as many centre controls.
void buildRig(int pairs)
{
    MFileIO::newFile(true);
    std::string script = "createNode transform -n body_ctrl;";
    for (int i = 0; i < pairs; ++i) {
        const std::string n = std::to_string(i);
        script += "createNode transform -p body_ctrl -n arm" + n + "_L_ctrl;";
        script += "createNode transform -p body_ctrl -n arm" + n + "_R_ctrl;";
        script += "createNode transform -p body_ctrl -n spine" + n + "_ctrl;";
    }
    MGlobal::executeCommand(script.c_str());
}

MSelectionList named(const std::string& names)
{
    MSelectionList list;
    size_t start = 0;
    while (start < names.size()) {
        const size_t end = names.find(' ', start);
        list.add(names.substr(start, end - start).c_str());
        start = end == std::string::npos ? names.size() : end + 1;
    }
    return list;
}

void NameLookup(benchmark::State& state)
{
    buildRig(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        MSelectionList list;
        benchmark::DoNotOptimize(list.add("spine0_ctrl"));
    }
}
BENCHMARK(NameLookup)->Arg(10)->Arg(300)->Unit(benchmark::kMicrosecond);

// The worst case: no opposite, every row and name form tried.
void OppositeOfCentre(benchmark::State& state)
{
    buildRig(static_cast<int>(state.range(0)));
    MObject centre;
    named("spine0_ctrl").getDependNode(0, centre);
    for (auto _ : state)
        benchmark::DoNotOptimize(SelectOpposite::oppositeByName(centre));
}
BENCHMARK(OppositeOfCentre)->Arg(10)->Arg(300)->Unit(benchmark::kMicrosecond);

// What one selection change costs with auto-select on: the pairs file read
// and the opposites of five left controls and five centre ones.
void AutoSelectStep(benchmark::State& state)
{
    const ThrowawayHome home;
    buildRig(static_cast<int>(state.range(0)));
    const MSelectionList selection = named("arm0_L_ctrl arm1_L_ctrl arm2_L_ctrl arm3_L_ctrl arm4_L_ctrl spine0_ctrl "
                                           "spine1_ctrl spine2_ctrl spine3_ctrl spine4_ctrl");
    const SelectOpposite::Manager manager;
    for (auto _ : state)
        benchmark::DoNotOptimize(manager.oppositeSelection(selection, 1));
    state.SetItemsProcessed(state.iterations() * selection.length());
}
BENCHMARK(AutoSelectStep)->Arg(10)->Arg(300)->Unit(benchmark::kMicrosecond);

} // namespace
