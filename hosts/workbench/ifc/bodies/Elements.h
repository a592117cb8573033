// The body of an element with its openings taken out, and what can be said of how it came about.
#pragma once

#include "workbench/ifc/bodies/Items.h"

namespace workbench::bodies {

struct ElementBody {
    geometry::Body body; ///< in the element's own coordinates, metres
    Remarks remarks;
    std::vector<std::string> uncutOpenings; ///< GlobalIds of those that were not, or not as bodies, taken out
};

/// Of the file's representations of PRODUCT those that are its body: named Body; else Facetation or Tessellation; else
/// those without a name; else those of a type for solids that are not named as something else.
[[nodiscard]] std::vector<entities::Entity> FindBodies(const entities::Entity& product);

class ElementReader {
public:
    /// MODEL must outlive the reader.
    ElementReader(const entities::Model& model, Units units) : model(model), units(units) {}

    /// All openings taken out.
    [[nodiscard]] ElementBody Read(const entities::Entity& element);

    /// The volume before openings and clippings are taken out, in a fraction of the time; 0 without a closed body.
    [[nodiscard]] double ReadUncutVolumeM3(const entities::Entity& element);

private:
    ElementBody ReadOwn(const entities::Entity& product, Detail detail);
    [[nodiscard]] std::vector<entities::Entity> FindOpenings(const entities::Entity& element) const;
    void TakeOpenings(const entities::Entity& element, ElementBody& body);

    const entities::Model& model;
    Units units;
    ItemReader items;
};

/// How the body's volume came about: "closed faces".
[[nodiscard]] std::string DescribeMethod(const geometry::Body& body);

} // namespace workbench::bodies
