#include "workbench/app/MaterialTable.h"

#include "workbench/app/Text.h"

#include "lca/LifeCycleModules.h"
#include "lca/Numbers.h"
#include "text/Utf8.h"

#include <algorithm>
#include <array>
#include <functional>
#include <map>

namespace workbench {

namespace {

/// The last two tell people what a model has; they are not read.
constexpr std::array<std::string_view, 8> PlainColumns = {"applies_to",   "name",    "unit",  "gwp",
                                                          "service_life", "density", "count", "area_m2"};

bool IsPhase(const std::string& column) {
    return std::any_of(lca::LifeCycleModules.begin(), lca::LifeCycleModules.end(),
                       [&](const lca::LifeCycleModule& module) { return module.code == column; });
}

/// Text of a cell that opens with a quote, without the quotes; the position moves behind the closing one. None when it
/// is not closed.
std::optional<std::string> TakeQuoted(std::string_view line, std::size_t& position) {
    std::string cell;
    for (++position; position < line.size(); ++position) {
        if (line[position] == '"') {
            if (position + 1 == line.size() || line[position + 1] != '"') {
                ++position;
                return cell;
            }
            ++position;
        }
        cell += line[position];
    }
    return std::nullopt;
}

/// Cells of a line, without blanks around them; a cell in double quotes keeps its blanks and may hold ";" and, doubled,
/// quotes. None when a quote is not closed.
std::optional<std::vector<std::string>> SplitCells(std::string_view line) {
    std::vector<std::string> cells;
    for (std::size_t position = 0;; ++position) {
        position = std::min(line.find_first_not_of(" \t\r", position), line.size());
        std::string quoted;
        if (position < line.size() && line[position] == '"') {
            std::optional<std::string> taken = TakeQuoted(line, position);
            if (!taken) return std::nullopt;
            quoted = std::move(*taken);
        }
        const std::size_t end = std::min(line.find(';', position), line.size());
        cells.push_back(quoted + utf8::Trim(line.substr(position, end - position)));
        if (end == line.size()) return cells;
        position = end;
    }
}

class Parser {
public:
    Parser(const std::string& path, std::vector<MaterialRow>& rows) : path(path), rows(rows) {}

    Outcome Parse(std::string_view text) {
        if (text.substr(0, 3) == "\xEF\xBB\xBF") text.remove_prefix(3);
        while (!text.empty()) {
            const std::size_t end = text.find('\n');
            ++line;
            if (Outcome outcome = ParseLine(text.substr(0, end)); outcome.HasFailed()) return outcome;
            if (end == std::string_view::npos) break;
            text.remove_prefix(end + 1);
        }
        if (columns.empty()) return Fail("the table is empty; its first line is " + std::string(MaterialTableHeader));
        return Outcome::Done();
    }

private:
    Failure Fail(const std::string& reason) const {
        return Failure::Input(path + ":" + std::to_string(std::max<std::size_t>(line, 1)) + ": " + reason);
    }

    Outcome ParseLine(std::string_view text) {
        if (!utf8::IsUtf8(text)) return Fail("the text is not UTF-8; save the table as UTF-8");
        if (text.find('\0') != std::string_view::npos) return Fail("the text is not UTF-8; save the table as UTF-8");
        if (utf8::Trim(text).empty()) return Outcome::Done();
        const std::optional<std::vector<std::string>> cells = SplitCells(text);
        if (!cells) return Fail("a quote is not closed");
        return columns.empty() ? TakeHeader(*cells) : TakeRow(*cells);
    }

    Outcome TakeHeader(const std::vector<std::string>& cells) {
        for (std::size_t i = 0; i < cells.size(); ++i) {
            const bool isPlain = std::find(PlainColumns.begin(), PlainColumns.end(), cells[i]) != PlainColumns.end();
            if (!isPlain && !IsPhase(cells[i]))
                return Fail("column \"" + cells[i] + "\" is unknown; the columns are " + MaterialTableHeader +
                            ", or A1-A3, A4, B1, C1, C2, C3, C4, D in place of gwp");
            if (!columns.emplace(cells[i], i).second) return Fail("column \"" + cells[i] + "\" occurs twice");
            hasPhases = hasPhases || IsPhase(cells[i]);
        }
        for (const char* needed : {"applies_to", "name", "unit"})
            if (columns.count(needed) == 0) return Fail("column \"" + std::string(needed) + "\" is missing");
        if (hasPhases == (columns.count("gwp") > 0))
            return Fail("the table needs either column \"gwp\" or columns by phase such as \"A1-A3\"");
        return Outcome::Done();
    }

    Outcome TakeRow(const std::vector<std::string>& cells) {
        if (cells.size() != columns.size())
            return Fail("the line has " + std::to_string(cells.size()) + " cells, the first line has " +
                        std::to_string(columns.size()));
        const auto cell = [&](const char* name) {
            const auto column = columns.find(name);
            return column == columns.end() ? std::string() : cells[column->second];
        };
        MaterialRow row;
        row.name = cell("name");
        row.unit = cell("unit");
        if (row.name.empty()) return Fail("the name is empty");
        if (Outcome outcome = TakeKind(cell("applies_to"), row); outcome.HasFailed()) return outcome;
        if (Outcome outcome = TakeGWP(cells, row); outcome.HasFailed()) return outcome;
        if (Outcome outcome = TakeServiceLife(cell("service_life"), row); outcome.HasFailed()) return outcome;
        if (Outcome outcome = TakeDensity(cell("density"), row); outcome.HasFailed()) return outcome;
        rows.push_back(std::move(row));
        return Outcome::Done();
    }

    Outcome TakeKind(const std::string& text, MaterialRow& row) const {
        if (text == "material")
            row.appliesTo = AppliesTo::Material;
        else if (text == "door" || text == "window")
            row.appliesTo = text == "door" ? AppliesTo::Door : AppliesTo::Window;
        else
            return Fail("applies_to is \"" + text + "\"; it is material, door or window");
        const bool isMaterial = row.appliesTo == AppliesTo::Material;
        const bool isKnown = isMaterial ? row.unit == "m3" || row.unit == "m2" || row.unit == "kg"
                                        : row.unit == "piece" || row.unit == "m2";
        if (!isKnown)
            return Fail("the unit is \"" + row.unit + "\"; it is " + (isMaterial ? "m3, m2 or kg" : "piece or m2"));
        return Outcome::Done();
    }

    Outcome TakeGWP(const std::vector<std::string>& cells, MaterialRow& row) const {
        for (const auto& [name, position] : columns) {
            if (name != "gwp" && !IsPhase(name)) continue;
            if (cells[position].empty()) continue;
            const std::optional<double> value = lca::ParseDecimal(cells[position]);
            if (!value) return Fail(name + " is \"" + cells[position] + "\", which is no number");
            if (name == "gwp")
                row.gwp.plain = value;
            else
                row.gwp.byPhase.emplace_back(name, *value);
        }
        return Outcome::Done();
    }

    Outcome TakeServiceLife(const std::string& text, MaterialRow& row) const {
        if (text.empty()) return Outcome::Done();
        const std::optional<double> years = lca::ParseDecimal(text);
        row.serviceLifeYears = lca::ParseWholeNumber(text);
        if (!years || !row.serviceLifeYears || *years != *row.serviceLifeYears || *years < 0)
            return Fail("service_life is \"" + text + "\"; it is whole years, 0 or more");
        return Outcome::Done();
    }

    Outcome TakeDensity(const std::string& text, MaterialRow& row) const {
        if (text.empty()) return Outcome::Done();
        row.densityKgM3 = lca::ParseDecimal(text);
        if (!row.densityKgM3 || *row.densityKgM3 < 0)
            return Fail("density is \"" + text + "\"; it is kg/m3, 0 or more");
        return Outcome::Done();
    }

    const std::string& path;
    std::vector<MaterialRow>& rows;
    std::map<std::string, std::size_t> columns;
    bool hasPhases = false;
    std::size_t line = 0;
};

} // namespace

Result<MaterialTable> MaterialTable::Read(const std::string& path) {
    const Result<std::string> text = ReadFile(path, "the material table cannot be read; check the name");
    if (text.HasFailed()) return text.GetFailure();
    return Parse(path, text.Get());
}

Result<MaterialTable> MaterialTable::Parse(const std::string& path, std::string_view text) {
    MaterialTable table;
    if (const Outcome outcome = Parser(path, table.rows).Parse(text); outcome.HasFailed()) return outcome.GetFailure();
    for (const MaterialRow& row : table.rows)
        table.foldedNames.push_back(FoldCase(row.name));
    return table;
}

const MaterialRow* MaterialTable::Find(AppliesTo appliesTo, const std::vector<std::string>& names) const {
    const auto find = [&](auto matches) -> const MaterialRow* {
        for (const std::string& name : names) {
            const std::string folded = FoldCase(PutOnOneLine(name));
            for (std::size_t i = 0; i < rows.size(); ++i)
                if (rows[i].appliesTo == appliesTo && rows[i].IsFilledIn() && matches(folded, foldedNames[i]))
                    return &rows[i];
        }
        return nullptr;
    };
    if (const MaterialRow* exact = find(std::equal_to<>())) return exact;
    return find([](const std::string& name, const std::string& row) { return MatchesPattern(name, row); });
}

std::string QuoteCell(const std::string& text) {
    std::string cell = PutOnOneLine(text);
    if (cell.find_first_of(";\"") == std::string::npos && utf8::Trim(cell) == cell) return cell;
    std::string quoted = "\"";
    for (const char letter : cell)
        quoted += letter == '"' ? std::string("\"\"") : std::string(1, letter);
    return quoted + "\"";
}

} // namespace workbench
