// Turns the elements of the model into elements of the imported building.
#pragma once

#include <cstdint>
#include <functional>
#include <set>

#include "LibraryModel.h"
#include "workbench/ifc/ImportedBuilding.h"

namespace workbench::ifc {

struct ReadOptions {
    bool geometry = true;
    std::set<int> skipped; ///< entity numbers of elements whose geometry brings the library down
};

struct ReadListener {
    std::function<void(double)> progress;      ///< finished share, 0 to 1
    std::function<void(std::int32_t)> working; ///< entity number before its geometry, 0 after it
};

[[nodiscard]] ImportedBuilding ReadBuilding(const LibraryModel& model, const ReadOptions& options,
                                            const ReadListener& listener);

} // namespace workbench::ifc
