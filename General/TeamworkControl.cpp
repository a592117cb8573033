#include "General/TeamworkControl.h"

#include "host/Resources.h"
#include "resources/ResourceIds.h"

namespace General {

namespace {

using namespace ResourceIds;

constexpr char UnknownName[] = "???";
constexpr char NamePlaceholder[] = "%s";

struct Look {
    StringId status;
    StringId button;
    std::int16_t icon;
};

Look GetLook(host::LockableStatus status) {
    switch (status) {
    case host::LockableStatus::Free:
        return {Teamwork::FreeStatus, Teamwork::ReserveButton, Icons::FreeForReservation};
    case host::LockableStatus::HeldByMe:
        return {Teamwork::EditableStatus, Teamwork::ReleaseButton, Icons::Editable};
    default:
        return {Teamwork::ReservedByStatus, Teamwork::RequestButton, Icons::ReservedByOther};
    }
}

std::string FillIn(std::string text, const std::string& name) {
    const std::size_t place = text.find(NamePlaceholder);
    return place == std::string::npos ? text : text.replace(place, sizeof NamePlaceholder - 1, name);
}

host::LockableStatus ReadStatus(host::Host& host, const host::Guid& lockableSet) {
    return lockableSet.IsNull() ? host::LockableStatus::Unknown : host.GetTeamwork().ReadLockableStatus(lockableSet);
}

} // namespace

host::LockableStatus ReadSetStatus(host::Host& host, const char* setName) {
    return ReadStatus(host, host.GetTeamwork().FindLockableSet(setName));
}

bool TeamworkControl::ShowInTeamworkOnly(host::DialogId dialog, std::initializer_list<std::int16_t> group) {
    const bool isShared = host.GetTeamwork().IsTeamworkProject();
    for (const std::int16_t item : group)
        host.GetDialogItems().Show(dialog, item, isShared);
    return isShared;
}

TeamworkControl::Confirming TeamworkControl::Refresh(host::DialogId dialog) {
    host::DialogItems& dialogItems = host.GetDialogItems();
    host::Teamwork& teamwork = host.GetTeamwork();
    if (!teamwork.IsTeamworkProject()) {
        dialogItems.Enable(dialog, ConfirmItem, true);
        return Confirming::Allowed;
    }
    const host::Guid lockableSet = teamwork.FindLockableSet(setName);
    const host::LockableStatus status = ReadStatus(host, lockableSet);
    const bool isFree = status == host::LockableStatus::Free;
    const bool isMine = status == host::LockableStatus::HeldByMe;
    const Look look = GetLook(status);
    const auto read = [&](StringId id) { return host.GetResources().ReadString(id.list, id.entry); };
    const std::string statusText = read(look.status);
    dialogItems.SetIcon(dialog, items.icon, look.icon);
    dialogItems.SetText(dialog, items.statusText,
                        isFree || isMine ? statusText : FillIn(statusText, FindHolderName(lockableSet)));
    dialogItems.SetText(dialog, items.button, read(look.button));
    dialogItems.Enable(dialog, ConfirmItem, isMine);
    return isMine ? Confirming::Allowed : Confirming::Denied;
}

TeamworkControl::Confirming TeamworkControl::ButtonClicked(host::DialogId dialog) {
    Refresh(dialog);
    host::Teamwork& teamwork = host.GetTeamwork();
    const host::Guid lockableSet =
        teamwork.IsTeamworkProject() && teamwork.HasConnection() ? teamwork.FindLockableSet(setName) : host::Guid();
    if (!lockableSet.IsNull()) {
        // The host's own windows tell the user what went wrong; a refusal shows in the refreshed state.
        if (teamwork.ReadLockableStatus(lockableSet) == host::LockableStatus::HeldByMe)
            static_cast<void>(teamwork.Release(lockableSet, host::HostDialogs::Enabled));
        else
            static_cast<void>(teamwork.Reserve(lockableSet, host::HostDialogs::Enabled));
    }
    return Refresh(dialog);
}

std::string TeamworkControl::FindHolderName(const host::Guid& lockableSet) {
    if (lockableSet.IsNull()) return UnknownName;
    const std::vector<std::int16_t> holders = host.GetTeamwork().ListHolders(lockableSet);
    std::vector<host::ProjectMember> members;
    if (holders.empty() || host.GetTeamwork().ListMembers(members) != host::NoError) return UnknownName;
    for (const host::ProjectMember& member : members)
        if (member.userId == holders.front()) return member.fullName.empty() ? member.loginName : member.fullName;
    return UnknownName;
}

} // namespace General
