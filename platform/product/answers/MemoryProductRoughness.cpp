#include "platform/product/answers/MemoryProductState.h"
#include "platform/product/model/ListValues.h"
#include "platform/product/model/SystemProperties.h"
#include "platform/services/UserDecisions.h"

#include <algorithm>

namespace platform {

namespace {

constexpr RoughnessRequest::Process c_processes[] = {
    RoughnessRequest::Process::Any,
    RoughnessRequest::Process::Machined,
    RoughnessRequest::Process::NotMachined,
};

/// A list of the product's own may have other signs, or these in another order.
RoughnessRequest::Process FindProcess(const SharedText& text) {
    static const PropertyRecord& system =
        *std::ranges::find(GetSystemProperties(), number::roughSign, &PropertyRecord::number);
    const std::optional<std::size_t> place = FindListPlace(system, SimplePropVal(text));
    return place && *place < std::size(c_processes) ? c_processes[*place]
                                                    : RoughnessRequest::Process::Other;
}

RoughnessRequest MakeRequest(const EditRules& rules, const PartEntry& part) {
    const PropertyRecord& signs = *rules.properties.Get(number::roughSign).record;
    const ShownValues shown(rules.index);
    RoughnessRequest request;
    request.title = GetText(ProductText::RoughnessTitle);
    for (const SimplePropVal& sign : signs.list)
        request.signs.push_back({sign.to_wstring(), FindProcess(sign.to_wstring())});
    request.present.sign =
        FindListPlace(signs, shown.Get(part, number::roughSign).GetSimpleValue());
    request.present.text = shown.Get(part, number::roughValue).to_wstring();
    request.canChangeSign = rules.CanChange(part, number::roughSign);
    request.canChangeText = rules.CanChange(part, number::roughValue);
    return request;
}

using Changes = std::vector<std::shared_ptr<const ProductChange>>;

/// What the user has changed of what he was shown.
Changes MakeChanges(const EditRules& rules, const UniqueMetaObjectKey& key,
                    const RoughnessRequest& shown, const RoughnessDecision& wanted) {
    Changes changes;
    if (shown.canChangeSign && wanted.sign != shown.present.sign) {
        const PropertyRecord& signs = *rules.properties.Get(number::roughSign).record;
        const PropValue sign =
            wanted.sign ? PropValue(GetListValue(signs, *wanted.sign)) : PropValue();
        changes.push_back(std::make_shared<ValueChange>(key, number::roughSign, sign));
    }
    if (shown.canChangeText && !(wanted.text == shown.present.text))
        changes.push_back(std::make_shared<ValueChange>(key, number::roughValue,
                                                        PropValue(SimplePropVal(wanted.text))));
    return changes;
}

/// Empty when all of them can be had.
SharedText FindRefusal(const EditRules& rules, const Changes& changes) {
    ValuePlan plan(rules.index);
    const auto isTaken = [&](const auto& change) { return change->Plan(rules, plan); };
    return std::ranges::all_of(changes, isTaken)
               ? SharedText()
               : GetText(plan.GetRefusal().value_or(ProductText::RefusedValue));
}

} // namespace

bool MemoryProduct::EditRoughSign(const UniqueMetaObjectKey& key,
                                  ProductInfObjChangesResult& changes) {
    // Asked again with what was refused, until it is taken or the user gives up. The document may
    // be another one after each answer, so that nothing of it is kept meanwhile.
    std::optional<RoughnessDecision> wanted;
    while (true) {
        const PartEntry* const part = m_state->index.Find(key);
        IUserDecisions* const decisions = m_state->look->decisions;
        if (!part || !decisions)
            return false;
        RoughnessRequest request = MakeRequest(m_state->GetRules(), *part);
        if (!request.canChangeSign && !request.canChangeText) {
            m_state->refusal = ProductText::RefusedFixed;
            return false;
        }
        if (wanted) {
            const Changes made = MakeChanges(m_state->GetRules(), key, request, *wanted);
            request.refusal = FindRefusal(m_state->GetRules(), made);
            if (request.refusal.IsEmpty()) {
                changes = m_state->MakeSet(made);
                return true;
            }
            request.present = *wanted;
        }
        wanted = decisions->ChooseRoughness(request);
        if (!wanted)
            return false;
    }
}

} // namespace platform
