#include "platform/product/answers/MemoryMetaData.h"

#include "host/ProductProperties.h"
#include "platform/product/index/ShownValues.h"

namespace platform {

namespace {

class FixedCalculator final : public IfPropertyCalculator {
public:
    explicit FixedCalculator(bool inProduct) : m_inProduct(inProduct) {}
    std::optional<bool> IsInProduct() const override { return m_inProduct; }

private:
    bool m_inProduct;
};

const IfPropertyCalculator* GetCalculator(const PartEntry& part) {
    static const FixedCalculator inProduct(true);
    static const FixedCalculator notInProduct(false);
    if (!part.hasCalculator)
        return nullptr;
    return part.isCalculatedInProduct ? &inProduct : &notInProduct;
}

void AppendKeys(std::vector<UniqueMetaObjectKey>& keys, const PartPlaces& places,
                std::span<const PartEntry> parts) {
    keys.reserve(keys.size() + places.size());
    for (const std::uint32_t place : places)
        keys.push_back(parts[place].key);
}

} // namespace

PartHandler MakePartHandler(const PartEntry* part) {
    if (!part || !part->hasHandler)
        return {};
    return {part->part, GetCalculator(*part)};
}

const PartEntry* MemoryMetaData::FindOwn(const UniqueMetaObjectKey& key) const {
    const PartEntry* const part = m_index.Find(key);
    return part && !part->isRoot && IsOwn(*part) ? part : nullptr;
}

int MemoryMetaData::GetPartKind(const UniqueMetaObjectKey& key) const {
    const PartEntry* const part = FindOwn(key);
    return part ? part->kind : PartKindUnknown;
}

SimplePropVal MemoryMetaData::GetProperty(const UniqueMetaObjectKey& key,
                                          const std::wstring& property) const {
    const PartEntry* const part = FindOwn(key);
    if (!part)
        return {};
    if (property == L"isPhantom")
        return SimplePropVal(static_cast<bool>(part->isPhantom));
    return ShownValues(m_index).Get(*part, ProductProperties::GetPropId(property)).GetSimpleValue();
}

UniqueMetaObjectKey MemoryMetaData::GetBilletOwner(const UniqueMetaObjectKey& key) const {
    const PartEntry* const part = FindOwn(key);
    return part && part->object->record->billet != BilletKind::None
               ? part->object->record->billetOwner
               : UniqueMetaObjectKey();
}

bool MemoryMetaData::IsAssociativeBillet(const UniqueMetaObjectKey& key) const {
    const PartEntry* const part = FindOwn(key);
    return part && part->object->record->billet == BilletKind::Associative;
}

bool MemoryMetaData::HasPartHandler(const UniqueMetaObjectKey& key) const {
    const PartEntry* const part = FindOwn(key);
    return part && part->hasHandler;
}

PartHandler MemoryMetaData::GetPartHandler(const UniqueMetaObjectKey& key) const {
    return MakePartHandler(FindOwn(key));
}

std::vector<UniqueMetaObjectKey> MemoryMetaData::GetPartsOfKinds(const std::set<int>& kinds) const {
    std::vector<UniqueMetaObjectKey> keys;
    keys.reserve(GetPartsByKey().size());
    for (const PartEntry* const part : GetPartsByKey()) {
        if (kinds.contains(part->kind) && (keys.empty() || keys.back() != part->key))
            keys.push_back(part->key);
    }
    return keys;
}

std::vector<UniqueMetaObjectKey>
MemoryMetaData::GetOrderedPartsOfKinds(const std::set<int>& kinds) const {
    std::vector<UniqueMetaObjectKey> keys;
    keys.reserve(GetParts().size());
    for (const PartEntry& part : GetParts()) {
        if (kinds.contains(part.kind))
            keys.push_back(part.key);
    }
    return keys;
}

const GroupingRecord* MemoryMetaData::GetGroupingRecord(const UniqueMetaObjectKey& key) const {
    const PartEntry* const part = FindOwn(key);
    return part ? &part->object->grouping : nullptr;
}

std::vector<UniqueMetaObjectKey>
OccurrenceMetaData::GetDirectParts(const UniqueMetaObjectKey& key) const {
    std::vector<UniqueMetaObjectKey> keys;
    AppendKeys(keys, GetIndex().GetTopParts().GetUses(key), GetParts());
    return keys;
}

std::set<UniqueMetaObjectKey>
OccurrenceMetaData::GetBillets(const UniqueMetaObjectKey& /*key*/) const {
    return {}; // billets belong to objects
}

std::set<UniqueMetaObjectKey>
OccurrenceMetaData::GetParentParts(const UniqueMetaObjectKey& /*key*/) const {
    return {}; // uses stand on the top level, all of them
}

bool OccurrenceMetaData::IsOwn(const PartEntry& part) const {
    return part.isUse;
}

std::span<const PartEntry> OccurrenceMetaData::GetParts() const {
    return GetIndex().GetUses();
}

const std::vector<const PartEntry*>& OccurrenceMetaData::GetPartsByKey() const {
    return GetIndex().GetUsesByKey();
}

std::vector<UniqueMetaObjectKey>
ObjectMetaData::GetDirectParts(const UniqueMetaObjectKey& key) const {
    std::vector<UniqueMetaObjectKey> keys;
    AppendKeys(keys, GetIndex().GetTopParts().GetObjects(key), GetParts());
    for (const PartEntry* const child : GetIndex().GetChildren(key))
        keys.push_back(child->key);
    return keys;
}

std::set<UniqueMetaObjectKey> ObjectMetaData::GetBillets(const UniqueMetaObjectKey& key) const {
    std::set<UniqueMetaObjectKey> keys;
    for (const PartEntry* const billet : GetIndex().GetBillets(key))
        keys.insert(billet->key);
    return keys;
}

std::set<UniqueMetaObjectKey> ObjectMetaData::GetParentParts(const UniqueMetaObjectKey& key) const {
    const PartEntry* const part = GetIndex().Find(key);
    if (!part || !IsOwn(*part))
        return {};
    const ObjectRecord& record = *part->object->record;
    std::set<UniqueMetaObjectKey> keys(record.parents.begin(), record.parents.end());
    if (part->isEverywhere)
        keys.insert(m_model.root.key);
    if (!part->isInSome)
        return keys;
    for (const OccurrenceRecord& use : record.occurrences)
        keys.insert(use.embodiments.begin(), use.embodiments.end());
    return keys;
}

bool ObjectMetaData::IsOwn(const PartEntry& part) const {
    return !part.isUse;
}

std::span<const PartEntry> ObjectMetaData::GetParts() const {
    return GetIndex().GetObjects();
}

const std::vector<const PartEntry*>& ObjectMetaData::GetPartsByKey() const {
    return GetIndex().GetObjectsByKey();
}

} // namespace platform
