#include "sorting/StyleBasedProductTreeSorter.h"

#include "columns/PropertyKeys.h"
#include "host/data/IfProductTreeData.h"
#include "host/data/PartKinds.h"
#include "sorting/GroupKeyChoice.h"
#include "sorting/OrderedPlaces.h"

#include <algorithm>
#include <limits>
#include <map>
#include <utility>

namespace productTree {

namespace {

using meta_data::SP::AllStyleId;
using meta_data::SP::IsSPUsed;

using Key = UniqueMetaObjectKey;

// Sorts behind every real first index.
constexpr std::uint64_t c_noPlace = std::numeric_limits<std::uint64_t>::max();

// The kinds of parts that are collected.
const std::set<int> c_collectedKinds = {PartKindAssembly, PartKindDetail, PartKindStandard,
                                        PartKindOther};

const PartAttributes& GetAttributes(const PartHandler& handler) {
    return handler.IsValid() ? handler.GetProductPart().attributes : PartHandler::c_defaultAttrs;
}

bool IsInProduct(const PartHandler& handler) {
    if (handler.IsCalcAvailable()) {
        if (const auto calculated = handler.GetPropertyCalculator().IsInProduct())
            return *calculated;
    }
    return GetAttributes(handler).inProduct;
}

const PartHandler& GetSpeakingHandler(const GroupPartHandler& handler) {
    return handler.GetGroupKey() == Key::null ? handler.GetRawPartHandler()
                                              : handler.GetGroupPartHandler();
}

} // namespace

StyleBasedProductTreeSorter::StyleBasedProductTreeSorter(std::shared_ptr<IfProductTreeData> data)
    : m_data(std::move(data)) {}

std::vector<ProductTreeRowInfo> StyleBasedProductTreeSorter::Sort() {
    m_data->PrepareData();
    CollectObjects();
    IndexParts();
    IndexObjects();
    DropAndSplit();
    MakeComparator();
    m_sections = MakeSortSections(*m_data);
    m_noSection.parts.clear();
    m_noSection.numbers.clear();
    Distribute();
    return MakeRows();
}

void StyleBasedProductTreeSorter::CollectObjects() {
    const IfProductDataAggregator& aggregator = m_data->GetAggregator();
    const IfMetaProductData& metaData = aggregator.GetMetaData();
    m_objects.clear();
    m_billets.clear();
    m_uses.clear();
    m_firstUses.clear();
    m_placed.clear();
    // A host that threw in the middle of the last sort has left rows in them.
    m_loose.Clear();
    m_children.Clear();
    m_orderedParts = aggregator.GetPrimaryMetaData().GetOrderedPartsOfKinds(c_collectedKinds);
    m_topKeys = m_data->GetTopKeys();

    struct Met {};
    KeyMap<Met> met;
    const auto add = [&](const Key& key) {
        if (met.Add(key, {}))
            m_objects.push_back(key);
    };
    for (const Key& topKey : m_topKeys)
        std::ranges::for_each(metaData.GetDirectParts(topKey), add);
    for (const Key& key : metaData.GetPartsOfKinds(c_collectedKinds)) {
        if (!met.Find(key) && metaData.GetParentParts(key).empty())
            add(key);
    }
}

void StyleBasedProductTreeSorter::IndexParts() {
    const IfProductDataAggregator& aggregator = m_data->GetAggregator();
    const IfMetaProductData& primary = aggregator.GetPrimaryMetaData();
    m_index.Reset(m_orderedParts.size() + m_objects.size());

    OrderedPlaces places(m_orderedParts);
    std::vector<bool> isIndexed(m_orderedParts.size());
    for (std::size_t i = 0; i < m_topKeys.size(); ++i) {
        for (const Key& part : primary.GetDirectParts(m_topKeys[i])) {
            const auto place = places.Find(part);
            if (!place || isIndexed[*place] || m_data->IsCountMark(part))
                continue;
            m_index.Add(part, {i, *place});
            isIndexed[*place] = true;
        }
    }

    for (std::size_t i = 0; i < m_orderedParts.size(); ++i) {
        if (!isIndexed[i] && m_data->IsCountMark(m_orderedParts[i])) {
            m_index.Add(m_orderedParts[i], {c_noPlace, i});
            isIndexed[i] = true;
        }
    }
    std::uint64_t counter = 0;
    for (std::size_t i = 0; i < m_orderedParts.size(); ++i) {
        if (!isIndexed[i] && aggregator.GetOwners(m_orderedParts[i]).empty())
            m_index.Add(m_orderedParts[i], {c_noPlace, counter++});
    }
}

void StyleBasedProductTreeSorter::IndexObjects() {
    const IfProductDataAggregator& aggregator = m_data->GetAggregator();
    m_uses.reserve(m_orderedParts.size());
    m_firstUses.reserve(m_objects.size() + 1);
    for (std::size_t i = 0; i < m_objects.size(); ++i) {
        const Key& object = m_objects[i];
        m_firstUses.push_back(static_cast<std::uint32_t>(m_uses.size()));
        InfObjIndex index = AppendUses(object, m_uses);
        if (!aggregator.IsInfObject(object))
            continue;
        // Manual billets come in the reverse of the order in which they were met.
        if (meta_data::SP::IsManualBillet(aggregator, object))
            index = {c_noPlace, m_objects.size() - 1 - i};
        m_index.Set(object, index);
    }
    m_firstUses.push_back(static_cast<std::uint32_t>(m_uses.size()));
}

void StyleBasedProductTreeSorter::DropAndSplit() {
    const IfProductDataAggregator& aggregator = m_data->GetAggregator();
    m_areSeparate.assign(m_objects.size(), false);
    for (std::size_t i = 0; i < m_objects.size(); ++i) {
        const Key& key = m_objects[i];
        const IfMetaProductData& metaData = aggregator.GetMetaDataOf(key);
        if (metaData.HasPartHandler(key) && !IsInProduct(metaData.GetPartHandler(key)))
            continue;
        if (meta_data::SP::IsAssociativeBillet(metaData, key) ||
            meta_data::SP::IsManualBillet(aggregator, key)) {
            m_billets.push_back(key);
            continue;
        }
        m_placed.push_back(static_cast<std::uint32_t>(i));
        m_areSeparate[i] = IsSeparate(key);
    }
    std::ranges::sort(m_billets);
}

void StyleBasedProductTreeSorter::MakeComparator() {
    using namespace meta_data::grouping;
    const SpcDescription* description = m_data->GetSpcDescription();
    m_comparator = description ? CreateDescrGroupingComparator(*description)
                               : CreateDefaultGroupingComparator();
    m_comparator->SetOptionA(false);
    m_comparator->SetIndexMap(*this);
    m_comparator->SetOptionB(true);
    m_comparator->SetOptionC(false);
}

void StyleBasedProductTreeSorter::Distribute() {
    const IfProductDataAggregator& aggregator = m_data->GetAggregator();
    const bool single =
        m_sections.size() == 1 && (m_sections[0].section.numbers == SPCSection().numbers ||
                                   m_sections[0].section.name.IsEmpty());
    std::map<decltype(SPCSection::numbers), SortSection*> byNumbers;
    for (SortSection& section : m_sections)
        byNumbers.try_emplace(section.section.numbers, &section);

    for (const std::uint32_t number : m_placed) {
        const Key& key = m_objects[number];
        SortSection* target = single ? &m_sections[0] : &m_noSection;
        if (!single) {
            const auto found = byNumbers.find(FindSpcSection(aggregator, key, nullptr).numbers);
            if (found != byNumbers.end())
                target = found->second;
        }
        target->parts.push_back({&aggregator.GetMetaDataOf(key), key});
        target->numbers.push_back(number);
    }
}

StyleBasedProductTreeSorter::Rows StyleBasedProductTreeSorter::MakeRows() {
    const bool plain = !m_data->AreSectionRowsShown() || m_sections.size() == 1;
    Rows rows;
    for (SortSection& section : m_sections) {
        if (section.parts.empty())
            continue;
        if (plain)
            std::ranges::move(RowsOfParts(section), std::back_inserter(rows));
        else
            AddSectionRow(section, rows);
    }
    if (!m_noSection.parts.empty())
        AddSectionRow(m_noSection, rows);
    return rows;
}

void StyleBasedProductTreeSorter::AddSectionRow(SortSection& section, Rows& rows) {
    Rows children = RowsOfParts(section);
    if (children.empty())
        return;
    ProductTreeRowInfo& row = rows.emplace_back();
    row.kind = RowKind::Section;
    row.section = section.section;
    row.label = section.label;
    row.children = std::move(children);
}

StyleBasedProductTreeSorter::Rows StyleBasedProductTreeSorter::RowsOfParts(SortSection& section) {
    Rows rows;
    ForEachRun(section.parts, *m_comparator,
               [&](const PartRun& run) { RowsOfRun(run, section.numbers, rows); });
    return rows;
}

void StyleBasedProductTreeSorter::RowsOfRun(const PartRun& run,
                                            const std::vector<std::uint32_t>& numbers, Rows& rows) {
    m_joined.clear();
    for (std::size_t i = 0; i < run.parts.size(); ++i) {
        const ConstProductPart& part = run.parts[i];
        const std::uint32_t number = numbers[run.origins[i]];
        if (m_areSeparate[number])
            AddRowsOfUses(GetUses(number), m_loose);
        else
            m_joined.push_back({&part, number});
    }
    GroupRow(m_joined, rows, m_loose);

    const IfProductDataAggregator& aggregator = m_data->GetAggregator();
    const IfMetaProductData& metaData = aggregator.GetMetaData();
    m_loose.TakeInOrder([&](ProductTreeRowInfo&& row, const InfObjIndex&) {
        const Key object =
            aggregator.IsInfObject(row.key) ? row.key : aggregator.GetOwnerObject(row.key);
        rows.push_back(std::move(row));
        if (!object.IsEmpty())
            BilletRows(metaData.GetBillets(object), rows);
    });
}

void StyleBasedProductTreeSorter::AddRowsOfUses(Uses uses, IndexedRows& rows) const {
    for (const Use& use : uses) {
        if (use.isShown)
            rows.Add(use.index).key = use.key;
    }
}

void StyleBasedProductTreeSorter::GroupRow(const std::vector<NumberedPart>& parts, Rows& groups,
                                           IndexedRows& loose) {
    if (parts.empty())
        return;
    const IfProductDataAggregator& aggregator = m_data->GetAggregator();
    const IfMetaProductData& metaData = aggregator.GetMetaData();
    const meta_data::SP::StyleId style = m_data->GetCurrentStyleId();

    GroupKeyChoice choice(aggregator, style);
    bool hasUses = false;
    std::set<Key> billets;
    for (const auto& [part, number] : parts) {
        choice.Add(part->key, part->key);
        const Uses uses = GetUses(number);
        hasUses = hasUses || !uses.empty();
        AddRowsOfUses(uses, m_children);
        billets.merge(metaData.GetBillets(part->key));
    }

    const std::size_t count = m_children.GetSize();
    if (count >= 2) {
        ProductTreeRowInfo& group = groups.emplace_back();
        group.kind = RowKind::Group;
        group.key = choice.Get();
        group.children.reserve(count);
        m_children.TakeInOrder([&](ProductTreeRowInfo&& row, const InfObjIndex&) {
            group.children.push_back(std::move(row));
        });
        BilletRows(billets, groups);
        return;
    }
    if (count == 1) {
        m_children.TakeInOrder([&](ProductTreeRowInfo&& row, const InfObjIndex& index) {
            loose.Add(index) = std::move(row);
        });
        return;
    }
    const Key& key = choice.Get();
    if (!hasUses && IsSPUsed(aggregator, key, style)) {
        ProductTreeRowInfo& row = loose.Add(GetIndex(key));
        row.kind = RowKind::PlainObject;
        row.key = key;
    }
}

void StyleBasedProductTreeSorter::BilletRows(const std::set<Key>& keys, Rows& rows) {
    if (keys.empty())
        return;
    const IfProductDataAggregator& aggregator = m_data->GetAggregator();
    std::vector<ConstProductPart> parts;
    parts.reserve(keys.size());
    for (const Key& key : keys)
        parts.push_back({&aggregator.GetMetaData(), key});
    std::ranges::stable_sort(parts, [&](const ConstProductPart& a, const ConstProductPart& b) {
        return CompareBillets(a, b) < 0;
    });

    const auto isManual = [&](const ConstProductPart& part) {
        return meta_data::SP::IsManualBillet(aggregator, part.key);
    };
    for (std::size_t begin = 0; begin < parts.size();) {
        std::size_t end = begin + 1;
        if (isManual(parts[begin])) {
            const ConstProductPart& part = parts[begin];
            if (IsBillet(part.key)) {
                ProductTreeRowInfo& row = rows.emplace_back();
                row.kind = RowKind::Billet;
                row.key = part.key;
                row.sourceKey = part.metaData->GetBilletOwner(part.key);
            }
        } else {
            while (end < parts.size() && !isManual(parts[end]) &&
                   m_comparator->Compare(parts[end], parts[begin]) == 0)
                ++end;
            BilletGroupRow(std::span(parts).subspan(begin, end - begin), rows);
        }
        begin = end;
    }
}

void StyleBasedProductTreeSorter::BilletGroupRow(std::span<const ConstProductPart> run,
                                                 Rows& rows) const {
    const IfProductDataAggregator& aggregator = m_data->GetAggregator();
    const IfMetaProductData& primary = aggregator.GetPrimaryMetaData();

    GroupKeyChoice choice(aggregator, m_data->GetCurrentStyleId());
    IndexedRows billets;
    std::vector<Use> uses;
    for (const ConstProductPart& part : run) {
        choice.Add(part.key, part.metaData->GetBilletOwner(part.key));
        uses.clear();
        AppendUses(part.key, uses);
        for (const Use& use : uses) {
            if (!IsInAnySpecification(use.key))
                continue;
            ProductTreeRowInfo& row = billets.Add(use.index);
            row.kind = RowKind::Billet;
            row.key = use.key;
            row.sourceKey = primary.GetBilletOwner(use.key);
        }
    }

    const Key& key = choice.Get();
    Rows* target = &rows;
    if (billets.GetSize() >= 2) {
        ProductTreeRowInfo& group = rows.emplace_back();
        group.kind = RowKind::Group;
        group.key = key;
        target = &group.children;
    } else if (billets.GetSize() == 0 && IsBillet(key) && IsInAnySpecification(key)) {
        ProductTreeRowInfo& row = rows.emplace_back();
        row.kind = RowKind::Billet;
        row.key = key;
        row.sourceKey = aggregator.GetMetaData().GetBilletOwner(key);
    }
    billets.TakeInOrder(
        [&](ProductTreeRowInfo&& row, const InfObjIndex&) { target->push_back(std::move(row)); });
}

InfObjIndex StyleBasedProductTreeSorter::AppendUses(const Key& object,
                                                    std::vector<Use>& uses) const {
    InfObjIndex first{c_noPlace, c_noPlace};
    for (Key& occurrence : m_data->GetAggregator().GetOccurrences(object, nullptr)) {
        const InfObjIndex* index = m_index.Find(occurrence);
        if (index)
            first = std::min(first, *index);
        // Asked here, where the document's order is followed, and not where rows are made: a host
        // looks its parts up quickest in the order in which it keeps them.
        if (m_data->IsInTopKeys(occurrence, m_topKeys)) {
            const bool isShown = IsShownInTree(occurrence);
            uses.push_back({std::move(occurrence), index ? *index : InfObjIndex(), isShown});
        }
    }
    return first;
}

StyleBasedProductTreeSorter::Uses StyleBasedProductTreeSorter::GetUses(std::uint32_t number) const {
    return Uses(m_uses).subspan(m_firstUses[number], m_firstUses[number + 1] - m_firstUses[number]);
}

bool StyleBasedProductTreeSorter::IsShownInTree(const Key& occurrence) const {
    const IfMetaProductData& metaData = m_data->GetAggregator().GetPartMetaData(occurrence);
    const int kind = metaData.GetPartKind(occurrence);
    if (IsRowlessKind(kind))
        return false;
    if (metaData.GetProperty(occurrence, keys::isPhantom).to_bool())
        return false;
    if (IsSpecificationKind(kind)) {
        const PartHandler handler = metaData.GetPartHandler(occurrence);
        const PartAttributes& attributes = GetAttributes(handler);
        if (attributes.hiddenB || !IsInProduct(handler) || attributes.hiddenA)
            return false;
    }
    return m_data->IsShownInTree(occurrence);
}

bool StyleBasedProductTreeSorter::IsSeparate(const Key& key) const {
    const GroupPartHandler handler = m_data->GetAggregator().GetGroupPartHandler(key);
    if (!handler.IsValid())
        return GroupPartHandler::c_defaultAttrs.separate;
    return GetAttributes(GetSpeakingHandler(handler)).separate;
}

bool StyleBasedProductTreeSorter::IsInAnySpecification(const Key& key) const {
    const GroupPartHandler group = m_data->GetAggregator().GetGroupPartHandler(key);
    if (!group.IsValid())
        return false;
    const PartHandler& handler = GetSpeakingHandler(group);
    return handler.IsValid() && handler.GetProductPart().used.IsSPUsed(AllStyleId());
}

bool StyleBasedProductTreeSorter::IsBillet(const Key& key) const {
    return std::ranges::binary_search(m_billets, key);
}

InfObjIndex StyleBasedProductTreeSorter::GetIndex(const Key& key) const {
    const InfObjIndex* index = m_index.Find(key);
    return index ? *index : InfObjIndex();
}

int StyleBasedProductTreeSorter::CompareBillets(const ConstProductPart& a,
                                                const ConstProductPart& b) const {
    const int alike = m_comparator->Compare(a, b);
    if (alike != 0)
        return alike;
    const IfProductDataAggregator& aggregator = m_data->GetAggregator();
    if (!meta_data::SP::IsManualBillet(aggregator, a.key) ||
        !meta_data::SP::IsManualBillet(aggregator, b.key))
        return 0;
    const InfObjIndex* indexOfA = m_index.Find(a.key);
    const InfObjIndex* indexOfB = m_index.Find(b.key);
    if (!indexOfA || !indexOfB)
        return 0;
    const std::int64_t difference = *indexOfA - *indexOfB;
    return difference < 0 ? -1 : difference > 0 ? 1 : 0;
}

} // namespace productTree
