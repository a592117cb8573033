// Finds an element's position by its identifier: open addressing over positions, eight bytes an element.
#pragma once

#include "workbench/model/Rows.h"

namespace workbench {

class ElementIndex {
public:
    static constexpr std::uint32_t NotFound = 0xFFFFFFFFU;

    /// NotFound where no element has the identifier. elements is the list that Insert was told of.
    std::uint32_t Find(const std::vector<Element>& elements, const host::Guid& guid) const {
        if (slots.empty()) return NotFound;
        for (std::size_t slot = Hash(guid);; slot = (slot + 1) & (slots.size() - 1)) {
            const std::uint32_t position = slots[slot];
            if (position == NotFound || elements[position].guid == guid) return position;
        }
    }

    /// Adds the last element of the list, whose identifier must be new.
    void InsertLast(const std::vector<Element>& elements) {
        if (elements.size() * 2 > slots.size()) Rebuild(elements);
        Place(elements[elements.size() - 1].guid, static_cast<std::uint32_t>(elements.size() - 1));
    }

private:
    std::size_t Hash(const host::Guid& guid) const { return std::hash<host::Guid>()(guid) & (slots.size() - 1); }

    void Place(const host::Guid& guid, std::uint32_t position) {
        std::size_t slot = Hash(guid);
        while (slots[slot] != NotFound && slots[slot] != position)
            slot = (slot + 1) & (slots.size() - 1);
        slots[slot] = position;
    }

    void Rebuild(const std::vector<Element>& elements) {
        std::size_t size = 16;
        while (size < elements.size() * 4)
            size *= 2;
        slots.assign(size, NotFound);
        for (std::size_t i = 0; i < elements.size(); ++i)
            Place(elements[i].guid, static_cast<std::uint32_t>(i));
    }

    std::vector<std::uint32_t> slots;
};

} // namespace workbench
