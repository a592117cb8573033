// Members and reservations of the open project. Reservations belong to members, not to processes: who dies holding a
// set still holds it. They are rows of the project file and change in transactions of their own, not as undo steps.
#pragma once

#include "host/Dialogs.h"
#include "host/Teamwork.h"
#include "workbench/host/Access.h"
#include "workbench/host/RegistrationRole.h"

#include <map>

namespace workbench {

/// Title of this host's own question whether a requested set is released: the first button releases, the second keeps.
inline constexpr char RequestAlertTitle[] = "Teamwork";

class TeamworkRole : public host::Teamwork {
public:
    TeamworkRole(Project*& project, const Access& access, RegistrationRole& registration, host::Alerts& alerts)
        : project(project), access(access), registration(registration), alerts(alerts) {}

    bool IsTeamworkProject() override { return project != nullptr && project->model.IsShared(); }
    bool HasConnection() override { return isServerReachable; }
    host::Guid FindLockableSet(const std::string& name) override;
    host::LockableStatus ReadLockableStatus(const host::Guid& lockableSet) override;
    std::vector<std::int16_t> ListHolders(const host::Guid& lockableSet) override;
    host::ErrorCode Reserve(const host::Guid& lockableSet, host::HostDialogs dialogs) override;
    host::ErrorCode Release(const host::Guid& lockableSet, host::HostDialogs dialogs) override;
    host::ErrorCode ListMembers(std::vector<host::ProjectMember>& members) override;

    /// Receives what other processes have written, tells the add-on of every set whose holder is not the one it was
    /// last told of, and asks this member about the others' requests. Does nothing while a command runs.
    void TurnEventLoop();
    /// What the add-on finds in a project that was just opened needs no telling.
    void TakeHolders();

    /// Without a server nothing can be reserved or released.
    bool isServerReachable = true;

private:
    std::int16_t FindHolder(const std::string& setName) const;
    host::ErrorCode CheckChange(const host::Guid& lockableSet, std::string& setName) const;
    void AnswerRequests();
    std::string GetMemberName(std::int16_t userId) const;

    Project*& project;
    const Access& access;
    RegistrationRole& registration;
    host::Alerts& alerts;
    std::map<std::string, std::int16_t> toldHolders; ///< by set; 0 is free
    std::uint16_t opening = 0;                       ///< counts the opened projects: each has sets of its own
};

} // namespace workbench
