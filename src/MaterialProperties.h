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
    std::string unit; ///< "m3", "m2" or "kg"; empty where the material has no valid choice
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

    Values Read(host::AttributeIndex material) const;
    /// The GWP text as stored; empty where there is none.
    static std::string GetGWPText(const Values& values);
    std::string GetUnitText(const Values& values) const;
    static std::int32_t GetServiceLife(const Values& values);

    /// firstUsedPhase takes a GWP that is stored as one number.
    MaterialPhaseValues Get(const Values& values, const std::string& phase, const std::string& firstUsedPhase) const;
    /// Where the model lacks a definition, that member cannot be set and is left.
    void Set(Values& values, const std::string& phase, const std::string& firstUsedPhase,
             const MaterialPhaseChange& change) const;
    /// Writes the material's own values, inside an undoable command; those that only are a definition's default stay
    /// unwritten.
    host::ErrorCode Store(host::AttributeIndex material, const Values& values) const;

private:
    host::Host& host;
    std::vector<host::Guid> guids; ///< of the three definitions; null where the model has none
    host::PropertyDefinition unitDefinition;
};
