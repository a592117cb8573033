// Role: what the add-on registers with the host at start, and the handlers through which the host calls back.
#pragma once

#include "host/ObjectState.h"
#include "host/Values.h"

#include <set>

namespace host {

/// The menu item that was chosen.
struct MenuCommand {
    std::int16_t menuStringList = 0;
    std::int32_t itemIndex = 0; ///< counted from 1, without the menu's title
};

// Handlers return an error code and must not throw.
using MenuHandler = ErrorCode (*)(const MenuCommand& command);
using ProjectEventHandler = ErrorCode (*)(ProjectEvent event, std::int32_t parameter);
using ReservationChangeHandler = ErrorCode (*)(const Guid& lockableSet, std::int16_t ownerId);

// Commands from other add-ons. The host unpacks the caller's block and responds itself if something is missing:
// BadParameters without a block or document, EnergyExchange::SettingsMissing without settings. A silent call shows
// nothing to the user.

/// Gets the caller's settings tree and replaces it by the response.
using SettingsCommandHandler = ErrorCode (*)(ObjectState& settings, bool silent);
/// Gets a text in UTF-8.
using DocumentCommandHandler = ErrorCode (*)(const std::string& document, bool silent);

class Registration {
public:
    virtual ~Registration() = default;

    /// Asks the host to keep the module loaded after the current callback; must be repeated in each callback.
    virtual void KeepInMemory(bool keep) = 0;
    /// Only during interface registration. Each list has the title as item 1 and the command's text or prompt as
    /// item 2.
    virtual ErrorCode RegisterMenu(std::int16_t menuStringList, std::int16_t promptStringList) = 0;
    /// Only during interface registration. A command that other add-ons may call.
    virtual ErrorCode RegisterSupportedCommand(std::uint32_t code, std::int32_t version) = 0;
    /// Only during initialisation, like the next four; one handler per menu list.
    virtual ErrorCode InstallMenuHandler(std::int16_t menuStringList, MenuHandler handler) = 0;
    /// One command of each form per add-on, because the host's callback is not told which command it serves.
    virtual ErrorCode InstallSettingsCommandHandler(std::uint32_t code, std::int32_t version,
                                                    SettingsCommandHandler handler) = 0;
    virtual ErrorCode InstallDocumentCommandHandler(std::uint32_t code, std::int32_t version,
                                                    DocumentCommandHandler handler) = 0;
    /// events is a mask of ProjectEvent codes.
    virtual ErrorCode InstallProjectEventHandler(std::uint32_t events, ProjectEventHandler handler) = 0;
    /// One handler and one filter per add-on; a second call replaces the first. Also allowed in a project event,
    /// because another project may have other sets.
    virtual ErrorCode InstallReservationChangeHandler(ReservationChangeHandler handler,
                                                      const std::set<Guid>& lockableSets) = 0;
    /// Changes the text of a menu item of this add-on; BadIndex if there is no such item.
    virtual ErrorCode SetMenuItemText(std::int16_t menuStringList, std::int32_t itemIndex, const std::string& text) = 0;
};

} // namespace host
