#include "workbench/host/RegistrationRole.h"

#include "host/EnergyExchange.h"

#include <algorithm>

namespace workbench {

namespace {

template <typename Entry>
void RemoveOf(const host::ModuleId& addOn, std::vector<Entry>& entries) {
    std::erase_if(entries, [&](const Entry& entry) { return entry.addOn == addOn; });
}

/// Takes the caller's block apart; what is missing in it is answered without the add-on.
struct HandlerCall {
    const CommandData& data;
    bool silent;

    host::ErrorCode operator()(std::monostate) const { return host::Errors::CommandVersionNotSupported; }
    host::ErrorCode operator()(host::SettingsCommandHandler handler) const {
        if (data.settings == nullptr) return host::Errors::BadParameters;
        if (data.settings->settings == nullptr) return host::EnergyExchange::SettingsMissing;
        return handler(*data.settings->settings, silent);
    }
    host::ErrorCode operator()(host::DocumentCommandHandler handler) const {
        if (data.document == nullptr || data.document->document == nullptr) return host::Errors::BadParameters;
        return handler(*data.document->document, silent);
    }
    host::ErrorCode operator()(PartnerHandler handler) const { return handler(data, silent); }
};

} // namespace

host::ErrorCode RegistrationRole::RegisterMenu(std::int16_t menuStringList, std::int16_t promptStringList) {
    if (phase != Phase::Registering) return host::Errors::RefusedCommand;
    if (FindMenu(menuStringList) != nullptr) return host::Errors::BadId;
    menus.push_back({starting, menuStringList, promptStringList, {}, nullptr});
    return host::NoError;
}

host::ErrorCode RegistrationRole::RegisterSupportedCommand(std::uint32_t code, std::int32_t version) {
    if (phase != Phase::Registering) return host::Errors::RefusedCommand;
    if (FindCommand(starting, code) != nullptr) return host::Errors::BadId;
    commands.push_back({starting, code, version, {}});
    return host::NoError;
}

host::ErrorCode RegistrationRole::InstallMenuHandler(std::int16_t menuStringList, host::MenuHandler handler) {
    Menu* menu = FindMenu(menuStringList);
    if (phase != Phase::Initialising) return host::Errors::RefusedCommand;
    if (menu == nullptr || !(menu->addOn == starting)) return host::Errors::BadId;
    menu->handler = handler;
    return host::NoError;
}

host::ErrorCode RegistrationRole::InstallCommandHandler(std::uint32_t code, std::int32_t version,
                                                        CommandHandler handler) {
    if (phase != Phase::Initialising) return host::Errors::RefusedCommand;
    Command* command = FindCommand(starting, code);
    if (command == nullptr || command->version != version) return host::Errors::BadId;
    const bool isFormTaken =
        !std::holds_alternative<PartnerHandler>(handler) &&
        std::any_of(commands.begin(), commands.end(), [&](const Command& other) {
            return &other != command && other.addOn == starting && other.handler.index() == handler.index();
        });
    if (isFormTaken) return host::Errors::BadId;
    command->handler = handler;
    return host::NoError;
}

host::ErrorCode RegistrationRole::InstallProjectEventHandler(std::uint32_t events, host::ProjectEventHandler handler) {
    if (phase != Phase::Initialising) return host::Errors::RefusedCommand;
    RemoveOf(starting, eventHandlers);
    eventHandlers.push_back({starting, events, handler});
    return host::NoError;
}

host::ErrorCode RegistrationRole::InstallReservationChangeHandler(host::ReservationChangeHandler handler,
                                                                  const std::set<host::Guid>& lockableSets) {
    if (const host::ErrorCode refused = refusals.Ask("Registration.InstallReservationChangeHandler")) return refused;
    if (phase != Phase::Initialising && phase != Phase::InEvent) return host::Errors::RefusedCommand;
    RemoveOf(starting, reservationHandlers);
    reservationHandlers.push_back({starting, lockableSets, handler});
    return host::NoError;
}

host::ErrorCode RegistrationRole::SetMenuItemText(std::int16_t menuStringList, std::int32_t itemIndex,
                                                  const std::string& text) {
    if (const host::ErrorCode refused = refusals.Ask("Registration.SetMenuItemText")) return refused;
    Menu* menu = FindMenu(menuStringList);
    if (menu == nullptr || itemIndex != 1) return host::Errors::BadIndex;
    menu->itemText = text;
    return host::NoError;
}

host::ErrorCode RegistrationRole::ChooseMenu(std::int16_t menuStringList, std::int32_t itemIndex) {
    const Menu* menu = FindMenu(menuStringList);
    if (menu == nullptr || menu->handler == nullptr) return host::Errors::BadId;
    return menu->handler({menuStringList, itemIndex});
}

void RegistrationRole::Remove(const host::ModuleId& addOn) {
    RemoveOf(addOn, menus);
    RemoveOf(addOn, commands);
    RemoveOf(addOn, eventHandlers);
    RemoveOf(addOn, reservationHandlers);
    if (eventHandlers.empty()) keepsInMemory = false;
}

host::ErrorCode RegistrationRole::RaiseEvent(host::ProjectEvent event) {
    host::ErrorCode result = host::NoError;
    for (const EventHandler& one : eventHandlers) {
        if ((one.events & static_cast<std::uint32_t>(event)) == 0) continue;
        SetPhase(Phase::InEvent, one.addOn);
        const host::ErrorCode error = one.handler(event, 0);
        SetPhase(Phase::Closed);
        if (result == host::NoError) result = error;
    }
    return result;
}

host::ErrorCode RegistrationRole::RaiseReservationChange(const host::Guid& lockableSet, std::int16_t ownerId) {
    host::ErrorCode result = host::NoError;
    for (const ReservationHandler& one : reservationHandlers) {
        if (one.sets.count(lockableSet) == 0) continue;
        const host::ErrorCode error = one.handler(lockableSet, ownerId);
        if (result == host::NoError) result = error;
    }
    return result;
}

host::ErrorCode RegistrationRole::CallCommand(const host::ModuleId& target, std::uint32_t code, std::int32_t version,
                                              const CommandData& data, bool silent) const {
    host::ErrorCode error = host::Errors::ModuleNotInstalled;
    for (const Command& command : commands) {
        if (!(command.addOn == target)) continue;
        if (command.code != code) {
            if (error == host::Errors::ModuleNotInstalled) error = host::Errors::CommandNotSupported;
        } else if (command.version != version) {
            error = host::Errors::CommandVersionNotSupported;
        } else {
            return std::visit(HandlerCall{data, silent}, command.handler);
        }
    }
    return error;
}

RegistrationRole::Menu* RegistrationRole::FindMenu(std::int16_t menuStringList) {
    for (Menu& menu : menus)
        if (menu.strings == menuStringList) return &menu;
    return nullptr;
}

RegistrationRole::Command* RegistrationRole::FindCommand(const host::ModuleId& addOn, std::uint32_t code) {
    for (Command& command : commands)
        if (command.addOn == addOn && command.code == code) return &command;
    return nullptr;
}

} // namespace workbench
