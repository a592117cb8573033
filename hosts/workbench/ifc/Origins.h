// Where the values of an imported building come from, in plain English. The texts go into project files, so that their
// beginnings, by which programs tell them apart, must not change; what follows a beginning is free.
#pragma once

namespace workbench::ifc {

namespace OriginBeginnings {
inline constexpr char Stated[] = "stated: ";     ///< and set and name of the quantity or property
inline constexpr char Computed[] = "computed: "; ///< and from what
inline constexpr char ClosedByCaps[] = "computed: closed by caps";
inline constexpr char OpenShell[] = "computed: open shell";
inline constexpr char EqualShares[] = "equal shares";
inline constexpr char Derived[] = "derived: "; ///< and from which quantities
} // namespace OriginBeginnings

/// What follows it tells of this element alone; overviews leave it out.
inline constexpr char OriginDetail[] = ";";

} // namespace workbench::ifc
