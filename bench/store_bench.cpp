// Project files of a large building: opening, one undoable change of all materials in the file, saving.
#include "workbench/store/ProjectFile.h"

#include "BenchBuilding.h"

#include <benchmark/benchmark.h>

#include <unistd.h>

#include <filesystem>
#include <iostream>

namespace {

constexpr std::size_t Elements = 100'000;

/// The building with its materials' values as a file, made once and removed at the end.
class ProjectOnDisk {
public:
    ProjectOnDisk()
        : file(std::filesystem::temp_directory_path() / ("kelvarnix-bench-" + std::to_string(getpid()) + ".kvp")) {
        host.OpenProject(bench::MakeBuilding(Elements), host::ProjectEvent::New);
        bench::GiveMaterialValues(host, 1.0);
        saved = workbench::SaveProject(*host.GetProject(), file);
    }
    ~ProjectOnDisk() {
        std::error_code ignored;
        std::filesystem::remove(file, ignored);
    }

    const std::filesystem::path file;
    workbench::WorkbenchHost host;
    workbench::Outcome saved = workbench::Outcome::Done();
};

const ProjectOnDisk& GetProject() {
    static const ProjectOnDisk Project;
    return Project;
}

void OpenProject(benchmark::State& state) {
    const ProjectOnDisk& project = GetProject();
    for (auto iteration : state) {
        static_cast<void>(iteration);
        const auto opened = workbench::OpenProjectFile(project.file, workbench::KeepChanges::InMemory);
        if (opened.HasFailed() || opened.Get()->model.GetElements().size() != Elements)
            state.SkipWithError(opened.GetText().c_str());
    }
    state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations() * Elements));
    state.counters["MiB"] = static_cast<double>(std::filesystem::file_size(project.file)) / (1 << 20);
}

void ChangeAllMaterials(benchmark::State& state) {
    auto opened = workbench::OpenProjectFile(GetProject().file, workbench::KeepChanges::InFile);
    if (opened.HasFailed()) {
        state.SkipWithError(opened.GetText().c_str());
        return;
    }
    workbench::WorkbenchHost host;
    host.OpenProject(opened.Take(), host::ProjectEvent::Open);
    static double factor = 1.0; // never a value that the file already has
    for (auto iteration : state) {
        static_cast<void>(iteration);
        factor += 0.5;
        bench::GiveMaterialValues(host, factor);
    }
    if (host.GetProject()->GetStoreOutcome().HasFailed()) state.SkipWithError("the file did not take the change");
}

void SaveOverOld(benchmark::State& state) {
    const ProjectOnDisk& project = GetProject();
    for (auto iteration : state) {
        static_cast<void>(iteration);
        const workbench::Outcome saved = workbench::SaveProject(*project.host.GetProject(), project.file);
        if (saved.HasFailed()) state.SkipWithError(saved.GetText().c_str());
    }
}

void SaveAsNew(benchmark::State& state) {
    const ProjectOnDisk& project = GetProject();
    const std::filesystem::path file = project.file.string() + "-new.kvp";
    for (auto iteration : state) {
        static_cast<void>(iteration);
        const workbench::Outcome saved = workbench::SaveProject(*project.host.GetProject(), file);
        if (saved.HasFailed()) state.SkipWithError(saved.GetText().c_str());
        state.PauseTiming();
        std::filesystem::remove(file);
        state.ResumeTiming();
    }
}

BENCHMARK(OpenProject)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(ChangeAllMaterials)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(SaveOverOld)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(SaveAsNew)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace

int main(int argc, char** argv) {
    if (GetProject().saved.HasFailed()) {
        std::cerr << GetProject().saved.GetText() << "\n";
        return 1;
    }
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
