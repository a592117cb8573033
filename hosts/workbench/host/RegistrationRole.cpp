#include "workbench/host/RegistrationRole.h"

namespace workbench {

host::ErrorCode RegistrationRole::RegisterMenu(std::int16_t menuStringList, std::int16_t promptStringList) {
    if (phase != Phase::Registering) return host::Errors::RefusedCommand;
    if (FindMenu(menuStringList) != nullptr) return host::Errors::BadId;
    menus.push_back({menuStringList, promptStringList, {}, nullptr});
    return host::NoError;
}

host::ErrorCode RegistrationRole::RegisterSupportedCommand(std::uint32_t code, std::int32_t version) {
    if (phase != Phase::Registering) return host::Errors::RefusedCommand;
    return commands.try_emplace(code, Command{version, nullptr}).second ? host::NoError : host::Errors::BadId;
}

host::ErrorCode RegistrationRole::InstallMenuHandler(std::int16_t menuStringList, host::MenuHandler handler) {
    Menu* menu = FindMenu(menuStringList);
    if (phase != Phase::Initialising) return host::Errors::RefusedCommand;
    if (menu == nullptr) return host::Errors::BadId;
    menu->handler = handler;
    return host::NoError;
}

host::ErrorCode RegistrationRole::InstallCommandHandler(std::uint32_t code, std::int32_t version,
                                                        host::CommandHandler handler) {
    if (phase != Phase::Initialising) return host::Errors::RefusedCommand;
    const auto command = commands.find(code);
    if (command == commands.end() || command->second.version != version) return host::Errors::BadId;
    command->second.handler = handler;
    return host::NoError;
}

host::ErrorCode RegistrationRole::InstallProjectEventHandler(std::uint32_t events, host::ProjectEventHandler handler) {
    if (phase != Phase::Initialising) return host::Errors::RefusedCommand;
    eventMask = events;
    eventHandler = handler;
    return host::NoError;
}

host::ErrorCode RegistrationRole::InstallReservationChangeHandler(host::ReservationChangeHandler handler,
                                                                  const std::set<host::Guid>& lockableSets) {
    if (phase != Phase::Initialising) return host::Errors::RefusedCommand;
    reservationHandler = handler;
    watchedSets = lockableSets;
    return host::NoError;
}

host::ErrorCode RegistrationRole::SetMenuItemText(std::int16_t menuStringList, std::int32_t itemIndex,
                                                  const std::string& text) {
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

host::ErrorCode RegistrationRole::RaiseEvent(host::ProjectEvent event) {
    if (eventHandler == nullptr || (eventMask & static_cast<std::uint32_t>(event)) == 0) return host::NoError;
    return eventHandler(event, 0);
}

host::ErrorCode RegistrationRole::RaiseReservationChange(const host::Guid& lockableSet, std::int16_t ownerId) {
    if (reservationHandler == nullptr || watchedSets.count(lockableSet) == 0) return host::NoError;
    return reservationHandler(lockableSet, ownerId);
}

RegistrationRole::Menu* RegistrationRole::FindMenu(std::int16_t menuStringList) {
    for (Menu& menu : menus)
        if (menu.strings == menuStringList) return &menu;
    return nullptr;
}

} // namespace workbench
