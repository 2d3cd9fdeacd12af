// What a step will make of values and links, gathered before anything is written: later wishes for
// a property replace earlier ones, and what comes out as it was before is left alone.
#pragma once

#include "platform/product/ModelEdits.h"

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
    Slot FindHolder(const PartEntry& part, unsigned long number) const;
    std::optional<PropValue> GetHeld(const Slot& holder) const;
    bool IsLinked(const Slot& holder) const;

    /// An empty value is none for an object; a use has it in place of its object's.
    void SetValue(const Slot& holder, PropValue value);
    /// The use has the value by source again.
    void TakeBySource(const Slot& use);
    void SetLink(const Slot& holder, std::optional<LinkRecord> link);

    /// Whether the object's name follows its section.
    void SetNameLink(const PartEntry& object, bool isLinked);

    /// Nothing would be changed.
    bool IsEmpty() const;
    std::vector<std::unique_ptr<IModelEdit>> MakeEdits() const;

private:
    struct SlotHash {
        std::size_t operator()(const Slot& slot) const {
            return std::hash<const PartEntry*>{}(slot.part) * 31 + slot.number;
        }
    };
    /// In the order in which they were first wished for.
    template <class T>
    struct Wishes {
        std::unordered_map<Slot, std::size_t, SlotHash> places;
        std::vector<std::pair<Slot, std::optional<T>>> list;

        void Set(const Slot& slot, std::optional<T> wish);
        const std::optional<T>* Find(const Slot& slot) const;
    };

    bool IsNew(const Slot& slot, const std::optional<PropValue>& value) const;
    bool IsNew(const Slot& slot, const std::optional<LinkRecord>& link) const;
    bool IsNew(const Slot& slot, std::optional<bool> isNameLinked) const;

    ShownValues m_shown;
    Wishes<PropValue> m_values;
    Wishes<LinkRecord> m_links;
    /// By the objects' sections.
    Wishes<bool> m_nameLinks;
};

} // namespace platform
