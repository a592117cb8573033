// Role: members of a Teamwork project and the reservation of its shared settings.
#pragma once

#include "host/Values.h"

#include <vector>

namespace host {

/// Reservation of a lockable set as the host reports it. Every value but Free and HeldByMe counts as held by others.
enum class LockableStatus : std::int32_t { Unknown = 0, Free = 1, HeldByMe = 2, HeldByOther = 3 };

/// Names of the sets that guard the add-on's data.
inline constexpr char ClassificationsAndPropertiesSet[] = "ClassificationsAndProperties";
inline constexpr char BuildingMaterialsSet[] = "BuildingMaterials";

struct ProjectMember {
    std::int16_t userId = 0;
    std::string loginName;
    std::string fullName; ///< may be empty
};

/// Whether the host may open windows of its own: questions, refusals, requests to the holder.
enum class HostDialogs { Enabled, Disabled };

class Teamwork {
public:
    virtual ~Teamwork() = default;

    virtual bool IsTeamworkProject() = 0;
    /// Whether the Teamwork server can be reached.
    virtual bool HasConnection() = 0;
    /// The null identifier if the host knows no set of this name.
    virtual Guid FindLockableSet(const std::string& name) = 0;
    virtual LockableStatus ReadLockableStatus(const Guid& lockableSet) = 0;
    /// The users who hold the set; empty if it is free.
    virtual std::vector<std::int16_t> ListHolders(const Guid& lockableSet) = 0;
    /// If somebody else holds the set, the host's own request handling takes over. NoTeamworkProject, BadId,
    /// NoAccessRight (held by somebody else). Not inside an undoable command.
    virtual ErrorCode Reserve(const Guid& lockableSet, HostDialogs dialogs) = 0;
    /// NoTeamworkProject, BadId, NoAccessRight (not held by this user).
    virtual ErrorCode Release(const Guid& lockableSet, HostDialogs dialogs) = 0;
    /// NoTeamworkProject in a project that is not shared.
    virtual ErrorCode ListMembers(std::vector<ProjectMember>& members) = 0;
};

} // namespace host
