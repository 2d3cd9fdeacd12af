// Where a part stands among the ordered parts. Parts are mostly asked for in that very order; a map
// is made for the first that is not.
#pragma once

#include "host/UniqueMetaObjectKey.h"

#include <cstddef>
#include <optional>
#include <unordered_map>
#include <vector>

namespace productTree {

class OrderedPlaces {
public:
    explicit OrderedPlaces(const std::vector<UniqueMetaObjectKey>& parts) : m_parts(parts) {}

    std::optional<std::size_t> Find(const UniqueMetaObjectKey& part) {
        if (m_next < m_parts.size() && m_parts[m_next] == part)
            return m_next++;
        if (m_places.empty())
            MakeMap();
        const auto place = m_places.find(part);
        if (place == m_places.end())
            return std::nullopt;
        m_next = place->second + 1;
        return place->second;
    }

private:
    void MakeMap() {
        m_places.reserve(m_parts.size());
        for (std::size_t i = 0; i < m_parts.size(); ++i)
            m_places.try_emplace(m_parts[i], i);
    }

    const std::vector<UniqueMetaObjectKey>& m_parts;
    std::unordered_map<UniqueMetaObjectKey, std::size_t> m_places;
    std::size_t m_next = 0;
};

} // namespace productTree
