// Volume and surface of an element's body in metres, openings subtracted, as the rules of the import want them.
#pragma once

#include <optional>
#include <string>

#include "Units.h"
#include "workbench/ifc/ElementRules.h"
#include "workbench/ifc/bodies/Elements.h"

namespace workbench::ifc {

/// What the caller wants to know of a body.
struct GeometryTask {
    std::optional<double> statedVolumeM3; ///< to be checked
    bool isBodyWanted = true;             ///< also where that volume is confirmed
};

struct BodyGeometry {
    /// Nothing where the element has no body that can be computed, or none was wanted.
    std::optional<MeshQuantities> meshes;
    VolumeCheck check = VolumeCheck::Open;
    std::string trouble; ///< what was not computed, or not exactly, in sentences
};

class Geometry {
public:
    /// MODEL must outlive the geometry.
    Geometry(const entities::Model& model, const UnitFactors& units)
        : elements(model, {units.lengthM, units.angleRad}) {}

    [[nodiscard]] BodyGeometry Compute(const entities::Entity& entity, const GeometryTask& task);

private:
    bodies::ElementReader elements;
};

} // namespace workbench::ifc
