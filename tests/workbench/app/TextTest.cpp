// Texts as people write them, GlobalIds, and the argument that sets an element's value.
#include "workbench/app/Text.h"
#include "support/Answers.h"
#include "text/Utf8.h"
#include "workbench/app/ElementSettings.h"
#include "workbench/app/GlobalId.h"
#include "workbench/text/Letters.h"

namespace {

using namespace workbench;

std::string TellUtf8(const std::string& text) {
    return utf8::IsUtf8(text) ? "yes" : "no";
}

std::string Match(const std::string& textAndPattern) {
    const std::size_t bar = textAndPattern.find('|');
    return MatchesPattern(textAndPattern.substr(0, bar), textAndPattern.substr(bar + 1)) ? "yes" : "no";
}

std::string WriteShort(const std::string& valueAndDecimals) {
    return FormatShort(std::stod(valueAndDecimals), std::stoi(valueAndDecimals.substr(valueAndDecimals.find(' '))));
}

std::string ReadId(const std::string& text) {
    const std::optional<host::Guid> guid = ReadGlobalId(text);
    if (!guid) return "none";
    EXPECT_EQ(WriteGlobalId(*guid), text);
    return host::WriteGuid(*guid);
}

/// A leading "@" stands for an element.
std::string SetElement(const std::string& argument) {
    const std::string element = "1hfxWGdQqHqO2q0C1Fr338";
    const std::string whole = argument[0] == '@' ? element + argument.substr(1) : argument;
    const Result<ElementSetting> parsed = ParseElementSetting(whole);
    if (parsed.HasFailed()) return std::to_string(static_cast<int>(parsed.GetCode())) + " " + parsed.GetText();
    const ElementSetting& setting = parsed.Get();
    EXPECT_EQ(WriteGlobalId(setting.element), element);
    EXPECT_EQ(setting.text, whole);
    const std::string key(lca::GetKeyText(setting.key));
    if (setting.value.type == host::ValueType::Boolean) return key + (setting.value.boolean ? " true" : " false");
    EXPECT_EQ(setting.value.type, host::ValueType::Real);
    return key + " " + std::to_string(setting.value.real);
}

TEST(Text, AnswersAsReviewed) {
    support::ExpectAnswers("workbench/app/expected/text.txt",
                           {{"[utf-8]", TellUtf8},
                            {"[pattern]", Match},
                            {"[folded]", [](const std::string& text) { return FoldCase(text); }},
                            {"[short number]", WriteShort},
                            {"[global id]", ReadId},
                            {"[element]", SetElement}});
    // Many stars on a long text end at once.
    EXPECT_FALSE(MatchesPattern(std::string(20000, 'a'), "*a*a*a*a*a*a*a*a*a*a*b"));
}

} // namespace
