#include "src/GWPRun.h"

#include "src/DatabaseScope.h"
#include "src/LCAProjectDataStore.h"
#include "src/MaterialProperties.h"

#include "General/CallbackGuard.h"

#include "host/Commands.h"
#include "host/Model.h"

#include "lca/MaterialGWP.h"
#include "src/Texts.h"

#include <algorithm>

namespace {

constexpr std::size_t ProgressSteps = 20;

/// About twenty updates, whatever the number of elements.
class Progress {
public:
    Progress(host::Host& host, std::size_t count)
        : host(host), window(host.GetProgressWindow()), step(std::max<std::size_t>(1, count / ProgressSteps)) {
        Note(window.Open(ReadText(host, ResourceIds::Alerts::ProgressTitle)));
        Note(window.StartPhase(ReadText(host, ResourceIds::Alerts::ProgressPhase), static_cast<std::int32_t>(count)));
    }
    ~Progress() {
        Note(window.Close());
        General::ReportHostError(host, "showing the progress", firstError);
    }
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    void Update(std::size_t element) {
        if (element % step == 0) Note(window.SetValue(static_cast<std::int32_t>(element)));
    }

private:
    /// A window that does not show is told once; the run does not need it.
    void Note(host::ErrorCode error) {
        if (!firstError) firstError = error;
    }

    host::Host& host;
    host::ErrorCode firstError;
    host::ProgressWindow& window;
    std::size_t step;
};

/// Values of the building materials, each read when it is first met.
class MaterialCache {
public:
    MaterialCache(host::Host& host, const LCADefinitions& definitions, const std::vector<std::string>& usedPhases)
        : host(host), properties(host), usedPhases(usedPhases) {
        properties.Load(definitions);
    }

    const lca::MaterialValues& Get(host::AttributeIndex material) {
        const auto [entry, isNew] = values.try_emplace(material);
        if (isNew) entry->second = Read(material);
        return entry->second;
    }

private:
    lca::MaterialValues Read(host::AttributeIndex index) {
        lca::MaterialValues material;
        host::BuildingMaterial attribute;
        if (host.GetAttributes().ReadBuildingMaterial(index, attribute) == host::NoError)
            material.densityKgM3 = attribute.densityKgM3;
        const MaterialProperties::Values read = properties.Read(index);
        material.gwpPerUnit = lca::SumMaterialGWP(lca::DecodeMaterialGWP(properties.GetGWPText(read)), usedPhases);
        material.unit = lca::ReadMaterialUnit(properties.GetUnitText(read));
        material.serviceLifeYears = properties.GetServiceLife(read);
        return material;
    }

    host::Host& host;
    MaterialProperties properties;
    const std::vector<std::string>& usedPhases;
    std::unordered_map<host::AttributeIndex, lca::MaterialValues> values;
};

class Run {
public:
    Run(host::Host& host, const lca::LCAProjectData& record, const LCADefinitions& definitions,
        lca::MaterialSumTable& table, lca::BaseSums& sums)
        : host(host), periodYears(record.consideredServiceLifeYears), materials(host, definitions, record.usedPhases),
          table(table), sums(sums) {
        for (std::size_t i = lca::FirstElementKey; i < lca::FirstProjectKey; ++i)
            elementGuids.push_back(definitions[i] ? definitions[i]->guid : host::Guid());
    }

    host::ErrorCode AddElement(const host::Guid& element) {
        const lca::ElementValues own = ReadElementValues(element);
        if (!own.include) return host::NoError;
        host::ElementHeader header;
        if (const host::ErrorCode error = host.GetModel().ReadElementHeader(element, header)) return error;
        const double share = own.percentage / 100.0;
        if (header.type == host::ElementType::Door)
            sums.doors += share * own.gwp;
        else if (header.type == host::ElementType::Window)
            sums.windows += share * own.gwp;
        else
            return AddComponents(header, share);
        return host::NoError;
    }

private:
    lca::ElementValues ReadElementValues(const host::Guid& element) {
        lca::ElementValues own;
        if (host.GetProperties().ReadElementValues(element, elementGuids, read) != host::NoError ||
            read.size() != elementGuids.size())
            return own;
        const auto has = [&](std::size_t i) { return read[i].status == host::PropertyStatus::HasValue; };
        if (has(0)) own.gwp = read[0].value.real;
        if (has(1)) own.include = read[1].value.boolean;
        if (has(2)) own.percentage = read[2].value.real;
        return own;
    }

    host::ErrorCode AddComponents(const host::ElementHeader& header, double share) {
        if (const host::ErrorCode error = host.GetModel().ReadElementComponents(header.guid, components)) return error;
        for (const host::MaterialComponent& component : components) {
            const double gwp = lca::ComputeComponentGWP(materials.Get(component.buildingMaterial), share,
                                                        component.volumeM3, component.areaM2, periodYears);
            sums.buildingComponents += gwp;
            table.Add(header.layer.value, component.buildingMaterial.value, gwp);
        }
        return host::NoError;
    }

    host::Host& host;
    std::uint32_t periodYears;
    MaterialCache materials;
    lca::MaterialSumTable& table;
    lca::BaseSums& sums;
    std::vector<host::Guid> elementGuids;
    // Reused from element to element.
    std::vector<host::PropertyValue> read;
    std::vector<host::MaterialComponent> components;
};

} // namespace

host::ErrorCode RunGWPCalculation(host::Host& host, lca::LCAProjectData& record, lca::MaterialSumTable& table,
                                  lca::BaseSums& sums) {
    table.Clear();
    sums = {};
    if (const host::ErrorCode error = LoadProjectData(host, record)) return error;
    LCADefinitions definitions;
    if (const host::ErrorCode error = FindDefinitions(host, definitions)) return error;
    DatabaseScope database(host);
    if (const host::ErrorCode error = database.Change({host::DatabaseType::FloorPlan, {}, {}})) return error;
    std::vector<host::Guid> elements;
    if (const host::ErrorCode error =
            host.GetModel().ListElements(host::ElementType::All, host::ElementScope::FloorPlanIn3D, elements))
        return error;
    Progress progress(host, elements.size());
    Run run(host, record, definitions, table, sums);
    for (std::size_t i = 0; i < elements.size(); ++i) {
        progress.Update(i);
        if (const host::ErrorCode error = run.AddElement(elements[i])) return error;
    }
    return host::NoError;
}
