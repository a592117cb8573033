// Settings of the project record from the command line: --set KEY=VALUE and settings files.
#pragma once

#include "workbench/app/Outcome.h"

#include "lca/LCAProjectData.h"
#include "lca/PropertyKeys.h"

#include <string>
#include <utility>
#include <vector>

namespace workbench {

class RecordSettings {
public:
    /// One KEY=VALUE; a bad one is a usage error.
    Outcome AddArgument(const std::string& argument);
    /// Lines KEY = VALUE and # comments.
    Outcome AddFile(const std::string& path);

    bool IsEmpty() const { return settings.empty(); }
    bool Has(lca::PropertyKey key) const;

    /// Takes the settings into a record: quantities count as entered by hand, floor settings come last.
    void Apply(lca::LCAProjectData& record) const;

private:
    Outcome Add(std::string key, std::string value, const std::string& where, ExitCode code);

    std::vector<std::pair<std::string, std::string>> settings; ///< checked, in the order given
};

/// The key that sets the unit of the standards; it is no stored key of its own.
inline constexpr char StandardsUnitKey[] = "GWP-STANDARDS-UNIT";

} // namespace workbench
