#include "workbench/energy/EnergyEvaluation.h"

#include <algorithm>
#include <string>
#include <variant>

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

template <typename Value>
host::ErrorCode EnergyEvaluation::Read(const CommandData& data, const char* name, Value& value) {
    host::CommandParameter parameter;
    if (const host::ErrorCode error = lists.ReadParameter(data.list, name, parameter)) return error;
    const auto* found = std::get_if<Value>(&parameter.value);
    if (found == nullptr) return host::Errors::BadParameters;
    value = *found;
    return host::NoError;
}

host::ErrorCode EnergyEvaluation::AnswerEnabled(const CommandData& data) {
    return lists.ChangeParameter(data.list, {Exchange::EnabledParameter, isEnabled});
}

host::ErrorCode EnergyEvaluation::Enable(const CommandData&) {
    isEnabled = true;
    return host::NoError;
}

host::ErrorCode EnergyEvaluation::RegisterTarget(const CommandData& data) {
    if (!isEnabled) return host::Errors::RefusedCommand;
    Target target;
    std::int32_t exportType = 0;
    if (const host::ErrorCode error = Read(data, Exchange::TargetParameter, target.id)) return error;
    if (const host::ErrorCode error = Read(data, Exchange::MenuTextParameter, target.menuText)) return error;
    if (const host::ErrorCode error = Read(data, Exchange::ExportTypeParameter, exportType)) return error;
    if (target.menuText.empty() || exportType != Exchange::PlainExport) return host::Errors::BadParameters;
    if (const auto known = FindTarget(target.id); known != targets.end())
        *known = std::move(target);
    else
        targets.push_back(std::move(target));
    return host::NoError;
}

host::ErrorCode EnergyEvaluation::UnregisterTarget(const CommandData& data) {
    host::ModuleId id;
    if (const host::ErrorCode error = Read(data, Exchange::TargetParameter, id)) return error;
    const auto known = FindTarget(id);
    if (known == targets.end()) return host::Errors::BadId;
    targets.erase(known);
    return host::NoError;
}

host::ErrorCode EnergyEvaluation::ListTargets(const CommandData& data) {
    for (std::size_t i = 0; i < targets.size(); ++i)
        if (const host::ErrorCode error = lists.AddParameter(data.list, {std::to_string(i + 1), targets[i].menuText}))
            return error;
    return host::NoError;
}

host::ErrorCode EnergyEvaluation::Export(const CommandData& data) {
    std::string menuText;
    if (const host::ErrorCode error = Read(data, MenuTextParameter, menuText)) return error;
    if (data.settings == nullptr || data.settings->settings == nullptr) return host::Errors::BadParameters;
    const auto target =
        std::find_if(targets.begin(), targets.end(), [&](const Target& one) { return one.menuText == menuText; });
    if (target == targets.end()) return host::Errors::BadName;
    host::ObjectState& settings = *data.settings->settings;
    settings = GetOfferedSettings();
    if (const host::ErrorCode error = commands.CallCommand(target->id, Exchange::AskSettings, Exchange::CommandVersion,
                                                           {{}, data.settings, nullptr}, false))
        return error;
    if (!IsAnySetWanted(settings)) return host::Errors::RefusedCommand;
    return commands.CallCommand(target->id, Exchange::SendData, Exchange::CommandVersion, {{}, nullptr, data.document},
                                false);
}

std::vector<EnergyEvaluation::Target>::iterator EnergyEvaluation::FindTarget(const host::ModuleId& id) {
    return std::find_if(targets.begin(), targets.end(), [&](const Target& target) { return target.id == id; });
}

} // namespace workbench::energy
