// Role: members of a Teamwork project and the reservation of its shared settings.
#pragma once

#include "host/Values.h"

#include <vector>

namespace host {

/// Reservation of a lockable set as the host reports it; anything but the first two counts as somebody else's.
enum class LockableStatus : std::int32_t { Unknown = 0, Free = 1, HeldByMe = 2, HeldByOther = 3 };

/// Names of the sets that guard the add-on's data.
inline constexpr char ClassificationsAndPropertiesSet[] = "ClassificationsAndProperties";
inline constexpr char BuildingMaterialsSet[] = "BuildingMaterials";

struct ProjectMember {
    std::int16_t userId = 0;
    std::string loginName;
    std::string fullName; ///< may be empty
};

/// Whether the host's own windows may open on the way: questions, refusals, requests to the holder.
enum class HostDialogs { Enabled, Disabled };

class Teamwork {
public:
    virtual ~Teamwork() = default;

    virtual bool IsTeamworkProject() = 0;
    /// Whether the Teamwork server can be reached.
    virtual bool HasConnection() = 0;
    /// The null identifier when the host knows no set of that name.
    virtual Guid FindLockableSet(const std::string& name) = 0;
    virtual LockableStatus ReadLockableStatus(const Guid& lockableSet) = 0;
    /// The users that hold the set; none when it is free.
    virtual std::vector<std::int16_t> ListHolders(const Guid& lockableSet) = 0;
    /// For a set that somebody else holds the host's own request handling takes over. NoTeamworkProject, BadId,
    /// NoAccessRight (held by somebody else). Not inside an undoable command.
    virtual ErrorCode Reserve(const Guid& lockableSet, HostDialogs dialogs) = 0;
    /// NoTeamworkProject, BadId, NoAccessRight (not held by this user).
    virtual ErrorCode Release(const Guid& lockableSet, HostDialogs dialogs) = 0;
    /// NoTeamworkProject in a project that is not shared.
    virtual ErrorCode ListMembers(std::vector<ProjectMember>& members) = 0;
};

} // namespace host
