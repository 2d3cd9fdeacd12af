#include "platform/product/answers/MemoryAggregator.h"

namespace platform {

IfMetaProductData& MemoryAggregator::GetPartMetaData(const UniqueMetaObjectKey& key) const {
    return GetMetaDataOf(key);
}

IfMetaProductData& MemoryAggregator::GetMetaDataOf(const UniqueMetaObjectKey& key) const {
    const PartEntry* const part = m_index.Find(key);
    if (part && part->isUse)
        return m_occurrences;
    return m_objects;
}

std::vector<UniqueMetaObjectKey>
MemoryAggregator::GetOccurrences(const UniqueMetaObjectKey& object,
                                 const IfMetaProductData* within) const {
    const PartEntry* const part = m_index.Find(object);
    if (!part || (within && within != &m_occurrences))
        return {};
    const std::span<const PartEntry> uses = m_index.GetUsesOf(*part);
    std::vector<UniqueMetaObjectKey> keys;
    keys.reserve(uses.size());
    for (const PartEntry& use : uses)
        keys.push_back(use.key);
    return keys;
}

UniqueMetaObjectKey MemoryAggregator::GetOwnerObject(const UniqueMetaObjectKey& occurrence) const {
    const PartEntry* const part = m_index.Find(occurrence);
    return part && part->isUse ? part->owner->key : UniqueMetaObjectKey();
}

bool MemoryAggregator::IsInfObject(const UniqueMetaObjectKey& key) const {
    const PartEntry* const part = m_index.Find(key);
    return part && !part->isUse;
}

GroupPartHandler MemoryAggregator::GetGroupPartHandler(const UniqueMetaObjectKey& key) const {
    const PartEntry* const part = m_index.Find(key);
    if (!part || part->isRoot)
        return {};
    if (!part->isInGroup)
        return {UniqueMetaObjectKey(), MakePartHandler(part), PartHandler()};
    const UniqueMetaObjectKey& groupKey = part->record->groupKey;
    return {groupKey, MakePartHandler(part), MakePartHandler(m_index.Find(groupKey))};
}

std::set<UniqueMetaObjectKey> MemoryAggregator::GetOwners(const UniqueMetaObjectKey& key) const {
    const PartEntry* const part = m_index.Find(key);
    if (!part)
        return {};
    const std::vector<UniqueMetaObjectKey>& owners = part->object->record->owners;
    return {owners.begin(), owners.end()};
}

SPCSection MemoryAggregator::GetSection(const UniqueMetaObjectKey& key) const {
    const PartEntry* const part = m_index.Find(key);
    return part ? part->object->grouping.section : SPCSection();
}

bool MemoryAggregator::IsUsedInStyle(const UniqueMetaObjectKey& key,
                                     meta_data::SP::StyleId style) const {
    const PartEntry* const part = m_index.Find(key);
    return part && m_index.IsUsedInStyle(*part, style);
}

bool MemoryAggregator::IsManualBillet(const UniqueMetaObjectKey& key) const {
    const PartEntry* const part = m_index.Find(key);
    return part && part->object->record->billet == BilletKind::Manual;
}

} // namespace platform
