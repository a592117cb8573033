// The compiler's answers to sources, good and bad, and what it leaves where it cannot write.
#include "tools/resource_compiler/Compiler.h"
#include "support/ApprovedText.h"
#include "support/Noise.h"
#include "tools/resource_compiler/Preprocessor.h"
#include "tools/resource_compiler/ResourceParser.h"

#include <gtest/gtest.h>

#include "Listing.h"
#include "support/TestFolder.h"

#include <cstdlib>
#include <map>

namespace {

constexpr char Mark[] = "\xEF\xBB\xBF"; ///< begins each resource source

/// A source of the resource compiler in a folder of its own, and what compiling it gives.
class SourceFolder : public support::TestFolder {
public:
    void Write(const std::string& name, const std::string& bytes) const {
        std::filesystem::create_directories(std::filesystem::path(*this / name).parent_path());
        TestFolder::Write(name, bytes);
    }
    std::string Read(const std::string& name) const { return support::ContentOf(*this / name); }

    /// Compiles main.grc to out.cpp; answers the error without the folder, empty when it compiled.
    std::string Compile(const std::vector<std::string>& definedNames = {}) const {
        std::string error =
            ResourceCompiler::Compile(
                {*this / "main.grc", *this / "out.cpp", *this / "out.d", {}, {*this / "shared"}, definedNames})
                .GetErrorText();
        const std::string start = GetPath() + "/";
        for (std::size_t at = error.find(start); at != std::string::npos; at = error.find(start))
            error.erase(at, start.size());
        return error;
    }
    /// The error, or the entries of the string lists.
    std::string Answer(const std::vector<std::string>& definedNames) const {
        std::string answer = Compile(definedNames);
        const bool isWritten = Read("out.cpp") != "(none)" || Read("out.d") != "(none)";
        EXPECT_EQ(isWritten, answer.empty());
        if (!answer.empty()) return answer;
        ResourceCompiler::Preprocessor preprocessor({*this / "shared"}, definedNames);
        for (const auto& list : ResourceCompiler::ParseResources(preprocessor.Run(*this / "main.grc")).stringLists)
            for (const std::string& entry : list.entries)
                answer.append(answer.empty() ? "" : " ").append(Quote(entry));
        return answer;
    }
};

/// With %E9 as that byte.
std::string Decode(const std::string& line) {
    std::string bytes;
    for (std::size_t i = 0; i < line.size(); ++i) {
        const bool isCoded = line[i] == '%' && i + 2 < line.size();
        bytes += isCoded ? static_cast<char>(std::stoi(line.substr(i + 1, 2), nullptr, 16)) : line[i];
        if (isCoded) i += 2;
    }
    return bytes;
}

std::vector<std::string> SplitWords(const std::string& line) {
    std::istringstream stream(line);
    return {std::istream_iterator<std::string>(stream), {}};
}

TEST(Compiler, AnswersEachSource) {
    std::istringstream cases(support::ApprovedText("resources/sources.txt"));
    std::vector<std::string> words;           // the case's name and the words that are defined
    std::map<std::string, std::string> files; // of the case
    std::string file, found;
    for (std::string line; std::getline(cases, line);) {
        if (line.substr(0, 3) == "-> " || line == "->") {
            const SourceFolder folder;
            for (auto& [name, content] : files)
                folder.Write(name, content.substr(0, content.empty() || content.back() != '\n' ? std::string::npos
                                                                                               : content.size() - 1));
            const std::string answer = folder.Answer({words.begin() + 1, words.end()});
            found.append(answer.empty() ? "->" : "-> ").append(answer).append("\n");
            files.clear();
            file.clear();
            continue;
        }
        found += line + "\n";
        if (line.substr(0, 3) == "== ") {
            words = SplitWords(line.substr(3));
            file = "main.grc";
            files[file] = Mark;
        } else if (line.substr(0, 3) == "-- ") {
            file = SplitWords(line)[1];
            files[file] = line.find(" plain") == std::string::npos ? Mark : "";
        } else if (!file.empty()) {
            files[file] += Decode(line) + "\n";
        }
    }
    support::ExpectApproved("resources/sources.txt", found);
}

TEST(CompilerOutput, StaysAsItWasWhereTheSourceIsWrongOrItCannotBeWritten) {
    const SourceFolder folder;
    const std::string good = std::string(Mark) + "'STR#' 1 \"n\" { \"a\" }";
    folder.Write("main.grc", good);
    ASSERT_EQ(folder.Compile(), "");
    const std::string before = folder.Read("out.cpp");
    folder.Write("main.grc", good.substr(0, good.size() - 1));
    EXPECT_NE(folder.Compile(), "");
    EXPECT_EQ(folder.Read("out.cpp"), before);
    folder.Write("main.grc", good);
    std::filesystem::remove(folder / "out.cpp");
    std::filesystem::create_directories(folder / "out.cpp/in the way");
    EXPECT_EQ(folder.Compile(), "the file out.cpp cannot be written");
    EXPECT_FALSE(std::filesystem::exists(folder / "out.cpp.new"));
}

/// As rules have it: blanks behind a backslash.
TEST(CompilerOutput, DependenciesNameEveryFileRead) {
    const SourceFolder folder;
    folder.Write("main.grc",
                 std::string(Mark) + "#include \"a b.grc\"\n#include \"deep.grc\"\n'GICN' 9 \"n\" { \"Lock\" }");
    folder.Write("a b.grc", Mark);
    folder.Write("shared/deep.grc", Mark);
    folder.Write("RFIX/Images/Lock_18x18.svg", "<svg/>");
    ASSERT_EQ(folder.Compile(), "");
    const std::string rule = folder.Read("out.d");
    EXPECT_EQ(rule.find(folder / "out.cpp:"), 0U) << rule;
    for (const char* name : {"/main.grc", "/a\\ b.grc", "/shared/deep.grc", "/RFIX/Images/Lock_18x18.svg"})
        EXPECT_NE(rule.find(name), std::string::npos) << name << " in " << rule;
}

/// A damaged source compiles or is refused with a place in it; the sanitizers watch the rest.
TEST(Compiler, DamagedSourceEndsInOrder) {
    const SourceFolder folder;
    folder.Write("RFIX/Images/7_5x9.svg", "<svg/>");
    const std::string whole = support::ContentOf(KELVARNIX_SOURCE_DIR "/tests/resources/RoundTrip/RoundTrip.grc");
    const auto compile = [&](const std::string& bytes) {
        folder.Write("main.grc", bytes);
        return folder.Compile();
    };
    ASSERT_GT(whole.size(), 1000U);
    ASSERT_EQ(compile(whole), "");
    for (std::size_t at = 0; at < 2 * whole.size(); ++at) {
        std::string damaged = whole.substr(0, at < whole.size() ? at : whole.size());
        if (at >= whole.size()) support::FlipBit(damaged, at - whole.size(), at % 8);
        const std::string error = compile(damaged);
        EXPECT_TRUE(error.empty() || error.substr(0, 9) == "main.grc:") << at << ": " << error;
    }
}

} // namespace
