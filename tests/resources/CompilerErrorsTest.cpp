// Wrong sources: each is refused with the line of the mistake, and leaves no output.
#include "CompilerRun.h"

#include <gtest/gtest.h>

namespace {

struct WrongSource {
    const char* name;
    std::string text;
    int line;
    std::string complaint;
};

std::string Dialog(const std::string& items, const std::string& head = "Modal | grow 0 0 100 100 \"Title\"") {
    return "'GDLG' 1 " + head + " {\n" + items + "\n}\n";
}

const WrongSource wrongSources[] = {
    {"NotUtf8", "'STR#' 1 \"n\" {\n\"caf\xE9\"\n}", 2, "not valid UTF-8"},
    {"OverlongUtf8", "'STR#' 1 \"n\" {\n\n\"\xC0\xAF\"\n}", 3, "not valid UTF-8"},
    {"SurrogateInUtf8", "'STR#' 1 \"n\" {\n\"\xED\xA0\x80\"\n}", 2, "not valid UTF-8"},
    {"CommentNotClosed", "\n/* open\n\n", 2, "comment is not closed"},
    {"StringNotClosed", "'STR#' 1 \"n\" {\n\"open\n}", 2, "not closed"},
    {"StringEndsInBackslash", "'STR#' 1 \"n\" {\n\"open\\", 2, "not closed"},
    {"UnknownEscape", "'STR#' 1 \"n\" {\n\"a\\qb\"\n}", 2, "unknown escape \"\\q\""},
    {"TypeOfThreeLetters", "'STR' 1 \"n\" {}", 1, "four letters"},
    {"UnknownType", "\n'DITL' 1 \"n\" {}", 2, "unknown resource type 'DITL'"},
    {"StrayMark", "\n\n;", 3, "found \";\""},
    {"StrayLetter", "\n\xC3\xA9", 2, "belongs to no resource"},
    {"NumberWithLetters", "'STR#' 12a \"n\" {}", 1, "\"12a\" is not a 32-bit number"},
    {"NumberTooLarge", "'MDID' 1 \"n\" { 1 4294967296 }", 1, "not a 32-bit number"},
    {"NumberOf30Digits", "'MDID' 1 \"n\" { 1 100000000000000000000000000000 }", 1, "not a 32-bit number"},
    {"NegativeModuleId", "'MDID' 1 \"n\" {\n1\n-1 }", 3, "local id from 0 to 4294967295"},
    {"IdZero", "'STR#' 0 \"n\" {}", 1, "from 1 to 32767"},
    {"IdTooLarge", "'STR#' 32768 \"n\" {}", 1, "from 1 to 32767"},
    {"IdTwice", "'STR#' 5 \"n\" {}\n'STR#' 6 \"n\" {}\n'STR#' 5 \"n\" {}", 3, "'STR#' 5 stands in the source twice"},
    {"NoName", "'STR#' 5 {}", 1, "resource's name"},
    {"ListNotClosed", "'STR#' 5 \"n\" {\n\"a\"\n", 3, "found the end of the file"},
    {"NumberInList", "'STR#' 5 \"n\" {\n\"a\"\n7 }", 3, "found the number 7"},
    {"ThreeModuleNumbers", "'MDID' 5 \"n\" { 1 2\n3 }", 2, "expected \"}\""},
    {"SecondModuleId", "'MDID' 5 \"n\" { 1 2 }\n'MDID' 6 \"n\" { 1 2 }", 2, "one 'MDID' only"},
    {"UnknownItem", Dialog("Separator 1 1 1 1\nEditText 1 2 3 4 SmallPlain 20"), 3,
     "unknown item keyword \"EditText\""},
    {"UnknownFont", Dialog("Button 1 2 3 4 HugePlain \"OK\""), 2, "found the word \"HugePlain\""},
    {"RectangleTooShort", Dialog("Button 1 2 3 SmallPlain \"OK\""), 2, "expected the height"},
    {"NegativeWidth", Dialog("Button 1 2 -3 4 SmallPlain \"OK\""), 2, "the width from 0"},
    {"ButtonWithoutText", Dialog("Button 1 2 3 4 SmallPlain"), 3, "the button's text"},
    {"EditWithoutLimit", Dialog("TextEdit 1 2 3 4 SmallPlain"), 3, "maximum number of characters"},
    {"EditWithOneBound", Dialog("RealEdit 1 2 3 4 SmallPlain \"\""), 3, "the maximum"},
    {"StyleBehindBarMissing", Dialog("RealEdit 1 2 3 4 SmallPlain frame | \"\" \"\""), 2, "one of frame"},
    {"ListWithoutScroll", Dialog("SingleSelList 1 2 3 4 SmallPlain PartialItems 20"), 2, "one of NoScroll"},
    {"HeaderWithoutHeight", Dialog("SingleSelList 1 2 3 4 SmallPlain PartialItems VScroll 20 HasHeader HasFrame"), 2,
     "the header height"},
    {"PopupEntryWithoutText", Dialog("PopupControl 1 2 3 4 60 0\nNoIcon"), 4, "the entry's text"},
    {"IconUnknown", Dialog("\nIcon 1 2 3 4 77 Default"), 3, "there is no 'GICN' 77"},
    {"PopupIconUnknown", Dialog("PopupControl 1 2 3 4 60 0\n78 \"text\""), 2, "there is no 'GICN' 78"},
    {"UnknownDialogKind", Dialog("", "TabPage 0 0 1 1 \"\""), 1, "one of Modal, Palette, Modeless"},
    {"CaptionOfModal", Dialog("", "Modal | topCaption 0 0 1 1 \"\""), 1, "a Modal dialog takes no flag \"topCaption\""},
    {"MinimizeOfPalette", Dialog("", "Palette | minimize 0 0 1 1 \"\""), 1, "takes no flag \"minimize\""},
    {"GrowTwice", Dialog("", "Modal | hGrow | vGrow 0 0 1 1 \"\""), 1, "contradicts or repeats"},
    {"BarWithoutFlag", Dialog("", "Modal | 0 0 1 1 \"\""), 1, "expected a flag"},
    {"HelpWithoutDialog", "\n'DLGH' 9 Help {\n}", 2, "no 'GDLG' 9"},
    {"HelpTooShort", Dialog("Separator 1 1 1 1") + "'DLGH' 1 Help {\n}", 4, "has 0 items, its dialog 1"},
    {"HelpOutOfOrder", Dialog("Separator 1 1 1 1") + "'DLGH' 1 Help {\n2 \"\" Item\n}", 5, "item number 1"},
    {"DialogWithoutHelp", Dialog("Separator 1 1 1 1"), 1, "'GDLG' 1 has no 'DLGH'"},
    {"ImageMissing", "\n'GICN' 9 \"n\" { \"Absent\" }", 2, "there is no image Absent_"},
    {"IncludeMissing", "\n#include \"absent.grc\"", 2, "absent.grc is not found"},
    {"IncludeWithAngles", "#include <absent.grc>", 1, "file name in double quotes"},
    {"EndifWithoutIf", "\n#endif", 2, "#endif without #if"},
    {"ElseWithoutIf", "#else", 1, "#else without #if"},
    {"ElseTwice", "#ifdef A\n#else\n#else\n#endif", 3, "behind #else"},
    {"IfWithoutEndif", "\n#ifdef A\n\n", 2, "has no #endif"},
    {"IfOfExpression", "#if A > 3\n#endif", 1, "defined (NAME)"},
    {"IfBracketOpen", "#if defined (A\n#endif", 1, "defined (NAME)"},
    {"UnknownDirective", "#pragma once", 1, "unknown directive #pragma"},
    {"DefineWithArguments", "#define F(x) 1", 1, "with arguments"},
    {"DefineWithoutName", "#define", 1, "takes a name"},
    {"MistakeInMacroCountsAtItsUse", "#define W \"a\"\n\n'STR#' W", 3, "found the string \"a\""},
};

void PrintTo(const WrongSource& wrong, std::ostream* out) {
    *out << wrong.text;
}

class CompilerErrors : public testing::TestWithParam<WrongSource> {};

TEST_P(CompilerErrors, NamesTheLineAndLeavesNoOutput) {
    const WrongSource& wrong = GetParam();
    const SourceFolder folder;
    folder.Write("main.grc", wrong.text);
    const std::string error = folder.Compile();
    const std::string start = "main.grc:" + std::to_string(wrong.line) + ": ";
    EXPECT_EQ(error.substr(0, start.size()), start) << error;
    EXPECT_NE(error.find(wrong.complaint), std::string::npos) << error;
    EXPECT_FALSE(std::filesystem::exists(folder.Path("out.cpp")));
    EXPECT_FALSE(std::filesystem::exists(folder.Path("out.d")));
}

INSTANTIATE_TEST_SUITE_P(Table, CompilerErrors, testing::ValuesIn(wrongSources),
                         [](const auto& info) { return std::string(info.param.name); });

TEST(CompilerErrors, InIncludedFileNamesThatFile) {
    const SourceFolder folder;
    folder.Write("main.grc", "#include \"part.grc\"\n");
    folder.Write("part.grc", "\n'STR#' x");
    EXPECT_EQ(folder.Compile().substr(0, 12), "part.grc:2: ");
    folder.Write("part.grc", "#endif");
    folder.Write("main.grc", "#ifndef A\n#include \"part.grc\"\n#endif\n");
    EXPECT_EQ(folder.Compile().substr(0, 12), "part.grc:1: ") << "an #endif closes no #if of the including file";
}

TEST(CompilerErrors, ByteOrderMarkIsRequiredOfResourceSourcesOnly) {
    const SourceFolder folder;
    folder.WriteBytes("main.grc", "'STR#' 1 \"n\" { \"a\" }");
    EXPECT_NE(folder.Compile().find("main.grc:1: the file does not begin with the byte order mark"), std::string::npos);
    folder.Write("main.grc", "#include \"numbers.h\"\n'STR#' List \"n\" { \"a\" }");
    folder.WriteBytes("numbers.h", "#define List 3\n");
    EXPECT_EQ(folder.Compile(), "");
}

TEST(CompilerErrors, FileThatIncludesItselfIsRefused) {
    const SourceFolder folder;
    folder.Write("main.grc", "\n#include \"main.grc\"\n");
    EXPECT_NE(folder.Compile().find("main.grc:2: files include one another"), std::string::npos);
}

TEST(CompilerErrors, TwoImagesForOneIconAreRefused) {
    const SourceFolder folder;
    folder.Write("main.grc", "'GICN' 9 \"n\" { \"Lock\" }");
    folder.WriteBytes("RFIX/Images/Lock_18x18.svg", "<svg/>");
    folder.WriteBytes("RFIX/Images/LockOpen_18x18.svg", "<svg/>");
    EXPECT_EQ(folder.Compile(), "");
    folder.WriteBytes("RFIX/Images/Lock_24x24.svg", "<svg/>");
    EXPECT_NE(folder.Compile().find("main.grc:1: there is more than one image for Lock"), std::string::npos);
}

TEST(CompilerOutput, StaysAsItWasWhenTheSourceBecomesWrong) {
    const SourceFolder folder;
    folder.Write("main.grc", "'STR#' 1 \"n\" { \"a\" }");
    ASSERT_EQ(folder.Compile(), "");
    const std::string before = folder.Read("out.cpp");
    ASSERT_FALSE(before.empty());
    folder.Write("main.grc", "'STR#' 1 \"n\" { \"a\"");
    EXPECT_NE(folder.Compile(), "");
    EXPECT_EQ(folder.Read("out.cpp"), before);
}

TEST(CompilerOutput, ThatCannotBeWrittenIsNamedAndLeavesNothingBeside) {
    const SourceFolder folder;
    folder.Write("main.grc", "'STR#' 1 \"n\" { \"a\" }");
    std::filesystem::create_directories(folder.Path("out.cpp/in the way"));
    EXPECT_EQ(folder.Compile(), "the file out.cpp cannot be written");
    EXPECT_FALSE(std::filesystem::exists(folder.Path("out.cpp.new")));
}

/// As rules have it: blanks behind a backslash.
std::string Escaped(const std::string& path) {
    std::string escaped;
    for (const char letter : path)
        escaped.append(letter == ' ' ? 1 : 0, '\\').push_back(letter);
    return escaped;
}

TEST(CompilerOutput, DependenciesNameEveryFileRead) {
    const SourceFolder folder;
    folder.Write("main.grc", "#include \"a b.grc\"\n#include \"deep.grc\"\n'GICN' 9 \"n\" { \"Lock\" }");
    folder.Write("a b.grc", "");
    folder.Write("shared/deep.grc", "");
    folder.WriteBytes("RFIX/Images/Lock_18x18.svg", "<svg/>");
    ASSERT_EQ(folder.Compile(), "");
    const std::string rule = folder.Read("out.d");
    EXPECT_EQ(rule.find(Escaped(folder.Path("out.cpp").string()) + ":"), 0u) << rule;
    for (const char* name : {"/main.grc", "/a\\ b.grc", "/shared/deep.grc", "/RFIX/Images/Lock_18x18.svg"})
        EXPECT_NE(rule.find(name), std::string::npos) << name << " in " << rule;
}

// A damaged source compiles or is refused with a place in it; the sanitizers watch the rest.
void ExpectOrderlyEnd(const SourceFolder& folder, const std::string& bytes, std::size_t at) {
    folder.WriteBytes("main.grc", bytes);
    const std::string error = folder.Compile();
    EXPECT_TRUE(error.empty() || error.substr(0, 9) == "main.grc:") << "at byte " << at << ": " << error;
}

TEST(CompilerErrors, DamagedSourceEndsInOrder) {
    const SourceFolder folder;
    folder.WriteBytes("RFIX/Images/7_5x9.svg", "<svg/>");
    std::ifstream stream(KELVARNIX_SOURCE_DIR "/tests/resources/RoundTrip/RoundTrip.grc", std::ios::binary);
    const std::string whole{std::istreambuf_iterator<char>(stream), {}};
    folder.WriteBytes("main.grc", whole);
    ASSERT_GT(whole.size(), 1000u);
    ASSERT_EQ(folder.Compile(), "");
    for (std::size_t length = 0; length < whole.size(); ++length)
        ExpectOrderlyEnd(folder, whole.substr(0, length), length);
    for (std::size_t at = 0; at < whole.size(); ++at) {
        std::string flipped = whole;
        flipped[at] = static_cast<char>(flipped[at] ^ (1 << at % 8));
        ExpectOrderlyEnd(folder, flipped, at);
    }
}

} // namespace
