// What the loaded add-ons registered and installed, and the calls back into them.
#pragma once

#include "host/Registration.h"
#include "workbench/commands/PartnerCommands.h"
#include "workbench/host/Refusals.h"

#include <optional>
#include <variant>
#include <vector>

namespace workbench {

class RegistrationRole : public host::Registration, public PartnerCommands {
public:
    explicit RegistrationRole(const Refusals& refusals) : refusals(refusals) {}

    void KeepInMemory(bool keep) override { keepsInMemory = keep; }
    host::ErrorCode RegisterMenu(std::int16_t menuStringList, std::int16_t promptStringList) override;
    host::ErrorCode RegisterSupportedCommand(std::uint32_t code, std::int32_t version) override;
    host::ErrorCode InstallMenuHandler(std::int16_t menuStringList, host::MenuHandler handler) override;
    host::ErrorCode InstallSettingsCommandHandler(std::uint32_t code, std::int32_t version,
                                                  host::SettingsCommandHandler handler) override {
        return InstallCommandHandler(code, version, handler);
    }
    host::ErrorCode InstallDocumentCommandHandler(std::uint32_t code, std::int32_t version,
                                                  host::DocumentCommandHandler handler) override {
        return InstallCommandHandler(code, version, handler);
    }
    host::ErrorCode InstallPartnerHandler(std::uint32_t code, std::int32_t version, PartnerHandler handler) override {
        return InstallCommandHandler(code, version, handler);
    }
    host::ErrorCode InstallProjectEventHandler(std::uint32_t events, host::ProjectEventHandler handler) override;
    host::ErrorCode InstallReservationChangeHandler(host::ReservationChangeHandler handler,
                                                    const std::set<host::Guid>& lockableSets) override;
    host::ErrorCode SetMenuItemText(std::int16_t menuStringList, std::int32_t itemIndex,
                                    const std::string& text) override;

    /// Registering is allowed only during interface registration, as the host demands.
    enum class Phase { Closed, Registering, Initialising, InEvent };
    /// What is registered and installed from now on is the add-on's.
    void SetPhase(Phase now, const host::ModuleId& addOn = {}) {
        phase = now;
        starting = addOn;
    }
    Phase GetPhase() const { return phase; }
    /// Forgets everything of an add-on that is being unloaded.
    void Remove(const host::ModuleId& addOn);

    /// Chooses a menu item; BadId when nobody handles that menu.
    host::ErrorCode ChooseMenu(std::int16_t menuStringList, std::int32_t itemIndex);
    /// Tells every add-on that asked for that event, in the order of loading; answers the first failure.
    host::ErrorCode RaiseEvent(host::ProjectEvent event);
    /// Tells every add-on that watches that set; ownerId 0 is released.
    host::ErrorCode RaiseReservationChange(const host::Guid& lockableSet, std::int16_t ownerId);
    host::ErrorCode CallCommand(const host::ModuleId& target, std::uint32_t code, std::int32_t version,
                                const CommandData& data, bool silent) const override;

    struct Menu {
        host::ModuleId addOn;
        std::int16_t strings = 0;
        std::int16_t prompts = 0;
        std::optional<std::string> itemText; ///< set at run time
        host::MenuHandler handler = nullptr;
    };
    /// None until it is installed.
    using CommandHandler =
        std::variant<std::monostate, host::SettingsCommandHandler, host::DocumentCommandHandler, PartnerHandler>;
    struct Command {
        host::ModuleId addOn;
        std::uint32_t code = 0;
        std::int32_t version = 0;
        CommandHandler handler;
    };

    /// Of all add-ons.
    const std::vector<Menu>& GetMenus() const { return menus; }
    const std::vector<Command>& GetCommands() const { return commands; }
    bool IsKeptInMemory() const { return keepsInMemory; }

private:
    struct EventHandler {
        host::ModuleId addOn;
        std::uint32_t events = 0;
        host::ProjectEventHandler handler = nullptr;
    };
    struct ReservationHandler {
        host::ModuleId addOn;
        std::set<host::Guid> sets;
        host::ReservationChangeHandler handler = nullptr;
    };

    /// BadId for a command that was not declared, and for a second one of a form that has one an add-on.
    host::ErrorCode InstallCommandHandler(std::uint32_t code, std::int32_t version, CommandHandler handler);
    Menu* FindMenu(std::int16_t menuStringList);
    Command* FindCommand(const host::ModuleId& addOn, std::uint32_t code);

    const Refusals& refusals;
    Phase phase = Phase::Closed;
    host::ModuleId starting;
    bool keepsInMemory = false;
    std::vector<Menu> menus;
    std::vector<Command> commands;
    std::vector<EventHandler> eventHandlers;
    std::vector<ReservationHandler> reservationHandlers;
};

} // namespace workbench
