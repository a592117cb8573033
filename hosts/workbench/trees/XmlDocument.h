// XML documents in memory: read within bounds and only when they are whole.
#pragma once

#include "host/Values.h"

#include <pugixml.hpp>

#include <string>

namespace workbench {

/// Memory that a document may take in all, its text included: documents of 100 MB with ordinary tags fit, one of
/// nothing but tags does not.
inline constexpr std::size_t XmlMemoryLimit = std::size_t{512} << 20U;

/// Brings a file's document from UTF-16 or ISO 8859-1 into UTF-8, told apart by the byte order mark, else by the
/// declaration, which stays as it is. BadValue for another encoding, and for half a letter of UTF-16.
[[nodiscard]] host::ErrorCode ConvertXmlToUtf8(std::string& document);

/// Reads UTF-8, whatever encoding the document declares. Entities that the document declares stay unexpanded.
/// OutOfMemory beyond the limit; BadValue when the document is not well-formed. It is then empty.
[[nodiscard]] host::ErrorCode LoadXml(const std::string& text, pugi::xml_document& document);

/// The texts directly in an element of a loaded document, without those of its children.
[[nodiscard]] std::string GetOwnText(const pugi::xml_node& element);

/// Whether a text can stand in a document at all.
[[nodiscard]] bool IsXmlText(const std::string& text);
/// Whether it is an element's name in plain letters: which others may stand in one depends on the edition of XML.
[[nodiscard]] bool IsPlainXmlName(const std::string& name);

} // namespace workbench
