// "/xl/styles.xml".
#pragma once

#include "xlsx/Package.h"
#include "xlsx/StyleRegistry.h"

namespace Xlsx {

[[nodiscard]] bool WriteStyles(Package& package, const CStyleRegistry& styles);

/// What a font is made of, inside an element that the caller has started.
/// nameElement  "name" in the style sheet, "rFont" in a comment's text
void WriteFontContent(XmlWriter& xml, const Font& font, const char* nameElement);

} // namespace Xlsx
