#include "workbench/model/Origins.h"

namespace workbench {

std::shared_ptr<const Origins> OriginPool::Share(const Origins& origins) {
    if (origins.empty()) return nullptr;
    const auto [entry, isNew] = known.try_emplace(origins);
    if (isNew) entry->second = std::make_shared<const Origins>(origins);
    return entry->second;
}

void PutOrigin(Origins& origins, const char* field, const std::string& text) {
    if (!text.empty()) origins[field] = text;
}

std::string FindOrigin(const Origins& origins, const char* field) {
    const auto found = origins.find(field);
    return found == origins.end() ? std::string() : found->second;
}

} // namespace workbench
