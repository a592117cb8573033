// A modal dialog on data that a lockable set guards in a Teamwork project: with the reservation's group at its foot,
// and to be confirmed by the set's holder only.
#pragma once

#include "General/AnchoredDialog.h"
#include "General/TeamworkControl.h"

namespace General {

class ReservedDialog : public AnchoredDialog {
public:
    /// setName outlives the dialog.
    ReservedDialog(host::Host& host, std::int16_t resource, const char* guid, DialogLayout layout, const char* setName,
                   const TeamworkItems& items)
        : AnchoredDialog(host, resource, guid, std::move(layout)), teamwork(host, setName, items), items(items) {}

    /// Shows the present reservation; while the dialog is open.
    void RefreshTeamwork() { TakeState(teamwork.Refresh(GetDialog())); }

protected:
    /// The set is held from now on: until now others could change what is shown.
    virtual void OnReserved() = 0;
    /// Confirms, cancels, and reserves or releases.
    std::int16_t OnClick(std::int16_t item, const host::DialogMessageData& data) override;

    /// At initialisation: shows the reservation and its group of items in a Teamwork project only; answers whether it
    /// is one.
    bool ShowTeamwork(std::initializer_list<std::int16_t> group);

private:
    void TakeState(TeamworkControl::Confirming state);

    TeamworkControl teamwork;
    TeamworkItems items;
    bool isEditable = false; ///< by the last look at the reservation
};

} // namespace General
