// The table of texts that cells refer to by index.
#pragma once

#include <string>
#include <unordered_map>
#include <vector>

namespace Xlsx {

class SharedStrings {
public:
    /// Index of the text, which is appended when it is new.
    unsigned IndexOf(const std::string& text);
    [[nodiscard]] bool IsEmpty() const { return texts.empty(); }
    /// In index order; valid until the table ends.
    [[nodiscard]] const std::vector<const std::string*>& GetTexts() const { return texts; }

private:
    std::unordered_map<std::string, unsigned> indices;
    std::vector<const std::string*> texts; // the keys of indices
};

} // namespace Xlsx
