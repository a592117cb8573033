// The library parts that the workbench ships, so that report objects can be placed: their parameters, as the add-on
// fills them. How they are drawn is the drawing's concern.
#pragma once

#include "workbench/model/Model.h"

namespace workbench {

inline constexpr char MaterialReportPart[] =
    "{E87C2E41-A5DA-4D30-9833-5BA5C29D91DE}-{1C081D52-65D7-480D-A6BB-B72F3D8A7B0B}";
inline constexpr char ResultReportPart[] =
    "{BFD2234E-6658-4AC6-9F8E-667246531455}-{3380CEB5-E9DA-4725-AC37-2CCA427100AA}";

/// Adds the two report parts.
void AddReportLibrary(Model& model);
/// Adds a section, an elevation and a layout, as a host's template has them.
void AddDefaultDatabases(Model& model);

} // namespace workbench
