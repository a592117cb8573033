// Role: reservation of shared settings in a Teamwork project.
#pragma once

#include "host/Values.h"

namespace host {

/// Reservation of a lockable set as the host reports it; anything but the first two counts as somebody else's.
enum class LockableStatus : std::int32_t { Unknown = 0, Free = 1, HeldByMe = 2, HeldByOther = 3 };

/// Names of the sets that guard the add-on's data.
inline constexpr char ClassificationsAndPropertiesSet[] = "ClassificationsAndProperties";
inline constexpr char BuildingMaterialsSet[] = "BuildingMaterials";

class Teamwork {
public:
    virtual ~Teamwork() = default;

    virtual bool IsTeamworkProject() = 0;
    /// The null identifier when the host knows no set of that name.
    virtual Guid FindLockableSet(const std::string& name) = 0;
    virtual LockableStatus ReadLockableStatus(const Guid& lockableSet) = 0;
};

} // namespace host
