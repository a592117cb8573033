// The lockable set that guards the add-on's data in a shared project.
#pragma once

#include "General/TeamworkControl.h"
#include "host/Host.h"
#include "host/Teamwork.h"

/// State of the set that holds the LCA schema and the project record.
inline host::LockableStatus ReadPropertiesStatus(host::Host& host) {
    return General::ReadSetStatus(host, host::ClassificationsAndPropertiesSet);
}

/// Always in a project that is not shared; in a shared one while this user holds the set.
inline bool CanChangeProperties(host::Host& host) {
    return !host.GetTeamwork().IsTeamworkProject() || ReadPropertiesStatus(host) == host::LockableStatus::HeldByMe;
}
