#include "workbench/energy/UserCommands.h"

#include "workbench/energy/EnergyEvaluation.h"

namespace workbench::energy {

namespace {

namespace Exchange = host::EnergyExchange;

/// Freed at the end of the scope.
class ParameterList {
public:
    explicit ParameterList(host::AddOnCommands& lists) : lists(lists) { error = lists.CreateParameterList(id); }
    ~ParameterList() { static_cast<void>(lists.FreeParameterList(id)); } // fails only where none was created
    ParameterList(const ParameterList&) = delete;
    ParameterList& operator=(const ParameterList&) = delete;

    host::AddOnCommands& lists;
    host::ParameterListId id;
    host::ErrorCode error = host::NoError;
};

} // namespace

host::ErrorCode ListTargets(host::AddOnCommands& lists, std::vector<std::string>& menuTexts) {
    menuTexts.clear();
    const ParameterList list(lists);
    if (list.error != host::NoError) return list.error;
    if (const host::ErrorCode error =
            lists.Call(Exchange::EnergyEvaluation, ListTargetsCommand, Exchange::CommandVersion, list.id, false))
        return error;
    host::CommandParameter parameter;
    while (lists.ReadParameter(list.id, std::to_string(menuTexts.size() + 1), parameter) == host::NoError)
        menuTexts.push_back(std::get<std::string>(parameter.value));
    return host::NoError;
}

host::ErrorCode ExportDocument(host::AddOnCommands& lists, const PartnerCommands& commands, const std::string& menuText,
                               const std::string& document, host::ObjectState& settings) {
    settings = {};
    ParameterList list(lists);
    if (list.error == host::NoError) list.error = lists.AddParameter(list.id, {MenuTextParameter, menuText});
    if (list.error != host::NoError) return list.error;
    const SettingsBlock settingsBlock{&settings};
    const DocumentBlock documentBlock{&document};
    return commands.CallCommand(Exchange::EnergyEvaluation, ExportCommand, Exchange::CommandVersion,
                                {list.id, &settingsBlock, &documentBlock}, false);
}

} // namespace workbench::energy
