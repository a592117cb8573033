// The material table: what is read, what is refused with which line and reason, and which row a name finds.
#include "workbench/app/MaterialTable.h"

#include "support/Answers.h"

#include <sstream>

namespace {

using namespace workbench;

const std::string Header = "applies_to;name;unit;gwp;service_life;density\n";

/// The usual header for a leading "@", one with phases for "%".
std::string ReadTable(const std::string& text, MaterialTable& table) {
    std::string whole = text;
    if (text[0] == '@') whole.replace(0, 1, Header);
    if (text[0] == '%') whole.replace(0, 1, "applies_to;name;unit;A1-A3;C3;D\n");
    Result<MaterialTable> parsed = MaterialTable::Parse("t.csv", whole);
    if (parsed.HasFailed()) return std::to_string(static_cast<int>(parsed.GetCode())) + " " + parsed.GetText();
    table = parsed.Take();
    return {};
}

std::string WriteNumber(std::optional<double> value) {
    if (!value) return "none";
    std::ostringstream text;
    text.precision(12);
    text << *value;
    return text.str();
}

std::string ListRows(const std::string& text) {
    MaterialTable table;
    std::ostringstream rows;
    rows << ReadTable(text, table);
    for (const MaterialRow& row : table.GetRows()) {
        constexpr const char* Kinds[] = {"material", "door", "window"};
        rows << '{' << Kinds[static_cast<int>(row.appliesTo)] << '|' << row.name << '|' << row.unit << '|'
             << WriteNumber(row.gwp.plain);
        for (const auto& [phase, value] : row.gwp.byPhase)
            rows << ' ' << phase << ':' << WriteNumber(value);
        rows << '|' << WriteNumber(row.serviceLifeYears) << '|' << WriteNumber(row.densityKgM3) << '}';
    }
    return rows.str();
}

/// "own name|name of the type".
std::vector<std::string> Split(const std::string& names) {
    const std::size_t bar = names.find('|');
    if (bar == std::string::npos) return {names};
    return {names.substr(0, bar), names.substr(bar + 1)};
}

TEST(MaterialTable, AnswersAsReviewed) {
    MaterialTable table;
    const auto find = [&](AppliesTo appliesTo, const std::string& name) {
        const MaterialRow* found = table.Find(appliesTo, Split(name));
        return found == nullptr ? "none" : WriteNumber(found->gwp.plain);
    };
    const auto quote = [](const std::string& name) {
        MaterialTable quoted;
        std::string cell = QuoteCell(name);
        EXPECT_EQ(ReadTable("@material;" + cell + ";m3;1;;\n", quoted), "");
        EXPECT_NE(quoted.Find(AppliesTo::Material, {name}), nullptr) << name;
        return cell;
    };
    support::ExpectAnswers("workbench/app/expected/material-table.txt",
                           {{"[rows]", ListRows},
                            {"[table]", [&](const std::string& text) { return ReadTable(text, table); }},
                            {"[material]", [&](const std::string& name) { return find(AppliesTo::Material, name); }},
                            {"[door]", [&](const std::string& name) { return find(AppliesTo::Door, name); }},
                            {"[window]", [&](const std::string& name) { return find(AppliesTo::Window, name); }},
                            {"[quoted]", quote}});
}

} // namespace
