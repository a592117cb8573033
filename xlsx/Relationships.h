// Relationship parts: which other parts one part refers to, and under which ids.
#pragma once

#include "xlsx/Package.h"

#include <string>
#include <vector>

namespace Xlsx {

struct Relationship {
    std::string id;
    const char* type; ///< one of Names::Relation
    std::string target;
};

/// "rId1" and so on.
[[nodiscard]] std::string RelationshipId(std::size_t number);

[[nodiscard]] bool WriteRelationships(Package& package, const std::string& path,
                                      const std::vector<Relationship>& relationships);

} // namespace Xlsx
