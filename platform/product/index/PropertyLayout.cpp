#include "platform/product/index/PropertyLayout.h"

#include <algorithm>

namespace platform {

namespace {

std::size_t HashNumbers(const PropertyValues& values) {
    std::size_t hash = values.size();
    for (const auto& [number, value] : values)
        hash = (hash ^ number) * 0x9E3779B97F4A7C15u;
    return hash ^ (hash >> 32);
}

} // namespace

PropertyLayout::PropertyLayout(const PropertyValues& values) {
    m_places.Reset(values.size());
    m_numbers.reserve(values.size());
    for (const auto& [number, value] : values) {
        const auto place = static_cast<std::uint32_t>(m_numbers.size());
        m_numbers.push_back(number);
        Entry& entry = m_places.Find(HashOf(number), HasNumber{number});
        if (entry.IsFree())
            entry = {number, place};
    }
}

bool PropertyLayout::IsOf(const PropertyValues& values) const {
    return std::ranges::equal(values, m_numbers, {}, &PropertyValues::value_type::first);
}

const PropertyLayout& PropertyLayouts::Get(const PropertyValues& values) {
    if (m_last && m_last->IsOf(values))
        return *m_last;
    const std::size_t hash = HashNumbers(values);
    const auto [begin, end] = m_layouts.equal_range(hash);
    auto found =
        std::find_if(begin, end, [&](const auto& entry) { return entry.second->IsOf(values); });
    if (found == end)
        found = m_layouts.emplace(hash, std::make_unique<const PropertyLayout>(values));
    m_last = found->second.get();
    return *m_last;
}

void PropertyLayouts::Clear() {
    m_layouts.clear();
    m_last = nullptr;
}

} // namespace platform
