// The LCA property values of building materials: read from the model as a list, looked into and changed by phase,
// stored back.
#pragma once

#include "src/LCAProperties.h"

#include "lca/MaterialGWP.h"

#include <optional>
#include <string>
#include <vector>

/// A material's values for one phase.
struct MaterialPhaseValues {
    double gwp = 0.0; ///< kg CO2eq per unit, of this phase
    std::string unit; ///< "m3", "m2" or "kg"; "m3" where the material has no valid choice
    std::int32_t serviceLifeYears = 0;
};

/// What to set; an absent member stays as it is.
struct MaterialPhaseChange {
    std::optional<double> gwp;
    std::optional<std::string> unit;
    std::optional<std::int32_t> serviceLifeYears;
};

class MaterialProperties {
public:
    /// A material's values by definition: GWP text, unit, service life; empty where it has none.
    using Values = std::vector<host::PropertyValue>;

    explicit MaterialProperties(host::Host& host) : host(host) {}

    /// Looks the definitions up; they then count until the next load.
    host::ErrorCode Load();
    void Load(const LCADefinitions& definitions);

    /// Empty after an error, and where the model has none of the definitions.
    host::ErrorCode Read(host::AttributeIndex material, Values& values) const;
    /// The GWP text as stored; empty where there is none.
    static std::string GetGWPText(const Values& values);
    std::string GetUnitText(const Values& values) const;
    static std::int32_t GetServiceLife(const Values& values);

    /// firstUsedPhase takes a GWP that is stored as one number.
    MaterialPhaseValues Get(const Values& values, const std::string& phase, const std::string& firstUsedPhase) const;
    /// Where the model lacks a definition, that member cannot be set and is left.
    void Set(Values& values, const std::string& phase, const std::string& firstUsedPhase,
             const MaterialPhaseChange& change) const;
    /// Writes what Set has made different from `before`, inside an undoable command.
    host::ErrorCode StoreChanged(host::AttributeIndex material, Values before, const Values& after) const;

private:
    host::Host& host;
    std::vector<host::Guid> guids; ///< of the three definitions; null where the model has none
    host::PropertyDefinition unitDefinition;
};
