#include "src/EnergyExchange.h"

#include "src/AddOnContext.h"
#include "src/EnergyData.h"
#include "src/LCAProjectDataStore.h"

#include "General/HostReport.h"
#include "General/ObjectStateProcessor.h"
#include "host/AddOnCommands.h"
#include "host/EnergyExchange.h"
#include "src/Texts.h"

namespace {

namespace Exchange = host::EnergyExchange;

/// A parameter list of the host, freed at the end of the scope.
class ParameterList {
public:
    explicit ParameterList(host::AddOnCommands& commands) : commands(commands) {
        error = commands.CreateParameterList(list);
    }
    ~ParameterList() {
        if (!list.IsNull()) static_cast<void>(commands.FreeParameterList(list)); // nothing is left to do about it
    }
    ParameterList(const ParameterList&) = delete;
    ParameterList& operator=(const ParameterList&) = delete;

    /// After a failure nothing more is added or called.
    void Add(const char* name, host::CommandParameter::Value value) {
        if (error == host::NoError) error = commands.AddParameter(list, {name, std::move(value)});
    }
    /// Answers the first failure of the list, else the call's.
    host::ErrorCode Call(std::uint32_t command) {
        if (error != host::NoError) return error;
        return commands.Call(Exchange::EnergyEvaluation, command, Exchange::CommandVersion, list, true);
    }
    host::ErrorCode Read(const char* name, host::CommandParameter& parameter) {
        return commands.ReadParameter(list, name, parameter);
    }

private:
    host::AddOnCommands& commands;
    host::ParameterListId list;
    host::ErrorCode error = host::NoError;
};

constexpr const char* DataSets[] = {Exchange::KeyValues, Exchange::SourceFactors, Exchange::SheetValues};

host::ObjectState BuildExportSettings() {
    host::ObjectState settings;
    for (const char* dataSet : DataSets) {
        host::ObjectState fields;
        fields.Add(Exchange::IsExported, true);
        fields.Add(Exchange::LevelOfDetail, std::string(Exchange::Yearly));
        settings.Add(dataSet, std::move(fields));
    }
    return settings;
}

host::ObjectState AdaptExportSettings(const host::ObjectState& settings) {
    Extensions::Utilities::ObjectStateProcessor processor;
    for (const char* dataSet : DataSets)
        processor.AddOverride(dataSet, Exchange::IsExported, true);
    for (const char* dataSet : DataSets)
        processor.AddOverride(dataSet, Exchange::LevelOfDetail, std::string(Exchange::Yearly));
    settings.Enumerate(processor);
    return processor.TakeResult();
}

struct EvaluatedValue {
    lca::FloorQuantity quantity;
    double value;
};

/// Takes and chooses values of one part of the data onto what the model holds, and stores them on their own. What the
/// model does not take, the record does not keep.
class PartTaker {
public:
    PartTaker(host::Host& host, lca::LCAProjectData& record) : host(host), record(record) {}

    void Take(const std::vector<EvaluatedValue>& values) {
        const host::ErrorCode error = ChangeProjectData(host, record, [&](lca::LCAProjectData& present) {
            for (const EvaluatedValue& one : values) {
                present.SetFloorValue(one.quantity, lca::FloorSource::EnergyEvaluation, one.value);
                present.ChooseFloorSource(one.quantity, lca::FloorSource::EnergyEvaluation);
            }
        });
        if (!firstError) firstError = error;
    }

    host::ErrorCode GetFirstError() const { return firstError; }

private:
    host::Host& host;
    lca::LCAProjectData& record;
    host::ErrorCode firstError = host::NoError;
};

} // namespace

bool IsEnergyEvaluationEnabled(host::Host& host) {
    ParameterList list(host.GetAddOnCommands());
    list.Add(Exchange::EnabledParameter, false);
    host::CommandParameter answer;
    if (list.Call(Exchange::AskEnabled) != host::NoError) return false;
    if (list.Read(Exchange::EnabledParameter, answer) != host::NoError) return false;
    const bool* isEnabled = std::get_if<bool>(&answer.value);
    return isEnabled != nullptr && *isEnabled;
}

host::ErrorCode RegisterExportTarget(host::Host& host) {
    if (!IsEnergyEvaluationEnabled(host)) {
        const host::ErrorCode error = host.GetAddOnCommands().Call(Exchange::EnergyEvaluation, Exchange::Enable,
                                                                   Exchange::CommandVersion, {}, true);
        if (error != host::NoError) return error;
    }
    const host::ModuleId ownId = host.GetResources().ReadModuleId(ResourceIds::ModuleIdResource);
    ParameterList list(host.GetAddOnCommands());
    list.Add(Exchange::TargetParameter, ownId);
    list.Add(Exchange::MenuTextParameter, ReadText(host, ResourceIds::EnergyExport::MenuText));
    list.Add(Exchange::ExportTypeParameter, Exchange::PlainExport);
    return list.Call(Exchange::RegisterTarget);
}

host::ErrorCode UnregisterExportTarget(host::Host& host) {
    const host::ModuleId ownId = host.GetResources().ReadModuleId(ResourceIds::ModuleIdResource);
    ParameterList list(host.GetAddOnCommands());
    list.Add(Exchange::TargetParameter, ownId);
    return list.Call(Exchange::UnregisterTarget);
}

void AnswerExportSettings(host::ObjectState& settings) {
    settings = settings.IsEmpty() ? BuildExportSettings() : AdaptExportSettings(settings);
}

host::ErrorCode TakeExportedData(host::Host& host, AddOnContext& context, const std::string& document) {
    std::unique_ptr<host::DOMReader> reader;
    const host::ErrorCode error = host.GetXmlReading().ReadDocument(document, Exchange::RootElement, reader);
    if (error != host::NoError) return error;
    const EnergyData data = ReadEnergyData(*reader);
    reader.reset(); // a large document's memory, before the calculation needs its own

    for (const std::string& skipped : data.skippedParts)
        General::ReportFailure(&host, "exported data", skipped.c_str());
    PartTaker taker(host, context.projectData);
    for (const double factor : data.electricityFactors)
        taker.Take({{lca::FloorQuantity::ElectricitySourceFactor, factor}});
    if (data.keyValues)
        taker.Take({{lca::FloorQuantity::GrossFloorArea, data.keyValues->grossFloorAreaM2},
                    {lca::FloorQuantity::OperationalEmission, data.keyValues->emissionKgCO2ePerYear}});
    for (const double yield : data.solarYields)
        taker.Take({{lca::FloorQuantity::SolarPanels, yield}});
    if (context.mainPalette.IsOpen()) context.mainPalette.UpdateResults();
    return taker.GetFirstError();
}
