#include "workbench/text/Letters.h"

#include "text/Utf8.h"

#include <utf8proc.h>

namespace workbench {

namespace {

constexpr int MostLetters = 3;                                                           ///< that one letter becomes
using LetterChange = int (*)(char32_t letter, utf8proc_int32_t (&changed)[MostLetters]); ///< answers how many

std::string ChangeLetters(std::string_view text, LetterChange change) {
    std::string result;
    for (std::size_t position = 0; position < text.size();) {
        const std::size_t begin = position;
        if (const std::optional<char32_t> letter = utf8::TakeCharacter(text, position)) {
            utf8proc_int32_t changed[MostLetters] = {};
            const int count = change(*letter, changed);
            for (int i = 0; i < count; ++i)
                utf8::AppendCharacter(result, static_cast<char32_t>(changed[i]));
        } else {
            result.append(text.substr(begin, position - begin));
        }
    }
    return result;
}

} // namespace

std::string ToLowerCase(std::string_view text) {
    return ChangeLetters(text, [](char32_t letter, utf8proc_int32_t(&changed)[MostLetters]) {
        changed[0] = utf8proc_tolower(static_cast<utf8proc_int32_t>(letter));
        return 1;
    });
}

std::string FoldCase(std::string_view text) {
    return ChangeLetters(text, [](char32_t letter, utf8proc_int32_t(&changed)[MostLetters]) {
        const auto code = static_cast<utf8proc_int32_t>(letter);
        const utf8proc_ssize_t count = utf8proc_decompose_char(code, changed, MostLetters, UTF8PROC_CASEFOLD, nullptr);
        if (count > 0 && count <= MostLetters) return static_cast<int>(count);
        changed[0] = code;
        return 1;
    });
}

} // namespace workbench
