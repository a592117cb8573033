#include "workbench/cli/FindingText.h"

namespace workbench::cli {

namespace {

std::string CountOthers(const FindingGroup& group) {
    const std::size_t others = group.count - group.examples.size();
    return others == 0 ? std::string() : "and " + std::to_string(others) + " more";
}

/// A single finding and sentences without an owner say all themselves.
bool HasExamples(const FindingGroup& group) {
    return group.count > 1 && !group.examples.front().owner.empty();
}

std::string ListExamples(const FindingGroup& group) {
    std::string text;
    for (const Finding& example : group.examples)
        text += (text.empty() ? "" : ", ") + example.owner;
    const std::string others = CountOthers(group);
    return others.empty() ? text : text + " " + others;
}

} // namespace

std::vector<std::string> ListSentences(const std::vector<Finding>& findings) {
    std::vector<std::string> sentences;
    sentences.reserve(findings.size());
    for (const Finding& finding : findings)
        sentences.push_back(finding.sentence);
    return sentences;
}

std::vector<std::string> ListGroups(const std::vector<Finding>& findings, double totalVolumeM3) {
    std::vector<std::string> lines;
    for (const FindingGroup& group : GroupFindings(findings)) {
        lines.push_back(DescribeGroup(group, totalVolumeM3));
        if (HasExamples(group)) lines.back() += ": " + ListExamples(group);
    }
    return lines;
}

std::string WriteGroups(const std::vector<Finding>& findings, double totalVolumeM3) {
    std::string text;
    for (const FindingGroup& group : GroupFindings(findings)) {
        text += "  " + DescribeGroup(group, totalVolumeM3) + "\n";
        if (!HasExamples(group)) continue;
        for (const Finding& example : group.examples)
            text += "    " + example.owner + "\n";
        const std::string others = CountOthers(group);
        if (!others.empty()) text += "    " + others + "\n";
    }
    return text;
}

} // namespace workbench::cli
