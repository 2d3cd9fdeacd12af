#include "platform/product/index/TopParts.h"

#include <algorithm>
#include <iterator>

namespace platform {

namespace {

/// Both lists ascend; a place named twice in a row is one place.
void AppendOnce(PartPlaces& places, std::uint32_t place) {
    if (places.empty() || places.back() != place)
        places.push_back(place);
}

PartPlaces Merge(const PartPlaces& a, const PartPlaces& b) {
    if (b.empty())
        return a;
    PartPlaces merged;
    merged.reserve(a.size() + b.size());
    std::set_union(a.begin(), a.end(), b.begin(), b.end(), std::back_inserter(merged));
    return merged;
}

} // namespace

void TopParts::Rebuild(const ProductModel& model, std::span<const PartEntry> objects,
                       std::span<const PartEntry> uses) {
    m_tops.clear();
    m_currentKeys = model.currentEmbodiments;
    for (const EmbodimentRecord& embodiment : model.embodiments) {
        m_tops.try_emplace(embodiment.key);
        if (model.currentEmbodiments.empty())
            m_currentKeys.push_back(embodiment.key);
    }
    if (model.embodiments.empty()) {
        m_tops.try_emplace(model.root.key);
        m_currentKeys = {model.root.key};
    }

    m_all = {};
    m_all.uses.reserve(uses.size());
    m_all.objects.reserve(objects.size());
    for (std::size_t i = 0; i < uses.size(); ++i) {
        const auto object = static_cast<std::uint32_t>(uses[i].owner - objects.data());
        AddUse(uses[i], static_cast<std::uint32_t>(i), object);
    }

    m_isCurrent.assign(uses.size(), false);
    for (const UniqueMetaObjectKey& key : m_currentKeys) {
        const auto top = m_tops.find(key);
        if (top == m_tops.end())
            continue;
        for (const std::uint32_t use : top->second.uses)
            m_isCurrent[use] = true;
    }
}

void TopParts::AddUse(const PartEntry& use, std::uint32_t place, std::uint32_t object) {
    if (use.isEverywhere) {
        m_all.uses.push_back(place);
        AppendOnce(m_all.objects, object);
        return;
    }
    const auto& record = static_cast<const OccurrenceRecord&>(*use.record);
    for (const UniqueMetaObjectKey& embodiment : record.embodiments) {
        const auto top = m_tops.find(embodiment);
        if (top == m_tops.end())
            continue;
        AppendOnce(top->second.uses, place);
        AppendOnce(top->second.objects, object);
    }
}

PartPlaces TopParts::GetUses(const UniqueMetaObjectKey& topKey) const {
    const auto top = m_tops.find(topKey);
    return top == m_tops.end() ? PartPlaces() : Merge(m_all.uses, top->second.uses);
}

PartPlaces TopParts::GetObjects(const UniqueMetaObjectKey& topKey) const {
    const auto top = m_tops.find(topKey);
    return top == m_tops.end() ? PartPlaces() : Merge(m_all.objects, top->second.objects);
}

bool TopParts::IsIn(const OccurrenceRecord& use, std::size_t place,
                    const std::vector<UniqueMetaObjectKey>& topKeys) const {
    if (topKeys == m_currentKeys)
        return m_isCurrent[place];
    return std::find_first_of(topKeys.begin(), topKeys.end(), use.embodiments.begin(),
                              use.embodiments.end()) != topKeys.end();
}

} // namespace platform
