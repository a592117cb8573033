#include "BenchBuilding.h"

#include "src/LCAProperties.h"
#include "src/LCASchema.h"
#include "workbench/model/NewProject.h"

#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <random>

namespace bench {

std::unique_ptr<workbench::Project> MakeBuilding(std::size_t elements) {
    std::unique_ptr<workbench::Project> project = workbench::CreateProject();
    workbench::Model& model = project->model;
    model.ReserveElements(elements, elements * ComponentsPerElement);
    for (int i = 1; i <= LayerCount; ++i)
        model.AddLayer("layer " + std::to_string(i));
    for (int i = 1; i <= MaterialCount; ++i) {
        host::BuildingMaterial material;
        material.name = "material " + std::to_string(i);
        material.densityKgM3 = 100.0 * i;
        model.AddBuildingMaterial(material);
    }
    const host::ElementType types[] = {host::ElementType::Wall, host::ElementType::Slab, host::ElementType::Roof,
                                       host::ElementType::Beam};
    host::Guid classifications[4];
    for (int i = 0; i < 4; ++i)
        classifications[i] = workbench::FindElementClassification(model, types[i]);
    std::mt19937_64 random(1);
    for (std::size_t i = 0; i < elements; ++i) {
        workbench::Element element;
        for (std::uint8_t& byte : element.guid.bytes)
            byte = static_cast<std::uint8_t>(random());
        element.type = types[i % 4];
        element.classification = classifications[i % 4];
        element.layer.value = static_cast<std::int32_t>(random() % LayerCount) + 1;
        element.name = "Wall-" + std::to_string(i);
        element.kind = "IfcWallStandardCase";
        host::MaterialComponent parts[ComponentsPerElement];
        for (host::MaterialComponent& part : parts)
            part = {{static_cast<std::int32_t>(random() % MaterialCount) + 1},
                    static_cast<double>(random() % 1000) / 100,
                    static_cast<double>(random() % 1000) / 10};
        model.AddElement(std::move(element), parts);
    }
    return project;
}

double GetGWP(int material, double factor) {
    return factor * material;
}

lca::MaterialUnit GetUnit(int material) {
    const lca::MaterialUnit units[] = {lca::MaterialUnit::CubicMetre, lca::MaterialUnit::SquareMetre,
                                       lca::MaterialUnit::Kilogram};
    return units[material % 3];
}

int GetServiceLife(int material) {
    return material % 4 * 15;
}

void GiveMaterialValues(workbench::WorkbenchHost& host, double factor) {
    LCADefinitions definitions;
    host::ErrorCode code = EnsureSchema(host);
    if (code == host::NoError) code = FindDefinitions(host, definitions);
    const auto write = [&] {
        for (int i = 1; i <= MaterialCount; ++i) {
            const auto value = [&](int key, host::Variant variant) {
                return host::PropertyValue{definitions[static_cast<std::size_t>(key)]->guid,
                                           host::PropertyStatus::HasValue, false, std::move(variant)};
            };
            const auto& options = definitions[1]->options; // m3, m2, kg: in the order of the units
            const std::vector<host::PropertyValue> values = {
                value(0, host::Variant::OfText(std::to_string(GetGWP(i, factor)))),
                value(1, host::Variant::OfGuid(options[static_cast<std::size_t>(GetUnit(i))].key)),
                value(2, host::Variant::OfInteger(GetServiceLife(i)))};
            if (const host::ErrorCode error = StoreMaterialValues(host, {i}, values)) return error;
        }
        return host::NoError;
    };
    if (code == host::NoError) code = host.commands.Call("values", write);
    if (code == host::NoError) return;
    std::fprintf(stderr, "the materials did not take their values (host error %d)\n",
                 static_cast<int>(code.GetValue()));
    std::exit(1);
}

double ReadResidentBytes() {
    std::ifstream file("/proc/self/statm");
    double all = 0.0, resident = 0.0;
    file >> all >> resident;
    return resident * static_cast<double>(sysconf(_SC_PAGESIZE));
}

void RatioReporter::ReportRuns(const std::vector<Run>& runs) {
    ConsoleReporter::ReportRuns(runs);
    for (const Run& run : runs) {
        if (run.run_type != Run::RT_Iteration || run.iterations == 0) continue;
        const double time = run.cpu_accumulated_time / static_cast<double>(run.iterations);
        const auto [entry, isNew] = seconds.try_emplace(run.benchmark_name(), time);
        entry->second = std::min(entry->second, time);
    }
}

void RatioReporter::PrintRatio(const char* title, const std::string& name, const std::string& unitName) const {
    const auto measured = seconds.find(name), unit = seconds.find(unitName);
    if (measured == seconds.end() || unit == seconds.end() || unit->second <= 0.0) return;
    std::printf("%s: %.2f\n", title, measured->second / unit->second);
}

} // namespace bench
