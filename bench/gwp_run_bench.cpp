// The run of the calculation over a large building through the host interface, beside a bare loop over the same
// numbers.
#include "lca/GWPCalculation.h"
#include "src/GWPRun.h"

#include "BenchBuilding.h"

#include <benchmark/benchmark.h>

#include <map>
#include <unordered_map>

namespace {

using namespace bench;

/// Opened once for all iterations: the schema, values for every material, no values of elements.
workbench::WorkbenchHost& GetHost(std::size_t elements) {
    static std::map<std::size_t, std::unique_ptr<workbench::WorkbenchHost>> hosts;
    std::unique_ptr<workbench::WorkbenchHost>& host = hosts[elements];
    if (host) return *host;
    host = std::make_unique<workbench::WorkbenchHost>();
    host->OpenProject(MakeBuilding(elements), host::ProjectEvent::New);
    GiveMaterialValues(*host, 1.0);
    return *host;
}

void RunThroughHost(benchmark::State& state) {
    const auto elements = static_cast<std::size_t>(state.range(0));
    workbench::WorkbenchHost& host = GetHost(elements);
    lca::LCAProjectData record;
    lca::MaterialSumTable table;
    lca::BaseSums sums;
    for (auto iteration : state) {
        static_cast<void>(iteration);
        if (RunGWPCalculation(host, record, table, sums) != RunOutcome::Whole) state.SkipWithError("the run failed");
    }
    if (sums.buildingComponents <= 0.0) state.SkipWithError("nothing was summed");
    state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations() * elements * ComponentsPerElement));
}

/// The numbers of a building in arrays.
struct Arrays {
    std::vector<std::int32_t> layers; ///< by element
    std::vector<std::int32_t> materials;
    std::vector<double> volumes;
    std::vector<double> areas;
    std::unordered_map<std::int32_t, lca::MaterialValues> values;
};

Arrays Flatten(const workbench::Model& model) {
    Arrays arrays;
    for (const workbench::Element& element : model.GetElements()) {
        arrays.layers.push_back(element.layer.value);
        for (const host::MaterialComponent& component : model.GetComponents(element)) {
            arrays.materials.push_back(component.buildingMaterial.value);
            arrays.volumes.push_back(component.volumeM3);
            arrays.areas.push_back(component.areaM2);
        }
    }
    for (const host::BuildingMaterial& material : model.GetBuildingMaterials())
        arrays.values[material.index.value] = {GetGWP(material.index.value, 1.0),
                                               {},
                                               GetUnit(material.index.value),
                                               GetServiceLife(material.index.value),
                                               material.densityKgM3};
    return arrays;
}

/// What the run cannot do without: each component's material looked up, its GWP computed and added to its layer and
/// material.
void BareLoop(benchmark::State& state) {
    double total = 0.0;
    const Arrays arrays = Flatten(GetHost(static_cast<std::size_t>(state.range(0))).GetProject()->model);
    for (auto iteration : state) {
        static_cast<void>(iteration);
        std::unordered_map<std::int32_t, std::unordered_map<std::int32_t, double>> table;
        double sum = 0.0;
        for (std::size_t i = 0; i < arrays.materials.size(); ++i) {
            const double gwp = lca::ComputeContribution(arrays.values.find(arrays.materials[i])->second, 1.0,
                                                        arrays.volumes[i], arrays.areas[i], 50)
                                   .gwp;
            sum += gwp;
            table[arrays.layers[i / ComponentsPerElement]][arrays.materials[i]] += gwp;
        }
        total += sum + static_cast<double>(table.size());
    }
    if (total <= 0.0) state.SkipWithError("nothing was summed");
    state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations() * arrays.materials.size()));
}

/// Memory of a model with its elements in bytes a component, from what the process holds before and after.
void ModelMemory(benchmark::State& state) {
    const auto elements = static_cast<std::size_t>(state.range(0));
    for (auto iteration : state) {
        static_cast<void>(iteration);
        const double before = ReadResidentBytes();
        const std::unique_ptr<workbench::Project> project = MakeBuilding(elements);
        const double bytes = ReadResidentBytes() - before;
        state.counters["bytes_per_component"] = bytes / static_cast<double>(elements * ComponentsPerElement);
        state.counters["MiB"] = bytes / (1 << 20);
    }
}

BENCHMARK(ModelMemory)->Arg(1'000'000)->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(BareLoop)->Arg(100'000)->Arg(1'000'000)->Unit(benchmark::kMillisecond)->Repetitions(5);
BENCHMARK(RunThroughHost)->Arg(100'000)->Arg(1'000'000)->Unit(benchmark::kMillisecond)->Repetitions(5);

} // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    bench::RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    reporter.PrintRatio("run / bare loop, 1,000,000 elements (goal: at most 20)", "RunThroughHost/1000000/repeats:5",
                        "BareLoop/1000000/repeats:5");
    reporter.PrintRatio("run / bare loop, 100,000 elements", "RunThroughHost/100000/repeats:5",
                        "BareLoop/100000/repeats:5");
    reporter.PrintRatio("time(1M) / time(100k) (goal: at most 11)", "RunThroughHost/1000000/repeats:5",
                        "RunThroughHost/100000/repeats:5");
}
