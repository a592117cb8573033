// Turns the strings of a STEP file into UTF-8.
#pragma once

#include <string>
#include <string_view>

#include "workbench/ifc/step/CodePage.h"

namespace workbench::step {

class TextDecoder {
public:
    explicit TextDecoder(CodePage page = {}) : page(std::move(page)) {}

    [[nodiscard]] const CodePage& GetPage() const { return page; }

    /// CODED is what stands between the apostrophes. Understands doubled apostrophes and backslashes, \S\ with its code
    /// pages \PA\ to \PI\, \X\, \X2\ (with surrogate pairs) and \X4\. A string with a page directive is read as the
    /// standard says, whatever the file's page is. What is no character becomes U+FFFD; so the result is valid UTF-8.
    [[nodiscard]] std::string Decode(std::string_view coded) const;

private:
    CodePage page;
};

} // namespace workbench::step
