// Which code page the bytes beyond ASCII of a file's strings belong to. The standard says ISO 8859-1, but programs
// write the bytes of their own system's page behind the same escapes. So all such strings of a file are looked at, and
// the page is decided once.
#pragma once

#include <string>
#include <string_view>

#include "workbench/ifc/step/TextEscapes.h"

namespace workbench::step {

struct CodePage {
    std::string name = "ISO-8859-1"; ///< as iconv calls it
    /// Of bytes that stand in the text without an escape: a string that is UTF-8 is taken as such.
    bool isRawUtf8 = true;
    /// The strings hold control characters and no known page explains them.
    bool isDoubtful = false;
};

/// What speaks for which page.
class CodePageEvidence {
public:
    /// CODED is what stands between the apostrophes. Strings with a page directive or with escapes of Unicode are not
    /// counted: they know what they are.
    void Take(std::string_view coded);

    /// UTF-8 where all raw bytes are that, and for the escapes, or for all bytes where the raw ones are something else:
    /// ISO 8859-1 where no control character occurs, Windows-1252 where those are typographic signs beside letters,
    /// CP932 where all strings are valid in it and one has a character that does not look like two Western ones.
    [[nodiscard]] CodePage Decide() const;

private:
    /// What a group of strings admits.
    struct Findings {
        bool hasControls = false;
        bool isWindows = true;
        bool isJapanese = true;
        bool hasJapanesePair = false;

        void Add(std::string_view bytes);
        void Add(const Findings& other);
    };

    Findings escaped; ///< strings without raw bytes
    Findings raw;
    bool isRawUtf8 = true;
};

} // namespace workbench::step
