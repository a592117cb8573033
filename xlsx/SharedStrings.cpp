#include "xlsx/SharedStrings.h"

namespace Xlsx {

unsigned SharedStrings::IndexOf(const std::string& text) {
    const auto [entry, isNew] = indices.try_emplace(text, static_cast<unsigned>(texts.size()));
    if (isNew) texts.push_back(&entry->first);
    return entry->second;
}

} // namespace Xlsx
