#include "General/ReservedDialog.h"

#include <utility>

namespace General {

namespace {

constexpr std::int16_t CancelItem = 2;

} // namespace

std::int16_t ReservedDialog::OnClick(std::int16_t item, const host::DialogMessageData& /*data*/) {
    if (item == items.button) TakeState(teamwork.ButtonClicked(GetDialog()));
    return item == ConfirmItem || item == CancelItem ? item : std::int16_t{0};
}

bool ReservedDialog::ShowTeamwork(std::initializer_list<std::int16_t> group) {
    const bool isShared = teamwork.ShowInTeamworkOnly(GetDialog(), group);
    isEditable = teamwork.Refresh(GetDialog()) == TeamworkControl::Confirming::Allowed;
    return isShared;
}

void ReservedDialog::TakeState(TeamworkControl::Confirming state) {
    const bool isAllowed = state == TeamworkControl::Confirming::Allowed;
    if (!std::exchange(isEditable, isAllowed) && isAllowed) OnReserved();
}

} // namespace General
