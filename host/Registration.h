// Role: what the add-on announces to the host at start, and the handlers through which the host calls back.
#pragma once

#include "host/ObjectState.h"
#include "host/Values.h"

#include <set>

namespace host {

/// The menu item that was chosen.
struct MenuCommand {
    std::int16_t menuStringList = 0;
    std::int32_t itemIndex = 0; ///< counted from 1, the menu title not counted
};

// Handlers answer an error code and let no exception out.
using MenuHandler = ErrorCode (*)(const MenuCommand& command);
using ProjectEventHandler = ErrorCode (*)(ProjectEvent event, std::int32_t parameter);
using ReservationChangeHandler = ErrorCode (*)(const Guid& lockableSet, std::int16_t ownerId);

// Commands of other add-ons. The host takes the caller's block apart and answers by itself where something is missing:
// BadParameters without a block or document, EnergyExchange::SettingsMissing without settings. A silent call shows
// nothing to the user.

/// The caller's settings tree, which the answer replaces.
using SettingsCommandHandler = ErrorCode (*)(ObjectState& settings, bool silent);
/// A text in UTF-8.
using DocumentCommandHandler = ErrorCode (*)(const std::string& document, bool silent);

class Registration {
public:
    virtual ~Registration() = default;

    /// Asks the host to leave the module loaded after the running callback; asked again at each callback.
    virtual void KeepInMemory(bool keep) = 0;
    /// Only during interface registration. The lists hold the title as item 1 and the item's text or prompt as item 2.
    virtual ErrorCode RegisterMenu(std::int16_t menuStringList, std::int16_t promptStringList) = 0;
    /// Only during interface registration: a command that other add-ons may call.
    virtual ErrorCode RegisterSupportedCommand(std::uint32_t code, std::int32_t version) = 0;
    /// Only during initialisation, as the following four; one handler a menu list.
    virtual ErrorCode InstallMenuHandler(std::int16_t menuStringList, MenuHandler handler) = 0;
    /// One command of each form an add-on: the host's own callback does not learn which it answers.
    virtual ErrorCode InstallSettingsCommandHandler(std::uint32_t code, std::int32_t version,
                                                    SettingsCommandHandler handler) = 0;
    virtual ErrorCode InstallDocumentCommandHandler(std::uint32_t code, std::int32_t version,
                                                    DocumentCommandHandler handler) = 0;
    /// events is a mask of ProjectEvent codes.
    virtual ErrorCode InstallProjectEventHandler(std::uint32_t events, ProjectEventHandler handler) = 0;
    /// One handler and one filter an add-on: a second call replaces the first. Also in a project event, since another
    /// project may have other sets.
    virtual ErrorCode InstallReservationChangeHandler(ReservationChangeHandler handler,
                                                      const std::set<Guid>& lockableSets) = 0;
    /// Changes the text of a menu item of this add-on; BadIndex when it has none there.
    virtual ErrorCode SetMenuItemText(std::int16_t menuStringList, std::int32_t itemIndex, const std::string& text) = 0;
};

} // namespace host
