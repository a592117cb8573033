// The building materials dialog with 5,000 materials, as a user works in it: opening, filtering by a letter, editing
// all. Beside each stands the bare work that it cannot do without.
#include "resources/ResourceIds.h"
#include "src/AddOnContext.h"
#include "src/LCASchema.h"

#include "workbench/model/NewProject.h"

#include "BenchBuilding.h"

#include <benchmark/benchmark.h>

namespace {

using namespace ResourceIds;
using namespace ResourceIds::BuildingMaterialsItems;

constexpr int Materials = 5000;

/// A project of many materials, all with values, in a host on which the dialog can be opened.
struct Bench {
    Bench() : context(host) {
        std::unique_ptr<workbench::Project> project = workbench::CreateProject();
        for (int i = 0; i < Materials; ++i) {
            host::BuildingMaterial material;
            // Names in no order: the digits run backwards.
            std::string digits = std::to_string(100000 + i);
            material.name.assign(digits.rbegin(), digits.rend()).append(" Material ").append(std::to_string(i % 97));
            material.id = std::to_string(i);
            project->model.AddBuildingMaterial(material);
        }
        host.OpenProject(std::move(project), host::ProjectEvent::New);
        std::ignore = EnsureSchema(host);
        bench::GiveMaterialValues(host, 1.0);
    }

    void InDialog(const std::function<void(host::DialogId)>& work) {
        host.dialogManager.modalUser = work;
        context.buildingMaterialsDialog.Run(context.projectData);
        host.dialogManager.modalUser = nullptr;
    }

    workbench::WorkbenchHost host;
    AddOnContext context;
};

Bench& GetBench() {
    static Bench bench;
    return bench;
}

int CountClearings(host::DialogId dialog, std::int16_t list) {
    return GetBench().host.openDialogs.FindItem(dialog, list)->list.clearings;
}

void Open(benchmark::State& state) {
    Bench& bench = GetBench();
    int fills = 0;
    for (auto iteration : state) {
        static_cast<void>(iteration);
        bench.InDialog([&](host::DialogId dialog) { fills = CountClearings(dialog, MaterialList); });
    }
    state.counters["list fills"] = fills;
}

void FilterByALetter(benchmark::State& state) {
    Bench& bench = GetBench();
    int before = 0, after = 0;
    bench.InDialog([&](host::DialogId dialog) {
        for (auto iteration : state) {
            static_cast<void>(iteration);
            before = CountClearings(dialog, MaterialList);
            bench.host.dialogManager.Type(dialog, FilterEdit, "m");
            after = CountClearings(dialog, MaterialList);
        }
    });
    state.counters["list fills"] = after - before;
}

void EditAll(benchmark::State& state) {
    Bench& bench = GetBench();
    int before = 0, after = 0;
    bench.InDialog([&](host::DialogId dialog) {
        std::vector<std::int32_t> rows;
        for (std::int32_t row = 1; row <= Materials; ++row)
            rows.push_back(row);
        bench.host.dialogManager.SelectRows(dialog, MaterialList, rows);
        bench.host.dialogManager.SelectRows(dialog, PhaseList, {1});
        int value = 0;
        for (auto iteration : state) {
            static_cast<void>(iteration);
            before = CountClearings(dialog, MaterialList);
            bench.host.dialogManager.TypeIntoCell(dialog, PhaseList, 2, std::to_string(++value));
            after = CountClearings(dialog, MaterialList);
        }
    });
    state.counters["list fills"] = after - before;
}

/// OK after an edit of all: one undoable command.
void StoreAll(benchmark::State& state) {
    Bench& bench = GetBench();
    static int value = 0; // the same value again would be nothing to store
    for (auto iteration : state) {
        static_cast<void>(iteration);
        bench.InDialog([&](host::DialogId dialog) {
            std::vector<std::int32_t> rows;
            for (std::int32_t row = 1; row <= Materials; ++row)
                rows.push_back(row);
            bench.host.dialogManager.SelectRows(dialog, MaterialList, rows);
            bench.host.dialogManager.Type(dialog, ServiceLifeEdit, std::to_string(++value));
            bench.host.dialogManager.Press(dialog, OkButton);
        });
        if (bench.context.buildingMaterialsDialog.ApplyResults() != host::NoError) state.SkipWithError("not stored");
    }
}

/// The host's part of opening: every material and its values, read once.
void ReadAllValues(benchmark::State& state) {
    Bench& bench = GetBench();
    for (auto iteration : state) {
        static_cast<void>(iteration);
        MaterialRecords records(bench.host);
        records.Load();
        benchmark::DoNotOptimize(records.GetCount());
    }
}

BENCHMARK(StoreAll)->Unit(benchmark::kMillisecond); // first, so that every material has values of its own
BENCHMARK(ReadAllValues)->Unit(benchmark::kMillisecond);
BENCHMARK(Open)->Unit(benchmark::kMillisecond);
BENCHMARK(FilterByALetter)->Unit(benchmark::kMillisecond);
BENCHMARK(EditAll)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    bench::RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    for (const char* step : {"Open", "FilterByALetter", "EditAll", "StoreAll"})
        reporter.PrintRatio(step, step, "ReadAllValues");
    return 0;
}
