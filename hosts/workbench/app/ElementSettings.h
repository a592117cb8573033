// Values of single elements, written as GUID:KEY=VALUE.
#pragma once

#include "workbench/result/Result.h"

#include "host/Properties.h"
#include "lca/PropertyKeys.h"

#include <string>

namespace workbench {

struct ElementSetting {
    std::string text; ///< as the user wrote it
    host::Guid element;
    lca::PropertyKey key = lca::PropertyKey::Include;
    host::Variant value;
};

/// KEY is INCLUDE (1, 0, true, false), GWPPERCENTAGE or GWP (numbers). The failure is about the text alone.
Result<ElementSetting> ParseElementSetting(const std::string& text);

} // namespace workbench
