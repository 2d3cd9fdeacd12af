#include "platform/product/edits/ValuePlan.h"

#include "platform/product/model/PropertyLookup.h"
#include "platform/product/model/PropertyNumbers.h"

#include <algorithm>

namespace platform {

namespace {

bool ObjectRecord::*FlagOf(const ValueHolder& holder) {
    return holder.number == number::mass ? &ObjectRecord::sumsPartMasses
                                         : &ObjectRecord::isNameLinkedToSection;
}

} // namespace

template <class Place, class T>
void ValuePlan::Wishes<Place, T>::Set(const Place& place, std::optional<T> wish) {
    const auto [entry, isNew] = places.try_emplace(place, list.size());
    if (isNew)
        list.emplace_back(place, std::move(wish));
    else
        list[entry->second].second = std::move(wish);
}

template <class Place, class T>
const std::optional<T>* ValuePlan::Wishes<Place, T>::Find(const Place& place) const {
    if (list.empty())
        return nullptr;
    const auto found = places.find(place);
    return found == places.end() ? nullptr : &list[found->second].second;
}

ValueHolder ValuePlan::FindHolder(const PartEntry& part, unsigned long number) const {
    const ValueHolder own{&part, number};
    if (!part.isUse || BelongsToObject(number))
        return {part.owner, number};
    const std::optional<PropValue>* const value = m_values.Find(own);
    const std::optional<LinkRecord>* const link = m_links.Find(own);
    if (!value && !link)
        return m_shown.FindHolder(part, number);
    const bool isLinked = link ? link->has_value() : m_shown.FindLink(own) != nullptr;
    const bool hasValue = value ? value->has_value() : m_shown.GetHeld(own).has_value();
    return {isLinked || hasValue ? &part : part.owner, number};
}

std::optional<PropValue> ValuePlan::GetHeld(const ValueHolder& holder) const {
    const std::optional<PropValue>* const value = m_values.Find(holder);
    return value ? *value : m_shown.GetHeld(holder);
}

bool ValuePlan::IsLinked(const ValueHolder& holder) const {
    const std::optional<LinkRecord>* const link = m_links.Find(holder);
    return link ? link->has_value() : m_shown.FindLink(holder) != nullptr;
}

void ValuePlan::SetValue(const ValueHolder& holder, PropValue value) {
    const bool isNone = value.IsEmpty() && !holder.part->isUse;
    m_values.Set(holder, isNone ? std::nullopt : std::optional(std::move(value)));
}

void ValuePlan::TakeBySource(const ValueHolder& use) {
    m_values.Set(use, std::nullopt);
    if (IsLinked(use))
        m_links.Set(use, std::nullopt);
}

void ValuePlan::SetLink(const ValueHolder& holder, std::optional<LinkRecord> link) {
    m_links.Set(holder, std::move(link));
}

void ValuePlan::SetNameLink(const PartEntry& object, bool isLinked) {
    m_flags.Set({&object, number::section}, isLinked);
}

void ValuePlan::SetMassSum(const PartEntry& object, bool isSum) {
    m_flags.Set({&object, number::mass}, isSum);
}

void ValuePlan::SetCount(const PartEntry& part, const UniqueMetaObjectKey& embodiment,
                         std::optional<SharedText> count) {
    m_counts.Set({&part, embodiment}, std::move(count));
}

bool ValuePlan::IsNew(const ValueHolder& holder, const std::optional<PropValue>& value) const {
    const PropValue* const held = m_shown.FindHeld(holder);
    return held ? !value || !(*held == *value) : value.has_value();
}

bool ValuePlan::IsNew(const ValueHolder& holder, const std::optional<LinkRecord>& link) const {
    const LinkRecord* const present = m_shown.FindLink(holder);
    return present ? !link || !(*present == *link) : link.has_value();
}

bool ValuePlan::IsNew(const ValueHolder& holder, std::optional<bool> isSet) {
    return isSet != holder.part->object->record->*FlagOf(holder);
}

bool ValuePlan::IsNew(const CountHolder& holder, const std::optional<SharedText>& count) const {
    const std::vector<CountRecord>& counts = holder.part->record->counts;
    const auto present = std::ranges::find(counts, holder.embodiment, &CountRecord::embodiment);
    return present == counts.end() ? count.has_value() : !count || !(present->count == *count);
}

void ValuePlan::SetAttribute(const PartEntry& part, AttributeValue value) {
    m_attributes.Set({&part, value.index()}, std::move(value));
}

bool ValuePlan::IsNew(const ValueHolder& holder, const std::optional<AttributeValue>& value) {
    if (const auto* const used = std::get_if<meta_data::SPUsed>(&*value))
        return !(*used == holder.part->record->part.used);
    return std::get<std::optional<bool>>(*value) != holder.part->object->record->aggrIntoProduct;
}

const std::vector<DocumentRecord>& ValuePlan::GetDocuments(const PartEntry& part) const {
    const std::optional<std::vector<DocumentRecord>>* const planned =
        m_documents.Find({part.owner, 0});
    return planned ? planned->value() : part.object->record->documents;
}

void ValuePlan::SetDocuments(const PartEntry& part, std::vector<DocumentRecord> documents) {
    m_documents.Set({part.owner, 0}, std::move(documents));
}

bool ValuePlan::IsNew(const ValueHolder& holder,
                      const std::optional<std::vector<DocumentRecord>>& documents) {
    return !(*documents == holder.part->object->record->documents);
}

bool ValuePlan::IsEmpty() const {
    const auto isNew = [this](const auto& wish) { return IsNew(wish.first, wish.second); };
    return std::ranges::none_of(m_values.list, isNew) &&
           std::ranges::none_of(m_links.list, isNew) && std::ranges::none_of(m_flags.list, isNew) &&
           std::ranges::none_of(m_counts.list, isNew) &&
           std::ranges::none_of(m_attributes.list, isNew) &&
           std::ranges::none_of(m_documents.list, isNew);
}

std::vector<std::unique_ptr<IModelEdit>> ValuePlan::MakeEdits() const {
    std::vector<HeldValue> values;
    for (const auto& [holder, value] : m_values.list) {
        if (IsNew(holder, value))
            values.push_back({holder.part->key, holder.number, value, PartPlace::none});
    }
    std::vector<HeldLink> links;
    for (const auto& [holder, link] : m_links.list) {
        if (IsNew(holder, link))
            links.push_back({holder.part->key, holder.number, link, PartPlace::none});
    }
    std::vector<HeldFlag> flags;
    for (const auto& [holder, isSet] : m_flags.list) {
        if (IsNew(holder, isSet))
            flags.push_back({holder.part->key, FlagOf(holder), *isSet});
    }
    std::vector<HeldCount> counts;
    for (const auto& [holder, count] : m_counts.list) {
        if (!IsNew(holder, count))
            continue;
        HeldCount& held = counts.emplace_back(HeldCount{holder.part->key, holder.embodiment, {}});
        if (count)
            held.count = CountRecord{holder.embodiment, *count};
    }
    std::vector<HeldAttribute> attributes;
    for (const auto& [holder, value] : m_attributes.list) {
        if (IsNew(holder, value))
            attributes.push_back({holder.part->key, *value});
    }
    std::vector<HeldDocuments> documents;
    for (const auto& [holder, list] : m_documents.list) {
        if (IsNew(holder, list))
            documents.push_back({holder.part->key, *list});
    }
    std::vector<std::unique_ptr<IModelEdit>> edits;
    if (!attributes.empty())
        edits.push_back(std::make_unique<AttributesEdit>(std::move(attributes)));
    if (!flags.empty())
        edits.push_back(std::make_unique<FlagsEdit>(std::move(flags)));
    if (!values.empty())
        edits.push_back(std::make_unique<ValuesEdit>(std::move(values)));
    if (!links.empty())
        edits.push_back(std::make_unique<LinksEdit>(std::move(links)));
    if (!counts.empty())
        edits.push_back(std::make_unique<CountsEdit>(std::move(counts)));
    if (!documents.empty())
        edits.push_back(std::make_unique<DocumentsEdit>(std::move(documents)));
    return edits;
}

} // namespace platform
