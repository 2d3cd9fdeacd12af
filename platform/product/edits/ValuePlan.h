// What a step will make of values and links, gathered before anything is written: later wishes for
// a property replace earlier ones, and what comes out as it was before is left alone.
#pragma once

#include "platform/product/edits/ModelEdits.h"
#include "platform/product/model/ProductTexts.h"

#include <memory>
#include <unordered_map>
#include <vector>

namespace platform {

class ValuePlan {
public:
    /// The index must stay as it is for as long as the plan is used.
    explicit ValuePlan(const ProductIndex& index) : m_shown(index) {}

    const ShownValues& GetShown() const { return m_shown; }

    /// As ShownValues answers, after what is planned.
    ValueHolder FindHolder(const PartEntry& part, unsigned long number) const;
    std::optional<PropValue> GetHeld(const ValueHolder& holder) const;
    bool IsLinked(const ValueHolder& holder) const;

    /// An empty value is none for an object; a use has it in place of its object's.
    void SetValue(const ValueHolder& holder, PropValue value);
    /// The use has the value by source again.
    void TakeBySource(const ValueHolder& use);
    void SetLink(const ValueHolder& holder, std::optional<LinkRecord> link);
    /// No value: the count is the one that follows from the product.
    void SetCount(const PartEntry& part, const UniqueMetaObjectKey& embodiment,
                  std::optional<SharedText> count);
    /// Whether the object's name follows its section, and its mass those of its parts.
    void SetNameLink(const PartEntry& object, bool isLinked);
    void SetMassSum(const PartEntry& object, bool isSum);
    /// Of the object of the part, or of the part, by what it says.
    void SetAttribute(const PartEntry& part, AttributeValue value);
    /// Those of the part's object, after what is planned.
    const std::vector<DocumentRecord>& GetDocuments(const PartEntry& part) const;
    void SetDocuments(const PartEntry& part, std::vector<DocumentRecord> documents);

    /// Why something that was wished for can't be had, where the user should be told; the first
    /// reason counts.
    void Refuse(ProductText reason) { m_refusal = m_refusal.value_or(reason); }
    std::optional<ProductText> GetRefusal() const { return m_refusal; }

    /// Nothing would be changed.
    bool IsEmpty() const;
    std::vector<std::unique_ptr<IModelEdit>> MakeEdits() const;

private:
    /// A count of a part.
    struct CountHolder {
        const PartEntry* part = nullptr;
        UniqueMetaObjectKey embodiment;

        friend bool operator==(const CountHolder&, const CountHolder&) = default;
    };
    struct Hash {
        std::size_t operator()(const ValueHolder& holder) const {
            return std::hash<const PartEntry*>{}(holder.part) * 31 + holder.number;
        }
        std::size_t operator()(const CountHolder& holder) const {
            return std::hash<const PartEntry*>{}(holder.part) * 31 + holder.embodiment.GetHash();
        }
    };
    /// In the order in which they were first wished for.
    template <class Place, class T>
    struct Wishes {
        std::unordered_map<Place, std::size_t, Hash> places;
        std::vector<std::pair<Place, std::optional<T>>> list;

        void Set(const Place& place, std::optional<T> wish);
        const std::optional<T>* Find(const Place& place) const;
    };

    bool IsNew(const ValueHolder& holder, const std::optional<PropValue>& value) const;
    bool IsNew(const ValueHolder& holder, const std::optional<LinkRecord>& link) const;
    static bool IsNew(const ValueHolder& holder, std::optional<bool> isSet);
    bool IsNew(const CountHolder& holder, const std::optional<SharedText>& count) const;
    static bool IsNew(const ValueHolder& holder, const std::optional<AttributeValue>& value);
    static bool IsNew(const ValueHolder& holder,
                      const std::optional<std::vector<DocumentRecord>>& documents);

    ShownValues m_shown;
    std::optional<ProductText> m_refusal;
    Wishes<ValueHolder, PropValue> m_values;
    Wishes<ValueHolder, LinkRecord> m_links;
    /// By the properties that something follows from, or that follow from something.
    Wishes<ValueHolder, bool> m_flags;
    Wishes<CountHolder, SharedText> m_counts;
    /// By what they are among the attribute values.
    Wishes<ValueHolder, AttributeValue> m_attributes;
    /// By number 0.
    Wishes<ValueHolder, std::vector<DocumentRecord>> m_documents;
};

} // namespace platform
