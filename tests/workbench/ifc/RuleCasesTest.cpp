// The rules of the import by cases in rules/*.txt: "[SCHEMA name]", the entities beside those of IfcText's project, and
// behind "=> " what the import makes of them.
#include "Description.h"
#include "IfcText.h"
#include "support/ApprovedText.h"

#include <sstream>

namespace {

class RuleCases : public testing::TestWithParam<const char*> {};

std::string Import(const std::string& title, const std::string& body) {
    const std::string schema = title.substr(1, title.find(' ') - 1);
    SCOPED_TRACE(title);
    std::istringstream lines(
        ifctest::Describe(ifctest::Building(ifctest::File(schema, ifctest::MetricProject() + body))));
    std::string answer;
    for (std::string line; std::getline(lines, line);)
        answer.append("=> ").append(line).append("\n");
    return answer;
}

TEST_P(RuleCases, AreAsReviewed) {
    const std::string name = std::string("workbench/ifc/rules/") + GetParam() + ".txt";
    std::istringstream lines(support::ApprovedText(name) + "[");
    std::string found, title, body;
    for (std::string line; std::getline(lines, line);) {
        if (line.starts_with("[") && !title.empty()) found.append(Import(title, body)).append(line == "[" ? "" : "\n");
        if (line == "[" || line.empty() || line.starts_with("=> ")) continue;
        found.append(line).append("\n");
        if (line.starts_with("[")) {
            title = line;
            body.clear();
        } else if (!title.empty()) {
            body.append(line).append("\n");
        }
    }
    support::ExpectApproved(name, found);
}

INSTANTIATE_TEST_SUITE_P(Ifc, RuleCases,
                         testing::Values("quantities", "materials", "floor-areas", "origins", "schemas"),
                         [](const auto& info) {
                             std::string name = info.param;
                             std::replace(name.begin(), name.end(), '-', '_');
                             return name;
                         });

} // namespace
