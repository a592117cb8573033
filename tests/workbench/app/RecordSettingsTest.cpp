// Settings of the record: every key with good and bad values, settings files, and what a setting does besides.
#include "workbench/app/RecordSettings.h"

#include "lca/PropertyKeys.h"
#include "lca/RecordEncodings.h"
#include "support/Answers.h"
#include "support/TestFolder.h"

#include <algorithm>

namespace {

using namespace workbench;

std::string WriteStored(const lca::PropertyKeyRow& row, const lca::LCAProjectData& record) {
    return lca::WriteStoredText(row.encode(record)) + lca::WriteDescription(row.key, record, {});
}

/// What would be stored otherwise after the settings; of the floor settings only the entries that differ.
std::string ListChanges(const lca::LCAProjectData& before, const RecordSettings& settings) {
    lca::LCAProjectData record = before;
    settings.Apply(record);
    std::string changes;
    for (const lca::PropertyKeyRow& row : lca::GetPropertyKeys()) {
        if (!lca::IsProjectKey(row.key)) continue;
        const std::string former = WriteStored(row, before), present = WriteStored(row, record);
        if (former == present) continue;
        changes.append(changes.empty() ? "" : " & ").append(row.text).append("=");
        if (row.key != lca::PropertyKey::FloorSettings) changes += present;
        if (row.key != lca::PropertyKey::FloorSettings) continue;
        const std::vector<std::string_view> entries = lca::SplitEntries(former);
        for (const std::string_view entry : lca::SplitEntries(present))
            if (std::find(entries.begin(), entries.end(), entry) == entries.end()) changes.append(entry).append(";");
    }
    return changes;
}

/// Arguments are separated by " & ".
std::string Set(const lca::LCAProjectData& before, const std::string& arguments) {
    RecordSettings settings;
    for (std::size_t begin = 0, end = 0; end != std::string::npos; begin = end + 3) {
        end = arguments.find(" & ", begin);
        const Outcome failure = settings.AddArgument(arguments.substr(begin, end - begin));
        if (!failure.HasFailed()) continue;
        EXPECT_TRUE(settings.IsEmpty());
        return std::to_string(static_cast<int>(failure.GetCode())) + " " + failure.GetText();
    }
    return ListChanges(before, settings);
}

lca::LCAProjectData AllFromEvaluation() {
    lca::LCAProjectData record;
    for (const lca::FloorQuantity quantity : lca::AllFloorQuantities) {
        record.SetFloorValue(quantity, lca::FloorSource::ByHand, 2000);
        record.SetFloorValue(quantity, lca::FloorSource::EnergyEvaluation, 1000);
        record.SetFloorChoice(quantity, lca::FloorSource::EnergyEvaluation);
    }
    return record;
}

TEST(RecordSettings, AnswersAsReviewed) {
    const support::TestFolder folder;
    const auto read = [&](const std::string& path) {
        RecordSettings settings;
        const Outcome failure = settings.AddFile(path);
        if (!failure.HasFailed()) return ListChanges({}, settings);
        EXPECT_EQ(failure.GetText().compare(0, path.size(), path), 0) << failure.GetText();
        return std::to_string(static_cast<int>(failure.GetCode())) + " FILE" + failure.GetText().substr(path.size());
    };
    support::ExpectAnswers(
        "workbench/app/expected/record-settings.txt",
        {{"[new record]", [](const std::string& arguments) { return Set({}, arguments); }},
         {"[all from the energy evaluation]", [](const std::string& text) { return Set(AllFromEvaluation(), text); }},
         {"[file]", [&](const std::string& content) { return read(folder.Write("a.txt", content)); }},
         {"[path]", [&](const std::string& name) { return read(folder / name); }}});
}

} // namespace
