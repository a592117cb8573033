// The embodied carbon by layer and building material as the material report shows it: rows for the dialog's table,
// arrays for the report object.
#pragma once

#include "src/ReportObjects.h"

#include "host/Host.h"
#include "lca/MaterialSumTable.h"

#include <string>
#include <vector>

struct MaterialReportRow {
    enum class Kind { Layer, Material, Total };

    Kind kind = Kind::Layer;
    std::string layer; ///< of layer rows, and the label of the total
    std::string name;  ///< of material rows
    double gwp = 0.0;  ///< kg CO2eq
};

/// A layer row, its materials, the next layer and so on, and the total at the end. Names come from the model; an
/// attribute that cannot be read has an empty one, and is counted in the host's report.
std::vector<MaterialReportRow> BuildMaterialReport(host::Host& host, const lca::MaterialSumTable& sums);

/// The GWP as the report writes it, with three decimals.
std::string FormatReportGWP(double gwp);

/// Headings, texts (three a row), numbers (one a row) and date of the report object.
void FillMaterialReport(host::Host& host, const std::vector<MaterialReportRow>& rows, const std::string& date,
                        ObjectParameters& parameters);
