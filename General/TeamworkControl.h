// The reservation of one lockable set at the foot of a dialog: a status icon, a status text and one button that
// reserves, releases or requests. Keeps no state: each refresh asks the host again.
#pragma once

#include "host/Dialogs.h"
#include "host/Host.h"
#include "host/Teamwork.h"

#include <initializer_list>

namespace General {

/// The button that confirms a dialog.
inline constexpr std::int16_t ConfirmItem = 1;

/// Unknown where the host knows no set of this name.
host::LockableStatus ReadSetStatus(host::Host& host, const char* setName);

/// Items of the control in a dialog.
struct TeamworkItems {
    std::int16_t icon;
    std::int16_t statusText;
    std::int16_t button;
};

class TeamworkControl {
public:
    /// setName outlives the control.
    TeamworkControl(host::Host& host, const char* setName, const TeamworkItems& items)
        : host(host), setName(setName), items(items) {}

    /// Shows the items that belong to the control in a Teamwork project only; answers whether it is one.
    bool ShowInTeamworkOnly(host::DialogId dialog, std::initializer_list<std::int16_t> group);
    /// Shows who holds the set and lets the dialog be confirmed (item 1) only by its holder. In a project that is not
    /// shared the dialog can always be confirmed, and the control's own items stay as they are.
    enum class Confirming { Allowed, Denied };
    Confirming Refresh(host::DialogId dialog);
    /// Reserves or requests a set that this user does not hold and releases one that is held, where the Teamwork server
    /// can be reached. Answers as the refresh that follows.
    Confirming ButtonClicked(host::DialogId dialog);

private:
    std::string FindHolderName(const host::Guid& lockableSet);

    host::Host& host;
    const char* setName;
    TeamworkItems items;
};

} // namespace General
