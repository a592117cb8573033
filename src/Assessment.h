// What a calculation has found, as palette and reports show it.
#pragma once

#include "lca/GWPCalculation.h"
#include "lca/ResultTable.h"

#include <string>

struct Assessment {
    lca::BaseSums baseSums;
    bool areSumsWhole = false; ///< whether the last run came to its end and read everything
    lca::Results results;
    std::string time; ///< of the results, in the host's format, marked where the sums are not whole; empty before them
};
