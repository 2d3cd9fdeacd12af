#include "host/ProductProperties.h"
#include "platform/product/answers/LinkTargets.h"
#include "platform/product/answers/MemoryProductState.h"
#include "platform/services/UserDecisions.h"

#include <algorithm>

namespace platform {

namespace {

/// Where the property stands; no value for a part that is gone.
std::optional<ValueHolder> FindHolder(const EditRules& rules, const UniqueMetaObjectKey& key,
                                      unsigned long number) {
    const PartEntry* const part = rules.index.Find(key);
    return part ? std::optional(ShownValues(rules.index).FindHolder(*part, number)) : std::nullopt;
}

const LinkRecord* FindLink(const ProductIndex& index, const PartEntry& part, unsigned long number) {
    const ShownValues shown(index);
    return shown.FindLink(shown.FindHolder(part, number));
}

/// Where the properties stand for which `isRight` holds, each once: uses share what they have by
/// source.
template <class IsRight>
std::vector<ValueHolder> FindHolders(const EditRules& rules, const std::vector<PropertyRef>& refs,
                                     const IsRight& isRight) {
    std::vector<ValueHolder> holders;
    for (const PropertyRef& ref : refs) {
        const unsigned long number = ProductProperties::GetPropId(ref.propertyId);
        const std::optional<ValueHolder> holder = FindHolder(rules, ref.objectKey, number);
        if (holder && isRight(ref))
            holders.push_back(*holder);
    }
    const auto order = [](const ValueHolder& holder) {
        return std::pair(holder.part, holder.number);
    };
    std::ranges::sort(holders, {}, order);
    holders.erase(std::unique(holders.begin(), holders.end()), holders.end());
    return holders;
}

void ForgetTypedCounts(const PartEntry& part, ValuePlan& plan) {
    for (const CountRecord& typed : part.record->counts)
        plan.SetCount(part, typed.embodiment, std::nullopt);
}

} // namespace

bool MemoryProduct::IsHypertext(const PropertyRef& ref) const {
    const PartEntry* const part = m_state->index.Find(ref.objectKey);
    return part && part->hasLinks &&
           FindLink(m_state->index, *part, m_state->GetTraits(ref).number) != nullptr;
}

bool MemoryProduct::AreHypertext(const std::vector<UniqueMetaObjectKey>& keys,
                                 const std::wstring& columnId) const {
    const unsigned long number = ProductProperties::GetPropId(columnId);
    const LinkRecord* common = nullptr;
    for (const UniqueMetaObjectKey& key : keys) {
        const PartEntry* const part = m_state->index.Find(key);
        const LinkRecord* const link = part ? FindLink(m_state->index, *part, number) : nullptr;
        if (!link || (common && !(*link == *common)))
            return false;
        common = link;
    }
    return common != nullptr;
}

bool MemoryProduct::IsHypertextActive(const PropertyRef& ref) const {
    const PartEntry* const part = m_state->index.Find(ref.objectKey);
    const unsigned long number = m_state->GetTraits(ref).number;
    if (!part || !FindLink(m_state->index, *part, number))
        return false;
    const ShownValues shown(m_state->index);
    return shown.Follow(shown.FindHolder(*part, number)) && !shown.Get(*part, number).IsEmpty();
}

bool MemoryProduct::CanInsertHypertext(const PropertyRef& ref, unsigned /*type*/) const {
    // The property's own type says more than that of a column, which a name has none of.
    return CanBeLinked(m_state->GetTraits(ref)) && !IsReadOnly(ref) && !IsHypertext(ref);
}

bool MemoryProduct::CanEditHypertext(const PropertyRef& ref) const {
    return !IsReadOnly(ref) && IsHypertext(ref);
}

bool MemoryProduct::CanDestroyHypertext(const PropertyRef& ref) const {
    return CanEditHypertext(ref);
}

bool MemoryProduct::InsertHypertext(const std::vector<PropertyRef>& refs) {
    return ChooseLinks(refs, true);
}

bool MemoryProduct::EditHypertext(const std::vector<PropertyRef>& refs) {
    return ChooseLinks(refs, false);
}

// Parts are looked up again after the question: another panel may have been drawn meanwhile, at
// another level.
bool MemoryProduct::ChooseLinks(const std::vector<PropertyRef>& refs, bool areNew) {
    IUserDecisions* const decisions = m_state->look->decisions;
    if (!decisions)
        return false;
    const auto findHolders = [&] {
        return FindHolders(m_state->GetRules(), refs, [&](const PropertyRef& ref) {
            return areNew ? CanInsertHypertext(ref, 0) : CanEditHypertext(ref);
        });
    };
    const std::optional<PropertyChoice> choice = decisions->ChooseProperty(
        LinkTargets(m_state->GetRules(), *m_state->descriptions).MakeRequest(findHolders()));
    if (!choice)
        return false;
    const LinkTargets targets(m_state->GetRules(), *m_state->descriptions);
    const LinkTargets::Plan plan = targets.MakePlan(findHolders(), *choice);
    const bool isDone = m_state->Do(
        {GetText(areNew ? ProductText::Link : ProductText::LinkEdit), plan.links.MakeEdits()});
    if (plan.isAnyRefused)
        decisions->Tell(GetText(ProductText::LinkTitle), GetText(ProductText::LinkRefused));
    return isDone;
}

void MemoryProduct::DestroyHypertext(const std::vector<PropertyRef>& refs) {
    const std::vector<ValueHolder> holders =
        FindHolders(m_state->GetRules(), refs,
                    [this](const PropertyRef& ref) { return CanDestroyHypertext(ref); });
    ValuePlan plan(m_state->index);
    for (const ValueHolder& holder : holders) {
        plan.SetValue(holder, plan.GetShown().Get(*holder.part, holder.number));
        plan.SetLink(holder, std::nullopt);
        // What was typed before the link came stays forgotten.
        if (holder.number == number::count) {
            ForgetTypedCounts(*holder.part, plan);
            for (const PartEntry& use : m_state->index.GetUsesOf(*holder.part))
                ForgetTypedCounts(use, plan);
        }
    }
    m_state->Do({GetText(ProductText::LinkRemoval), plan.MakeEdits()});
}

// A name is a text or a link, and not composed of references.

bool MemoryProduct::CanInsertExtendedReference(const UniqueMetaObjectKey& /*key*/) const {
    return false;
}

bool MemoryProduct::IsExtendedReference(const UniqueMetaObjectKey& /*key*/) const {
    return false;
}

bool MemoryProduct::InsertExtendedReference(const std::vector<UniqueMetaObjectKey>& /*keys*/) {
    return false;
}

} // namespace platform
