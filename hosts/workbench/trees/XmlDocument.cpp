#include "workbench/trees/XmlDocument.h"

#include "workbench/text/Letters.h"

#include <malloc.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <optional>
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

struct Mark {
    std::string_view bytes;
    pugi::xml_encoding encoding;
};

using namespace std::string_view_literals;

/// Byte order marks, then what an opening "<" looks like without one; longer before shorter.
constexpr Mark Marks[] = {{"\xFF\xFE\0\0"sv, pugi::encoding_utf32_le}, {"\0\0\xFE\xFF"sv, pugi::encoding_utf32_be},
                          {"<\0\0\0"sv, pugi::encoding_utf32_le},      {"\0\0\0<"sv, pugi::encoding_utf32_be},
                          {"\xEF\xBB\xBF"sv, pugi::encoding_utf8},     {"\xFF\xFE"sv, pugi::encoding_utf16_le},
                          {"\xFE\xFF"sv, pugi::encoding_utf16_be},     {"<\0"sv, pugi::encoding_utf16_le},
                          {"\0<"sv, pugi::encoding_utf16_be}};

struct EncodingName {
    std::string_view name; ///< lower case
    pugi::xml_encoding encoding;
};

constexpr EncodingName EncodingNames[] = {{"utf-8", pugi::encoding_utf8},
                                          {"us-ascii", pugi::encoding_utf8},
                                          {"ascii", pugi::encoding_utf8},
                                          {"iso-8859-1", pugi::encoding_latin1},
                                          {"latin1", pugi::encoding_latin1}};

/// What the declaration at the start of a document of single bytes says; UTF-8 where it says nothing.
std::optional<pugi::xml_encoding> FindDeclaredEncoding(std::string_view text) {
    if (text.substr(0, 5) != "<?xml") return pugi::encoding_utf8;
    const std::string_view declaration = text.substr(0, text.find("?>"));
    constexpr std::string_view Key = "encoding";
    const std::size_t key = declaration.find(Key);
    if (key == std::string_view::npos) return pugi::encoding_utf8;
    const std::size_t first = declaration.find_first_of("\"'", key);
    if (first == std::string_view::npos) return std::nullopt;
    const std::size_t last = declaration.find(declaration[first], first + 1);
    const std::string name = FoldCase(declaration.substr(first + 1, last - first - 1));
    for (const EncodingName& known : EncodingNames)
        if (known.name == name) return known.encoding;
    return std::nullopt;
}

/// None when it is not known, or when the text is not in it.
std::optional<pugi::xml_encoding> FindEncoding(std::string_view text) {
    std::optional<pugi::xml_encoding> encoding;
    for (const Mark& mark : Marks)
        if (!encoding && text.substr(0, mark.bytes.size()) == mark.bytes) encoding = mark.encoding;
    if (!encoding) encoding = FindDeclaredEncoding(text);
    const bool isBytes = encoding == pugi::encoding_utf8 || encoding == pugi::encoding_latin1;
    if (isBytes && text.find('\0') != std::string_view::npos) return std::nullopt;
    if (encoding == pugi::encoding_utf8 && !IsUtf8(text)) return std::nullopt;
    return encoding;
}

/// The parser takes any row of elements and texts; a document has one element at its top and no text beside it.
bool HasOneRoot(const pugi::xml_document& document) {
    int elements = 0;
    for (const pugi::xml_node& node : document) {
        if (node.type() == pugi::node_element) ++elements;
        if (node.type() == pugi::node_pcdata || node.type() == pugi::node_cdata) return false;
    }
    return elements == 1;
}

constexpr unsigned Options = pugi::parse_cdata | pugi::parse_escapes | pugi::parse_wconv_attribute | pugi::parse_eol |
                             pugi::parse_ws_pcdata_single | pugi::parse_fragment | pugi::parse_embed_pcdata;

} // namespace

host::ErrorCode LoadXml(const std::string& text, pugi::xml_document& document) {
    static const bool isBounded = (pugi::set_memory_management_functions(Allocate, Free), true);
    static_cast<void>(isBounded);
    document.reset();
    const std::optional<pugi::xml_encoding> encoding = FindEncoding(text);
    if (!encoding) return host::Errors::BadValue;
    const pugi::xml_parse_result result = document.load_buffer(text.data(), text.size(), Options, *encoding);
    if (result && HasOneRoot(document)) return host::NoError;
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
    return IsUtf8(text) && std::none_of(text.begin(), text.end(), isForbidden);
}

bool IsXmlName(const std::string& name) {
    const auto isLetter = [](char letter) {
        const auto code = static_cast<unsigned char>(letter);
        return code >= 0x80 || (letter >= 'a' && letter <= 'z') || (letter >= 'A' && letter <= 'Z') || letter == '_';
    };
    const auto isInside = [&](char letter) {
        return isLetter(letter) || (letter >= '0' && letter <= '9') || letter == '-' || letter == '.';
    };
    return !name.empty() && isLetter(name.front()) && std::all_of(name.begin(), name.end(), isInside) && IsUtf8(name);
}

} // namespace workbench
