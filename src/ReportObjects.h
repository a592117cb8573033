// Report objects on drawings: finding their library part, filling their parameters, placing one where the user clicks,
// and rewriting the placed ones in all databases.
#pragma once

#include "host/Host.h"
#include "host/Libraries.h"
#include "host/Model.h"
#include "resources/ResourceIds.h"

#include <functional>
#include <string>
#include <vector>

using ObjectParameters = std::vector<host::ObjectParameter>;

// Each sets the parameter of this name and kind; where there is none, nothing happens. An array keeps its number of
// columns and gets as many whole rows as there are values.
void SetTextArray(ObjectParameters& parameters, const std::string& name, const std::vector<std::string>& texts);
void SetRealArray(ObjectParameters& parameters, const std::string& name, const std::vector<double>& values);
void SetText(ObjectParameters& parameters, const std::string& name, const std::string& text);

using ParameterFiller = std::function<void(ObjectParameters&)>;

/// What is told about one kind of report object.
struct ReportObjectKind {
    const char* identifier;            ///< pair of braced identifiers joined by "-"
    ResourceIds::StringId missingPart; ///< message when no loaded library has it
    ResourceIds::StringId prompt;      ///< for the point
    ResourceIds::StringId placeUndoName;
    ResourceIds::StringId updateUndoName;
};

extern const ReportObjectKind MaterialReportObject;
extern const ReportObjectKind ResultReportObject;

/// Places one object with the favourite's element and parameters, or the part's defaults where the name is empty or
/// unknown. A missing part is told in an alert; a cancelled click places nothing.
void PlaceReportObject(host::Host& host, const ReportObjectKind& kind, const std::string& favourite,
                       const ParameterFiller& fill);

/// Rewrites every placed object of the kind whose "addon_update" is 1, in one undoable command. Objects that refuse and
/// databases that cannot be opened are passed over, and one line of the host's report says how many.
void UpdateReportObjects(host::Host& host, const ReportObjectKind& kind, const ParameterFiller& fill);
