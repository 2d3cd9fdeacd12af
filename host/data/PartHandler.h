// What is known of a part beyond its properties.
#pragma once

#include "host/UniqueMetaObjectKey.h"
#include "host/data/SpecificationStyles.h"

#include <optional>
#include <vector>

namespace meta_data {

/// In which specifications an object stands.
class SPUsed {
public:
    SPUsed() = default;
    explicit SPUsed(std::vector<SP::StyleId> styles) : m_styles(std::move(styles)) {}

    /// AllStyleId asks for any style.
    bool IsSPUsed(SP::StyleId style) const;
    const std::vector<SP::StyleId>& GetStyles() const noexcept { return m_styles; }

    friend bool operator==(const SPUsed&, const SPUsed&) = default;

private:
    std::vector<SP::StyleId> m_styles;
};

} // namespace meta_data

struct PartAttributes {
    /// The part belongs to the product.
    bool inProduct = true;
    /// The part is never shown in a group.
    bool separate = false;
    /// Two ways of hiding a part: by its own flag and by that of its document.
    bool hiddenA = false;
    bool hiddenB = false;

    friend bool operator==(const PartAttributes&, const PartAttributes&) = default;
};

/// The record behind a handler.
struct ProductPart {
    PartAttributes attributes;
    meta_data::SPUsed used;

    friend bool operator==(const ProductPart&, const ProductPart&) = default;
};

/// Works out properties of a part that are not simply stored.
class IfPropertyCalculator {
public:
    virtual ~IfPropertyCalculator() = default;

    /// No value: the calculator can't tell, and the stored value counts.
    virtual std::optional<bool> IsInProduct() const = 0;
};

/// A handler borrows what it stands for and is used at once, not kept.
class PartHandler {
public:
    static const PartAttributes c_defaultAttrs;

    PartHandler() = default;
    PartHandler(const ProductPart* part, const IfPropertyCalculator* calculator)
        : m_part(part), m_calculator(calculator) {}

    bool IsValid() const noexcept { return m_part != nullptr; }
    bool IsCalcAvailable() const noexcept { return m_calculator != nullptr; }
    /// Only for a valid handler.
    const ProductPart& GetProductPart() const noexcept { return *m_part; }
    /// Only where IsCalcAvailable.
    const IfPropertyCalculator& GetPropertyCalculator() const noexcept { return *m_calculator; }

private:
    const ProductPart* m_part = nullptr;
    const IfPropertyCalculator* m_calculator = nullptr;
};

/// A part and the group of like parts that speaks for it.
class GroupPartHandler {
public:
    static const PartAttributes c_defaultAttrs;

    GroupPartHandler() = default;
    /// A null `groupKey`: the part is in no group, and `raw` speaks for itself.
    GroupPartHandler(UniqueMetaObjectKey groupKey, PartHandler raw, PartHandler group)
        : m_valid(true), m_groupKey(std::move(groupKey)), m_raw(raw), m_group(group) {}

    bool IsValid() const noexcept { return m_valid; }
    const UniqueMetaObjectKey& GetGroupKey() const noexcept { return m_groupKey; }
    const PartHandler& GetRawPartHandler() const noexcept { return m_raw; }
    const PartHandler& GetGroupPartHandler() const noexcept { return m_group; }

private:
    bool m_valid = false;
    UniqueMetaObjectKey m_groupKey;
    PartHandler m_raw;
    PartHandler m_group;
};
