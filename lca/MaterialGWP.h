// The text of a building material's "GWP per unit": a plain number, or entries phase "=" value joined by ";".
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace lca {

/// Values by EN 15978 module, in kg CO2eq per unit of the material.
struct MaterialGWP {
    std::optional<double> plain;                         ///< a text that is one number
    std::vector<std::pair<std::string, double>> byPhase; ///< in the text's order, each phase once
};

/// Unreadable parts are left out: a text without any readable value gives neither form.
MaterialGWP DecodeMaterialGWP(std::string_view text);
std::string EncodeMaterialGWP(const MaterialGWP& values);

/// GWP per unit: the plain number, or the sum over the used phases; 0 where nothing is given.
double SumMaterialGWP(const MaterialGWP& values, const std::vector<std::string>& usedPhases);

/// The value of one phase: its entry, or the plain number where the phase is the first of the used ones, else 0.
/// firstUsedPhase is the used phase that sorts first.
double GetPhaseGWP(const MaterialGWP& values, std::string_view phase, std::string_view firstUsedPhase);

/// The text with the phase's value set. A plain number becomes the entry of the first used phase; every other part of
/// the text, readable or not, stays.
std::string SetPhaseGWP(std::string_view text, std::string_view phase, std::string_view firstUsedPhase, double value);

} // namespace lca
