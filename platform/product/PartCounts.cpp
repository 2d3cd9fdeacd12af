#include "platform/product/PartCounts.h"

#include "host/NumberTexts.h"
#include "platform/product/PropertyNumbers.h"
#include "platform/product/ValueFitting.h"

#include <algorithm>
#include <array>
#include <string>

namespace platform {

namespace {

constexpr int c_digits = 6;

const SharedText& GetOne() {
    static const SharedText one = L"1";
    return one;
}

const SharedText& GetMark() {
    static const SharedText mark = L"x";
    return mark;
}

/// The numbers that groups mostly count are one text each: a refresh makes no new ones.
SharedText ToText(double number) {
    static std::array<SharedText, 1000> s_texts;
    const bool isSmall = number >= 0 && number < static_cast<double>(s_texts.size());
    const auto place = isSmall ? static_cast<std::size_t>(number) : 0;
    if (!isSmall || static_cast<double>(place) != number)
        return orvex::sys::ToString(number, true, c_digits);
    if (s_texts[place].IsEmpty())
        s_texts[place] = std::to_wstring(place);
    return s_texts[place];
}

/// A count is typed with a point or with a comma.
std::optional<double> ToNumber(const SharedText& text) {
    if (text.IsSame(GetOne()))
        return 1;
    if (text.Str().find(L',') == std::wstring::npos)
        return FindNumber(SimplePropVal(text));
    std::wstring withPoint = text.Str();
    std::ranges::replace(withPoint, L',', L'.');
    return FindNumber(SimplePropVal(SharedText(std::move(withPoint))));
}

const PartAttributes& AttributesOf(const PartEntry& part) {
    return part.hasHandler ? part.part->attributes : PartHandler::c_defaultAttrs;
}

bool IsInProduct(const PartEntry& part) {
    return part.hasCalculator ? part.isCalculatedInProduct : AttributesOf(part).inProduct;
}

bool IsCountedOut(const PartEntry& part) {
    return part.hasAggrIntoProduct && !part.isAggrIntoProduct;
}

BilletKind BilletKindOf(const PartEntry& object) {
    return object.object->record->billet;
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

bool PartCounts::IsCounted(const UniqueMetaObjectKey& embodiment) const {
    return m_index.GetTopParts().IsTopPart(embodiment);
}

const CountRecord* PartCounts::FindTyped(const PartEntry& part,
                                         const UniqueMetaObjectKey& embodiment) const {
    if (!part.hasCounts || IsLinked(part))
        return nullptr;
    const std::vector<CountRecord>& counts = part.record->counts;
    const auto found = std::ranges::find(counts, embodiment, &CountRecord::embodiment);
    return found == counts.end() ? nullptr : &*found;
}

bool PartCounts::IsLinked(const PartEntry& part) const {
    if (!part.hasLinks || IsGroup(part))
        return false;
    const ShownValues shown(m_index);
    return shown.FindLink(shown.FindHolder(part, number::count)) != nullptr;
}

PropValue PartCounts::Get(const PartEntry& part, const UniqueMetaObjectKey& embodiment) const {
    const CountRecord* const typed = FindTyped(part, embodiment);
    if (!typed)
        return WorkOut(part, embodiment);
    return typed->count.IsEmpty() ? PropValue() : PropValue(SimplePropVal(typed->count));
}

PropValue PartCounts::WorkOut(const PartEntry& part, const UniqueMetaObjectKey& embodiment) const {
    if (IsGroup(part))
        return Sum(part, [&](const PartEntry& use) { return Get(use, embodiment); });
    if (part.isRoot || part.isExcludedFromCount || !IsIn(part, embodiment))
        return {};
    if (const PropValue* const own = ShownValues(m_index).Find(part, number::count))
        return *own;
    if (part.isCountMark)
        return PropValue(SimplePropVal(GetMark()));
    return part.isUse ? PropValue(SimplePropVal(GetOne())) : PropValue();
}

UniqueMetaObjectKey PartCounts::FindEmbodiment(const PartEntry& part,
                                               const Keys& embodiments) const {
    if (embodiments.size() < 2)
        return embodiments.empty() ? UniqueMetaObjectKey() : *embodiments.begin();
    const UniqueMetaObjectKey& active = m_model.activeEmbodiment;
    const bool isActiveAsked = embodiments.contains(active);
    if (isActiveAsked && IsIn(part, active))
        return active;
    for (const EmbodimentRecord& embodiment : m_model.embodiments) {
        if (embodiments.contains(embodiment.key) && IsIn(part, embodiment.key))
            return embodiment.key;
    }
    return isActiveAsked ? active : *embodiments.begin();
}

PropValue PartCounts::GetOfGroup(const PartEntry& part, const Keys& embodiments) const {
    if (embodiments.empty())
        return {};
    if (!IsGroup(part))
        return Get(part, FindEmbodiment(part, embodiments));
    if (FindTyped(part, *embodiments.begin()))
        return Get(part, *embodiments.begin());
    return Sum(part,
               [&](const PartEntry& use) { return Get(use, FindEmbodiment(use, embodiments)); });
}

bool PartCounts::IsGroup(const PartEntry& part) const {
    if (part.isUse || part.isRoot)
        return false;
    for (const PartEntry* const object : GetLikeObjects(part)) {
        for (const PartEntry& use : m_index.GetUsesOf(*object)) {
            if (HasRow(use))
                return true;
        }
    }
    return false;
}

bool PartCounts::IsIn(const PartEntry& part, const UniqueMetaObjectKey& embodiment) const {
    if (!IsCounted(embodiment))
        return false;
    if (part.isUse) {
        const auto& use = static_cast<const OccurrenceRecord&>(*part.record);
        return part.isEverywhere ||
               std::ranges::find(use.embodiments, embodiment) != use.embodiments.end();
    }
    const std::span<const PartEntry> uses = m_index.GetUsesOf(part);
    return uses.empty() ||
           std::ranges::any_of(uses, [&](const PartEntry& use) { return IsIn(use, embodiment); });
}

/// As the panel's sorter has it. Who has no row is seen in no sum.
bool PartCounts::HasRow(const PartEntry& use) const {
    if (!m_index.IsInTopParts(use, m_index.GetTopParts().GetCurrentKeys()))
        return false;
    if (BilletKindOf(use) != BilletKind::None)
        return use.isUsedInAnyStyle;
    const PartAttributes& attributes = AttributesOf(use);
    const bool isHidden = IsSpecificationKind(use.kind) &&
                          (attributes.hiddenA || attributes.hiddenB || !IsInProduct(use));
    const bool isObjectGone = use.owner->hasHandler && !IsInProduct(*use.owner);
    return use.isShown && !IsRowlessKind(use.kind) && !use.isPhantom && !isHidden && !isObjectGone;
}

PropValue PartCounts::Sum(const PartEntry& object, const CountOf& count) const {
    double sum = 0;
    bool hasAny = false;
    for (const PartEntry* const like : GetLikeObjects(object)) {
        for (const PartEntry& use : m_index.GetUsesOf(*like)) {
            if (IsCountedOut(use) || !HasRow(use))
                continue;
            const PropValue value = count(use);
            if (value.IsEmpty())
                continue;
            const std::optional<double> number = ToNumber(value.to_wstring());
            if (!number)
                return {};
            sum += *number;
            hasAny = true;
        }
    }
    return hasAny ? PropValue(SimplePropVal(ToText(sum))) : PropValue();
}

std::span<const PartEntry* const> PartCounts::GetLikeObjects(const PartEntry& object) const {
    if (!m_areClassesMade)
        MakeClasses();
    const auto [begin, end] =
        m_classes[static_cast<std::size_t>(&object - m_index.GetObjects().data())];
    return std::span(m_byLikeness).subspan(begin, end - begin);
}

/// Billets are alike where their owners are, too. Objects that are never in a group with another,
/// and manual billets among them, are like themselves alone.
void PartCounts::MakeClasses() const {
    const auto isSeparate = [this](const PartEntry& object) {
        const PartEntry* const speaker =
            object.isInGroup ? m_index.Find(object.record->groupKey) : &object;
        return (speaker && AttributesOf(*speaker).separate) ||
               BilletKindOf(object) == BilletKind::Manual;
    };
    const auto compare = [&](const PartEntry* a, const PartEntry* b) {
        if (const int order = Order(isSeparate(*a), isSeparate(*b)))
            return order;
        if (isSeparate(*a))
            return Order(a, b);
        if (const int order = CompareLikeness(*a, *b))
            return order;
        if (const int order = Order(BilletKindOf(*a), BilletKindOf(*b)))
            return order;
        if (BilletKindOf(*a) == BilletKind::None)
            return 0;
        const PartEntry* const owner = m_index.Find(a->object->record->billetOwner);
        const PartEntry* const other = m_index.Find(b->object->record->billetOwner);
        return owner && other ? CompareLikeness(*owner, *other) : Order(owner, other);
    };

    const std::span<const PartEntry> objects = m_index.GetObjects();
    m_byLikeness.clear();
    m_byLikeness.reserve(objects.size());
    for (const PartEntry& object : objects)
        m_byLikeness.push_back(&object);
    std::sort(m_byLikeness.begin(), m_byLikeness.end(),
              [&](const PartEntry* a, const PartEntry* b) { return compare(a, b) < 0; });

    m_classes.assign(objects.size(), {});
    for (std::size_t begin = 0; begin < m_byLikeness.size();) {
        std::size_t end = begin + 1;
        while (end < m_byLikeness.size() && compare(m_byLikeness[begin], m_byLikeness[end]) == 0)
            ++end;
        for (std::size_t i = begin; i < end; ++i)
            m_classes[static_cast<std::size_t>(m_byLikeness[i] - objects.data())] = {
                static_cast<std::uint32_t>(begin), static_cast<std::uint32_t>(end)};
        begin = end;
    }
    m_areClassesMade = true;
}

} // namespace platform
