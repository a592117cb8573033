// Numbers of points by the cells of a grid: near ones are found without looking at all of them.
#pragma once

#include <array>
#include <cmath>
#include <cstdint>
#include <span>
#include <unordered_map>
#include <vector>

#include "workbench/ifc/geometry/Box.h"
#include "workbench/ifc/geometry/Shell.h"

namespace workbench::geometry {

class PointGrid {
public:
    /// cellWidthM  above 0; coordinates may be 9e18 times as far
    explicit PointGrid(double cellWidthM) : width(cellWidthM) {}

    void Add(const Vector3& point, Index index) { cells[CellOf(point)].push_back(index); }

    /// Shows LOOK the points of each cell that BOX touches, maybe none, until it answers true.
    template <typename Look>
    void LookInto(const Box& box, Look&& look) const {
        const Cell low = CellOf(box.low);
        const Cell high = CellOf(box.high);
        Cell cell;
        for (cell[0] = low[0]; cell[0] <= high[0]; ++cell[0])
            for (cell[1] = low[1]; cell[1] <= high[1]; ++cell[1])
                for (cell[2] = low[2]; cell[2] <= high[2]; ++cell[2]) {
                    const auto found = cells.find(cell);
                    if (look(found == cells.end() ? std::span<const Index>() : std::span<const Index>(found->second)))
                        return;
                }
    }

private:
    using Cell = std::array<std::int64_t, 3>;

    struct CellHash {
        std::size_t operator()(const Cell& cell) const {
            std::uint64_t hash = 0;
            for (const std::int64_t part : cell)
                hash = (hash ^ static_cast<std::uint64_t>(part)) * 0x9E3779B97F4A7C15U;
            return static_cast<std::size_t>(hash ^ (hash >> 29U));
        }
    };

    [[nodiscard]] Cell CellOf(const Vector3& point) const {
        return {static_cast<std::int64_t>(std::floor(point.x / width)),
                static_cast<std::int64_t>(std::floor(point.y / width)),
                static_cast<std::int64_t>(std::floor(point.z / width))};
    }

    double width;
    std::unordered_map<Cell, std::vector<Index>, CellHash> cells;
};

} // namespace workbench::geometry
