#include "xlsx/PageLine.h"

#include "text/Utf8.h"

namespace Xlsx {

namespace {

// Character by character, so that neither a pair of surrogates nor one of "&" is torn.
void AppendPlace(std::string& code, const char* place, const std::string& text, unsigned sizePoints) {
    if (text.empty()) return;
    code += place;
    if (sizePoints > 0) code += "&" + std::to_string(sizePoints);
    if (sizePoints > 0 && text[0] >= '0' && text[0] <= '9') code += ' '; // the size's digits end here
    const unsigned mostLetters = MostPageTextLetters - (sizePoints > 0 ? PageSizeLetters : 0);
    std::size_t letters = 0;
    std::size_t cut = code.size(); // where an ellipsis still fits
    for (std::size_t at = 0; at < text.size();) {
        const char32_t character = utf8::TakeCharacter(text, at).value_or(utf8::Replacement);
        letters += character == '&' || character > 0xFFFF ? 2 : 1;
        if (letters > mostLetters) {
            code.replace(cut, std::string::npos, "\xE2\x80\xA6");
            return;
        }
        if (character == '&') code += '&';
        utf8::AppendCharacter(code, character);
        if (letters < mostLetters) cut = code.size();
    }
}

} // namespace

std::string PageLineCode(const PageLine& line) {
    std::string code;
    AppendPlace(code, "&L", line.left, line.sizePoints);
    AppendPlace(code, "&C", line.centre, line.sizePoints);
    AppendPlace(code, "&R", line.right, line.sizePoints);
    return code;
}

} // namespace Xlsx
