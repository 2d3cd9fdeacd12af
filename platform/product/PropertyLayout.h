// Where the values stand among those of one object. Most objects have values for the same
// properties in the same order, and share a layout, so that finding a value takes the same few
// lines of memory for all of them. Used by ProductIndex alone.
#pragma once

#include "platform/product/ProductModel.h"

#include <cstdint>
#include <memory>
#include <unordered_map>
#include <vector>

namespace platform {

class PropertyLayout {
public:
    static constexpr std::uint32_t none = static_cast<std::uint32_t>(-1);

    explicit PropertyLayout(const PropertyValues& values);

    /// Of several values with the number the first counts.
    std::uint32_t Find(unsigned long number) const {
        for (std::size_t i = FirstSlot(number);; i = (i + 1) & m_mask) {
            const Slot& slot = m_slots[i];
            if (slot.place == none || slot.number == number)
                return slot.place;
        }
    }
    bool IsOf(const PropertyValues& values) const;

private:
    struct Slot {
        unsigned long number = 0;
        std::uint32_t place = none;
    };

    std::size_t FirstSlot(unsigned long number) const {
        return (number ^ (number >> 6)) & m_mask; // the numbers in use follow each other
    }

    std::vector<unsigned long> m_numbers;
    /// A power of two, so that the last bits are a place; one slot at least is free.
    std::vector<Slot> m_slots;
    std::size_t m_mask = 0;
};

class PropertyLayouts {
public:
    /// Lives until Clear.
    const PropertyLayout& Get(const PropertyValues& values);
    void Clear();

private:
    std::unordered_multimap<std::size_t, std::unique_ptr<const PropertyLayout>> m_layouts;
    /// Neighbours are often alike.
    const PropertyLayout* m_last = nullptr;
};

} // namespace platform
