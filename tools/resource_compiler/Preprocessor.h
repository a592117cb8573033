// The subset of the C preprocessor that resource sources use: #include "file"; #define and #undef of names without
// arguments; #if [!]defined, #ifdef, #ifndef, #elif, #else, #endif.
#pragma once

#include "Lexer.h"

#include <filesystem>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace ResourceCompiler {

class Preprocessor {
public:
    /// includeFolders  searched in order after the including file's own folder
    /// definedNames    names that count as defined from the start, such as WINDOWS
    Preprocessor(std::vector<std::filesystem::path> includeFolders, const std::vector<std::string>& definedNames);

    /// The tokens of `file` with everything it includes, without directives, an End token last.
    /// errors  SourceError: unreadable file, .grc file without byte order mark, bad or unclosed directive
    [[nodiscard]] std::vector<Token> Run(const std::filesystem::path& file);

    /// Every file that was read, in order of first reading.
    [[nodiscard]] const std::vector<std::filesystem::path>& GetFilesRead() const { return filesRead; }

private:
    /// One open #if: of its branches at most one is taken, and none when the surrounding text is left out.
    struct Conditional {
        Position opened;
        bool branchTaken = false;
        bool active = false;
        bool elseSeen = false;
    };
    using Line = std::vector<Token>; ///< tokens of a directive behind its name

    std::vector<std::filesystem::path> includeFolders;
    std::map<std::string, std::vector<Token>> macros;
    std::vector<Conditional> conditionals;
    std::vector<std::filesystem::path> filesRead;
    std::vector<Token> output;
    int includeDepth = 0;
    std::size_t conditionalsOutside = 0; ///< open when the present file began: not its own to close

    void ReadFile(const std::filesystem::path& file, const Position& wantedAt);
    [[nodiscard]] std::string LoadText(const std::filesystem::path& file, const Position& wantedAt);
    std::size_t ReadDirective(const std::vector<Token>& tokens, std::size_t index, const std::filesystem::path& file);
    bool ReadConditional(const Token& name, const Line& line);
    void Include(const Token& name, const Line& line, const std::filesystem::path& includingFile);
    void Define(const Token& name, const Line& line);
    void Undefine(const Token& name, const Line& line);
    void Alternative(const Token& name, const Line& line);
    void EndConditional(const Token& name, const Line& line);
    void CheckOpen(const Token& name) const;
    void OpenConditional(const Token& name, bool holds);
    [[nodiscard]] bool Condition(const Token& name, const Line& line) const;
    [[nodiscard]] bool IsActive() const { return conditionals.empty() || conditionals.back().active; }
    void Expand(const Token& token, const Position& position, std::set<std::string>& beingExpanded);
};

} // namespace ResourceCompiler
