#include "lca/Categories.h"

namespace lca {

namespace {

constexpr bool StandByPosition() {
    for (std::size_t i = 0; i < CategoryCount; ++i)
        if (static_cast<std::size_t>(CategoryRows[i].category) != i) return false;
    return true;
}
static_assert(StandByPosition());

template <typename Value, std::size_t Count>
std::optional<Value> ValueOf(const std::array<std::string_view, Count>& keys, std::string_view text) {
    for (std::size_t i = 0; i < Count; ++i)
        if (keys[i] == text) return static_cast<Value>(i);
    return std::nullopt;
}

} // namespace

std::optional<ElementCategory> FindCategory(std::string_view keyText) {
    for (const CategoryRow& row : CategoryRows)
        if (row.key == keyText) return row.category;
    return std::nullopt;
}

std::optional<FloorQuantity> FindFloorQuantity(std::string_view keyText) {
    return ValueOf<FloorQuantity>(FloorQuantityKeys, keyText);
}

std::optional<GWPUnitType> FindUnitType(std::string_view keyText) {
    return ValueOf<GWPUnitType>(UnitTypeKeys, keyText);
}

} // namespace lca
