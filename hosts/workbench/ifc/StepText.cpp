#include "workbench/ifc/StepText.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "workbench/ifc/StepString.h"

namespace workbench::ifc {
namespace {

constexpr const char* ExportAgain = "Export it again from the program that made it.";
constexpr std::size_t DeepestNesting = 32;
/// Both schemas together have some 1500 kinds of entity.
constexpr std::size_t MostKeywords = 4096;

using CharTable = std::array<bool, 256>;

constexpr CharTable TableOf(std::string_view characters) {
    CharTable table{};
    for (char c = 'a'; c <= 'z'; ++c)
        table[static_cast<unsigned char>(c)] = table[static_cast<unsigned char>(c - 'a' + 'A')] = true;
    for (char c = '0'; c <= '9'; ++c)
        table[static_cast<unsigned char>(c)] = true;
    for (const char c : characters)
        table[static_cast<unsigned char>(c)] = true;
    return table;
}

/// Characters of a string that the library takes over unchanged.
constexpr CharTable PlainInString = TableOf(" _$.,:+-");
constexpr CharTable PlainInWord = TableOf("_");
/// Characters between strings that are copied as they are.
constexpr CharTable PlainOutside = TableOf("_$.,+-#*=\"");

bool Has(const CharTable& table, char c) {
    return table[static_cast<unsigned char>(c)];
}
bool IsBlank(char c) {
    return c == ' ' || c == '\t' || c == '\r' || c == '\n' || c == '\f' || c == '\v';
}

char Upper(char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

std::string Upper(std::string_view text) {
    std::string upper(text);
    for (char& c : upper)
        c = Upper(c);
    return upper;
}

/// Walks over STEP text, statement by statement; what it copies has no comments and no blanks outside of strings.
class Scanner {
public:
    enum class Outcome { Statement, End, CutOff, Noise };

    Scanner(std::string_view text, std::size_t start) : text(text), at(start) {}

    /// Appends the next statement without its semicolon to OUT; strings go through STRINGS.
    Outcome Next(std::string& out, std::vector<std::string>& strings) {
        const bool skipped = SkipBlanks();
        statementStart = at;
        if (!skipped) return Outcome::CutOff;
        if (at >= text.size()) return Outcome::End;
        std::size_t depth = 0;
        while (at < text.size()) {
            const char c = text[at];
            if (Has(PlainOutside, c)) {
                out += c;
                ++at;
            } else if (c == ';') {
                ++at;
                return depth == 0 ? Outcome::Statement : Outcome::Noise;
            } else if (c == '(') {
                if (++depth > DeepestNesting) return Outcome::Noise;
                out += c;
                ++at;
            } else if (c == ')') {
                if (depth-- == 0) return Outcome::Noise;
                out += c;
                ++at;
            } else if (c == '\'') {
                if (!CopyString(out, strings)) return Outcome::CutOff;
            } else if (IsBlank(c) || c == '/') {
                const std::size_t before = at;
                if (!SkipBlanks()) return Outcome::CutOff;
                if (at == before) return Outcome::Noise;
            } else {
                return Outcome::Noise;
            }
        }
        return Outcome::CutOff;
    }

    [[nodiscard]] std::size_t Position() const { return at; }

    /// Line of the statement that was read last, from 1.
    [[nodiscard]] std::size_t Line() const {
        const std::string_view before = text.substr(0, std::min(statementStart, text.size()));
        return 1 + static_cast<std::size_t>(std::count(before.begin(), before.end(), '\n'));
    }

private:
    /// False where a comment does not end.
    bool SkipBlanks() {
        while (at < text.size()) {
            if (IsBlank(text[at])) {
                ++at;
            } else if (text.substr(at, 2) == "/*") {
                const std::size_t end = text.find("*/", at + 2);
                if (end == std::string_view::npos) return false;
                at = end + 2;
            } else {
                return true;
            }
        }
        return true;
    }

    bool CopyString(std::string& out, std::vector<std::string>& strings) {
        const std::size_t start = ++at;
        bool plain = true;
        for (; at < text.size(); ++at) {
            if (text[at] == '\'') {
                if (text.substr(at, 2) != "''") break;
                ++at;
                plain = false;
            } else if (!Has(PlainInString, text[at])) {
                plain = false;
            }
        }
        if (at >= text.size()) return false;
        const std::string_view content = text.substr(start, at - start);
        ++at;
        out += '\'';
        if (plain) {
            out += content;
        } else {
            out += '~';
            out += std::to_string(strings.size());
            strings.push_back(DecodeStepString(content));
        }
        out += '\'';
        return true;
    }

    std::string_view text;
    std::size_t at;
    std::size_t statementStart = 0;
};

bool IsCleanStart(std::string_view start) {
    return std::none_of(start.begin(),
                        start.begin() + static_cast<std::ptrdiff_t>(std::min<std::size_t>(start.size(), 512)),
                        [](unsigned char c) { return c == 0; });
}

StepProblem NotStep(std::string_view start) {
    const std::string_view blanks = " \t\r\n";
    if (start.find_first_not_of(blanks) == std::string_view::npos)
        return {ImportError::NotIfc, "is empty", ExportAgain};
    if (start.starts_with("PK")) {
        return {ImportError::NotIfc, "is a compressed archive", "Unpack it and give the .ifc file that is in it."};
    }
    if (start.substr(start.find_first_not_of(blanks)).starts_with("<")) {
        return {ImportError::NotIfc, "is an XML file", "Export the model as .ifc in the STEP format."};
    }
    return {ImportError::NotIfc, IsCleanStart(start) ? "is no IFC file" : "is no IFC file but binary data",
            "Give a model in the STEP format, as building programs export it to .ifc."};
}

/// The schema that the library reads, or empty.
std::string KnownSchema(const std::string& written) {
    if (written.starts_with("IFC2X3")) return "IFC2X3";
    if (written == "IFC4" || written.starts_with("IFC4_")) return "IFC4";
    return {};
}

std::string FirstString(std::string_view statement, const std::vector<std::string>& strings) {
    const std::size_t open = statement.find('\'');
    const std::size_t close = statement.find('\'', open + 1);
    if (open == std::string_view::npos || close == std::string_view::npos) return {};
    return ResolveString(strings, statement.substr(open + 1, close - open - 1));
}

/// Top-level arguments between the outer parentheses of a statement.
std::vector<std::string_view> Arguments(std::string_view statement) {
    std::vector<std::string_view> arguments;
    const std::size_t open = statement.find('(');
    std::size_t from = open + 1;
    int depth = 0;
    bool inString = false;
    for (std::size_t at = from; at < statement.size(); ++at) {
        const char c = statement[at];
        if (c == '\'') inString = !inString;
        if (inString) continue;
        if (c == '(') ++depth;
        if (depth == 0 && (c == ',' || c == ')')) {
            arguments.push_back(statement.substr(from, at - from));
            from = at + 1;
        }
        if (c == ')') --depth;
    }
    return arguments;
}

template <class T>
std::optional<T> Number(std::string_view text) {
    T value{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
    return value;
}

std::optional<int> Reference(std::string_view argument) {
    return argument.starts_with('#') ? Number<int>(argument.substr(1)) : std::nullopt;
}

/// Keyword of "#12=IFCWALL(...)", or nothing where the statement is not of that form.
std::optional<std::string_view> KeywordOf(std::string_view statement) {
    const std::size_t equals = statement.find('=');
    if (equals == std::string_view::npos || !Reference(statement.substr(0, equals)) || !statement.ends_with(')')) {
        return std::nullopt;
    }
    const std::size_t open = statement.find('(', equals);
    if (open == std::string_view::npos || open < equals + 4) return std::nullopt;
    const std::string_view keyword = statement.substr(equals + 1, open - equals - 1);
    const bool word = std::all_of(keyword.begin(), keyword.end(), [](char c) { return Has(PlainInWord, c); });
    if (!word || Upper(keyword.substr(0, 3)) != "IFC") return std::nullopt;
    return keyword;
}

/// Puts entities that only the older schema has, and that matter here, into the form that the library knows.
void TranslateOldEntity(std::string_view keyword, std::string& line, PreparedStep& step) {
    if (keyword == "IFCGENERALMATERIALPROPERTIES") {
        const auto arguments = Arguments(line);
        if (arguments.size() != 4) return;
        const auto material = Reference(arguments[0]);
        const auto density = Number<double>(arguments[3]);
        if (material && density) step.densities.push_back({*material, *density});
    } else if (keyword == "IFCEXTENDEDMATERIALPROPERTIES") {
        const auto arguments = Arguments(line);
        if (arguments.size() != 4) return;
        line = line.substr(0, line.find('=')) + "=IFCMATERIALPROPERTIES(" + std::string(arguments[3]) + "," +
               std::string(arguments[2]) + "," + std::string(arguments[1]) + "," + std::string(arguments[0]) + ")";
    }
}

std::string CanonicalHeader(const std::string& schema) {
    return "ISO-10303-21;\nHEADER;\nFILE_DESCRIPTION((''),'2;1');\nFILE_NAME('','',(''),(''),'','','');\nFILE_SCHEMA(("
           "'" +
           schema + "'));\nENDSEC;\nDATA;\n";
}

StepProblem CutOff(const Scanner& scanner) {
    return {ImportError::Damaged, "is cut off in line " + std::to_string(scanner.Line()),
            "Copy it again or export it again from the program that made it."};
}

StepProblem Noise(const Scanner& scanner) {
    return {ImportError::Damaged, "is damaged in line " + std::to_string(scanner.Line()), ExportAgain};
}

} // namespace

std::string ResolveString(const std::vector<std::string>& strings, std::string_view written) {
    if (!written.starts_with('~')) return std::string(written);
    const auto index = Number<std::size_t>(written.substr(1));
    return index && *index < strings.size() ? strings[*index] : std::string();
}

std::optional<StepHeader> ReadStepHeader(std::string_view start, StepProblem& problem) {
    std::size_t begin = start.starts_with("\xEF\xBB\xBF") ? 3 : 0;
    while (begin < start.size() && IsBlank(start[begin]))
        ++begin;
    if (Upper(start.substr(begin, 13)) != "ISO-10303-21;") {
        problem = NotStep(start.substr(std::min(begin, start.size())));
        return std::nullopt;
    }
    Scanner scanner(start, begin);
    std::vector<std::string> strings;
    std::string written;
    for (std::string line;; line.clear()) {
        const auto outcome = scanner.Next(line, strings);
        if (outcome == Scanner::Outcome::Noise) {
            problem = Noise(scanner);
            return std::nullopt;
        }
        if (outcome != Scanner::Outcome::Statement) {
            problem = CutOff(scanner);
            return std::nullopt;
        }
        const std::string upper = Upper(line.substr(0, 12));
        if (upper.starts_with("FILE_SCHEMA(")) written = Upper(FirstString(line, strings));
        if (upper == "DATA" || upper.starts_with("DATA(")) break;
    }
    const std::string schema = KnownSchema(written);
    if (schema.empty()) {
        problem = {ImportError::UnsupportedSchema,
                   written.empty() ? "does not say its schema" : "is of the schema " + written.substr(0, 40),
                   "Export the model as IFC2X3 or IFC4."};
        return std::nullopt;
    }
    return StepHeader{schema, scanner.Position()};
}

std::optional<PreparedStep> PrepareStep(std::string_view file, StepProblem& problem) {
    const auto header = ReadStepHeader(file, problem);
    if (!header) return std::nullopt;
    PreparedStep step;
    step.schema = header->schema;
    step.text = CanonicalHeader(step.schema);
    step.text.reserve(step.text.size() + (file.size() - header->dataOffset) + 64);
    Scanner scanner(file, header->dataOffset);
    std::map<std::string, int, std::less<>> keywords;
    for (std::string line;; line.clear()) {
        const auto outcome = scanner.Next(line, step.strings);
        if (outcome == Scanner::Outcome::CutOff || outcome == Scanner::Outcome::End) {
            problem = CutOff(scanner);
            return std::nullopt;
        }
        if (outcome == Scanner::Outcome::Statement && line.size() == 6 && Upper(line) == "ENDSEC") break;
        const auto keyword = outcome == Scanner::Outcome::Statement ? KeywordOf(line) : std::nullopt;
        if (!keyword || keywords.size() > MostKeywords) {
            problem = Noise(scanner);
            return std::nullopt;
        }
        const auto known = keywords.find(*keyword);
        (known != keywords.end() ? known->second : keywords[std::string(*keyword)])++;
        TranslateOldEntity(*keyword, line, step);
        step.text += line;
        step.text += ";\n";
    }
    for (const auto& [keyword, count] : keywords)
        step.keywords[Upper(keyword)] += count;
    step.text += "ENDSEC;\nEND-ISO-10303-21;\n";
    return step;
}

} // namespace workbench::ifc
