#include "workbench/energy/EnergyEvaluation.h"

#include <algorithm>

namespace workbench::energy {

namespace Exchange = host::EnergyExchange;

namespace {

constexpr char HourlyProfiles[] = "hourlyProfiles";

struct OfferedSet {
    const char* name;
    const char* levelOfDetail;
};

constexpr OfferedSet OfferedSets[] = {{Exchange::KeyValues, "Monthly"},
                                      {Exchange::SourceFactors, "Monthly"},
                                      {Exchange::SheetValues, "Monthly"},
                                      {HourlyProfiles, "Hourly"}};

bool IsAnySetWanted(const host::ObjectState& settings) {
    return std::any_of(settings.GetFields().begin(), settings.GetFields().end(), [](const auto& dataSet) {
        const auto* fields = std::get_if<host::ObjectState>(&dataSet.value);
        const host::ObjectState::Value* flag = fields == nullptr ? nullptr : fields->Find(Exchange::IsExported);
        const bool* isWanted = flag == nullptr ? nullptr : std::get_if<bool>(flag);
        return isWanted != nullptr && *isWanted;
    });
}

/// Every data set that the evaluation knows, none wanted yet.
host::ObjectState GetOfferedSettings() {
    host::ObjectState settings;
    for (const OfferedSet& offered : OfferedSets) {
        host::ObjectState fields;
        fields.Add(Exchange::IsExported, false);
        fields.Add(Exchange::LevelOfDetail, std::string(offered.levelOfDetail));
        settings.Add(offered.name, std::move(fields));
    }
    return settings;
}

} // namespace

host::ErrorCode EnergyEvaluation::AnswerEnabled(const host::CommandParameters& parameters) {
    return host.GetAddOnCommands().ChangeParameter(parameters.list, {Exchange::EnabledParameter, isEnabled});
}

host::ErrorCode EnergyEvaluation::Enable(const host::CommandParameters&) {
    isEnabled = true;
    return host::NoError;
}

host::ErrorCode EnergyEvaluation::RegisterTarget(const host::CommandParameters& parameters) {
    if (!isEnabled) return host::Errors::RefusedCommand;
    host::AddOnCommands& commands = host.GetAddOnCommands();
    Target target;
    if (const host::ErrorCode error = ReadTargetId(parameters, target.id)) return error;
    host::CommandParameter text, type;
    if (const auto error = commands.ReadParameter(parameters.list, Exchange::MenuTextParameter, text)) return error;
    if (const auto error = commands.ReadParameter(parameters.list, Exchange::ExportTypeParameter, type)) return error;
    const auto* menuText = std::get_if<std::string>(&text.value);
    const auto* exportType = std::get_if<std::int32_t>(&type.value);
    if (menuText == nullptr || menuText->empty() || exportType == nullptr || *exportType != Exchange::PlainExport)
        return host::Errors::BadParameters;
    target.menuText = *menuText;
    if (const auto known = FindTarget(target.id); known != targets.end())
        *known = std::move(target);
    else
        targets.push_back(std::move(target));
    return host::NoError;
}

host::ErrorCode EnergyEvaluation::UnregisterTarget(const host::CommandParameters& parameters) {
    host::ModuleId id;
    if (const host::ErrorCode error = ReadTargetId(parameters, id)) return error;
    const auto known = FindTarget(id);
    if (known == targets.end()) return host::Errors::BadId;
    targets.erase(known);
    return host::NoError;
}

host::ErrorCode EnergyEvaluation::ListTargets(const host::CommandParameters& parameters) {
    auto* block = static_cast<TargetsBlock*>(parameters.block);
    if (block == nullptr) return host::Errors::BadParameters;
    block->menuTexts.clear();
    for (const Target& target : targets)
        block->menuTexts.push_back(target.menuText);
    return host::NoError;
}

host::ErrorCode EnergyEvaluation::Export(const host::CommandParameters& parameters) {
    auto* block = static_cast<ExportBlock*>(parameters.block);
    if (block == nullptr || block->document == nullptr) return host::Errors::BadParameters;
    const auto target = std::find_if(targets.begin(), targets.end(),
                                     [&](const Target& one) { return one.menuText == block->menuText; });
    if (target == targets.end()) return host::Errors::BadName;
    host::AddOnCommands& commands = host.GetAddOnCommands();
    block->settings = GetOfferedSettings();
    Exchange::SettingsBlock settings{&block->settings};
    if (const host::ErrorCode error =
            commands.Call(target->id, Exchange::AskSettings, Exchange::CommandVersion, {{}, &settings}, false))
        return error;
    if (!IsAnySetWanted(block->settings)) return host::Errors::RefusedCommand;
    Exchange::DataBlock data{block->document};
    return commands.Call(target->id, Exchange::SendData, Exchange::CommandVersion, {{}, &data}, false);
}

host::ErrorCode EnergyEvaluation::ReadTargetId(const host::CommandParameters& parameters, host::ModuleId& id) {
    host::CommandParameter parameter;
    if (const host::ErrorCode error =
            host.GetAddOnCommands().ReadParameter(parameters.list, Exchange::TargetParameter, parameter))
        return error;
    const auto* pointer = std::get_if<const void*>(&parameter.value);
    if (pointer == nullptr || *pointer == nullptr) return host::Errors::BadParameters;
    id = *static_cast<const host::ModuleId*>(*pointer);
    return host::NoError;
}

std::vector<EnergyEvaluation::Target>::iterator EnergyEvaluation::FindTarget(const host::ModuleId& id) {
    return std::find_if(targets.begin(), targets.end(), [&](const Target& target) { return target.id == id; });
}

} // namespace workbench::energy
