#include "platform/product/edits/ProductChanges.h"

#include "host/ProductProperties.h"
#include "platform/product/edits/Positions.h"
#include "platform/product/model/AssemblyLevels.h"
#include "platform/product/model/PropertyNumbers.h"
#include "platform/product/model/StyleSections.h"
#include "platform/product/model/ValueFitting.h"

#include <algorithm>

namespace platform {

namespace {

std::optional<PropValue> Fit(const EditRules& rules, const PartEntry& part, unsigned long number,
                             const PropValue& value) {
    if (number == ProductProperties::markingId)
        return FitMarking(*part.object->record, value);
    if (number == number::section)
        return FitSection(rules.model, value);
    return FitValue(*rules.properties.Get(number).record, value);
}

void Put(ValuePlan& plan, const ValueHolder& holder, const PropValue& value) {
    if (!IsPresentValue(plan.GetHeld(holder).value_or(PropValue()), value))
        plan.SetValue(holder, value);
}

} // namespace

bool EditRules::CanChange(const PartEntry& part, unsigned long number) const {
    const ShownValues shown(index);
    const bool isLinked = shown.FindLink(shown.FindHolder(part, number)) != nullptr;
    return !isLinked && !IsFixed(part, number);
}

bool EditRules::IsFixedAt(const PartEntry& part, unsigned long number) {
    const ObjectRecord& object = *part.object->record;
    if (part.hasReadOnlyProperties && object.readOnlyProperties.contains(number))
        return true;
    if (!part.isRoot)
        return false;
    // What is worked out is not typed, and the product itself stands in no specification.
    return (number == number::mass && object.sumsPartMasses) || number == number::section ||
           number == number::position;
}

const PartEntry* ProductChange::FindPart(const EditRules& rules) const {
    const PartEntry* const part = rules.index.Find(m_part);
    return part && !rules.IsFixed(*part, m_number) ? part : nullptr;
}

const PartEntry* ProductChange::FindAnyPart(const EditRules& rules) const {
    const PartEntry* const part = rules.model.isReadOnly ? nullptr : rules.index.Find(m_part);
    return part && !part->isRoot ? part : nullptr;
}

const PartEntry* ProductChange::FindObject(const EditRules& rules) const {
    const PartEntry* const part = rules.model.isReadOnly ? nullptr : rules.index.Find(m_part);
    return part ? part->owner : nullptr;
}

bool AggregationChange::Plan(const EditRules& rules, ValuePlan& plan) const {
    const PartEntry* const part = FindAnyPart(rules);
    if (part)
        plan.SetAttribute(*part->owner, std::optional(m_counts));
    return part != nullptr;
}

SharedText AggregationChange::MakeCaption() const {
    return GetText(ProductText::Aggregation);
}

bool RegistrationChange::Plan(const EditRules& rules, ValuePlan& plan) const {
    const PartEntry* const part = FindAnyPart(rules);
    if (!part)
        return false;
    const auto set = [&](const PartEntry& one) {
        std::vector<meta_data::SP::StyleId> styles = one.record->part.used.GetStyles();
        std::erase(styles, rules.model.styleId);
        if (m_isRegistered)
            styles.push_back(rules.model.styleId);
        plan.SetAttribute(one, meta_data::SPUsed(std::move(styles)));
    };
    if (!m_isGroup) {
        set(*part);
        return true;
    }
    for (const PartEntry* const mate : rules.rows.GetRowMates(*part->owner)) {
        set(*mate);
        for (const PartEntry& use : rules.index.GetUsesOf(*mate))
            set(use);
    }
    return true;
}

SharedText RegistrationChange::MakeCaption() const {
    return GetText(ProductText::Registration);
}

bool ValueChange::Plan(const EditRules& rules, ValuePlan& plan) const {
    const PartEntry* const part = FindPart(rules);
    if (!part)
        return false;
    const ValueHolder holder = plan.FindHolder(*part, GetNumber());
    if (plan.IsLinked(holder)) {
        plan.Refuse(ProductText::RefusedLinked);
        return false;
    }
    std::optional<PropValue> fitted = Fit(rules, *part, GetNumber(), m_value);
    if (!fitted)
        return false;
    // A typed mass of an assembly stands in place of the sum, until it is taken away.
    if (GetNumber() == number::mass && OpensLevel(rules.model, holder.part->key)) {
        if (fitted->IsEmpty() && holder.part->object->record->sumsPartMasses) {
            plan.Refuse(ProductText::RefusedSum);
            return false;
        }
        plan.SetMassSum(*holder.part, fitted->IsEmpty());
    }
    // A moment stays one, and is never made a text by what is typed.
    const PropValue held = plan.GetHeld(holder).value_or(PropValue());
    if (held.GetSimpleValue().GetType() == SimplePropVal::TypeDateTime && !fitted->IsEmpty() &&
        !IsPresentValue(held, *fitted)) {
        fitted = FitMoment(*fitted);
        if (!fitted) {
            plan.Refuse(ProductText::RefusedMoment);
            return false;
        }
    }
    Put(plan, holder, *fitted);
    if (GetNumber() == number::position)
        SpreadPosition(rules, *holder.part, *fitted, plan);
    return true;
}

bool NameLinkChange::Plan(const EditRules& rules, ValuePlan& plan) const {
    const PartEntry* const part = FindPart(rules);
    if (part)
        plan.SetNameLink(*part->owner, m_isLinked);
    return part != nullptr;
}

bool BySourceChange::Plan(const EditRules& rules, ValuePlan& plan) const {
    const PartEntry* const part = FindPart(rules);
    if (!part || !part->isUse || BelongsToObject(GetNumber()))
        return false;
    const ValueHolder own{part, GetNumber()};
    const bool isOwn = plan.FindHolder(*part, GetNumber()) == own;
    if (isOwn != m_bySource)
        return true;
    if (!m_bySource) {
        const ValueHolder source{part->owner, GetNumber()};
        plan.SetValue(own, plan.IsLinked(source) ? plan.GetShown().Get(*part->owner, GetNumber())
                                                 : plan.GetHeld(source).value_or(PropValue()));
        return true;
    }
    // The object's value may be linked to this very one.
    if (plan.GetShown().LeadsTo({part->owner, GetNumber()}, own))
        return false;
    plan.TakeBySource(own);
    return true;
}

bool CountChange::Plan(const EditRules& rules, ValuePlan& plan) const {
    const PartEntry* const part = FindPart(rules);
    if (!part || part->isRoot || !rules.counts.IsCounted(m_embodiment))
        return false;
    if (rules.counts.IsLinked(*part)) {
        plan.Refuse(ProductText::RefusedLinked);
        return false;
    }
    std::optional<SharedText> count;
    if (m_value) {
        const std::optional<PropValue> fitted =
            FitValue(*rules.properties.Get(GetNumber()).record, *m_value);
        if (!fitted || !(part->isCountMark || IsCount(fitted->to_wstring()))) {
            plan.Refuse(ProductText::RefusedCount);
            return false;
        }
        // A mark that is taken away is not there; any other count that is emptied is worked out.
        if (part->isCountMark || !fitted->IsEmpty())
            count = fitted->to_wstring();
        else if (!rules.counts.FindTyped(*part, m_embodiment))
            plan.Refuse(ProductText::RefusedNoTypedCount);
        // What would be so anyhow is not kept, and follows the product from then on.
        if (count && *count == rules.counts.WorkOutShown(*part, m_embodiment).to_wstring())
            count.reset();
    }
    plan.SetCount(*part, m_embodiment, std::move(count));
    return true;
}

SharedText NameEmbodiment(const ProductModel& model, const UniqueMetaObjectKey& embodiment) {
    const auto found = std::ranges::find(model.embodiments, embodiment, &EmbodimentRecord::key);
    return found == model.embodiments.end()
               ? SharedText()
               : found->marking.Make(VariantMarkingData::MakeAll, false, false);
}

SharedText CountChange::MakeNote(const EditRules& rules) const {
    const SharedText name = NameEmbodiment(rules.model, m_embodiment);
    return name.IsEmpty() ? SharedText() : GetText(ProductText::CountedIn, {name});
}

} // namespace platform
