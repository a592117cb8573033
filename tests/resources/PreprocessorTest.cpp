// Which parts of a source the preprocessor keeps, and what the strings in it stand for.
#include "tools/resource_compiler/Preprocessor.h"
#include "CompilerRun.h"
#include "tools/resource_compiler/ResourceParser.h"

#include <gtest/gtest.h>

namespace {

using Entries = std::vector<std::string>;

// The entries of string list 1 of main.grc, whose body is `body`.
Entries EntriesOf(const SourceFolder& folder, const std::string& body, const Entries& definedNames = {}) {
    folder.Write("main.grc", "'STR#' 1 \"n\" {\n" + body + "\n}\n");
    ResourceCompiler::Preprocessor preprocessor({folder.Path("shared")}, definedNames);
    const auto resources = ResourceCompiler::ParseResources(preprocessor.Run(folder.Path("main.grc")));
    return resources.stringLists.at(0).entries;
}

const std::string platforms =
    "#if defined (WINDOWS)\n\"w\"\n#elif defined (macintosh)\n\"m\"\n#else\n\"none\"\n#endif\n";

struct KeptCase {
    const char* name;
    std::string body;
    Entries definedNames;
    Entries expected;
};

const KeptCase keptCases[] = {
    {"EmptyList", "", {}, {}},
    {"CommentsAreSpace", "/* [1] */ \"a\" // \"b\"\n/* \"c\"\n\"d\" */\"e\"", {}, {"a", "e"}},
    {"CommentInStringIsText", "\"a /* b */ // c\"", {}, {"a /* b */ // c"}},
    {"CarriageReturns", "\"a\"\r\n#ifdef X\r\n\"b\"\r\n#endif\r\n\"c\"", {}, {"a", "c"}},
    {"FirstBranch", platforms, {"WINDOWS"}, {"w"}},
    {"SecondBranch", platforms, {"macintosh"}, {"m"}},
    {"ElseBranch", platforms, {}, {"none"}},
    {"FirstOfTwoThatHold", platforms, {"WINDOWS", "macintosh"}, {"w"}},
    {"NegatedWithoutBrackets", "#if !defined X\n\"a\"\n#endif", {}, {"a"}},
    {"IfdefAndIfndef", "#ifdef X\n\"a\"\n#endif\n#ifndef X\n\"b\"\n#endif", {"X"}, {"a"}},
    {"NestedInLeftOut", "#ifdef X\n#ifndef Y\n\"a\"\n#else\n\"b\"\n#endif\n#else\n\"c\"\n#endif", {}, {"c"}},
    {"NestedElseInLeftOut", "#ifdef X\n#ifdef Y\n\"a\"\n#else\n\"b\"\n#endif\n#endif\n\"c\"", {}, {"c"}},
    {"LeftOutDirectivesDoNothing",
     "#ifdef X\n#include \"absent\"\n#define Z \"a\"\n#pragma x: 3\n#endif\n\"b\"",
     {},
     {"b"}},
    {"MacroOfMacro", "#define A B\n#define B \"b\" \"c\"\nA", {}, {"b", "c"}},
    {"MacroContinuedOnNextLine", "#define A \"a\" \\\n\"b\"\n\"first\" A", {}, {"first", "a", "b"}},
    {"MacroAfterUndefIsNotDefined", "#define A\n#undef A\n#ifdef A\n\"a\"\n#endif", {}, {}},
    {"MacroRedefined", "#define A \"a\"\nA\n#define A \"b\"\nA", {}, {"a", "b"}},
    {"WordInStringIsNoMacro", "#define A \"a\"\n\"A\"", {}, {"A"}},
    {"MarkInLineIsNoDirective", "\"a\" \"#ifdef X\"", {}, {"a", "#ifdef X"}},
    {"DialogWordsNeedNoFile", "#include \"DGDefs.h\"\n\"a\"", {}, {"a"}},
    {"EscapesOfC", R"("\r\n\t\"\\\'")", {}, {"\r\n\t\"\\'"}},
    {"BackslashesBeforeEscape", R"("\\n" "\\\n")", {}, {"\\n", "\\\n"}},
    {"QuestionMarksStay", R"("??=" "??/n")", {}, {"\?\?=", "\?\?/n"}},
    {"LettersOfOneToFourBytes",
     "\"A\xC3\xA9\xE2\x82\x82\xF0\x9F\x8F\xA0\"",
     {},
     {"A\xC3\xA9\xE2\x82\x82\xF0\x9F\x8F\xA0"}},
};

void PrintTo(const KeptCase& kept, std::ostream* out) {
    *out << kept.body;
}

class Kept : public testing::TestWithParam<KeptCase> {};

TEST_P(Kept, Entries) {
    const SourceFolder folder;
    EXPECT_EQ(EntriesOf(folder, GetParam().body, GetParam().definedNames), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(Table, Kept, testing::ValuesIn(keptCases),
                         [](const auto& info) { return std::string(info.param.name); });

TEST(Include, PrefersTheIncludingFilesFolderThenTheGivenOnes) {
    const SourceFolder folder;
    folder.Write("part/outer.grc", "\"outer\"\n#include \"inner.grc\"\n");
    folder.Write("part/inner.grc", "\"beside\"");
    folder.Write("shared/inner.grc", "\"shared\"");
    EXPECT_EQ(EntriesOf(folder, "#include \"part/outer.grc\"\n\"last\""), (Entries{"outer", "beside", "last"}));
    EXPECT_EQ(EntriesOf(folder, "#include \"inner.grc\""), Entries{"shared"});
}

TEST(Include, MacrosPassBothWays) {
    const SourceFolder folder;
    folder.Write("part.grc", "A\n#define B \"from part\"\n");
    EXPECT_EQ(EntriesOf(folder, "#define A \"from main\"\n#include \"part.grc\"\nB"),
              (Entries{"from main", "from part"}));
}

TEST(Include, MacroOfItselfEnds) {
    const SourceFolder folder;
    EXPECT_THROW((void)EntriesOf(folder, "#define A A\nA"), ResourceCompiler::SourceError);
}

} // namespace
