#include "platform/product/index/RowRules.h"

#include "platform/product/model/StyleSections.h"

#include <algorithm>

namespace platform {

namespace {

constexpr int c_documentation = 5;

const PartAttributes& AttributesOf(const PartEntry& part) {
    return part.hasHandler ? part.part->attributes : PartHandler::c_defaultAttrs;
}

bool IsInProduct(const PartEntry& part) {
    return part.hasHandler && part.hasCalculator ? part.isCalculatedInProduct
                                                 : AttributesOf(part).inProduct;
}

BilletKind BilletKindOf(const PartEntry& part) {
    return part.object->record->billet;
}

template <class T>
int Order(const T& a, const T& b) {
    return a < b ? -1 : b < a ? 1 : 0;
}

/// 0 for objects that the host's comparator calls alike.
int CompareLikeness(const PartEntry& a, const PartEntry& b) {
    const GroupingRecord& record = a.object->grouping;
    const GroupingRecord& other = b.object->grouping;
    if (const int order = Order(record.hash, other.hash))
        return order;
    if (const int order = CompareRecords(record, other))
        return order;
    return HasIdentity(record) ? 0 : Order(a.key, b.key);
}

} // namespace

bool RowRules::IsSeparate(const PartEntry& object) const {
    if (!object.isInGroup)
        return AttributesOf(object).separate;
    const PartEntry* const speaker = m_index.Find(object.record->groupKey);
    return speaker && AttributesOf(*speaker).separate;
}

bool RowRules::IsDropped(const PartEntry& object) const {
    return object.hasHandler && !IsInProduct(object);
}

bool RowRules::HasRow(const PartEntry& use) const {
    if (!m_index.IsInTopParts(use, m_index.GetTopParts().GetCurrentKeys()))
        return false;
    switch (BilletKindOf(use)) {
    case BilletKind::Manual:
        return CountBilletRows(*use.owner) > 0;
    case BilletKind::Associative: {
        const PartEntry* const owner = m_index.Find(use.object->record->billetOwner);
        return IsInAnySpecification(use) && owner && CountBilletPlaces(*owner) > 0;
    }
    case BilletKind::None:
        break;
    }
    const PartAttributes& attributes = AttributesOf(use);
    const bool isHidden = IsSpecificationKind(use.kind) &&
                          (attributes.hiddenA || attributes.hiddenB || !IsInProduct(use));
    return use.isShown && !IsRowlessKind(use.kind) && !use.isPhantom && !isHidden &&
           !IsDropped(*use.owner);
}

std::size_t RowRules::CountRows(const PartEntry& object) const {
    if (BilletKindOf(object) != BilletKind::None)
        return CountBilletRows(object);
    std::size_t rows = HasPlainRow(object) ? 1 : 0;
    for (const PartEntry& use : m_index.GetUsesOf(object))
        rows += HasRow(use) ? 1 : 0;
    return rows;
}

/// Objects without uses that are alike have one row together, by the first that is in the current
/// specification.
bool RowRules::HasPlainRow(const PartEntry& object) const {
    if (!object.isUsedInCurrentStyle || IsSeparate(object) || !StandsByItself(object))
        return false;
    const std::vector<UniqueMetaObjectKey>& tops = m_index.GetTopParts().GetCurrentKeys();
    const PartEntry* first = nullptr;
    for (const PartEntry* const mate : GetRowMates(object)) {
        const auto isLaidOut = [&](const PartEntry& use) {
            return m_index.IsInTopParts(use, tops);
        };
        if (!IsDropped(*mate) && std::ranges::any_of(m_index.GetUsesOf(*mate), isLaidOut))
            return false;
        if (mate->isUsedInCurrentStyle && StandsByItself(*mate) && (!first || mate < first))
            first = mate;
    }
    return first == &object;
}

bool RowRules::StandsByItself(const PartEntry& object) const {
    return m_index.GetUsesOf(object).empty() && BilletKindOf(object) == BilletKind::None &&
           object.object->record->parents.empty() && IsSpecificationKind(object.kind) &&
           !IsDropped(object);
}

/// Billets stand behind the rows of their owner, and behind a group for all its members.
std::size_t RowRules::CountBilletPlaces(const PartEntry& owner) const {
    if (BilletKindOf(owner) != BilletKind::None || IsDropped(owner) || !IsCollected(owner))
        return 0;
    const std::size_t rows = CountRows(owner);
    if (IsSeparate(owner))
        return rows;
    std::size_t rowsOfMates = 0;
    for (const PartEntry* const mate : GetRowMates(owner))
        rowsOfMates += CountRows(*mate);
    return rowsOfMates >= 2 ? 1 : rows;
}

std::size_t RowRules::CountBilletRows(const PartEntry& billet) const {
    const PartEntry* const owner = m_index.Find(billet.object->record->billetOwner);
    const std::size_t places = owner ? CountBilletPlaces(*owner) : 0;
    if (places == 0)
        return 0;
    if (BilletKindOf(billet) == BilletKind::Manual)
        return IsDropped(billet) || !IsCollected(billet) ? 0 : places;
    std::size_t rows = 0;
    for (const PartEntry& use : m_index.GetUsesOf(billet))
        rows += HasRow(use) ? places : 0;
    return rows + (IsRowOfBillets(billet) ? places : 0);
}

bool RowRules::IsInAnySpecification(const PartEntry& part) const {
    const PartEntry* const speaker = part.isInGroup ? m_index.Find(part.record->groupKey) : &part;
    return speaker && speaker->isUsedInAnyStyle;
}

/// Associative billets of which no use has a row have one together: that of the first whose owner
/// is in the current specification, else in any, else of the first.
bool RowRules::IsRowOfBillets(const PartEntry& billet) const {
    const PartEntry* chosen = nullptr;
    int chosenRank = 0;
    for (const PartEntry* const mate : GetRowMates(billet)) {
        const PartEntry* const owner = m_index.Find(mate->object->record->billetOwner);
        if (!owner || CountBilletPlaces(*owner) == 0)
            continue;
        if (std::ranges::any_of(m_index.GetUsesOf(*mate),
                                [this](const PartEntry& use) { return HasRow(use); }))
            return false;
        const int rank = owner->isUsedInCurrentStyle ? 2 : owner->isUsedInAnyStyle ? 1 : 0;
        const bool isFirst =
            !chosen || rank > chosenRank || (rank == chosenRank && mate->key < chosen->key);
        if (isFirst) {
            chosen = mate;
            chosenRank = rank;
        }
    }
    return chosen == &billet && !IsDropped(billet) && IsCollected(billet) &&
           IsInAnySpecification(billet);
}

/// The sorter meets the object: it stands on the top level by itself, or is used in what is laid
/// out.
bool RowRules::IsCollected(const PartEntry& object) const {
    const std::vector<UniqueMetaObjectKey>& tops = m_index.GetTopParts().GetCurrentKeys();
    const auto isLaidOut = [&](const PartEntry& use) { return m_index.IsInTopParts(use, tops); };
    const auto uses = m_index.GetUsesOf(object);
    return std::ranges::any_of(uses, isLaidOut) ||
           (uses.empty() && object.object->record->parents.empty() &&
            IsSpecificationKind(object.kind));
}

const PartEntry& RowRules::GetRowOwner(const PartEntry& object) const {
    const PartEntry* const owner = BilletKindOf(object) == BilletKind::None
                                       ? nullptr
                                       : m_index.Find(object.object->record->billetOwner);
    return owner ? *owner : object;
}

bool RowRules::IsNumberedAt(const PartEntry& part) const {
    if (BilletKindOf(part) != BilletKind::None)
        return CountBilletPlaces(GetRowOwner(*part.owner)) == 1;
    if (!part.isUse || !IsSeparate(*part.owner))
        return true;
    for (const PartEntry& use : m_index.GetUsesOf(*part.owner)) {
        if (HasRow(use))
            return &use == &part;
    }
    return false;
}

bool RowRules::IsNumbered(const PartEntry& object) const {
    return IsSectionNumbered(GetRowOwner(object).object->record->section);
}

bool RowRules::IsInCurrentSpecification(const PartEntry& object) const {
    return std::ranges::any_of(GetRowMates(object), [&](const PartEntry* mate) {
        const auto uses = m_index.GetUsesOf(*mate);
        return (uses.empty() && mate->isUsedInCurrentStyle) ||
               std::ranges::any_of(uses, [&](const PartEntry& use) {
                   return use.isUsedInCurrentStyle && HasRow(use);
               });
    });
}

bool RowRules::IsSectionNumbered(const SPCSection& section) const {
    // A block of the whole document names its section behind the section's own numbers.
    const int number = section.numbers[0] != 0 ? section.numbers[0] : section.numbers[2];
    if (m_model.style) {
        for (const StyleSectionRecord& record : m_model.style->sections) {
            if (record.number == number && record.isNumbered)
                return *record.isNumbered;
        }
    }
    return number != c_documentation;
}

std::span<const PartEntry* const> RowRules::GetRowMates(const PartEntry& object) const {
    if (!m_areClassesMade)
        MakeClasses();
    const auto [begin, end] =
        m_classes[static_cast<std::size_t>(&object - m_index.GetObjects().data())];
    return std::span(m_byRow).subspan(begin, end - begin);
}

int RowRules::FindSectionRow(const PartEntry& object) const {
    if (!m_areSectionRows)
        return 0;
    const auto found = m_sections.find(object.object->grouping.section.numbers);
    return found == m_sections.end() ? -1 : found->second;
}

/// Billets stand behind the row of their owners, and the manual ones among them each by itself.
int RowRules::Compare(const PartEntry& a, const PartEntry& b) const {
    const auto isAlone = [this](const PartEntry& object) {
        return BilletKindOf(object) == BilletKind::None
                   ? IsSeparate(object)
                   : BilletKindOf(object) == BilletKind::Manual;
    };
    if (const int order = Order(isAlone(a), isAlone(b)))
        return order;
    if (isAlone(a))
        return Order(&a, &b);
    if (const int order = CompareLikeness(a, b))
        return order;
    if (const int order = Order(BilletKindOf(a), BilletKindOf(b)))
        return order;
    if (BilletKindOf(a) == BilletKind::None)
        return Order(FindSectionRow(a), FindSectionRow(b));
    const PartEntry* const owner = m_index.Find(a.object->record->billetOwner);
    const PartEntry* const other = m_index.Find(b.object->record->billetOwner);
    if (!owner || !other || owner == other)
        return Order(owner, other);
    const bool areOwnersAlone = isAlone(*owner) || isAlone(*other);
    if (areOwnersAlone || BilletKindOf(*owner) != BilletKind::None ||
        BilletKindOf(*other) != BilletKind::None)
        return Order(owner, other);
    if (const int order = CompareLikeness(*owner, *other))
        return order;
    return Order(FindSectionRow(*owner), FindSectionRow(*other));
}

void RowRules::MakeSections() const {
    m_sections.clear();
    m_areSectionRows =
        m_model.areSectionRowsShown && !(m_model.style && m_model.style->isAvailable &&
                                         m_model.style->isTuned && !m_model.style->sortBySections);
    if (!m_areSectionRows)
        return;
    int place = 0;
    const std::vector<StyleSection> sections = ListSections(m_model);
    for (const StyleSection& section : sections)
        m_sections.try_emplace(section.section.numbers, place++);
    // One section without a name holds everything.
    m_areSectionRows = !(sections.size() == 1 && sections.front().section.name.IsEmpty());
}

void RowRules::MakeClasses() const {
    MakeSections();
    const std::span<const PartEntry> objects = m_index.GetObjects();
    m_byRow.clear();
    m_byRow.reserve(objects.size());
    for (const PartEntry& object : objects)
        m_byRow.push_back(&object);
    std::sort(m_byRow.begin(), m_byRow.end(),
              [&](const PartEntry* a, const PartEntry* b) { return Compare(*a, *b) < 0; });

    m_classes.assign(objects.size(), {});
    for (std::size_t begin = 0; begin < m_byRow.size();) {
        std::size_t end = begin + 1;
        while (end < m_byRow.size() && Compare(*m_byRow[begin], *m_byRow[end]) == 0)
            ++end;
        for (std::size_t i = begin; i < end; ++i)
            m_classes[static_cast<std::size_t>(m_byRow[i] - objects.data())] = {
                static_cast<std::uint32_t>(begin), static_cast<std::uint32_t>(end)};
        begin = end;
    }
    m_areClassesMade = true;
}

} // namespace platform
