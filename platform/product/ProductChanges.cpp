#include "platform/product/ProductChanges.h"

#include "host/ProductProperties.h"
#include "platform/product/PropertyNumbers.h"
#include "platform/product/ValueFitting.h"

namespace platform {

namespace {

std::optional<PropValue> Fit(const EditRules& rules, const PartEntry& part, unsigned long number,
                             const PropValue& value) {
    if (number == ProductProperties::markingId)
        return FitMarking(*part.object->record, value);
    if (number == number::section)
        return std::nullopt; // a section is chosen, and more than a text
    return FitValue(*rules.properties.Get(number).record, value);
}

} // namespace

bool EditRules::IsFixedAt(const PartEntry& part, unsigned long number) {
    const ObjectRecord& object = *part.object->record;
    if (part.hasReadOnlyProperties && object.readOnlyProperties.contains(number))
        return true;
    // What is worked out is not typed.
    return part.isRoot && number == number::mass && object.sumsPartMasses;
}

const PartEntry* ProductChange::FindPart(const EditRules& rules) const {
    const PartEntry* const part = rules.index.Find(m_part);
    return part && !rules.IsFixed(*part, m_number) ? part : nullptr;
}

bool ValueChange::Plan(const EditRules& rules, ValuePlan& plan) const {
    const PartEntry* const part = FindPart(rules);
    if (!part)
        return false;
    const Slot holder = plan.FindHolder(*part, GetNumber());
    if (plan.IsLinked(holder))
        return false;
    std::optional<PropValue> fitted = Fit(rules, *part, GetNumber(), m_value);
    if (!fitted)
        return false;
    if (!IsPresentValue(plan.GetHeld(holder).value_or(PropValue()), *fitted))
        plan.SetValue(holder, std::move(*fitted));
    return true;
}

bool BySourceChange::Plan(const EditRules& rules, ValuePlan& plan) const {
    const PartEntry* const part = FindPart(rules);
    if (!part || !part->isUse || BelongsToObject(GetNumber()))
        return false;
    const Slot own{part, GetNumber()};
    const bool isOwn = plan.FindHolder(*part, GetNumber()) == own;
    if (isOwn != m_bySource)
        return true;
    if (!m_bySource) {
        const Slot source{part->owner, GetNumber()};
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

} // namespace platform
