// Where the values of an imported building come from, in plain English. The texts go into project files, so that their
// beginnings, by which programs tell them apart, must not change; what follows a beginning is free.
#pragma once

#include "workbench/ifc/ImportedBuilding.h"

namespace workbench::ifc {

namespace OriginBeginnings {
inline constexpr char Stated[] = "stated: ";     ///< and set and name of the quantity or property
inline constexpr char Computed[] = "computed: "; ///< and from what
inline constexpr char ClosedByCaps[] = "computed: closed by caps";
inline constexpr char OpenShell[] = "computed: open shell";
inline constexpr char EqualShares[] = "equal shares";
} // namespace OriginBeginnings

/// What follows it tells of this element alone; overviews leave it out.
inline constexpr char OriginDetail[] = ";";

/// Fills in the origins of all elements and materials from what the reader program answers: sources of quantities, and
/// components as they were split.
void DescribeOrigins(ImportedBuilding& building);

} // namespace workbench::ifc
