// Turns the elements of the model into elements of the imported building.
#pragma once

#include <functional>
#include <set>

#include "workbench/ifc/ImportedBuilding.h"
#include "workbench/ifc/entities/Model.h"

namespace workbench::ifc {

struct ReadOptions {
    bool geometry = true;
    bool everyBody = false; ///< also where only the stated quantities count
    std::set<step::EntityNumber>
        skipped; ///< entity numbers of elements whose geometry crashed the reader or took too long
};

struct ReadListener {
    std::function<void(double)> progress;            ///< finished share, 0 to 1
    std::function<void(step::EntityNumber)> working; ///< entity number before its geometry, 0 after it
};

[[nodiscard]] ImportedBuilding ReadBuilding(const entities::Model& model, const ReadOptions& options,
                                            const ReadListener& listener);

} // namespace workbench::ifc
