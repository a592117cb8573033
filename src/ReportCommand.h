// "Generate LCA report...": asks for a file, has the chart pictures drawn, writes the spreadsheet, says how it went and
// can open the file.
#pragma once

#include "src/Assessment.h"
#include "src/ResultCharts.h"

#include "host/Host.h"
#include "lca/LCAProjectData.h"
#include "lca/MaterialSumTable.h"

#include <string>

/// What the report shows; the references live as long as the call.
struct ReportSource {
    const lca::LCAProjectData& record;
    const lca::MaterialSumTable& materialSums;
    const Assessment& assessment;
    const ResultCharts& charts;
    std::string pieTitle;
    std::string barTitle;
    std::string lastUpdateLabel; ///< stands before the assessment's time
};

void GenerateReport(host::Host& host, const ReportSource& source);
