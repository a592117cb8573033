// A large building with the same numbers every time, and a reporter that sets measured times against each other.
#pragma once

#include "lca/GWPCalculation.h"
#include "workbench/host/WorkbenchHost.h"

#include <benchmark/benchmark.h>

#include <map>
#include <memory>
#include <string>

namespace bench {

inline constexpr std::size_t ComponentsPerElement = 4;
inline constexpr int MaterialCount = 40;
inline constexpr int LayerCount = 20;

/// Walls, slabs, roofs and beams on 20 layers, each of four of 40 materials; no doors and windows.
[[nodiscard]] std::unique_ptr<workbench::Project> MakeBuilding(std::size_t elements);

// What material number n (from 1) is given.
[[nodiscard]] double GetGWP(int material, double factor);
[[nodiscard]] lca::MaterialUnit GetUnit(int material);
[[nodiscard]] int GetServiceLife(int material);

/// Creates the schema and writes the values of every material as one undoable command. Ends the program on an error.
void GiveMaterialValues(workbench::WorkbenchHost& host, double factor);

/// What the process holds in memory now.
[[nodiscard]] double ReadResidentBytes();

class RatioReporter : public benchmark::ConsoleReporter {
public:
    void ReportRuns(const std::vector<Run>& runs) override;
    /// Processor time of the first in units of the second, the shortest of all repetitions each, because the machine
    /// may have other work; nothing where one was not run.
    void PrintRatio(const char* title, const std::string& name, const std::string& unitName) const;

private:
    std::map<std::string, double> seconds;
};

} // namespace bench
