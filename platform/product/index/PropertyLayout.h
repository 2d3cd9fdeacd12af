// Where the values stand among those of one object. Most objects have values for the same
// properties in the same order, and share a layout, so that finding a value takes the same few
// lines of memory for all of them. Used by ProductIndex alone.
#pragma once

#include "platform/product/model/ProductModel.h"
#include "platform/values/OpenTable.h"

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
        return m_places.Find(HashOf(number), HasNumber{number}).place;
    }
    bool IsOf(const PropertyValues& values) const;

private:
    struct Entry {
        unsigned long number = 0;
        std::uint32_t place = none;

        bool IsFree() const { return place == none; }
    };
    struct HasNumber {
        unsigned long number;

        bool operator()(const Entry& entry) const { return entry.number == number; }
    };

    /// The numbers in use follow each other.
    static std::size_t HashOf(unsigned long number) { return number ^ (number >> 6); }

    std::vector<unsigned long> m_numbers;
    OpenTable<Entry> m_places;
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
