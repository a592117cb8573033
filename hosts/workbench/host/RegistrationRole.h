// What the loaded add-on registered and installed, and the calls back into it.
#pragma once

#include "host/Registration.h"

#include <map>
#include <optional>
#include <vector>

namespace workbench {

class RegistrationRole : public host::Registration {
public:
    void KeepInMemory(bool keep) override { keepsInMemory = keep; }
    host::ErrorCode RegisterMenu(std::int16_t menuStringList, std::int16_t promptStringList) override;
    host::ErrorCode RegisterSupportedCommand(std::uint32_t code, std::int32_t version) override;
    host::ErrorCode InstallMenuHandler(std::int16_t menuStringList, host::MenuHandler handler) override;
    host::ErrorCode InstallCommandHandler(std::uint32_t code, std::int32_t version,
                                          host::CommandHandler handler) override;
    host::ErrorCode InstallProjectEventHandler(std::uint32_t events, host::ProjectEventHandler handler) override;
    host::ErrorCode InstallReservationChangeHandler(host::ReservationChangeHandler handler,
                                                    const std::set<host::Guid>& lockableSets) override;
    host::ErrorCode SetMenuItemText(std::int16_t menuStringList, std::int32_t itemIndex,
                                    const std::string& text) override;

    /// Registering is allowed only during interface registration, as the host demands.
    enum class Phase { Closed, Registering, Initialising };
    void SetPhase(Phase now) { phase = now; }
    /// Forgets everything of a module that is being unloaded.
    void Clear() { *this = RegistrationRole(); }

    /// Chooses a menu item; BadId when nobody handles that menu.
    host::ErrorCode ChooseMenu(std::int16_t menuStringList, std::int32_t itemIndex);
    /// Tells the installed handler, when it asked for that event.
    host::ErrorCode RaiseEvent(host::ProjectEvent event);

    /// Tells the installed handler, when it watches that set; ownerId 0 is released.
    host::ErrorCode RaiseReservationChange(const host::Guid& lockableSet, std::int16_t ownerId);

    struct Menu {
        std::int16_t strings = 0;
        std::int16_t prompts = 0;
        std::optional<std::string> itemText; ///< set at run time
        host::MenuHandler handler = nullptr;
    };
    struct Command {
        std::int32_t version = 0;
        host::CommandHandler handler = nullptr;
    };

    const std::vector<Menu>& GetMenus() const { return menus; }
    const std::map<std::uint32_t, Command>& GetCommands() const { return commands; }
    bool IsKeptInMemory() const { return keepsInMemory; }

private:
    Menu* FindMenu(std::int16_t menuStringList);

    Phase phase = Phase::Closed;
    bool keepsInMemory = false;
    std::vector<Menu> menus;
    std::map<std::uint32_t, Command> commands;
    std::uint32_t eventMask = 0;
    host::ProjectEventHandler eventHandler = nullptr;
    host::ReservationChangeHandler reservationHandler = nullptr;
    std::set<host::Guid> watchedSets;
};

} // namespace workbench
