// Texts of the add-on's resources by name.
#pragma once

#include "host/Host.h"
#include "host/Resources.h"
#include "resources/ResourceIds.h"

#include <string>

inline std::string ReadText(host::Host& host, ResourceIds::StringId id) {
    return host.GetResources().ReadString(id.list, id.entry);
}
