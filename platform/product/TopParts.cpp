#include "platform/product/TopParts.h"

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

void TopParts::Rebuild(const ProductModel& model) {
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
    std::uint32_t firstUse = 0;
    for (std::size_t i = 0; i < model.objects.size(); ++i) {
        AddObject(model.objects[i], static_cast<std::uint32_t>(i), firstUse);
        firstUse += static_cast<std::uint32_t>(model.objects[i].occurrences.size());
    }

    m_isCurrent.assign(firstUse, false);
    for (const UniqueMetaObjectKey& key : m_currentKeys) {
        const auto top = m_tops.find(key);
        if (top == m_tops.end())
            continue;
        for (const std::uint32_t use : top->second.uses)
            m_isCurrent[use] = true;
    }
}

void TopParts::AddObject(const ObjectRecord& object, std::uint32_t place, std::uint32_t firstUse) {
    std::uint32_t use = firstUse;
    for (const OccurrenceRecord& occurrence : object.occurrences) {
        if (occurrence.embodiments.empty()) {
            m_all.uses.push_back(use);
            AppendOnce(m_all.objects, place);
        }
        for (const UniqueMetaObjectKey& embodiment : occurrence.embodiments) {
            const auto top = m_tops.find(embodiment);
            if (top == m_tops.end())
                continue;
            AppendOnce(top->second.uses, use);
            AppendOnce(top->second.objects, place);
        }
        ++use;
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
