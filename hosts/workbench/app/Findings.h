// What is doubtful or missing in a model, and its telling by kind: a large model has thousands of them.
#pragma once

#include "workbench/model/Model.h"

#include <optional>
#include <string>
#include <vector>

namespace workbench {

struct Finding {
    std::string kind;      ///< what it is; equal for those that are told together: "no material"
    const char* owners;    ///< what it is found in, several: "elements"
    std::string owner;     ///< in which one
    std::string sentence;  ///< all of it
    double volumeM3 = 0.0; ///< that it concerns, as far as it is known
};

struct FindingGroup {
    std::string kind;
    const char* owners = "";
    std::size_t count = 0;
    double volumeM3 = 0.0;
    std::vector<Finding> examples; ///< the largest by volume, at most MostExamples
};

inline constexpr std::size_t MostExamples = 3;

/// By kind, in the order in which the kinds first come.
std::vector<FindingGroup> GroupFindings(const std::vector<Finding>& findings);

/// The group without its examples: "no material: 12 elements, 3.4 % of the volume"; of a single finding its sentence.
/// totalVolumeM3  of the model
std::string DescribeGroup(const FindingGroup& group, double totalVolumeM3);

/// A sentence that names an element as "IfcWall 2O2Fr$t4X7Zf8NOew3FLOH" is of one kind with those that differ in the
/// element alone.
Finding MakeWarning(const std::string& sentence, const Model& model);

/// The element as people find it: GlobalId, class and name.
std::string NameElement(const std::string& globalId, const std::string& ifcType, const std::string& name);

} // namespace workbench
