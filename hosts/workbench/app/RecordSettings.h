// Settings of the project record as texts KEY=VALUE, one by one or in a settings file.
#pragma once

#include "workbench/result/Result.h"

#include "lca/LCAProjectData.h"
#include "lca/PropertyKeys.h"

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace workbench {

class RecordSettings {
public:
    /// One KEY=VALUE. The failure is about the text alone.
    Outcome AddArgument(const std::string& argument);
    /// Lines KEY = VALUE and # comments.
    Outcome AddFile(const std::string& path);

    bool IsEmpty() const { return settings.empty(); }
    bool Has(lca::PropertyKey key) const;

    /// Takes the settings into a record: quantities count as entered by hand, floor settings come last.
    void Apply(lca::LCAProjectData& record) const;

private:
    /// form  how a setting is written, for one without "="
    Outcome Add(std::string_view setting, const char* form);

    std::vector<std::pair<std::string, std::string>> settings; ///< checked, in the order given
};

/// The key that sets the unit of the standards; it is no stored key of its own.
inline constexpr char StandardsUnitKey[] = "GWP-STANDARDS-UNIT";

} // namespace workbench
