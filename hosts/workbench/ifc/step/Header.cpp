#include "workbench/ifc/step/Header.h"

#include <algorithm>

#include "workbench/ifc/step/Lexis.h"
#include "workbench/ifc/step/TextDecoder.h"
#include "workbench/ifc/step/Value.h"

namespace workbench::step {
namespace {

constexpr const char* ExportAgain = "Export it again from the program that made it.";
constexpr std::string_view Magic = "ISO-10303-21;";

Problem NotStep(std::string_view start) {
    const std::string_view blanks = " \t\r\n";
    const std::size_t first = start.find_first_not_of(blanks);
    if (first == std::string_view::npos) return {ProblemKind::NotStep, "is empty", ExportAgain};
    if (start.starts_with("PK")) {
        return {ProblemKind::NotStep, "is a compressed archive", "Unpack it and give the .ifc file that is in it."};
    }
    if (start[first] == '<') {
        return {ProblemKind::NotStep, "is an XML file", "Export the model as .ifc in the STEP format."};
    }
    const bool isBinary = start.substr(0, 512).find('\0') != std::string_view::npos;
    return {ProblemKind::NotStep, isBinary ? "is no IFC file but binary data" : "is no IFC file",
            "Give a model in the STEP format, as building programs export it to .ifc."};
}

Problem InLine(std::string_view text, std::size_t at, const char* what, const char* advice) {
    const std::string_view before = text.substr(0, std::min(at, text.size()));
    const auto line = 1 + std::count(before.begin(), before.end(), '\n');
    return {ProblemKind::Damaged, what + std::to_string(line), advice};
}

/// Reads statement by statement up to the data.
class HeaderReader {
public:
    HeaderReader(std::string_view text, std::size_t at) : text(text), at(at) {}

    std::optional<Header> Run(Problem& problem) {
        for (;;) {
            const Balance balance = TakeStatement();
            if (balance != Balance::Closed) {
                problem = balance == Balance::CutOff ? CutOffAt(text, start) : DamagedAt(text, start);
                return std::nullopt;
            }
            if (name == "DATA") break;
        }
        header.dataOffset = at;
        return std::move(header);
    }

private:
    Balance TakeStatement() {
        start = SkipWhiteSpace(text, at);
        at = std::min(SkipBlanks(text, start), text.size());
        const std::size_t end = SkipWord(text, at);
        if (end >= text.size()) return Balance::CutOff;
        name = UpperCase(text.substr(at, end - at));
        at = SkipBlanks(text, end);
        if (at < text.size() && text[at] == '(') {
            const Balance balance = TakeArguments();
            if (balance != Balance::Closed) return balance;
        }
        at = SkipBlanks(text, at);
        if (at >= text.size()) return Balance::CutOff;
        return text[at++] == ';' ? Balance::Closed : Balance::Noise;
    }

    Balance TakeArguments() {
        const std::size_t open = at;
        const Balance balance = SkipList(text, at, nullptr);
        if (balance == Balance::Closed) Understand(Value(text.substr(open, at - open), decoder));
        return balance;
    }

    void Understand(const Value& arguments) {
        if (name == "FILE_DESCRIPTION") {
            for (const Value& description : arguments.GetItem(0))
                header.descriptions.push_back(description.GetText());
        } else if (name == "FILE_NAME") {
            header.fileName = arguments.GetItem(0).GetText();
            header.preprocessor = arguments.GetItem(4).GetText();
            header.originatingSystem = arguments.GetItem(5).GetText();
        } else if (name == "FILE_SCHEMA") {
            header.schema = UpperCase(arguments.GetItem(0).GetItem(0).GetText());
        }
    }

    std::string_view text;
    std::size_t at;
    std::size_t start = 0; ///< of the statement
    std::string name;      ///< of the statement
    Header header;
    TextDecoder decoder;
};

} // namespace

Problem CutOffAt(std::string_view text, std::size_t at) {
    return InLine(text, at, "is cut off in line ", "Copy it again or export it again from the program that made it.");
}

Problem DamagedAt(std::string_view text, std::size_t at) {
    return InLine(text, at, "is damaged in line ", ExportAgain);
}

std::optional<Header> ReadHeader(std::string_view start, Problem& problem) {
    const std::size_t begin = SkipWhiteSpace(start, start.starts_with("\xEF\xBB\xBF") ? 3 : 0);
    if (UpperCase(start.substr(begin, Magic.size())) != Magic) {
        problem = NotStep(start.substr(begin));
        return std::nullopt;
    }
    return HeaderReader(start, begin + Magic.size()).Run(problem);
}

} // namespace workbench::step
