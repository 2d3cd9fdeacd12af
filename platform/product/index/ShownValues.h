// What the properties of parts have for values: their own, those of their object, or those that
// links lead to. Looks at the index and holds nothing, so that it is made wherever it is needed.
#pragma once

#include "host/ProductProperties.h"
#include "platform/product/index/ProductIndex.h"
#include "platform/product/model/PropertyNumbers.h"

#include <optional>

namespace platform {

/// One property of one part.
struct ValueHolder {
    const PartEntry* part = nullptr;
    unsigned long number = 0;

    friend bool operator==(const ValueHolder&, const ValueHolder&) = default;
};

class ShownValues {
public:
    explicit ShownValues(const ProductIndex& index) : m_index(index) {}

    PropValue Get(const PartEntry& part, unsigned long number) const {
        const PropValue* const value = Find(part, number);
        return value ? *value : PropValue();
    }
    /// The same without a copy: null for no value.
    const PropValue* Find(const PartEntry& part, unsigned long number) const {
        return part.isPlain ? FindHeldBy(*part.object, number) : FindAnyhow(part, number);
    }
    /// Where the value stands: at the part, or at the object of a use that has it by source.
    ValueHolder FindHolder(const PartEntry& part, unsigned long number) const;
    /// What a holder keeps for itself, links or not. No value: nothing, which for a use means that
    /// it has the value by source.
    std::optional<PropValue> GetHeld(const ValueHolder& holder) const;
    /// The same without a copy: null for nothing.
    const PropValue* FindHeld(const ValueHolder& holder) const;
    /// The link by which a holder has its value; null when it has none.
    const LinkRecord* FindLink(const ValueHolder& holder) const;
    /// The holder at the end of all links from here on, itself where it has none. No value: a link
    /// leads to nothing, or to itself.
    std::optional<ValueHolder> Follow(ValueHolder holder) const;
    /// Following the links from here on comes across that holder.
    bool LeadsTo(ValueHolder from, const ValueHolder& to) const;

private:
    static const PropValue* FindHeldBy(const ObjectEntry& object, unsigned long number) {
        if (number == ProductProperties::nameId)
            return HeldBy(object.name);
        if (number == ProductProperties::markingId)
            return object.hasMarking ? &object.marking : nullptr;
        if (number == number::section)
            return HeldBy(object.section);
        return object.FindProperty(number);
    }
    static const PropValue* HeldBy(const PropValue& value) {
        return value.IsEmpty() ? nullptr : &value;
    }
    const PropValue* FindAnyhow(const PartEntry& part, unsigned long number) const;
    bool IsOwn(const PartEntry& use, unsigned long number) const;
    /// The holder that the link names; no value when its part is gone.
    std::optional<ValueHolder> FindTarget(const LinkRecord& link) const;

    const ProductIndex& m_index;
};

/// Objects are grouped by the property, among other things.
bool IsGroupedBy(unsigned long number);

/// Groups the object by the values that it shows. True when that makes a difference.
bool RegroupByShownValues(ProductIndex& index, const PartEntry& object);
/// The same for all objects of which a property that they are grouped by is a link.
bool RegroupLinkedObjects(ProductIndex& index);

} // namespace platform
