#include "platform/product/edits/Positions.h"

#include "platform/product/model/PropertyNumbers.h"
#include "platform/product/model/ValueFitting.h"

#include <algorithm>

namespace platform {

namespace {

bool IsFree(const EditRules& rules, const PartEntry& object) {
    return !KeepsPosition(object) && !rules.IsFixed(object, number::position) &&
           !ShownValues(rules.index).FindLink({&object, number::position});
}

bool DoesRowTakeNumber(const EditRules& rules, const PartEntry& object) {
    return rules.rows.IsNumbered(object) && rules.rows.IsInCurrentSpecification(object) &&
           std::ranges::any_of(rules.rows.GetRowMates(object), [&](const PartEntry* mate) {
               return IsFree(rules, *mate) && rules.rows.CountRows(*mate) > 0;
           });
}

} // namespace

bool KeepsPosition(const PartEntry& part) {
    return part.object->record->keepsOwnPosition;
}

bool TakesNumber(const EditRules& rules, const PartEntry& part) {
    return !part.isRoot && !KeepsPosition(part) && rules.rows.IsNumberedAt(part) &&
           DoesRowTakeNumber(rules, *part.owner);
}

bool LosesPosition(const EditRules& rules, const PartEntry& part) {
    return !part.isRoot && IsFree(rules, *part.owner) && rules.rows.IsNumbered(*part.owner) &&
           !DoesRowTakeNumber(rules, *part.owner) &&
           !ShownValues(rules.index).Get(part, number::position).IsEmpty();
}

void SpreadPosition(const EditRules& rules, const PartEntry& object, const PropValue& position,
                    ValuePlan& plan) {
    if (KeepsPosition(object))
        return;
    for (const PartEntry* const mate : rules.rows.GetRowMates(object)) {
        const ValueHolder holder{mate, number::position};
        const bool isFree = !KeepsPosition(*mate) && !rules.IsFixed(*mate, number::position) &&
                            !plan.IsLinked(holder);
        if (isFree && !IsPresentValue(plan.GetHeld(holder).value_or(PropValue()), position))
            plan.SetValue(holder, position);
    }
}

} // namespace platform
