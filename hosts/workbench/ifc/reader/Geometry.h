// Volume and surface of an element's body, by the reading library's geometry: closed meshes and open shells in metres,
// openings subtracted. The library's bulky geometry headers stay in this one source file.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "Units.h"
#include "workbench/ifc/ElementRules.h"
#include "workbench/ifc/entities/Model.h"

namespace workbench::ifc {

/// What the caller wants to know of a body.
struct GeometryTask {
    std::optional<double> statedVolumeM3; ///< to be checked
    bool checkOnly = false;               ///< nothing but that check is wanted
};

struct BodyGeometry {
    std::optional<MeshQuantities> meshes; ///< nothing where the element has no body that can be computed
    /// The stated volume is certainly within a factor of two of the geometry's; there was no need to subtract openings.
    bool confirmed = false;
    std::string trouble; ///< what the library complained of; the meshes may then be inexact
};

class Geometry {
public:
    /// Lets the library read the model anew.
    Geometry(const entities::Model& model, const UnitFactors& units);
    ~Geometry();
    Geometry(const Geometry&) = delete;
    Geometry& operator=(const Geometry&) = delete;

    /// Does not throw for what the element holds, but the library may bring the process down.
    [[nodiscard]] BodyGeometry Compute(const entities::Entity& entity, const GeometryTask& task);

private:
    struct Parts;
    std::unique_ptr<Parts> parts;
};

} // namespace workbench::ifc
