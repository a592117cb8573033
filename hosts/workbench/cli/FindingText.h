// Findings on the terminal, told by kind or one by one.
#pragma once

#include "workbench/app/Findings.h"

namespace workbench::cli {

/// A line each, without line ends.
std::vector<std::string> ListSentences(const std::vector<Finding>& findings);
/// A line for each kind, with the largest examples: "no material: 5 elements, 3.4 % of the volume: A, B, C and 2 more".
/// totalVolumeM3  of the model
std::vector<std::string> ListGroups(const std::vector<Finding>& findings, double totalVolumeM3);
/// The same with a line for each example, indented, each with its line end.
std::string WriteGroups(const std::vector<Finding>& findings, double totalVolumeM3);

} // namespace workbench::cli
