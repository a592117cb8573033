// What every step from an entity to a body needs: the units of the file, and a place for remarks.
#pragma once

#include <cmath>
#include <numbers>
#include <optional>
#include <set>
#include <string>

#include "workbench/ifc/entities/Model.h"

namespace workbench::bodies {

struct Units {
    double lengthM = 1.0;
    std::optional<double> angleRad = {}; ///< nothing where the file does not say it

    /// An angle of the file. Without a unit it is in radians, or in degrees where it is more than a full turn.
    [[nodiscard]] double ToRadians(double angle) const {
        constexpr double SlackRad = 0.01;
        if (angleRad) return angle * *angleRad;
        return std::abs(angle) > 2.0 * std::numbers::pi + SlackRad ? angle * std::numbers::pi / 180.0 : angle;
    }
};

/// What could not be done, or was done otherwise than the file asks: whole sentences, each once.
using Remarks = std::set<std::string>;

/// Entities may refer to each other in a circle, and to the same one many times over: what is nested deeper than this
/// is left out, and an element with more nested entities, points and faces not counted, is given up.
inline constexpr int DeepestNesting = 24;
inline constexpr std::size_t MostNested = 200'000;

struct Context {
    const entities::Model& model;
    Units units;
    Remarks& remarks;
    std::size_t& nested; ///< how many entities were gone into for this element

    /// Counts one more; false where that is too deep or too many.
    [[nodiscard]] bool MayEnter(int depth) const { return depth <= DeepestNesting && ++nested <= MostNested; }
};

/// "An IfcPcurve is not computed."
inline void RemarkNotComputed(const Context& context, const entities::Entity& entity) {
    if (!entity.IsNone()) context.remarks.insert(std::string(entity.GetTypeName()) + " is not computed.");
}

} // namespace workbench::bodies
