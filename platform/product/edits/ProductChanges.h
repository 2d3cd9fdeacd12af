// The changes that a product in memory puts into change sets. Each only says what is wanted;
// whether it can be had is asked when the change is built and again when the set is applied, since
// the document may be another one by then.
#pragma once

#include "host/data/ProductInfObjChangesResult.h"
#include "platform/product/edits/ValuePlan.h"
#include "platform/product/index/PartCounts.h"
#include "platform/product/model/PropertyLookup.h"
#include "platform/product/model/PropertyNumbers.h"

namespace platform {

/// Its designation; empty for an embodiment that the product lacks.
SharedText NameEmbodiment(const ProductModel& model, const UniqueMetaObjectKey& embodiment);

/// What changes are judged by.
struct EditRules {
    const ProductModel& model;
    const ProductIndex& index;
    const PropertyLookup& properties;
    const RowRules& rows;
    const PartCounts& counts;

    /// Nothing can be written to the property of that part.
    bool IsFixed(const PartEntry& part, const PropertyTraits& property) const {
        return model.isReadOnly || property.isReadOnly ||
               (!part.isPlain && IsFixedAt(part, property.number));
    }
    bool IsFixed(const PartEntry& part, unsigned long number) const {
        return IsFixed(part, properties.Get(number));
    }
    /// The user can give the property of that part another value: it is neither fixed nor a link.
    bool CanChange(const PartEntry& part, unsigned long number) const;

private:
    static bool IsFixedAt(const PartEntry& part, unsigned long number);
};

class ProductChange : public IfProductChange {
public:
    /// False when it can't be had, or not any more. A wish for what is so already plans nothing.
    virtual bool Plan(const EditRules& rules, ValuePlan& plan) const = 0;

    unsigned long GetNumber() const { return m_number; }
    /// What is changed, in the user's words; empty: the property of that number.
    virtual SharedText MakeCaption() const { return {}; }
    /// What a step is called that makes such changes alone; empty: by what they change.
    virtual SharedText MakeStepName() const { return {}; }
    /// What the user should know when it was made; empty for nothing.
    virtual SharedText MakeNote(const EditRules&) const { return {}; }

protected:
    ProductChange(UniqueMetaObjectKey part, unsigned long number)
        : m_part(std::move(part)), m_number(number) {}

    /// The part that the change is for; null when it is gone or nothing can be written to it.
    const PartEntry* FindPart(const EditRules& rules) const;
    /// The same for what is no property.
    const PartEntry* FindAnyPart(const EditRules& rules) const;
    /// The part's object, which may be the product itself.
    const PartEntry* FindObject(const EditRules& rules) const;

private:
    UniqueMetaObjectKey m_part;
    unsigned long m_number;
};

/// A new value, wherever the part has it from.
class ValueChange final : public ProductChange {
public:
    ValueChange(UniqueMetaObjectKey part, unsigned long number, PropValue value)
        : ProductChange(std::move(part), number), m_value(std::move(value)) {}

    bool Plan(const EditRules& rules, ValuePlan& plan) const override;

private:
    PropValue m_value;
};

/// Whether the name follows the section, which is for the object to say.
class NameLinkChange final : public ProductChange {
public:
    NameLinkChange(UniqueMetaObjectKey part, unsigned long number, bool isLinked)
        : ProductChange(std::move(part), number), m_isLinked(isLinked) {}

    bool Plan(const EditRules& rules, ValuePlan& plan) const override;

private:
    bool m_isLinked;
};

/// A use takes the value from its object, or keeps what it shows as its own.
class BySourceChange final : public ProductChange {
public:
    BySourceChange(UniqueMetaObjectKey part, unsigned long number, bool bySource)
        : ProductChange(std::move(part), number), m_bySource(bySource) {}

    bool Plan(const EditRules& rules, ValuePlan& plan) const override;

private:
    bool m_bySource;
};

/// The part's object counts into the product, or does not.
class AggregationChange final : public ProductChange {
public:
    AggregationChange(UniqueMetaObjectKey part, bool counts)
        : ProductChange(std::move(part), 0), m_counts(counts) {}

    bool Plan(const EditRules& rules, ValuePlan& plan) const override;
    SharedText MakeCaption() const override;

private:
    bool m_counts;
};

/// The part stands in the current specification, or does not.
class RegistrationChange final : public ProductChange {
public:
    /// `isGroup`: the key is that of a group, and all that share its row are meant.
    RegistrationChange(UniqueMetaObjectKey part, bool isGroup, bool isRegistered)
        : ProductChange(std::move(part), 0), m_isGroup(isGroup), m_isRegistered(isRegistered) {}

    bool Plan(const EditRules& rules, ValuePlan& plan) const override;
    SharedText MakeCaption() const override;

private:
    bool m_isGroup;
    bool m_isRegistered;
};

/// Another count of a part, or of the group that its key stands for, in one embodiment. No value:
/// the one that follows from the product.
class CountChange final : public ProductChange {
public:
    CountChange(UniqueMetaObjectKey part, UniqueMetaObjectKey embodiment,
                std::optional<PropValue> value)
        : ProductChange(std::move(part), number::count), m_embodiment(std::move(embodiment)),
          m_value(std::move(value)) {}

    bool Plan(const EditRules& rules, ValuePlan& plan) const override;
    SharedText MakeNote(const EditRules& rules) const override;

private:
    UniqueMetaObjectKey m_embodiment;
    std::optional<PropValue> m_value;
};

} // namespace platform
