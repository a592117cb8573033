// A run of the GWP calculation over the host's elements, under the progress window.
#pragma once

#include "host/Host.h"
#include "host/Values.h"
#include "lca/GWPCalculation.h"
#include "lca/LCAProjectData.h"
#include "lca/MaterialSumTable.h"

/// Loads the record from the model, clears the table and the sums and fills them anew from all elements of the floor
/// plan, whatever database is current. A host error ends the run and is answered; what was summed so far stays.
host::ErrorCode RunGWPCalculation(host::Host& host, lca::LCAProjectData& record, lca::MaterialSumTable& table,
                                  lca::BaseSums& sums);
