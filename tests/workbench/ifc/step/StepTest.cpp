// Reading of STEP text: values, strings in their code pages, headers, the index of entities, damage.
#include "workbench/ifc/step/Lexis.h"
#include "workbench/ifc/step/StepFile.h"

#include "support/Answers.h"

using namespace workbench::step;
using support::Answer;

namespace {

/// The cases write "^" for a backslash.
std::string Coded(std::string text) {
    std::replace(text.begin(), text.end(), '^', '\\');
    return text;
}

std::string FileOf(const std::string& data, const std::string& schema = "IFC4") {
    return "ISO-10303-21;\nHEADER;\nFILE_SCHEMA(('" + schema + "'));\nENDSEC;\nDATA;\n" + data +
           "\nENDSEC;\nEND-ISO-10303-21;\n";
}

std::string Describe(const Value& value) {
    std::string text;
    switch (value.GetKind()) {
    case ValueKind::Missing:
        return "missing";
    case ValueKind::Derived:
        return "derived";
    case ValueKind::Integer:
        return value.GetInteger() ? "integer " + std::to_string(*value.GetInteger()) : "no integer";
    case ValueKind::Real: {
        char digits[40] = "no real";
        if (value.GetNumber()) std::snprintf(digits, sizeof digits, "real %.17g", *value.GetNumber());
        return digits;
    }
    case ValueKind::Text:
        return "text <" + value.GetText() + ">";
    case ValueKind::Enumeration:
        return "word " + std::string(value.GetEnumeration()) +
               (!value.GetLogical()   ? ""
                : *value.GetLogical() ? ", true"
                                      : ", false");
    case ValueKind::Reference:
        return value.GetReference() ? "entity " + std::to_string(*value.GetReference()) : "no entity";
    case ValueKind::List:
        for (const Value& item : value)
            text += (text.empty() ? "" : ", ") + Describe(item);
        return "[" + text + "]";
    case ValueKind::Typed:
        return std::string(value.GetTypeName()) + " of " + Describe(value.GetContent());
    case ValueKind::Binary:
        return "binary " + std::string(value.GetBinary());
    }
    return "?";
}

std::string Open(const std::string& text, const std::function<std::string(const StepFile&)>& tell,
                 const std::string& page = {}) {
    Problem problem;
    const auto file = StepFile::Read(text, {page}, problem);
    if (file) return tell(*file);
    EXPECT_FALSE(problem.advice.empty()) << text;
    return (problem.kind == ProblemKind::Damaged ? "damaged: " : "no STEP: ") + problem.what;
}

/// Of all entities, by number.
std::string DescribeEntities(const StepFile& file) {
    std::string text;
    for (EntityIndex i = 0; i < file.CountEntities(); ++i) {
        EXPECT_EQ(file.Find(file.GetNumber(i)), i);
        EXPECT_FALSE(file.Find(file.GetNumber(i) + 1) == i);
        text.append("#").append(std::to_string(file.GetNumber(i))).append(" ");
        text.append(file.GetKeywords()[file.GetKeyword(i)]).append(" ");
        text.append(Describe(file.GetArguments(i))).append("; ");
    }
    for (std::size_t i = 0; i < file.GetKeywords().size(); ++i)
        text += std::to_string(file.GetEntities(i).size()) + " " + file.GetKeywords()[i] + " ";
    return text + std::to_string(file.CountDoubled()) + " doubled, " + std::to_string(file.CountComplex()) + " complex";
}

std::string AnswerValue(const std::string& argument) {
    return Open(FileOf("#1=IFCX(" + Coded(argument) + ");"),
                [](const StepFile& file) { return Describe(file.GetArguments(0)); });
}

std::string AnswerString(const std::string& coded) {
    return TextDecoder().Decode(Coded(coded));
}

/// "page: string; string", the page empty where the file has to tell.
std::string AnswerPage(const std::string& input) {
    const std::size_t colon = input.find(": ");
    std::string data = "#1=IFCX('" + Coded(input.substr(colon + 2)) + "');";
    for (std::size_t at = data.find("; "); at != std::string::npos; at = data.find("; "))
        data.replace(at, 2, "','");
    return Open(
        FileOf(data),
        [](const StepFile& file) {
            std::string text = file.GetCodePage().name + (file.GetCodePage().isDoubtful ? "?" : "") + ":";
            for (const Value& item : file.GetArguments(0))
                text += " <" + item.GetText() + ">";
            return text;
        },
        input.substr(0, colon));
}

std::string AnswerHeader(const std::string& start) {
    Problem problem;
    const auto header = ReadHeader(start, problem);
    if (!header) return (problem.kind == ProblemKind::Damaged ? "damaged: " : "no STEP: ") + problem.what;
    std::string text =
        "<" + header->schema + "> " + header->fileName + "|" + header->preprocessor + "|" + header->originatingSystem;
    for (const std::string& description : header->descriptions)
        text += "|" + description;
    return text + " data at " + std::to_string(header->dataOffset);
}

TEST(Step, AnswersItsCases) {
    const std::map<std::string, Answer> sections = {
        {"[values]", AnswerValue},
        {"[strings]", AnswerString},
        {"[pages]", AnswerPage},
        {"[headers]", AnswerHeader},
        {"[files]", [](const std::string& data) { return Open(FileOf(data), DescribeEntities); }}};
    for (const char* name : {"values", "strings", "headers", "files"})
        support::ExpectAnswers(std::string("workbench/ifc/step/expected/") + name + ".txt", sections);
}

TEST(Step, RefusesEveryTruncation) {
    const std::string whole = FileOf("#1=IFCMATERIAL('it''s\\X2\\00FC\\X0\\',$,(#2,.5));/*;*/#2=IFCX();");
    const std::size_t needed = whole.rfind("ENDSEC;") + 7;
    Problem problem;
    for (std::size_t length = 0; length < needed; ++length) {
        EXPECT_FALSE(StepFile::Read(whole.substr(0, length), {}, problem)) << length;
        EXPECT_FALSE(problem.what.empty()) << length;
    }
    EXPECT_TRUE(StepFile::Read(whole.substr(0, needed), {}, problem)) << "nothing is missing but the end mark";
}

TEST(Step, KeepsItsTextWhenMoved) {
    Problem problem;
    auto file = StepFile::Read(FileOf("#7=IFCX('a');"), {}, problem);
    ASSERT_TRUE(file);
    const Value before = file->GetArguments(0);
    const StepFile moved = std::move(*file);
    EXPECT_EQ(before.GetItem(0).GetText(), "a");
    EXPECT_EQ(moved.GetArguments(0).GetItem(0).GetText(), "a");
}

/// Doubtful apostrophes must not make the reading quadratic: that takes longer than a test has.
TEST(Step, ReadsManyShiftedApostrophesAtOnce) {
    for (const char* piece : {"'\\S\\',", "'\\S\\'',", "'','\\S\\','',"}) {
        std::string data = "#1=IFCX((";
        while (data.size() < 4'000'000)
            data += piece;
        Open(FileOf(data + "$));"), [](const StepFile& file) { return Describe(file.GetArguments(0).GetItem(0)); });
    }
}

} // namespace
