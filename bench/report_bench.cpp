// "Update results" and the report by their parts, for two sizes of a building: only the calculation may grow with the
// elements.
#include "resources/ResourceIds.h"
#include "src/AddOnContext.h"
#include "src/LCAProjectDataStore.h"
#include "workbench/dialogs/RecordedContext.h"

#include "BenchBuilding.h"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <filesystem>

namespace {

using namespace ResourceIds;

struct Bench {
    explicit Bench(std::size_t elements) : context(host) {
        host.OpenProject(bench::MakeBuilding(elements), host::ProjectEvent::New);
        bench::GiveMaterialValues(host, 1.0);
        std::ignore = ChangeProjectData(host, context.projectData, [](lca::LCAProjectData& record) {
            record.standards = {{"Limit", 12}, {"Goal", 5}};
        });
        context.mainPalette.Open();
        host.dialogManager.alertAnswer = [](const host::Alert&) { return std::int16_t{2}; }; // the report stays closed
        host.userInput.fileAnswer = [this](const host::SaveFileQuestion&) { return std::optional(file); };
    }
    ~Bench() {
        context.mainPalette.Close();
        std::filesystem::remove(file);
    }

    workbench::WorkbenchHost host;
    AddOnContext context;
    const std::string file = (std::filesystem::temp_directory_path() / "kelvarnix-report-bench.xlsx").string();
};

Bench& GetBench(benchmark::State& state) {
    static std::map<std::int64_t, std::unique_ptr<Bench>> benches;
    std::unique_ptr<Bench>& bench = benches[state.range(0)];
    if (!bench) bench = std::make_unique<Bench>(static_cast<std::size_t>(state.range(0)));
    return *bench;
}

void Calculation(benchmark::State& state) {
    Bench& bench = GetBench(state);
    for (auto iteration : state) {
        static_cast<void>(iteration);
        bench.context.mainPalette.CollectElementGWP();
    }
}

void Table(benchmark::State& state) {
    Bench& bench = GetBench(state);
    for (auto iteration : state) {
        static_cast<void>(iteration);
        bench.context.mainPalette.RebuildTable(MainPalette::Rebuild::AllRows);
    }
}

void Drawing(benchmark::State& state) {
    Bench& bench = GetBench(state);
    for (auto iteration : state) {
        static_cast<void>(iteration);
        for (const std::int16_t chart : {PaletteItems::PieChart, PaletteItems::BarChart}) {
            workbench::RecordedContext context;
            host::DialogMessageData data;
            data.area = {0, 0, 520, 230};
            data.context = &context;
            bench.context.mainPalette.HandleDialogMessage(host::DialogMessage::UserItemUpdate,
                                                          bench.context.mainPalette.GetDialog(), chart, data);
            benchmark::DoNotOptimize(context.calls.data());
        }
    }
}

/// Without pictures, which the workbench's painter would draw.
void Report(benchmark::State& state) {
    Bench& bench = GetBench(state);
    const host::DialogId palette = bench.context.mainPalette.GetDialog();
    for (auto iteration : state) {
        static_cast<void>(iteration);
        bench.host.dialogManager.shownAlerts.clear();
        bench.host.dialogManager.Press(palette, PaletteItems::ReportButton);
    }
    if (bench.host.dialogManager.shownAlerts.empty() ||
        bench.host.dialogManager.shownAlerts.back().type != host::AlertType::Information)
        state.SkipWithError("no report was written");
}

BENCHMARK(Calculation)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMillisecond);
BENCHMARK(Table)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMillisecond);
BENCHMARK(Drawing)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMillisecond);
BENCHMARK(Report)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    bench::RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    for (const char* part : {"Calculation", "Table", "Drawing", "Report"})
        reporter.PrintRatio((std::string(part) + ", 100,000 / 10,000 elements").c_str(), std::string(part) + "/100000",
                            std::string(part) + "/10000");
    return 0;
}
