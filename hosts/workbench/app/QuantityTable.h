// Tables of quantities: a row for each part of each element, or sums. Their columns are laid down in
// docs/quantities.md.
#pragma once

#include "workbench/app/QuantityList.h"

#include <string_view>
#include <variant>

namespace workbench {

/// Nothing where a value is unknown.
using Cell = std::variant<std::monostate, std::string, std::int64_t, double>;

inline constexpr int NoNumber = -1;

struct TableColumn {
    const char* key;
    const char* heading;     ///< on a terminal; empty: not shown there
    int decimals = NoNumber; ///< on a terminal
};

struct QuantityTable {
    std::vector<TableColumn> columns;
    std::vector<std::vector<Cell>> rows;
};

QuantityTable ListParts(const Model& model, const std::vector<ElementQuantities>& elements);

enum class SumKey : std::uint8_t { Type, Storey, Layer, Material };
inline constexpr const char* SumKeyNames[] = {"type", "storey", "layer", "material"}; ///< by SumKey

/// Sums over the parts that have the same keys, sorted by these, storeys from below. Areas of layers count once an
/// element, unless the sums are by material. What is stated and computed is summed over the parts that have both.
QuantityTable SumParts(const Model& model, const std::vector<ElementQuantities>& elements,
                       const std::vector<SumKey>& keys);

/// A header with the keys, then the rows; cells separated by ";" and quoted as in a material table.
std::string WriteCsv(const QuantityTable& table);

} // namespace workbench
