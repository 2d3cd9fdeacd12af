#include "platform/product/index/ProductIndex.h"

#include "host/ProductProperties.h"
#include "platform/product/index/IndexBuilder.h"
#include "platform/product/model/PropertyNumbers.h"

#include <algorithm>

namespace platform {

namespace {

std::span<const PartEntry* const> FindLinks(const IndexTables::Links& links,
                                            const UniqueMetaObjectKey& key) {
    if (links.empty())
        return {};
    const auto found = links.find(key);
    return found == links.end() ? std::span<const PartEntry* const>() : found->second;
}

} // namespace

void ProductIndex::Rebuild(const ProductModel& model) {
    m_layouts.Clear();
    m_sharedParts.Clear();
    m_sharedSections.Clear();
    Make(model, false);
}

void ProductIndex::Rearrange(const ProductModel& model) {
    Make(model, true);
}

void ProductIndex::Make(const ProductModel& model, bool areRecordsKnown) {
    m_last = nullptr;
    m_readAhead.Forget();
    m_currentStyle = model.styleId;
    m_tables = IndexBuilder(m_tables, {m_layouts, m_sharedParts, m_sharedSections}, areRecordsKnown)
                   .Build(model);
    m_topParts.Rebuild(model, GetObjects(), GetUses());
}

void ProductIndex::Update(const PartEntry& part, unsigned long number) {
    if (part.isUse) {
        m_tables.parts[PlaceOf(part)].ReadOwnership();
        return;
    }
    ObjectEntry& object = m_tables.objects[PlaceOf(part)];
    if (number == ProductProperties::nameId)
        object.ReadName();
    else if (number == ProductProperties::markingId)
        object.ReadMarking();
    else if (number == number::section)
        object.ReadSection(m_sharedSections);
    else
        object.ReadProperties(m_layouts);
}

bool ProductIndex::Regroup(const PartEntry& object, const SharedText& name,
                           const PropValue& material, const PropValue& mass) {
    ObjectEntry& entry = m_tables.objects[PlaceOf(object)];
    GroupingRecord grouping = MakeGrouping(*entry.record, name, material, mass);
    if (grouping == entry.grouping)
        return false;
    entry.grouping = std::move(grouping);
    return true;
}

const PartEntry* ProductIndex::FindAnew(const UniqueMetaObjectKey& key) const {
    const PartEntry* const next = m_last ? m_readAhead.GetNext(*m_last) : nullptr;
    if (next && next->key.IsSame(key)) {
        m_last = next;
    } else {
        const std::uint32_t place = m_tables.FindPlace(key);
        m_last = place == IndexTables::none ? nullptr : &m_tables.parts[place];
    }
    if (m_last && m_readAhead.IsInWalk())
        m_readAhead.Note(*m_last);
    return m_last;
}

void ProductIndex::ExpectReads(const std::vector<UniqueMetaObjectKey>& keys) {
    constexpr std::size_t distance = 8;
    m_readAhead.Forget();
    for (std::size_t i = 0; i < keys.size(); ++i) {
        if (i + distance < keys.size())
            m_tables.FetchAhead(keys[i + distance]);
        const std::uint32_t place = m_tables.FindPlace(keys[i]);
        if (place != IndexTables::none)
            m_readAhead.Tell(m_tables.parts[place]);
    }
}

std::span<const PartEntry* const> ProductIndex::GetLinkedTo(const UniqueMetaObjectKey& part) const {
    return FindLinks(m_tables.linkedTo, part);
}

PartPlace ProductIndex::GetPlace(const PartEntry& part) const {
    const auto owner = PlaceOf(*part.owner);
    PartPlace place;
    if (owner > 0)
        place.object = owner - 1;
    if (part.isUse)
        place.use = static_cast<std::size_t>(&part - GetUses().data()) - part.object->firstUse;
    return place;
}

std::span<const PartEntry> ProductIndex::GetObjects() const {
    return std::span(m_tables.parts).subspan(1, m_tables.objects.size() - 1);
}

std::span<const PartEntry> ProductIndex::GetUses() const {
    return std::span(m_tables.parts).subspan(m_tables.objects.size());
}

std::span<const PartEntry> ProductIndex::GetUsesOf(const PartEntry& object) const {
    if (object.isUse || object.isRoot)
        return {};
    return GetUses().subspan(object.object->firstUse, object.object->useCount);
}

bool ProductIndex::IsInTopParts(const PartEntry& part,
                                const std::vector<UniqueMetaObjectKey>& topKeys) const {
    if (!part.isUse)
        return false;
    if (part.isEverywhere)
        return !topKeys.empty();
    const auto place = static_cast<std::size_t>(&part - GetUses().data());
    const auto& use = static_cast<const OccurrenceRecord&>(*part.record);
    return m_topParts.IsIn(use, place, topKeys);
}

bool ProductIndex::IsUsedInStyle(const PartEntry& part, meta_data::SP::StyleId style) const {
    if (style == m_currentStyle)
        return part.isUsedInCurrentStyle;
    if (style == meta_data::SP::AllStyleId())
        return part.isUsedInAnyStyle;
    return part.hasHandler && part.part->used.IsSPUsed(style);
}

std::span<const PartEntry* const>
ProductIndex::GetChildren(const UniqueMetaObjectKey& object) const {
    return FindLinks(m_tables.children, object);
}

std::span<const PartEntry* const>
ProductIndex::GetBillets(const UniqueMetaObjectKey& object) const {
    return FindLinks(m_tables.billets, object);
}

} // namespace platform
