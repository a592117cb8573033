#include "workbench/host/TeamworkRole.h"

#include <algorithm>
#include <array>

namespace workbench {

namespace {

struct LockableSet {
    const char* name;
    const char* title; ///< as people read it
};

constexpr std::array<LockableSet, 2> LockableSets = {
    {{host::ClassificationsAndPropertiesSet, "classifications and properties"},
     {host::BuildingMaterialsSet, "building materials"}}};

/// Identifiers of the sets are their positions and the number of the opened project; only this host hands them out.
host::Guid GuidOfSet(std::size_t position, std::uint16_t opening) {
    host::Guid guid;
    guid.bytes[0] = 0x4B; // never null
    guid.bytes[13] = static_cast<std::uint8_t>(opening >> 8U);
    guid.bytes[14] = static_cast<std::uint8_t>(opening);
    guid.bytes[15] = static_cast<std::uint8_t>(position);
    return guid;
}

const LockableSet* FindSet(const host::Guid& guid, std::uint16_t opening) {
    for (std::size_t i = 0; i < LockableSets.size(); ++i)
        if (guid == GuidOfSet(i, opening)) return &LockableSets[i];
    return nullptr;
}

constexpr std::int16_t ReleaseAnswer = 1;

} // namespace

host::Guid TeamworkRole::FindLockableSet(const std::string& name) {
    for (std::size_t i = 0; i < LockableSets.size() && project != nullptr; ++i)
        if (name == LockableSets[i].name) return GuidOfSet(i, opening);
    return {};
}

host::LockableStatus TeamworkRole::ReadLockableStatus(const host::Guid& lockableSet) {
    const LockableSet* set = FindSet(lockableSet, opening);
    if (set == nullptr || project == nullptr) return host::LockableStatus::Unknown;
    const std::int16_t holder = FindHolder(set->name);
    if (holder == 0) return host::LockableStatus::Free;
    return holder == access.userId ? host::LockableStatus::HeldByMe : host::LockableStatus::HeldByOther;
}

std::vector<std::int16_t> TeamworkRole::ListHolders(const host::Guid& lockableSet) {
    const LockableSet* set = FindSet(lockableSet, opening);
    const std::int16_t holder = set == nullptr || project == nullptr ? std::int16_t{0} : FindHolder(set->name);
    return holder == 0 ? std::vector<std::int16_t>() : std::vector<std::int16_t>{holder};
}

host::ErrorCode TeamworkRole::Reserve(const host::Guid& lockableSet, host::HostDialogs dialogs) {
    std::string setName;
    if (const host::ErrorCode error = CheckChange(lockableSet, setName)) return error;
    bool isMine = false;
    const Outcome kept = project->ChangeTeamwork([&] {
        Model& model = project->model;
        const std::int16_t holder = FindHolder(setName);
        isMine = holder == 0 || holder == access.userId;
        if (holder == 0) {
            model.reservations.push_back({setName, access.userId});
            std::erase(model.requests, ReservationRequest{setName, access.userId});
            return true;
        }
        const ReservationRequest request{setName, access.userId};
        const bool isKnown = std::count(model.requests.begin(), model.requests.end(), request) > 0;
        if (isMine || isKnown || dialogs == host::HostDialogs::Disabled) return false;
        model.requests.push_back(request);
        return true;
    });
    if (kept.HasFailed()) return host::Errors::General;
    if (!isMine) return host::Errors::NoAccessRight;
    project->ReceiveChanges(); // from here on nobody else changes what the set guards
    return host::NoError;
}

host::ErrorCode TeamworkRole::Release(const host::Guid& lockableSet, host::HostDialogs) {
    std::string setName;
    if (const host::ErrorCode error = CheckChange(lockableSet, setName)) return error;
    bool wasMine = false;
    const Outcome kept = project->ChangeTeamwork([&] {
        wasMine = FindHolder(setName) == access.userId;
        if (wasMine)
            std::erase_if(project->model.reservations,
                          [&](const Reservation& one) { return one.lockableSet == setName; });
        return wasMine;
    });
    if (kept.HasFailed()) return host::Errors::General;
    return wasMine ? host::NoError : host::Errors::NoAccessRight;
}

host::ErrorCode TeamworkRole::ListMembers(std::vector<host::ProjectMember>& members) {
    if (!IsTeamworkProject()) return host::Errors::NoTeamworkProject;
    members.clear();
    for (const Member& member : project->model.members)
        members.push_back({member.userId, member.login, member.fullName});
    return host::NoError;
}

void TeamworkRole::TurnEventLoop() {
    if (!IsTeamworkProject() || project->IsInCommand()) return;
    project->ReceiveChanges();
    for (const LockableSet& set : LockableSets) {
        const std::int16_t holder = FindHolder(set.name);
        std::int16_t& told = toldHolders[set.name];
        if (told == holder) continue;
        told = holder;
        std::ignore = registration.RaiseReservationChange(FindLockableSet(set.name), holder);
    }
    AnswerRequests();
}

void TeamworkRole::TakeHolders() {
    ++opening;
    toldHolders.clear();
    for (const LockableSet& set : LockableSets)
        toldHolders[set.name] = project == nullptr ? std::int16_t{0} : FindHolder(set.name);
}

void TeamworkRole::AnswerRequests() {
    const std::vector<ReservationRequest> requests = project->model.requests;
    for (const ReservationRequest& request : requests) {
        if (access.userId == 0 || FindHolder(request.lockableSet) != access.userId) continue;
        const host::Guid guid = FindLockableSet(request.lockableSet);
        const LockableSet* set = FindSet(guid, opening);
        // Not kept: the next turn asks again.
        std::ignore = project->ChangeTeamwork([&] { return std::erase(project->model.requests, request) > 0; });
        const std::string question = GetMemberName(request.userId) + " asks you to release the " +
                                     (set == nullptr ? request.lockableSet : std::string(set->title)) + ".";
        if (alerts.Show({host::AlertType::Information, RequestAlertTitle, question, {}, {"Release", "Keep"}}) ==
            ReleaseAnswer)
            std::ignore = Release(guid, host::HostDialogs::Enabled); // refused: the next turn asks again
    }
}

std::int16_t TeamworkRole::FindHolder(const std::string& setName) const {
    for (const Reservation& reservation : project->model.reservations)
        if (reservation.lockableSet == setName) return reservation.userId;
    return 0;
}

host::ErrorCode TeamworkRole::CheckChange(const host::Guid& lockableSet, std::string& setName) const {
    if (project == nullptr) return host::Errors::NoProject;
    if (!project->model.IsShared()) return host::Errors::NoTeamworkProject;
    const LockableSet* set = FindSet(lockableSet, opening);
    if (set == nullptr) return host::Errors::BadId;
    if (project->IsInCommand()) return host::Errors::RefusedCommand;
    if (access.userId == 0) return host::Errors::NoAccessRight;
    setName = set->name;
    return isServerReachable ? host::NoError : host::Errors::General;
}

std::string TeamworkRole::GetMemberName(std::int16_t userId) const {
    for (const Member& member : project->model.members)
        if (member.userId == userId) return member.fullName.empty() ? member.login : member.fullName;
    return "Somebody";
}

} // namespace workbench
