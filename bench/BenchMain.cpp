#include <maya/MLibrary.h>

#include <benchmark/benchmark.h>

// Benchmarks start mayasim as a standalone Maya program does.
int main(int argc, char** argv)
{
    benchmark::Initialize(&argc, argv);
    if (!MLibrary::initialize(argv[0], true))
        return 1;
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    MLibrary::cleanup(0, false);
    return 0;
}
