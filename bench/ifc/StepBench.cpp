// Reading of a large STEP text that is made here: bytes a second for the index alone, for asking every value, and for
// finding entities by number and by who refers to them.
#include <benchmark/benchmark.h>

#include <string>

#include "workbench/ifc/entities/Model.h"

namespace {

using namespace workbench;

constexpr std::size_t Blocks = 300'000;

/// Points, faces, a wall with a name in escapes, a relation: about what models are made of. "@" is the block's number.
constexpr std::string_view Block = R"(#@1=IFCCARTESIANPOINT((12.3456789,-0.123456,2500.));
#@2=IFCPOLYLOOP((#@1,#@1,#@1));
#@3=IFCFACEOUTERBOUND(#@2,.T.);
#@4=IFCFACE((#@3));
#@5=IFCWALLSTANDARDCASE('2XPyKWY018sA1ygZKgQPtU',#1,'W\X2\00FC\X0\nd-@',$,$,$,$,'0F2C7A60-1B42-4E41-A1E2-C4F2A55A9AA9');
#@6=IFCRELCONTAINEDINSPATIALSTRUCTURE('2XPyKWY018sA1ygZKgQPtU',#1,$,$,(#@5),#21);
)";

std::string MakeLargeText() {
    std::string text = "ISO-10303-21;\nHEADER;FILE_SCHEMA(('IFC4'));ENDSEC;\nDATA;\n";
    for (std::size_t i = 0; i < Blocks; ++i) {
        const std::string number = std::to_string(10 * i);
        for (const char letter : Block)
            letter == '@' ? text.append(number) : text.append(1, letter);
    }
    return text + "ENDSEC;\n";
}

const std::string& Text() {
    static const std::string Large = MakeLargeText();
    return Large;
}

step::StepFile Read() {
    step::Problem problem;
    return *step::StepFile::Read(Text(), {}, problem);
}

void CountBytes(benchmark::State& state) {
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * Text().size()));
}

void Index(benchmark::State& state) {
    for (auto iteration : state) {
        static_cast<void>(iteration);
        benchmark::DoNotOptimize(Read());
    }
    CountBytes(state);
}

std::size_t CountValues(const step::Value& value) {
    std::size_t count = value.GetNumber() || value.GetReference() ? 1 : 0;
    for (const step::Value& item : value)
        count += CountValues(item);
    return count;
}

void AskValues(benchmark::State& state) {
    const step::StepFile file = Read();
    for (auto iteration : state) {
        static_cast<void>(iteration);
        std::size_t count = 0;
        for (step::EntityIndex i = 0; i < file.CountEntities(); ++i)
            count += CountValues(file.GetArguments(i));
        benchmark::DoNotOptimize(count);
    }
    CountBytes(state);
}

void FollowReferences(benchmark::State& state) {
    const entities::Model model(Read(), schema::IFC4);
    const auto faces = model.GetAll("IfcFace");
    for (auto iteration : state) {
        static_cast<void>(iteration);
        std::size_t count = 0;
        for (const entities::Entity& face : faces) {
            for (const entities::Entity& bound : face.GetEntities("Bounds"))
                count += bound.GetEntity("Bound").GetEntities("Polygon").size();
        }
        benchmark::DoNotOptimize(count);
    }
    state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations() * faces.size() * 5));
}

BENCHMARK(Index)->Unit(benchmark::kMillisecond);
BENCHMARK(AskValues)->Unit(benchmark::kMillisecond);
BENCHMARK(FollowReferences)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
