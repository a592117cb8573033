// Why a workbook cannot be saved: the first thing that it could not take, in words for a report of errors.
#pragma once

#include <string>

namespace Xlsx {

class Refusals {
public:
    /// Later ones are dropped; they may follow from the first.
    void Add(const std::string& reason) {
        if (first.empty()) first = reason;
    }
    [[nodiscard]] bool IsEmpty() const { return first.empty(); }
    [[nodiscard]] const std::string& GetFirst() const { return first; }

private:
    std::string first;
};

} // namespace Xlsx
