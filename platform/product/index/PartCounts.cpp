#include "platform/product/index/PartCounts.h"

#include "host/NumberTexts.h"
#include "platform/product/model/PropertyNumbers.h"
#include "platform/product/model/ValueFitting.h"

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

constexpr std::size_t c_smallNumbers = 1000;

/// The numbers that groups mostly count are one text each: a refresh makes no new ones.
const SharedText& GetSmallNumber(std::size_t number) {
    static std::array<SharedText, c_smallNumbers> texts;
    if (texts[number].IsEmpty())
        texts[number] = std::to_wstring(number);
    return texts[number];
}

SharedText ToText(double number) {
    const bool isSmall = number >= 0 && number < static_cast<double>(c_smallNumbers);
    const auto whole = isSmall ? static_cast<std::size_t>(number) : 0;
    return isSmall && static_cast<double>(whole) == number
               ? GetSmallNumber(whole)
               : orvex::sys::ToString(number, true, c_digits);
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

bool IsCountedOut(const PartEntry& part) {
    return part.hasAggrIntoProduct && !part.isAggrIntoProduct;
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

PropValue PartCounts::WorkOutShown(const PartEntry& part,
                                   const UniqueMetaObjectKey& embodiment) const {
    const std::vector<UniqueMetaObjectKey>& current = m_index.GetTopParts().GetCurrentKeys();
    const Keys embodiments(current.begin(), current.end());
    const bool isOfAll = !m_model.embodimentMode && IsGroup(part) && !embodiments.empty() &&
                         *embodiments.begin() == embodiment;
    return isOfAll ? SumOfGroup(part, embodiments) : WorkOut(part, embodiment);
}

PropValue PartCounts::SumOfGroup(const PartEntry& part, const Keys& embodiments) const {
    return Sum(part,
               [&](const PartEntry& use) { return Get(use, FindEmbodiment(use, embodiments)); });
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
    return SumOfGroup(part, embodiments);
}

bool PartCounts::IsGroup(const PartEntry& part) const {
    if (part.isUse || part.isRoot)
        return false;
    for (const PartEntry* const object : m_rows.GetRowMates(part)) {
        for (const PartEntry& use : m_index.GetUsesOf(*object)) {
            if (m_rows.HasRow(use))
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

PropValue PartCounts::Sum(const PartEntry& object, const CountOf& count) const {
    double sum = 0;
    bool hasAny = false;
    for (const PartEntry* const like : m_rows.GetRowMates(object)) {
        for (const PartEntry& use : m_index.GetUsesOf(*like)) {
            if (IsCountedOut(use) || !m_rows.HasRow(use))
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

} // namespace platform
