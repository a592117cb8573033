#include "workbench/trees/XmlDocument.h"

#include "text/Utf8.h"
#include "workbench/text/CodePages.h"

#include <expat.h>
#include <malloc.h>

#include <algorithm>
#include <cstdlib>
#include <memory>
#include <new>
#include <string_view>

namespace workbench {

namespace {

std::size_t usedMemory = 0; ///< bytes that documents hold at present

void* Allocate(std::size_t size) {
    if (size > XmlMemoryLimit - std::min(usedMemory, XmlMemoryLimit)) return nullptr;
    void* memory = std::malloc(size);
    if (memory != nullptr) usedMemory += malloc_usable_size(memory);
    return memory;
}

void Free(void* memory) {
    usedMemory -= malloc_usable_size(memory);
    std::free(memory);
}

/// Before any document exists: what one function has given, the other takes back.
[[maybe_unused]] const bool IsBounded = (pugi::set_memory_management_functions(Allocate, Free), true);

/// The document's parser is lenient: it takes several roots, lone ampersands, bytes outside of the encoding. This one
/// is not.
bool IsWellFormed(std::string_view text) {
    const std::unique_ptr<XML_ParserStruct, decltype(&XML_ParserFree)> parser(XML_ParserCreate("UTF-8"),
                                                                              XML_ParserFree);
    if (!parser) throw std::bad_alloc();
    // With a handler for what has no other one, references to the document's own entities are not expanded.
    XML_SetDefaultHandler(parser.get(), [](void*, const XML_Char*, int) {});
    constexpr std::size_t Piece = std::size_t{16} << 20U; // lengths are of type int there
    for (; text.size() > Piece; text.remove_prefix(Piece))
        if (XML_Parse(parser.get(), text.data(), static_cast<int>(Piece), XML_FALSE) != XML_STATUS_OK) return false;
    return XML_Parse(parser.get(), text.data(), static_cast<int>(text.size()), XML_TRUE) == XML_STATUS_OK;
}

constexpr unsigned Options = pugi::parse_cdata | pugi::parse_escapes | pugi::parse_wconv_attribute | pugi::parse_eol |
                             pugi::parse_ws_pcdata_single | pugi::parse_embed_pcdata;

/// The name in the document's declaration in upper case; empty where it has none.
std::string FindDeclaredEncoding(std::string_view document) {
    constexpr std::string_view Blanks = " \t\r\n";
    if (document.substr(0, 5) != "<?xml") return {};
    std::string_view rest = document.substr(0, document.find("?>"));
    const auto skip = [&](std::size_t count) { rest.remove_prefix(std::min(count, rest.size())); };
    skip(rest.find("encoding"));
    skip(std::string_view("encoding").size());
    skip(rest.find_first_not_of(Blanks));
    if (rest.empty() || rest.front() != '=') return {};
    skip(1);
    skip(rest.find_first_not_of(Blanks));
    if (rest.empty() || (rest.front() != '"' && rest.front() != '\'')) return {};
    std::string name(rest.substr(1, rest.substr(1).find(rest.front())));
    for (char& letter : name)
        if (letter >= 'a' && letter <= 'z') letter = static_cast<char>(letter - 'a' + 'A');
    return name;
}

} // namespace

host::ErrorCode ConvertXmlToUtf8(std::string& document) {
    const auto startsWith = [&](std::string_view mark) { return document.compare(0, mark.size(), mark) == 0; };
    const bool isMarkedLittle = startsWith("\xFF\xFE"), isMarkedBig = startsWith("\xFE\xFF");
    const bool isLittle = isMarkedLittle || startsWith({"<\0", 2}), isBig = isMarkedBig || startsWith({"\0<", 2});
    const std::string declared = isLittle || isBig ? std::string() : FindDeclaredEncoding(document);
    if (!isLittle && !isBig && (declared.empty() || declared == "UTF-8" || declared == "US-ASCII"))
        return host::NoError;
    if (!isLittle && !isBig && declared != "ISO-8859-1") return host::Errors::BadValue;
    const char* encoding = isLittle ? "UTF-16LE" : isBig ? "UTF-16BE" : "ISO-8859-1";
    const std::string_view letters = std::string_view(document).substr(isMarkedLittle || isMarkedBig ? 2 : 0);
    document = DecodeText(encoding, letters).value_or(std::string());
    return document.empty() ? host::Errors::BadValue : host::NoError;
}

host::ErrorCode LoadXml(const std::string& text, pugi::xml_document& document) {
    document.reset();
    if (!IsWellFormed(text)) return host::Errors::BadValue;
    const pugi::xml_parse_result result = document.load_buffer(text.data(), text.size(), Options, pugi::encoding_utf8);
    if (result) return host::NoError;
    document.reset();
    return result.status == pugi::status_out_of_memory ? host::Errors::OutOfMemory : host::Errors::BadValue;
}

std::string GetOwnText(const pugi::xml_node& element) {
    // The first text is kept in the element itself.
    std::string text = element.value();
    for (const pugi::xml_node& child : element)
        if (child.type() == pugi::node_pcdata || child.type() == pugi::node_cdata) text += child.value();
    return text;
}

bool IsXmlText(const std::string& text) {
    const auto isForbidden = [](char letter) {
        return static_cast<unsigned char>(letter) < 0x20 && letter != '\t' && letter != '\n' && letter != '\r';
    };
    // U+FFFE and U+FFFF are no characters of XML.
    return utf8::IsUtf8(text) && std::none_of(text.begin(), text.end(), isForbidden) &&
           text.find("\xEF\xBF\xBE") == std::string::npos && text.find("\xEF\xBF\xBF") == std::string::npos;
}

bool IsPlainXmlName(const std::string& name) {
    const auto isLetter = [](char letter) {
        return (letter >= 'a' && letter <= 'z') || (letter >= 'A' && letter <= 'Z') || letter == '_';
    };
    const auto isInside = [&](char letter) {
        return isLetter(letter) || (letter >= '0' && letter <= '9') || letter == '-' || letter == '.';
    };
    return !name.empty() && isLetter(name.front()) && std::all_of(name.begin(), name.end(), isInside);
}

} // namespace workbench
