#include "xlsx/PageLine.h"

#include "platform/Text.h"

namespace Xlsx {

namespace {

bool ContinuesCharacter(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

// Character by character, so that neither a pair of surrogates nor one of "&" is torn.
void AppendPlace(std::string& code, const char* place, const std::string& text, unsigned sizePoints) {
    if (text.empty()) return;
    code += place;
    if (sizePoints > 0) code += "&" + std::to_string(sizePoints);
    if (sizePoints > 0 && text[0] >= '0' && text[0] <= '9') code += ' '; // the size's digits end here
    const unsigned mostLetters = mostPageTextLetters - (sizePoints > 0 ? pageSizeLetters : 0);
    const std::string sound = platform::Utf8FromWide(platform::WideFromUtf8(text));
    std::size_t letters = 0;
    std::size_t cut = code.size(); // where an ellipsis still fits
    for (std::size_t at = 0; at < sound.size();) {
        const bool isPair = static_cast<unsigned char>(sound[at]) >= 0xF0;
        letters += sound[at] == '&' || isPair ? 2 : 1;
        if (letters > mostLetters) {
            code.replace(cut, std::string::npos, "\xE2\x80\xA6");
            return;
        }
        if (sound[at] == '&') code += '&';
        do {
            code += sound[at++];
        } while (at < sound.size() && ContinuesCharacter(sound[at]));
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
