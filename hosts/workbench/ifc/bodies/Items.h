// Representation items of a file as bodies in metres: faces, sweeps, booleans of them, and items that repeat others.
#pragma once

#include <map>

#include "workbench/ifc/bodies/Context.h"
#include "workbench/ifc/geometry/Body.h"

namespace workbench::bodies {

enum class Detail : std::uint8_t {
    Full,
    Uncut ///< first operands only: what clippings leave is not computed
};

class ItemReader {
public:
    /// In the coordinates of the representation that ITEM stands in. Empty, with a remark, for what cannot be computed;
    /// what never is a body (curves, points, sets of them) is empty without.
    [[nodiscard]] geometry::Body Read(const Context& context, const entities::Entity& item, Detail detail);

    /// All items of an IfcRepresentation side by side.
    [[nodiscard]] geometry::Body ReadAll(const Context& context, const entities::Entity& representation, Detail detail);

private:
    using Key = std::pair<step::EntityNumber, Detail>;

    geometry::Body Read(const Context& context, const entities::Entity& item, Detail detail, int depth);
    geometry::Body ReadAll(const Context& context, const entities::Entity& representation, Detail detail, int depth);
    geometry::Body ReadMapped(const Context& context, const entities::Entity& item, Detail detail, int depth);
    geometry::Body ReadBoolean(const Context& context, const entities::Entity& item, Detail detail, int depth);
    geometry::Body Apply(const Context& context, geometry::Body first, const entities::Entity& result, Detail detail,
                         int depth);

    /// Representations that others are copies of, in their own coordinates, with the remarks that they caused.
    struct Known {
        geometry::Body body;
        Remarks remarks;
    };
    std::map<Key, Known> known;
};

} // namespace workbench::bodies
