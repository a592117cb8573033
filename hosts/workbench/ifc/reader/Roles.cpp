#include "Roles.h"

#include <algorithm>
#include <iterator>
#include <string_view>

namespace workbench::ifc {
namespace {

struct RoleRow {
    std::string_view type;
    EntityRole role;
};

/// First match counts. What cuts or only decorates an element (IfcFeatureElement: openings, earthworks cuts) has no
/// role of its own.
constexpr RoleRow RoleRows[] = {{"IfcDoor", EntityRole::Door},
                                {"IfcWindow", EntityRole::Window},
                                {"IfcBuildingElement", EntityRole::Element},
                                {"IfcBuiltElement", EntityRole::Element},
                                {"IfcBuildingElementPart", EntityRole::Element},
                                {"IfcElementAssembly", EntityRole::Element},
                                {"IfcReinforcingElement", EntityRole::Element},
                                {"IfcFeatureElement", EntityRole::Other},
                                {"IfcElement", EntityRole::LeftOut},
                                {"IfcProxy", EntityRole::LeftOut},
                                {"IfcProject", EntityRole::Project}};

} // namespace

EntityRole RoleOf(const entities::Entity& entity) {
    const auto found = std::find_if(std::begin(RoleRows), std::end(RoleRows),
                                    [&](const RoleRow& row) { return entity.IsA(row.type); });
    return found == std::end(RoleRows) ? EntityRole::Other : found->role;
}

} // namespace workbench::ifc
