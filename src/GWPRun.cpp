#include "src/GWPRun.h"

#include "src/DatabaseScope.h"
#include "src/LCAProjectDataStore.h"
#include "src/MaterialProperties.h"

#include "General/HostReport.h"

#include "host/Commands.h"
#include "host/Model.h"

#include "src/Texts.h"

#include <algorithm>

namespace {

constexpr std::size_t ProgressSteps = 20;
constexpr char Task[] = "GWP calculation";

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
        // The run does not need the window.
        General::ReportHostError(host, "showing the progress", firstError);
    }
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    enum class Answer { GoOn, Cancelled };
    Answer Update(std::size_t element) {
        if (element % step != 0) return Answer::GoOn;
        const host::ErrorCode error = window.SetValue(static_cast<std::int32_t>(element));
        if (error == host::Errors::Cancelled) return Answer::Cancelled;
        Note(error);
        return Answer::GoOn;
    }

private:
    void Note(host::ErrorCode error) {
        if (!firstError) firstError = error;
    }

    host::Host& host;
    host::ProgressWindow& window;
    std::size_t step;
    host::ErrorCode firstError;
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
    const General::CountedFailures& GetUnread() const { return unread; }

private:
    lca::MaterialValues Read(host::AttributeIndex index) {
        lca::MaterialValues material;
        host::BuildingMaterial attribute;
        if (!unread.Note(host.GetAttributes().ReadBuildingMaterial(index, attribute)))
            material.densityKgM3 = attribute.densityKgM3;
        MaterialProperties::Values read;
        unread.Note(properties.Read(index, read));
        material.gwp = lca::DecodeMaterialGWP(properties.GetGWPText(read));
        material.gwpPerUnit = lca::SumMaterialGWP(material.gwp, usedPhases);
        material.unit = lca::ReadMaterialUnit(properties.GetUnitText(read));
        material.serviceLifeYears = properties.GetServiceLife(read);
        return material;
    }

    host::Host& host;
    MaterialProperties properties;
    const std::vector<std::string>& usedPhases;
    std::unordered_map<host::AttributeIndex, lca::MaterialValues> values;
    General::CountedFailures unread;
};

/// The elements' own values, of the definitions that the model has.
class ElementProperties {
public:
    ElementProperties(host::Host& host, const LCADefinitions& definitions) : host(host) {
        for (std::size_t i = lca::FirstElementKey; i < lca::FirstProjectKey; ++i) {
            if (!definitions[i]) continue;
            keys.push_back(static_cast<lca::PropertyKey>(i));
            guids.push_back(definitions[i]->guid);
        }
    }

    /// An element whose values the host refuses counts whole.
    lca::ElementValues Read(const host::Guid& element) {
        lca::ElementValues own;
        if (guids.empty()) return own;
        host::ErrorCode error = host.GetProperties().ReadElementValues(element, guids, read);
        if (!error && read.size() != guids.size()) error = host::Errors::General;
        if (unread.Note(error)) return own;
        for (std::size_t i = 0; i < keys.size(); ++i)
            if (read[i].status == host::PropertyStatus::HasValue) Take(keys[i], read[i].value, own);
        return own;
    }
    const General::CountedFailures& GetUnread() const { return unread; }

private:
    /// A value of another kind, or none, counts as not available.
    static void Take(lca::PropertyKey key, const host::Variant& value, lca::ElementValues& own) {
        if (key == lca::PropertyKey::GWP && value.type == host::ValueType::Real) own.gwp = value.real;
        if (key == lca::PropertyKey::Include && value.type == host::ValueType::Boolean) own.include = value.boolean;
        if (key == lca::PropertyKey::GWPPercentage && value.type == host::ValueType::Real) own.percentage = value.real;
    }

    host::Host& host;
    std::vector<lca::PropertyKey> keys;
    std::vector<host::Guid> guids;
    std::vector<host::PropertyValue> read; // reused from element to element
    General::CountedFailures unread;
};

class Run {
public:
    Run(host::Host& host, const lca::LCAProjectData& record, const LCADefinitions& definitions)
        : host(host), periodYears(record.consideredServiceLifeYears), materials(host, definitions, record.usedPhases),
          properties(host, definitions) {}

    void AddElement(const host::Guid& element) {
        const lca::ElementValues own = properties.Read(element);
        if (!own.include) return;
        host::ElementHeader header;
        if (unread.Note(host.GetModel().ReadElementHeader(element, header))) return;
        if (header.type == host::ElementType::Door)
            sums.doors += lca::ComputeContribution(own).gwp;
        else if (header.type == host::ElementType::Window)
            sums.windows += lca::ComputeContribution(own).gwp;
        else
            AddComponents(header, own.GetShare());
    }

    /// Says what could not be read; answers whether all was.
    bool ReportUnread() const {
        unread.Report(host, Task, "elements that could not be read and do not count");
        properties.GetUnread().Report(host, Task,
                                      "elements that count whole because their own LCA values could not be read");
        materials.GetUnread().Report(host, Task, "values of building materials that could not be read and count as 0");
        return unread.GetCount() + properties.GetUnread().GetCount() + materials.GetUnread().GetCount() == 0;
    }

    lca::MaterialSumTable table;
    lca::BaseSums sums;

private:
    void AddComponents(const host::ElementHeader& header, double share) {
        if (unread.Note(host.GetModel().ReadElementComponents(header, components))) return;
        for (const host::MaterialComponent& component : components) {
            const double gwp = lca::ComputeContribution(materials.Get(component.buildingMaterial), share,
                                                        component.volumeM3, component.areaM2, periodYears)
                                   .gwp;
            sums.buildingComponents += gwp;
            table.Add({header.layer.value}, {component.buildingMaterial.value}, gwp);
        }
    }

    host::Host& host;
    std::uint32_t periodYears;
    MaterialCache materials;
    ElementProperties properties;
    std::vector<host::MaterialComponent> components; // reused from element to element
    General::CountedFailures unread;
};

/// What a run needs before its first element.
struct Inputs {
    LCADefinitions definitions;
    std::vector<host::Guid> elements;
};

host::ErrorCode ReadInputs(host::Host& host, lca::LCAProjectData& record, DatabaseScope& database, Inputs& inputs) {
    if (const host::ErrorCode error = LoadProjectData(host, record)) return error;
    if (const host::ErrorCode error = FindDefinitions(host, inputs.definitions)) return error;
    // Elements of another database must not count for the building's.
    if (const host::ErrorCode error = database.Change({host::DatabaseType::FloorPlan, {}, {}})) return error;
    return host.GetModel().ListElements(host::ElementType::All, host::ElementScope::FloorPlanIn3D, inputs.elements);
}

} // namespace

RunOutcome RunGWPCalculation(host::Host& host, lca::LCAProjectData& record, lca::MaterialSumTable& table,
                             lca::BaseSums& sums) {
    DatabaseScope database(host);
    Inputs inputs;
    if (const host::ErrorCode error = ReadInputs(host, record, database, inputs)) {
        General::ReportHostError(host, Task, error);
        return RunOutcome::NotRun;
    }
    Run run(host, record, inputs.definitions);
    {
        Progress progress(host, inputs.elements.size());
        for (std::size_t i = 0; i < inputs.elements.size(); ++i) {
            if (progress.Update(i) == Progress::Answer::Cancelled) {
                General::ReportFailure(&host, Task, "cancelled, the former result stays");
                return RunOutcome::Cancelled;
            }
            run.AddElement(inputs.elements[i]);
        }
    }
    table = std::move(run.table);
    sums = run.sums;
    return run.ReportUnread() ? RunOutcome::Whole : RunOutcome::Incomplete;
}
