// Energy data from outside: reading a document and copying a settings tree by size. Both may grow with the size only,
// however deep the tree is.
#include "General/ObjectStateProcessor.h"
#include "src/EnergyData.h"
#include "workbench/trees/XmlReader.h"

#include "BenchBuilding.h"

#include <benchmark/benchmark.h>

namespace {

/// Sources of energy until the document has so many bytes, then electricity.
std::string MakeDocument(std::int64_t bytes) {
    std::string document = "<root><energySourcesFactor><dataArray>";
    while (static_cast<std::int64_t>(document.size()) < bytes)
        document += "<list_value><source>Gas</source><carbonFootprint>0.2</carbonFootprint></list_value>";
    return document + "<list_value><source>Electricity</source><carbonFootprint>0.06</carbonFootprint></list_value>"
                      "</dataArray></energySourcesFactor></root>";
}

void Document(benchmark::State& state) {
    const std::string document = MakeDocument(state.range(0));
    workbench::XmlReadingRole reading;
    for (auto iteration : state) {
        static_cast<void>(iteration);
        std::unique_ptr<host::DOMReader> reader;
        if (reading.ReadDocument(document, "root", reader) != host::NoError ||
            ReadEnergyData(*reader).electricityFactors != std::vector<double>{0.06})
            state.SkipWithError("the document is not read");
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(document.size()));
}

/// So many containers inside each other, each with a field that is replaced.
void DeepTree(benchmark::State& state) {
    host::ObjectState::Builder builder;
    for (std::int64_t level = 0; level < state.range(0); ++level) {
        builder.Open("xlsValues");
        builder.Add("enableExport", false);
    }
    while (builder.HasOpen())
        builder.Add("xlsValues", builder.Close());
    const host::ObjectState tree = builder.Take();
    for (auto iteration : state) {
        static_cast<void>(iteration);
        Extensions::Utilities::ObjectStateProcessor processor;
        processor.AddOverride("xlsValues", "enableExport", true);
        tree.Enumerate(processor);
        benchmark::DoNotOptimize(processor.TakeResult().IsEmpty());
    }
}

BENCHMARK(Document)->Arg(10'000'000)->Arg(100'000'000)->Unit(benchmark::kMillisecond);
BENCHMARK(DeepTree)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    bench::RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    reporter.PrintRatio("Document, 100 MB / 10 MB", "Document/100000000", "Document/10000000");
    reporter.PrintRatio("DeepTree, 100,000 / 10,000 levels", "DeepTree/100000", "DeepTree/10000");
    return 0;
}
