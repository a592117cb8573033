#include "workbench/app/Findings.h"

#include "workbench/app/GlobalId.h"
#include "workbench/app/Quantities.h"
#include "workbench/app/Text.h"

#include <algorithm>
#include <map>

namespace workbench {

namespace {

constexpr std::size_t GlobalIdLength = 22;

void PutExample(std::vector<Finding>& examples, const Finding& finding) {
    const auto place = std::find_if(examples.begin(), examples.end(),
                                    [&](const Finding& other) { return finding.volumeM3 > other.volumeM3; });
    examples.insert(place, finding);
    if (examples.size() > MostExamples) examples.pop_back();
}

/// An element's class and GlobalId in a sentence.
struct NamedElement {
    std::size_t begin = 0;
    std::size_t end = 0;
    host::Guid guid;
};

std::optional<NamedElement> FindNamedElement(const std::string& sentence) {
    constexpr std::string_view Blank = " ";
    for (std::size_t at = sentence.find("Ifc"); at != std::string::npos; at = sentence.find("Ifc", at + 1)) {
        const std::size_t blank = sentence.find(Blank, at);
        if (blank == std::string::npos) break;
        const std::optional<host::Guid> guid =
            ReadGlobalId(std::string_view(sentence).substr(blank + 1, GlobalIdLength));
        if (guid) return NamedElement{at, blank + 1 + GlobalIdLength, *guid};
    }
    return std::nullopt;
}

} // namespace

std::vector<FindingGroup> GroupFindings(const std::vector<Finding>& findings) {
    std::vector<FindingGroup> groups;
    std::map<std::string, std::size_t> positions;
    for (const Finding& finding : findings) {
        const auto [position, isNew] = positions.try_emplace(finding.kind, groups.size());
        if (isNew) groups.push_back({finding.kind, finding.owners, 0, 0.0, {}});
        FindingGroup& group = groups[position->second];
        ++group.count;
        group.volumeM3 += finding.volumeM3;
        PutExample(group.examples, finding);
    }
    return groups;
}

std::string DescribeGroup(const FindingGroup& group, double totalVolumeM3) {
    const std::string share = FormatShare(group.volumeM3, totalVolumeM3);
    if (group.count == 1)
        return group.examples.front().sentence + (share.empty() ? "" : " (" + share + " of the volume)");
    return group.kind + ": " + std::to_string(group.count) + " " + group.owners +
           (share.empty() ? "" : ", " + share + " of the volume");
}

Finding MakeWarning(const std::string& sentence, const Model& model) {
    const std::optional<NamedElement> named = FindNamedElement(sentence);
    if (!named) return {sentence, "times", {}, sentence, 0.0};
    const std::string kind = sentence.substr(0, named->begin) + "..." + sentence.substr(named->end);
    const std::uint32_t element = model.FindElement(named->guid);
    const double volumeM3 = element == ElementIndex::NotFound ? 0.0 : SumVolumeM3(model, model.GetElements()[element]);
    return {kind, "elements", sentence.substr(named->begin, named->end - named->begin), sentence, volumeM3};
}

std::string NameElement(const std::string& globalId, const std::string& ifcType, const std::string& name) {
    return globalId + " (" + ifcType + (name.empty() ? "" : " \"" + PutOnOneLine(name) + "\"") + ")";
}

} // namespace workbench
