// What was changed in a project record, put onto another state of it: so that a window stores what its user changed and
// leaves alone what others have changed since it was opened.
#pragma once

#include "lca/LCAProjectData.h"

namespace lca {

/// The record `onto` with every field in which `edited` differs from `before`. Fields are the period, the standards'
/// unit, each quantity, each entry of a map, each phase (used or not, the order of the others stays) and each standard.
LCAProjectData ApplyChanges(const LCAProjectData& before, const LCAProjectData& edited, LCAProjectData onto);

/// Whether every number of the record is finite.
bool IsFinite(const LCAProjectData& record);

} // namespace lca
