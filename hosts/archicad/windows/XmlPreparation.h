// Makes a document fit for the system's reader, which would put the text of declared entities in their places.
#pragma once

#include <optional>
#include <string>

namespace archicad {

/// document  UTF-8
/// returns   the same as UTF-8, and that declared as its encoding; without the document type, and with references to
/// the
///           entities that it declares as plain text. None where the document is no UTF-8, holds what is no character
///           of XML, or has tags, references or a document type that are not well-formed.
std::optional<std::string> PrepareXml(const std::string& document);

} // namespace archicad
