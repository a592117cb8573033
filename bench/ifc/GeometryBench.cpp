// Times of the geometry kernel: booleans a second, shells of many faces.
#include <benchmark/benchmark.h>

#include "workbench/ifc/geometry/Primitives.h"
#include "workbench/ifc/geometry/ShellCleaning.h"
#include "workbench/ifc/geometry/Subtraction.h"

namespace {

using namespace workbench::geometry;

/// A wall 5 m long with openings of 0.3 m in a row.
void CutOpenings(benchmark::State& state, const Body& opening) {
    const Body wall = Block(5.0, 0.2, 3.0);
    std::vector<Body> openings;
    openings.reserve(static_cast<std::size_t>(state.range(0)));
    for (int i = 0; i < state.range(0); ++i)
        openings.push_back(Transformed(opening, MoveBy({0.1 + 0.5 * (i % 10), -0.05, 0.1 + 0.5 * (i / 10 % 5)})));
    for (auto iteration : state) {
        static_cast<void>(iteration);
        benchmark::DoNotOptimize(SubtractOpenings(wall, openings));
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

void Windows(benchmark::State& state) {
    CutOpenings(state, Block(0.3, 0.3, 0.3));
}

void BoltHoles(benchmark::State& state) {
    CutOpenings(state, Transformed(Cylinder(0.15, 0.3), {{1, 0, 0}, {0, 0, 1}, {0, 1, 0}, {0.15, 0.0, 0.15}}));
}

/// A wavy slab of triangles, closed or without its underside.
Shell Slab(Index count, Index layers) {
    Shell slab;
    for (Index layer = 0; layer < layers; ++layer) {
        const auto first = static_cast<Index>(slab.points.size());
        for (Index i = 0; i <= count; ++i)
            for (Index j = 0; j <= count; ++j)
                slab.points.push_back({double(i), double(j), 0.5 * std::sin(i * 0.1) - layer});
        for (Index i = 0; i < count * count; ++i) {
            const Index a = first + i / count * (count + 1) + i % count;
            slab.faces.push_back({{{a, a + count + 1, a + count + 2}}});
            slab.faces.push_back({{{a, a + count + 2, a + 1}}});
        }
    }
    const Index below = (count + 1) * (count + 1);
    const auto addWall = [&](Index a, Index b) { slab.faces.push_back({{{a, b, b + below, a + below}}}); };
    for (Index i = 0; i < count && layers > 1; ++i) {
        addWall(i, i + 1);
        addWall(i + count * (count + 1), i + 1 + count * (count + 1));
        addWall(i * (count + 1), (i + 1) * (count + 1));
        addWall(i * (count + 1) + count, (i + 1) * (count + 1) + count);
    }
    return slab;
}

void CleanShell(benchmark::State& state) {
    const Shell slab = Slab(static_cast<Index>(state.range(0)), static_cast<Index>(state.range(1)));
    for (auto iteration : state) {
        static_cast<void>(iteration);
        benchmark::DoNotOptimize(MakeBody(slab));
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(slab.faces.size()));
}

BENCHMARK(Windows)->Arg(1)->Arg(10)->Arg(50)->Unit(benchmark::kMicrosecond);
BENCHMARK(BoltHoles)->Arg(1)->Arg(10)->Arg(50)->Unit(benchmark::kMicrosecond);
BENCHMARK(CleanShell)->Args({16, 2})->Args({224, 2})->Args({316, 1})->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
