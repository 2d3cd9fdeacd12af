#include "platform/product/index/IndexBuilder.h"

#include "platform/product/model/PropertyNumbers.h"

#include <algorithm>
#include <utility>

namespace platform {

namespace {

bool IsBefore(const PartEntry* a, const PartEntry* b) {
    return a->key < b->key;
}

/// The first bytes of a key, as a number that orders as they do.
std::uint64_t PrefixOf(const std::string& key) {
    std::uint64_t prefix = 0;
    for (std::size_t i = 0; i < sizeof(prefix); ++i)
        prefix = prefix << 8 | (i < key.size() ? static_cast<unsigned char>(key[i]) : 0u);
    return prefix;
}

/// Most pairs are told apart without a look at the parts.
void SortByKey(std::vector<const PartEntry*>& parts) {
    std::vector<std::pair<std::uint64_t, const PartEntry*>> entries;
    entries.reserve(parts.size());
    for (const PartEntry* const part : parts)
        entries.emplace_back(PrefixOf(part->key.String()), part);
    std::sort(entries.begin(), entries.end(), [](const auto& a, const auto& b) {
        return a.first != b.first ? a.first < b.first : IsBefore(a.second, b.second);
    });
    std::ranges::transform(entries, parts.begin(), [](const auto& entry) { return entry.second; });
}

} // namespace

IndexTables IndexBuilder::Build(const ProductModel& model) {
    m_style = model.styleId;
    m_placesNow.assign(m_previous.parts.size(), IndexTables::none);
    m_nextUse = static_cast<std::uint32_t>(m_previous.objects.size());
    Reserve(model);
    AddObject(model.root, true);
    for (const ObjectRecord& record : model.objects)
        AddObject(record, false);
    for (std::size_t i = 1; i < m_tables.objects.size(); ++i)
        AddUses(m_tables.parts[i]);
    EnterParts();
    std::erase(m_newObjects, &m_tables.parts.front()); // the root is no part of the document's
    m_tables.objectsByKey = Order(m_previous.objectsByKey, m_newObjects);
    m_tables.usesByKey = Order(m_previous.usesByKey, m_newUses);
    Link();
    return std::move(m_tables);
}

void IndexBuilder::Reserve(const ProductModel& model) {
    std::size_t uses = 0;
    for (const ObjectRecord& record : model.objects)
        uses += record.occurrences.size();
    // Entries point at each other, so that their lists never grow beyond this.
    m_tables.objects.reserve(model.objects.size() + 1);
    m_tables.parts.reserve(model.objects.size() + 1 + uses);
}

void IndexBuilder::AddObject(const ObjectRecord& record, bool isRoot) {
    const std::uint32_t before = FindBefore(record, m_nextObject, false, isRoot);
    if (before != IndexTables::none)
        m_nextObject = before + 1;
    ObjectEntry& object = m_tables.objects.emplace_back();
    // A record that was moved has its values where they were.
    const bool isKnown = m_areRecordsKnown && before != IndexTables::none &&
                         m_previous.objects[before].values == record.properties.data();
    if (isKnown)
        object = std::move(m_previous.objects[before]);
    object.record = &record;
    object.useCount = static_cast<std::uint32_t>(record.occurrences.size());
    if (!isKnown) {
        object.ReadName();
        object.ReadMarking();
        object.ReadSection(m_shared.sections);
        object.ReadProperties(m_shared.layouts);
    }
    // What is shown by links is for those to say who know them.
    if (!isKnown || m_previous.parts[before].hasLinks)
        object.ReadGrouping();

    PartEntry& part = AddPart(record, object, before);
    part.owner = &part;
    part.isRoot = isRoot;
    part.isEverywhere = false;
    part.isInSome = false;
    part.ReadOwnership();
    if (before == IndexTables::none)
        m_newObjects.push_back(&part);
}

void IndexBuilder::AddUses(PartEntry& owner) {
    ObjectEntry& object =
        m_tables.objects[static_cast<std::size_t>(&owner - m_tables.parts.data())];
    object.firstUse = static_cast<std::uint32_t>(m_tables.parts.size() - m_tables.objects.size());
    for (const OccurrenceRecord& record : object.record->occurrences) {
        const std::uint32_t before = FindBefore(record, m_nextUse, true, false);
        if (before != IndexTables::none)
            m_nextUse = before + 1;
        PartEntry& part = AddPart(record, object, before);
        part.owner = &owner;
        part.isUse = true;
        part.isShown = record.isShown;
        part.isEverywhere = record.embodiments.empty();
        part.isInSome = !record.embodiments.empty();
        part.ReadOwnership();
        owner.isEverywhere |= part.isEverywhere;
        owner.isInSome |= part.isInSome;
        if (before == IndexTables::none)
            m_newUses.push_back(&part);
    }
}

PartEntry& IndexBuilder::AddPart(const PartRecord& record, const ObjectEntry& object,
                                 std::uint32_t before) {
    PartEntry& part = m_tables.parts.emplace_back();
    if (before == IndexTables::none) {
        // A key of the index's own, next to its neighbours in memory: those of the records lie
        // between all that the records hold, and a walk over all parts would miss the cache at each
        // of them.
        part.key = UniqueMetaObjectKey(std::string(record.key.String()));
    } else {
        m_placesNow[before] = static_cast<std::uint32_t>(m_tables.parts.size() - 1);
        part = std::move(m_previous.parts[before]);
    }
    if (!part.recordKey.IsSame(record.key))
        part.recordKey = record.key;
    part.record = &record;
    part.object = &object;
    if (before == IndexTables::none || !m_areRecordsKnown)
        ReadPart(part, *object.record);
    part.isInGroup = !record.groupKey.IsEmpty();
    if (!record.links.empty()) {
        m_tables.linkCount += record.links.size();
        m_tables.linkedParts.push_back(&part);
    }
    return part;
}

void IndexBuilder::ReadPart(PartEntry& part, const ObjectRecord& object) const {
    const PartRecord& record = *part.record;
    part.part = &m_shared.parts.Get(record.part);
    part.kind = record.kind;
    part.isPhantom = record.isPhantom;
    part.isCountMark = record.isCountMark;
    part.iconType = object.iconType;
    part.hasLockedMarkingParts = !object.lockedMarkingParts.empty();
    part.isActual = object.isActual;
    part.hasSource = object.source.has_value();
    part.isExcludedFromCount = object.isExcludedFromCount;
    part.hasAggrIntoProduct = object.aggrIntoProduct.has_value();
    part.isAggrIntoProduct = object.aggrIntoProduct.value_or(false);
    part.hasHandler = record.hasHandler;
    part.hasCalculator = record.calculatedInProduct.has_value();
    part.isCalculatedInProduct = record.calculatedInProduct.value_or(false);
    part.hasReadOnlyProperties = !object.readOnlyProperties.empty();
    const meta_data::SPUsed& used = record.part.used;
    part.isUsedInAnyStyle = record.hasHandler && used.IsSPUsed(meta_data::SP::AllStyleId());
    part.isUsedInCurrentStyle = record.hasHandler && used.IsSPUsed(m_style);
}

std::uint32_t IndexBuilder::FindBefore(const PartRecord& record, std::uint32_t next, bool isUse,
                                       bool isRoot) const {
    if (record.key.IsEmpty())
        return IndexTables::none;
    const std::vector<PartEntry>& parts = m_previous.parts;
    const bool isNext = next < parts.size() && parts[next].recordKey.IsSame(record.key);
    const std::uint32_t before = isNext ? next : m_previous.FindPlace(record.key);
    if (before == IndexTables::none || parts[before].isUse != isUse ||
        parts[before].isRoot != isRoot)
        return IndexTables::none;
    return before;
}

void IndexBuilder::EnterParts() {
    if (!m_areRecordsKnown || !m_previous.HasRoom(m_newObjects.size() + m_newUses.size())) {
        m_tables.ClearNumbers();
        for (const PartEntry& part : m_tables.parts)
            m_tables.Enter(part);
        return;
    }
    m_tables.numbers = std::move(m_previous.numbers);
    m_tables.places = std::move(m_previous.places);
    for (std::uint32_t& place : m_tables.places)
        place = place == IndexTables::none ? place : m_placesNow[place];
    for (const PartEntry* const part : m_newObjects)
        m_tables.Enter(*part);
    for (const PartEntry* const part : m_newUses)
        m_tables.Enter(*part);
}

IndexBuilder::Parts IndexBuilder::Order(const Parts& previous, Parts& added) const {
    Parts kept;
    kept.reserve(previous.size());
    for (const PartEntry* const part : previous) {
        const std::uint32_t place =
            m_placesNow[static_cast<std::size_t>(part - m_previous.parts.data())];
        if (place != IndexTables::none)
            kept.push_back(&m_tables.parts[place]);
    }
    if (added.empty())
        return kept;
    SortByKey(added);
    Parts all;
    all.reserve(kept.size() + added.size());
    auto rest = kept.begin();
    for (const PartEntry* const part : added) {
        const auto end = std::upper_bound(rest, kept.end(), part, IsBefore);
        all.insert(all.end(), rest, end);
        all.push_back(part);
        rest = end;
    }
    all.insert(all.end(), rest, kept.end());
    return all;
}

void IndexBuilder::Link() {
    for (std::size_t i = 1; i < m_tables.objects.size(); ++i) {
        const ObjectRecord& record = *m_tables.objects[i].record;
        for (const UniqueMetaObjectKey& parent : record.parents)
            m_tables.children[parent].push_back(&m_tables.parts[i]);
        if (record.billet != BilletKind::None && !record.billetOwner.IsEmpty())
            m_tables.billets[record.billetOwner].push_back(&m_tables.parts[i]);
    }
    for (const PartEntry* const part : m_tables.linkedParts) {
        for (const LinkRecord& link : part->record->links) {
            m_tables.linkedTo[link.target].push_back(part);
            m_tables.areMassesLinked |= link.property == number::mass;
        }
    }
}

} // namespace platform
