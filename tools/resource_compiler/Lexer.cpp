#include "Lexer.h"

#include "Utf8.h"

#include <algorithm>
#include <charconv>

namespace ResourceCompiler {
namespace {

constexpr std::int64_t SmallestNumber = -2147483648LL;
constexpr std::int64_t LargestNumber = 4294967295LL;

bool IsDigit(char character) {
    return character >= '0' && character <= '9';
}

bool IsWordCharacter(char character) {
    return IsDigit(character) || character == '_' || (character >= 'A' && character <= 'Z') ||
           (character >= 'a' && character <= 'z');
}

class Lexer {
public:
    Lexer(std::string_view text, const std::string& file) : text(text), position{file, 1} {}

    std::vector<Token> Run() {
        CheckEncoding();
        do {
            SkipSpace();
            tokens.push_back(NextToken());
        } while (tokens.back().kind != TokenKind::End);
        return std::move(tokens);
    }

private:
    std::string_view text;
    Position position;
    std::size_t offset = 0;
    bool startsLine = true;
    bool touchesPrevious = false;
    std::vector<Token> tokens;

    char Peek(std::size_t ahead = 0) const { return offset + ahead < text.size() ? text[offset + ahead] : '\0'; }
    bool AtEnd() const { return offset >= text.size(); }

    char Take() {
        const char character = text[offset++];
        if (character == '\n') ++position.line;
        return character;
    }

    void CheckEncoding() {
        if (const auto invalid = FindInvalidUtf8(text)) {
            position.line += static_cast<int>(std::count(text.begin(), text.begin() + *invalid, '\n'));
            throw SourceError(position, "the text is not valid UTF-8");
        }
        if (text.substr(0, ByteOrderMark.size()) == ByteOrderMark) offset = ByteOrderMark.size();
    }

    void SkipSpace() {
        touchesPrevious = true;
        while (!AtEnd() && SkipOneSpace())
            touchesPrevious = false;
    }

    bool SkipOneSpace() {
        switch (Peek()) {
        case '\n':
            startsLine = true;
            [[fallthrough]];
        case ' ':
        case '\t':
        case '\r':
            Take();
            return true;
        case '\\':
            return SkipLineContinuation();
        case '/':
            return SkipComment();
        default:
            return false;
        }
    }

    bool SkipLineContinuation() {
        const std::size_t length = Peek(1) == '\r' ? 3 : 2;
        if (Peek(length - 1) != '\n') return false;
        for (std::size_t index = 0; index < length; ++index)
            Take();
        return true;
    }

    bool SkipComment() {
        if (Peek(1) == '/') {
            while (!AtEnd() && Peek() != '\n')
                Take();
            return true;
        }
        if (Peek(1) != '*') return false;
        const Position start = position;
        offset += 2;
        while (Peek() != '*' || Peek(1) != '/') {
            if (AtEnd()) throw SourceError(start, "the comment is not closed");
            Take();
        }
        offset += 2;
        return true;
    }

    Token NextToken() {
        Token token{TokenKind::End, {}, 0, position, startsLine, touchesPrevious};
        startsLine = false;
        if (AtEnd()) return token;
        const char first = Peek();
        if (first == '"')
            ReadText(token);
        else if (first == '\'')
            ReadResourceType(token);
        else if (IsDigit(first) || (first == '-' && IsDigit(Peek(1))))
            ReadNumber(token);
        else if (IsWordCharacter(first))
            ReadWord(token);
        else
            ReadMark(token);
        return token;
    }

    void ReadText(Token& token) {
        token.kind = TokenKind::Text;
        Take();
        while (Peek() != '"') {
            if (AtEnd() || Peek() == '\n') throw SourceError(token.position, "the string is not closed on its line");
            const char character = Take();
            token.text += character == '\\' ? ReadEscape() : character;
        }
        Take();
    }

    char ReadEscape() {
        const char letter = AtEnd() ? '\0' : text[offset];
        switch (letter) {
        case 'n':
            ++offset;
            return '\n';
        case 'r':
            ++offset;
            return '\r';
        case 't':
            ++offset;
            return '\t';
        case '"':
        case '\'':
        case '\\':
            ++offset;
            return letter;
        default:
            break;
        }
        if (letter <= ' ') throw SourceError(position, "the string is not closed on its line");
        throw SourceError(position,
                          std::string("unknown escape \"\\") + letter + "\"; known are \\n \\r \\t \\\" \\' \\\\");
    }

    void ReadResourceType(Token& token) {
        token.kind = TokenKind::ResourceType;
        Take();
        while (!AtEnd() && Peek() != '\'' && Peek() != '\n')
            token.text += Take();
        if (Peek() != '\'' || token.text.size() != 4)
            throw SourceError(token.position, "a resource type has four letters in single quotes");
        Take();
    }

    void ReadNumber(Token& token) {
        token.kind = TokenKind::Number;
        token.text = Take();
        while (IsWordCharacter(Peek()))
            token.text += Take();
        const bool negative = token.text[0] == '-';
        std::string_view digits = std::string_view(token.text).substr(negative ? 1 : 0);
        const bool hexadecimal = digits.substr(0, 2) == "0x" || digits.substr(0, 2) == "0X";
        if (hexadecimal) digits.remove_prefix(2);
        const char* end = digits.data() + digits.size();
        const auto parsed = std::from_chars(digits.data(), end, token.number, hexadecimal ? 16 : 10);
        if (negative) token.number = -token.number;
        const bool inRange = token.number >= SmallestNumber && token.number <= LargestNumber;
        if (parsed.ec != std::errc() || parsed.ptr != end || !inRange)
            throw SourceError(token.position, "\"" + token.text + "\" is not a 32-bit number");
    }

    void ReadWord(Token& token) {
        token.kind = TokenKind::Word;
        while (IsWordCharacter(Peek()))
            token.text += Take();
    }

    void ReadMark(Token& token) {
        if (Peek() <= ' ' || Peek() > '~')
            throw SourceError(token.position, "a character that belongs to no resource stands here");
        token.kind = TokenKind::Mark;
        token.text = Take();
    }
};

} // namespace

std::vector<Token> Tokenize(std::string_view text, const std::string& file) {
    return Lexer(text, file).Run();
}

std::string Describe(const Token& token) {
    switch (token.kind) {
    case TokenKind::Word:
        return "the word \"" + token.text + "\"";
    case TokenKind::Number:
        return "the number " + token.text;
    case TokenKind::Text:
        return "the string \"" + token.text + "\"";
    case TokenKind::ResourceType:
        return "the resource type '" + token.text + "'";
    case TokenKind::Mark:
        return "\"" + token.text + "\"";
    case TokenKind::End:
        break;
    }
    return "the end of the file";
}

} // namespace ResourceCompiler
