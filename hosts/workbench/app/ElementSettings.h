// Values of single elements from the command line: --element GUID:KEY=VALUE.
#pragma once

#include "workbench/app/Outcome.h"

#include "host/Properties.h"
#include "lca/PropertyKeys.h"

#include <string>
#include <vector>

namespace workbench {

struct ElementSetting {
    std::string argument; ///< for messages
    host::Guid element;
    lca::PropertyKey key = lca::PropertyKey::Include;
    host::Variant value;
};

/// KEY is INCLUDE (1, 0, true, false), GWPPERCENTAGE or GWP (numbers). A bad one is a usage error.
Outcome ParseElementSetting(const std::string& argument, ElementSetting& setting);

} // namespace workbench
