#include "platform/product/answers/LinkTargets.h"

#include "host/IfPropertyDescription.h"
#include "host/ProductProperties.h"
#include "platform/product/model/ListValues.h"
#include "platform/product/model/ProductTexts.h"
#include "platform/services/UserDecisions.h"

#include <algorithm>

namespace platform {

namespace {

using namespace value_type;

/// A property of that type can show values of the other. Every value has a text.
bool CanShowType(unsigned type, unsigned target) {
    return type == String || type == target || (type == Double && target == Integer);
}

/// As its row shows it, whether it has its name and designation itself or by a link.
OfferedObject Describe(const ShownValues& shown, const PartEntry& object) {
    VariantMarking marking;
    if (const PropValue* const value = shown.Find(object, ProductProperties::markingId))
        marking.FromPropertyTree(value->GetPropertyTree());
    return {object.key, shown.Get(object, ProductProperties::nameId).to_wstring(),
            marking.Make(VariantMarkingData::MakeAll, false, false)};
}

/// The target that all of them have; no value when they differ or one has none.
std::optional<PropertyChoice> FindCommonTarget(const ShownValues& shown,
                                               const std::vector<ValueHolder>& holders) {
    const LinkRecord* common = nullptr;
    for (const ValueHolder& holder : holders) {
        const LinkRecord* const link = shown.FindLink(holder);
        const bool isSame = !common || (link && link->target == common->target &&
                                        link->targetProperty == common->targetProperty);
        if (!link || !isSame)
            return std::nullopt;
        common = link;
    }
    if (!common)
        return std::nullopt;
    return PropertyChoice{common->target, ProductProperties::GetPath(common->targetProperty)};
}

} // namespace

bool CanBeLinked(const PropertyTraits& property) {
    return property.record && !IsStructured(property.number) && property.record->list.empty() &&
           property.record->type != Boolean;
}

bool LinkTargets::CanShow(const std::vector<ValueHolder>& holders,
                          const PropertyTraits& target) const {
    // A count is worked out for a row in an embodiment: the object alone has none to show. A number
    // that stands for a word says nothing elsewhere.
    if (!target.record || IsStructured(target.number) || target.number == number::count ||
        HasListNumbers(target.number))
        return false;
    return std::ranges::all_of(holders, [&](const ValueHolder& holder) {
        const PropertyRecord* const record = m_rules.properties.Get(holder.number).record;
        return record && CanShowType(record->type, target.record->type);
    });
}

PropertyRequest LinkTargets::MakeRequest(const std::vector<ValueHolder>& holders) const {
    PropertyRequest request;
    request.title = GetText(ProductText::LinkTitle);
    const ShownValues shown(m_rules.index);
    request.objects.push_back(Describe(shown, m_rules.index.GetRoot()));
    for (const PartEntry& object : m_rules.index.GetObjects())
        request.objects.push_back(Describe(shown, object));
    for (const IfPropertyDescription* const description : m_descriptions.GetAll()) {
        const PropertyTraits property = m_rules.properties.Get(description->GetId());
        if (CanShow(holders, property))
            request.properties.push_back(
                {ProductProperties::GetPath(property.number), property.record->caption});
    }
    request.present = FindCommonTarget(shown, holders);
    return request;
}

LinkTargets::Plan LinkTargets::MakePlan(const std::vector<ValueHolder>& holders,
                                        const PropertyChoice& choice) const {
    Plan made{ValuePlan(m_rules.index)};
    const PartEntry* const part = m_rules.index.Find(choice.object);
    const unsigned long number = ProductProperties::GetPropId(choice.propertyId);
    if (!part || holders.empty() || !CanShow(holders, m_rules.properties.Get(number)))
        return made;
    const ValueHolder target = made.links.GetShown().FindHolder(*part, number);
    for (const ValueHolder& holder : holders) {
        if (made.links.GetShown().LeadsTo(target, holder))
            made.isAnyRefused = true;
        else
            made.links.SetLink(holder, LinkRecord{holder.number, part->key, number});
    }
    return made;
}

} // namespace platform
