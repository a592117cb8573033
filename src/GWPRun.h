// A run of the GWP calculation over the host's elements, under the progress window.
#pragma once

#include "host/Host.h"
#include "lca/GWPCalculation.h"
#include "lca/LCAProjectData.h"
#include "lca/MaterialSumTable.h"

enum class RunOutcome {
    Whole,
    Incomplete, ///< something could not be read; the sums are of the rest
    Cancelled,  ///< by the user; table and sums are the former ones
    NotRun      ///< the record or the list of elements could not be read; table and sums are the former ones
};

/// Loads the record from the model and fills the table and the sums anew from all elements of the floor plan, whatever
/// database is current. What could not be read is counted in one line of the host's report, by kind, and the run goes
/// on; a run that did not come to its end says so there, too.
RunOutcome RunGWPCalculation(host::Host& host, lca::LCAProjectData& record, lca::MaterialSumTable& table,
                             lca::BaseSums& sums);
