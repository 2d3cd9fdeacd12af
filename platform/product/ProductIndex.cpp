#include "platform/product/ProductIndex.h"

#include "host/ProductProperties.h"

#include <algorithm>

namespace platform {

namespace {

std::uint32_t HashOf(const UniqueMetaObjectKey& key) {
    const std::size_t hash = std::hash<UniqueMetaObjectKey>{}(key);
    return static_cast<std::uint32_t>(hash ^ (hash >> 32));
}

const PropValue* FindInRecord(const ObjectRecord& record, unsigned long number) {
    const auto found =
        std::find_if(record.properties.begin(), record.properties.end(),
                     [number](const auto& property) { return property.first == number; });
    return found == record.properties.end() ? nullptr : &found->second;
}

GroupingRecord MakeGrouping(const ObjectRecord& record) {
    static const unsigned long materialId = ProductProperties::GetPropId(L"material");
    static const unsigned long massId = ProductProperties::GetPropId(L"mass");
    const PropValue* const material = FindInRecord(record, materialId);
    const PropValue* const mass = FindInRecord(record, massId);
    return MakeGroupingRecord(
        record.section, record.marking.Make(VariantMarkingData::MakeAll, false, false), record.name,
        material ? material->to_wstring() : SharedText(),
        mass && !mass->IsEmpty() ? std::optional(mass->to_double()) : std::nullopt);
}

std::vector<const PartEntry*> SortedByKey(std::span<const PartEntry> parts) {
    std::vector<const PartEntry*> sorted;
    sorted.reserve(parts.size());
    for (const PartEntry& part : parts)
        sorted.push_back(&part);
    std::sort(sorted.begin(), sorted.end(),
              [](const PartEntry* a, const PartEntry* b) { return a->key < b->key; });
    return sorted;
}

template <class Links>
std::span<const PartEntry* const> FindLinks(const Links& links, const UniqueMetaObjectKey& key) {
    if (links.empty())
        return {};
    const auto found = links.find(key);
    return found == links.end() ? std::span<const PartEntry* const>() : found->second;
}

} // namespace

void ProductIndex::Rebuild(const ProductModel& model) {
    m_currentStyle = model.styleId;
    Reserve(model);
    AddObject(model.root);
    m_parts.front().isRoot = true;
    for (const ObjectRecord& record : model.objects)
        AddObject(record);
    for (std::size_t i = 1; i < m_objects.size(); ++i)
        AddUses(m_parts[i]);

    m_objectsByKey = SortedByKey(GetObjects());
    m_usesByKey = SortedByKey(GetUses());
    MakeSlots();
    Link();
    m_topParts.Rebuild(model);
}

/// Entries point at each other, so that their lists never grow beyond what is reserved here.
void ProductIndex::Reserve(const ProductModel& model) {
    std::size_t uses = 0;
    std::size_t values = model.root.properties.size();
    for (const ObjectRecord& record : model.objects) {
        uses += record.occurrences.size();
        values += record.properties.size();
    }
    m_objects.clear();
    m_objects.reserve(model.objects.size() + 1);
    m_parts.clear();
    m_parts.reserve(model.objects.size() + 1 + uses);
    m_numbers.clear();
    m_numbers.reserve(values);
}

void ProductIndex::AddObject(const ObjectRecord& record) {
    ObjectEntry& object = m_objects.emplace_back();
    object.record = &record;
    if (!record.name.IsEmpty())
        object.name = PropValue(SimplePropVal(record.name));
    if (!record.marking.IsEmpty())
        object.marking = record.marking.GetPropValue();
    object.grouping = MakeGrouping(record);
    object.firstNumber = m_numbers.size();
    object.properties = record.properties;
    object.useCount = static_cast<std::uint32_t>(record.occurrences.size());
    for (const auto& [number, value] : record.properties)
        m_numbers.push_back(static_cast<std::uint32_t>(number));

    PartEntry& part = AddPart(record, object);
    part.owner = &part;
}

void ProductIndex::AddUses(PartEntry& owner) {
    ObjectEntry& object = m_objects[static_cast<std::size_t>(&owner - m_parts.data())];
    object.firstUse = static_cast<std::uint32_t>(m_parts.size() - m_objects.size());
    for (const OccurrenceRecord& record : object.record->occurrences) {
        PartEntry& part = AddPart(record, object);
        part.owner = &owner;
        part.isUse = true;
        part.isShown = record.isShown;
        part.isEverywhere = record.embodiments.empty();
        part.isInSome = !record.embodiments.empty();
        owner.isEverywhere |= part.isEverywhere;
        owner.isInSome |= part.isInSome;
    }
}

PartEntry& ProductIndex::AddPart(const PartRecord& record, const ObjectEntry& object) {
    PartEntry& part = m_parts.emplace_back();
    // A key of the index's own, next to its neighbours in memory: those of the records lie between
    // all that the records hold, and a walk over all parts would miss the cache at each of them.
    part.key = UniqueMetaObjectKey(std::string(record.key.String()));
    part.record = &record;
    part.object = &object;
    part.kind = record.kind;
    part.isCountMark = record.isCountMark;
    part.iconType = object.record->iconType;
    part.hasLockedMarkingParts = !object.record->lockedMarkingParts.empty();
    part.isActual = object.record->isActual;
    part.isExcludedFromCount = object.record->isExcludedFromCount;
    part.isInGroup = !record.groupKey.IsEmpty();
    part.hasHandler = record.hasHandler;
    part.hasCalculator = record.calculatedInProduct.has_value();
    part.isCalculatedInProduct = record.calculatedInProduct.value_or(false);
    const meta_data::SPUsed& used = record.part.used;
    part.isUsedInAnyStyle = record.hasHandler && used.IsSPUsed(meta_data::SP::AllStyleId());
    part.isUsedInCurrentStyle = record.hasHandler && used.IsSPUsed(m_currentStyle);
    return part;
}

void ProductIndex::MakeSlots() {
    std::size_t size = 16;
    while (size < m_parts.size() * 2)
        size *= 2;
    m_slots.assign(size, {});
    for (std::size_t part = 0; part < m_parts.size(); ++part) {
        const UniqueMetaObjectKey& key = m_parts[part].key;
        // The root may have no key, and the null key names nothing.
        if (key.IsEmpty())
            continue;
        const PartEntry* const first = FindInSlots(key);
        const auto place = static_cast<std::uint32_t>(first ? first - m_parts.data()
                                                            : static_cast<std::ptrdiff_t>(part));
        key.SetHint(place);
        m_parts[part].record->key.SetHint(place);
        if (first)
            continue;
        const std::uint32_t hash = HashOf(key);
        std::size_t i = hash & (size - 1);
        while (m_slots[i].part != 0)
            i = (i + 1) & (size - 1);
        m_slots[i] = {hash, static_cast<std::uint32_t>(part + 1)};
    }
}

void ProductIndex::Link() {
    m_children.clear();
    m_billets.clear();
    for (const PartEntry& part : GetObjects()) {
        const ObjectRecord& record = *part.object->record;
        for (const UniqueMetaObjectKey& parent : record.parents)
            m_children[parent].push_back(&part);
        if (record.billet != BilletKind::None && !record.billetOwner.IsEmpty())
            m_billets[record.billetOwner].push_back(&part);
    }
}

const PartEntry* ProductIndex::Find(const UniqueMetaObjectKey& key) const {
    if (m_slots.empty() || key.IsEmpty())
        return nullptr;
    // Nearly every key that is asked about is a copy of one that stands here.
    const std::uint32_t hint = key.GetHint();
    if (hint < m_parts.size() && m_parts[hint].key == key)
        return &m_parts[hint];
    return FindInSlots(key);
}

const PartEntry* ProductIndex::FindInSlots(const UniqueMetaObjectKey& key) const {
    const std::size_t mask = m_slots.size() - 1;
    const std::uint32_t hash = HashOf(key);
    for (std::size_t i = hash & mask; m_slots[i].part != 0; i = (i + 1) & mask) {
        if (m_slots[i].hash != hash)
            continue;
        const PartEntry& part = m_parts[m_slots[i].part - 1];
        if (part.key == key)
            return &part;
    }
    return nullptr;
}

std::span<const PartEntry> ProductIndex::GetObjects() const {
    return std::span(m_parts).subspan(1, m_objects.size() - 1);
}

std::span<const PartEntry> ProductIndex::GetUses() const {
    return std::span(m_parts).subspan(m_objects.size());
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
    return part.hasHandler && part.record->part.used.IsSPUsed(style);
}

std::span<const PartEntry* const>
ProductIndex::GetChildren(const UniqueMetaObjectKey& object) const {
    return FindLinks(m_children, object);
}

std::span<const PartEntry* const>
ProductIndex::GetBillets(const UniqueMetaObjectKey& object) const {
    return FindLinks(m_billets, object);
}

const PropValue* ProductIndex::FindProperty(const ObjectEntry& object, unsigned long number) const {
    const auto numbers = std::span(m_numbers).subspan(object.firstNumber, object.properties.size());
    const auto found = std::find(numbers.begin(), numbers.end(), number);
    if (found == numbers.end())
        return nullptr;
    return &object.properties[static_cast<std::size_t>(found - numbers.begin())].second;
}

} // namespace platform
