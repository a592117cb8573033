#include "Preprocessor.h"

#include "Utf8.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <utility>

namespace ResourceCompiler {
namespace {

constexpr int DeepestInclude = 32;
// Defines the dialog words for the vendor's compiler; this compiler knows them itself.
constexpr std::string_view DialogWordsHeader = "DGDefs.h";

const Token& OnlyWord(const Token& name, const std::vector<Token>& line) {
    if (line.size() != 1 || line[0].kind != TokenKind::Word)
        throw SourceError(name.position, "#" + name.text + " takes one name");
    return line[0];
}

bool IsMark(const Token& token, std::string_view mark) {
    return token.kind == TokenKind::Mark && token.text == mark;
}

} // namespace

Preprocessor::Preprocessor(std::vector<std::filesystem::path> includeFolders,
                           const std::vector<std::string>& definedNames)
    : includeFolders(std::move(includeFolders)) {
    for (const std::string& name : definedNames)
        macros[name] = {};
}

std::vector<Token> Preprocessor::Run(const std::filesystem::path& file) {
    ReadFile(file, {file.string(), 1});
    return std::move(output);
}

std::string Preprocessor::LoadText(const std::filesystem::path& file, const Position& wantedAt) {
    std::ifstream stream(file, std::ios::binary);
    std::string text{std::istreambuf_iterator<char>(stream), {}};
    if (!stream.is_open() || stream.bad() || std::filesystem::is_directory(file))
        throw SourceError(wantedAt, "the file " + file.string() + " cannot be read");
    if (std::find(filesRead.begin(), filesRead.end(), file) == filesRead.end()) filesRead.push_back(file);
    if (file.extension() == ".grc" && text.substr(0, ByteOrderMark.size()) != ByteOrderMark)
        throw SourceError({file.string(), 1}, "the file does not begin with the byte order mark of UTF-8");
    return text;
}

void Preprocessor::ReadFile(const std::filesystem::path& file, const Position& wantedAt) {
    if (includeDepth >= DeepestInclude) throw SourceError(wantedAt, "files include one another more than 32 deep");
    ++includeDepth;
    const std::vector<Token> tokens = Tokenize(LoadText(file, wantedAt), file.string());
    const std::size_t outerConditionals = std::exchange(conditionalsOutside, conditionals.size());
    for (std::size_t index = 0; tokens[index].kind != TokenKind::End;) {
        const Token& token = tokens[index];
        if (token.startsLine && IsMark(token, "#")) {
            index = ReadDirective(tokens, index, file);
            continue;
        }
        std::set<std::string> beingExpanded;
        if (IsActive()) Expand(token, token.position, beingExpanded);
        ++index;
    }
    if (conditionals.size() > conditionalsOutside)
        throw SourceError(conditionals.back().opened, "this #if has no #endif");
    conditionalsOutside = outerConditionals;
    if (--includeDepth == 0) output.push_back(tokens.back());
}

std::size_t Preprocessor::ReadDirective(const std::vector<Token>& tokens, std::size_t index,
                                        const std::filesystem::path& file) {
    const Position& start = tokens[index].position;
    const Token& name = tokens[++index];
    if (name.kind != TokenKind::Word || name.startsLine)
        throw SourceError(start, "a directive has a name behind \"#\"");
    Line line;
    for (++index; tokens[index].kind != TokenKind::End && !tokens[index].startsLine; ++index)
        line.push_back(tokens[index]);
    if (ReadConditional(name, line) || !IsActive()) return index;
    if (name.text == "include")
        Include(name, line, file);
    else if (name.text == "define")
        Define(name, line);
    else if (name.text == "undef")
        Undefine(name, line);
    else
        throw SourceError(start, "unknown directive #" + name.text);
    return index;
}

bool Preprocessor::ReadConditional(const Token& name, const Line& line) {
    if (name.text == "ifdef")
        OpenConditional(name, macros.count(OnlyWord(name, line).text) != 0);
    else if (name.text == "ifndef")
        OpenConditional(name, macros.count(OnlyWord(name, line).text) == 0);
    else if (name.text == "if")
        OpenConditional(name, IsActive() && Condition(name, line));
    else if (name.text == "elif" || name.text == "else")
        Alternative(name, line);
    else if (name.text == "endif")
        EndConditional(name, line);
    else
        return false;
    return true;
}

void Preprocessor::OpenConditional(const Token& name, bool holds) {
    const bool surroundingActive = IsActive();
    // Where the surroundings are left out, no branch may be taken: count one as taken already.
    conditionals.push_back({name.position, holds || !surroundingActive, holds && surroundingActive, false});
}

void Preprocessor::CheckOpen(const Token& name) const {
    if (conditionals.size() <= conditionalsOutside)
        throw SourceError(name.position, "#" + name.text + " without #if in this file");
}

void Preprocessor::Alternative(const Token& name, const Line& line) {
    CheckOpen(name);
    Conditional& current = conditionals.back();
    if (current.elseSeen) throw SourceError(name.position, "#" + name.text + " behind #else");
    current.elseSeen = name.text == "else";
    if (current.elseSeen && !line.empty()) throw SourceError(name.position, "#else takes nothing behind it");
    current.active = !current.branchTaken && (current.elseSeen || Condition(name, line));
    current.branchTaken = current.branchTaken || current.active;
}

void Preprocessor::EndConditional(const Token& name, const Line& line) {
    CheckOpen(name);
    if (!line.empty()) throw SourceError(name.position, "#endif takes nothing behind it");
    conditionals.pop_back();
}

bool Preprocessor::Condition(const Token& name, const Line& line) const {
    std::size_t index = 0;
    const auto takes = [&](TokenKind kind, std::string_view text) {
        const bool fits = index < line.size() && line[index].kind == kind && line[index].text == text;
        index += fits ? 1 : 0;
        return fits;
    };
    const bool negated = takes(TokenKind::Mark, "!");
    const bool hasDefined = takes(TokenKind::Word, "defined");
    const bool hasBracket = takes(TokenKind::Mark, "(");
    const bool hasName = index < line.size() && line[index].kind == TokenKind::Word;
    const std::string wanted = hasName ? line[index++].text : std::string();
    const bool closed = takes(TokenKind::Mark, ")") == hasBracket;
    if (!hasDefined || !hasName || !closed || index != line.size())
        throw SourceError(name.position, "#" + name.text + " takes \"defined (NAME)\" or \"!defined (NAME)\"");
    return (macros.count(wanted) != 0) != negated;
}

void Preprocessor::Include(const Token& name, const Line& line, const std::filesystem::path& includingFile) {
    if (line.size() != 1 || line[0].kind != TokenKind::Text)
        throw SourceError(name.position, "#include takes a file name in double quotes");
    if (line[0].text == DialogWordsHeader) return;
    std::vector<std::filesystem::path> folders{includingFile.parent_path()};
    folders.insert(folders.end(), includeFolders.begin(), includeFolders.end());
    for (const std::filesystem::path& folder : folders) {
        const std::filesystem::path candidate = folder / line[0].text;
        if (std::filesystem::exists(candidate)) return ReadFile(candidate, name.position);
    }
    throw SourceError(name.position, "the included file " + line[0].text + " is not found");
}

void Preprocessor::Define(const Token& name, const Line& line) {
    if (line.empty() || line[0].kind != TokenKind::Word) throw SourceError(name.position, "#define takes a name");
    if (line.size() > 1 && IsMark(line[1], "(") && line[1].touchesPrevious)
        throw SourceError(name.position, "#define with arguments is not known here");
    macros[line[0].text] = Line(line.begin() + 1, line.end());
}

void Preprocessor::Undefine(const Token& name, const Line& line) {
    macros.erase(OnlyWord(name, line).text);
}

void Preprocessor::Expand(const Token& token, const Position& position, std::set<std::string>& beingExpanded) {
    const auto macro = token.kind == TokenKind::Word ? macros.find(token.text) : macros.end();
    if (macro == macros.end() || beingExpanded.count(token.text) != 0) {
        output.push_back(token);
        output.back().position = position;
        return;
    }
    beingExpanded.insert(token.text);
    for (const Token& replacement : macro->second)
        Expand(replacement, position, beingExpanded);
    beingExpanded.erase(token.text);
}

} // namespace ResourceCompiler
