// Import of a real house, start of the child program and geometry included: seconds and bytes of file per second.
#include <benchmark/benchmark.h>

#include <filesystem>

#include "workbench/ifc/IfcImport.h"

namespace {

void ImportFile(benchmark::State& state, const char* name) {
    const auto file = std::filesystem::path(KELVARNIX_SOURCE_DIR) / ".." / "shared" / "ifc" / name;
    std::error_code missing;
    const auto size = std::filesystem::file_size(file, missing);
    if (missing) {
        state.SkipWithError("the model is not on this machine");
        return;
    }
    for (auto iteration : state) {
        static_cast<void>(iteration);
        const workbench::ifc::ImportResult result = workbench::ifc::ReadIfcFile(file);
        if (result.HasFailed()) {
            state.SkipWithError(result.GetText().c_str());
            return;
        }
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * size));
}

BENCHMARK_CAPTURE(ImportFile, House, "AC20-FZK-Haus.ifc")->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK_CAPTURE(ImportFile, TinyHouse, "IfcOpenHouse_IFC4.ifc")->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace

BENCHMARK_MAIN();
