#include "platform/product/index/ShownValues.h"

#include "platform/product/model/PropertyLookup.h"

#include <algorithm>

namespace platform {

namespace {

const LinkRecord* FindLinkIn(const PartRecord& record, unsigned long number) {
    const auto found = std::ranges::find(record.links, number, &LinkRecord::property);
    return found == record.links.end() ? nullptr : &*found;
}

const PropValue* FindValueIn(const PartRecord& record, unsigned long number) {
    const auto found =
        std::ranges::find(record.properties, number, &PropertyValues::value_type::first);
    return found == record.properties.end() ? nullptr : &found->second;
}

} // namespace

const PropValue* ShownValues::FindAnyhow(const PartEntry& part, unsigned long number) const {
    const ValueHolder holder = FindHolder(part, number);
    return FindHeld(Follow(holder).value_or(holder));
}

bool ShownValues::IsOwn(const PartEntry& use, unsigned long number) const {
    return use.hasOwnValues && !BelongsToObject(number) &&
           (FindValueIn(*use.record, number) || FindLinkIn(*use.record, number));
}

ValueHolder ShownValues::FindHolder(const PartEntry& part, unsigned long number) const {
    return {part.isUse && IsOwn(part, number) ? &part : part.owner, number};
}

const PropValue* ShownValues::FindHeld(const ValueHolder& holder) const {
    const PartEntry& part = *holder.part;
    return part.isUse ? FindValueIn(*part.record, holder.number)
                      : FindHeldBy(*part.object, holder.number);
}

std::optional<PropValue> ShownValues::GetHeld(const ValueHolder& holder) const {
    const PropValue* const value = FindHeld(holder);
    return value ? std::optional(*value) : std::nullopt;
}

const LinkRecord* ShownValues::FindLink(const ValueHolder& holder) const {
    return holder.part->hasLinks ? FindLinkIn(*holder.part->record, holder.number) : nullptr;
}

std::optional<ValueHolder> ShownValues::FindTarget(const LinkRecord& link) const {
    const PartEntry* const part = m_index.Find(link.target);
    return part ? std::optional(FindHolder(*part, link.targetProperty)) : std::nullopt;
}

std::optional<ValueHolder> ShownValues::Follow(ValueHolder holder) const {
    // A chain without a circle passes each linked property once at most.
    std::size_t stepsLeft = m_index.GetLinkCount();
    while (const LinkRecord* const link = FindLink(holder)) {
        const std::optional<ValueHolder> target = FindTarget(*link);
        if (!target || stepsLeft-- == 0)
            return std::nullopt;
        holder = *target;
    }
    return holder;
}

bool ShownValues::LeadsTo(ValueHolder from, const ValueHolder& to) const {
    std::size_t stepsLeft = m_index.GetLinkCount();
    while (!(from == to)) {
        const LinkRecord* const link = FindLink(from);
        const std::optional<ValueHolder> target = link ? FindTarget(*link) : std::nullopt;
        if (!target || stepsLeft-- == 0)
            return false;
        from = *target;
    }
    return true;
}

bool IsGroupedBy(unsigned long number) {
    return number == ProductProperties::nameId || number == ProductProperties::markingId ||
           number == number::section || number == number::material || number == number::mass;
}

bool RegroupByShownValues(ProductIndex& index, const PartEntry& object) {
    const ShownValues shown(index);
    return index.Regroup(object, shown.Get(object, ProductProperties::nameId).to_wstring(),
                         shown.Get(object, number::material), shown.Get(object, number::mass));
}

bool RegroupLinkedObjects(ProductIndex& index) {
    bool areChanged = false;
    for (const PartEntry* const part : index.GetLinkedParts()) {
        const bool isConcerned =
            !part->isUse &&
            std::ranges::any_of(part->record->links, IsGroupedBy, &LinkRecord::property);
        if (isConcerned)
            areChanged |= RegroupByShownValues(index, *part);
    }
    return areChanged;
}

} // namespace platform
