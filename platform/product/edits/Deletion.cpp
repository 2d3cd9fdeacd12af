#include "platform/product/edits/Deletion.h"

#include <algorithm>
#include <unordered_map>

namespace platform {

namespace {

using Keys = std::vector<UniqueMetaObjectKey>;

} // namespace

Deletion::Deletion(const ProductIndex& index, const RowRules& rows,
                   const std::set<UniqueMetaObjectKey>& keys)
    : m_index(index), m_rows(rows) {
    std::unordered_map<const PartEntry*, Parts> usesToGo;
    Parts objectsToGo;
    for (const UniqueMetaObjectKey& key : keys) {
        const PartEntry* const part = index.Find(key);
        if (!part || part->isRoot)
            continue;
        if (part->isUse)
            usesToGo[part->owner].push_back(part);
        else
            objectsToGo.push_back(part);
    }
    for (const auto& [object, uses] : usesToGo) {
        if (uses.size() == object->object->useCount)
            objectsToGo.push_back(object);
    }
    for (const PartEntry* const object : objectsToGo)
        TakeObject(*object);
    for (const auto& [object, uses] : usesToGo) {
        if (!m_gone.contains(object))
            TakeUses(*object, uses);
    }
}

void Deletion::TakeObject(const PartEntry& object) {
    // A chain of billets may be long, so that it is walked and not descended.
    Parts open{&object};
    while (!open.empty()) {
        const PartEntry* const next = open.back();
        open.pop_back();
        if (!m_gone.insert(next).second)
            continue;
        m_object = m_object ? m_object : next;
        m_objects.push_back(next->key);
        for (const PartEntry& use : m_index.GetUsesOf(*next))
            m_gone.insert(&use);
        m_rowCount += m_rows.CountRows(*next);
        const auto billets = m_index.GetBillets(next->key);
        open.insert(open.end(), billets.begin(), billets.end());
    }
}

void Deletion::TakeUses(const PartEntry& object, const Parts& uses) {
    m_object = m_object ? m_object : &object;
    m_gone.insert(uses.begin(), uses.end());
    m_rowCount += static_cast<std::size_t>(
        std::ranges::count_if(uses, [this](const PartEntry* use) { return m_rows.HasRow(*use); }));
    Keys keys;
    for (const PartEntry* const use : uses)
        keys.push_back(use->key);
    m_uses.push_back({object.key, RecordsSwap<OccurrenceRecord>(keys)});
}

bool Deletion::IsOneObject(const std::set<UniqueMetaObjectKey>& keys) const {
    const PartEntry* object = nullptr;
    for (const UniqueMetaObjectKey& key : keys) {
        const PartEntry* const part = m_index.Find(key);
        if (!part || part->isRoot)
            continue;
        if (object && object != part->owner)
            return false;
        object = part->owner;
    }
    return object != nullptr;
}

bool Deletion::IsGone(const UniqueMetaObjectKey& key) const {
    const PartEntry* const part = m_index.Find(key);
    return part && m_gone.contains(part);
}

std::vector<HeldValue> Deletion::FindLastValues() const {
    const ShownValues shown(m_index);
    std::vector<HeldValue> values;
    for (const PartEntry* const part : m_index.GetLinkedParts()) {
        if (m_gone.contains(part))
            continue;
        for (const LinkRecord& link : part->record->links) {
            if (!IsGone(link.target))
                continue;
            const PropValue last = shown.Get(*part, link.property);
            const bool isNone = last.IsEmpty() && !part->isUse;
            values.push_back({part->key, link.property, isNone ? std::nullopt : std::optional(last),
                              PartPlace::none});
        }
    }
    return values;
}

std::vector<ObjectReferences> Deletion::FindReferences() const {
    const auto isGone = [this](const UniqueMetaObjectKey& key) { return IsGone(key); };
    std::vector<ObjectReferences> found;
    for (const PartEntry& object : m_index.GetObjects()) {
        const ObjectRecord& record = *object.object->record;
        if (m_gone.contains(&object) || (std::ranges::none_of(record.parents, isGone) &&
                                         std::ranges::none_of(record.owners, isGone)))
            continue;
        ObjectReferences kept{object.key, record.parents, record.owners};
        std::erase_if(kept.parents, isGone);
        std::erase_if(kept.owners, isGone);
        found.push_back(std::move(kept));
    }
    return found;
}

std::vector<PartGroup> Deletion::FindGroups() const {
    std::vector<PartGroup> found;
    const auto look = [&](const PartEntry& part) {
        if (part.isInGroup && !m_gone.contains(&part) && IsGone(part.record->groupKey))
            found.push_back({part.key, UniqueMetaObjectKey()});
    };
    look(m_index.GetRoot());
    std::ranges::for_each(m_index.GetObjects(), look);
    std::ranges::for_each(m_index.GetUses(), look);
    return found;
}

std::vector<DeletedUse> Deletion::FindDeletedUses(const UniqueMetaObjectKey& assembly) const {
    std::vector<DeletedUse> found;
    for (const PartEntry& use : m_index.GetUses()) {
        if (!use.hasSource || !m_gone.contains(&use))
            continue;
        const SourceProduct& product = *use.object->record->source;
        found.push_back({assembly, use.owner->key, use.key, product.id, product.name});
    }
    return found;
}

std::vector<std::unique_ptr<IModelEdit>>
Deletion::MakeEdits(const UniqueMetaObjectKey& assembly) const {
    std::vector<std::unique_ptr<IModelEdit>> edits;
    if (std::vector<DeletedUse> uses = FindDeletedUses(assembly); !uses.empty())
        edits.push_back(std::make_unique<DeletedUsesEdit>(std::move(uses)));
    if (std::vector<HeldValue> values = FindLastValues(); !values.empty())
        edits.push_back(std::make_unique<ValuesEdit>(std::move(values)));
    StructureChange change{FindReferences(), FindGroups(), m_uses, {}};
    if (!m_objects.empty())
        change.objects = RecordsSwap<ObjectRecord>(m_objects);
    edits.push_back(std::make_unique<StructureEdit>(std::move(change)));
    return edits;
}

} // namespace platform
