// The properties of one part as its user sees them, all at once: with the units in which they are
// shown, where their values come from, and what the user makes of them. It asks nobody and writes
// nothing; it says what is to be asked and which changes follow from the answer.
#pragma once

#include "platform/product/edits/ProductChanges.h"
#include "platform/product/model/PropertyDescriptions.h"
#include "platform/product/model/StyleSections.h"
#include "platform/services/UserDecisions.h"

namespace platform {

class ItemProperties {
public:
    /// `embodiment` is the one in which the part is counted, or the root. All must stay as they are
    /// for as long as this is used.
    ItemProperties(const EditRules& rules, const PropertyDescriptions& descriptions,
                   const PartEntry& part, UniqueMetaObjectKey embodiment);

    const ItemPropertiesRequest& GetRequest() const { return m_request; }
    /// What the user has put into lines stands there from now on, beside what he put there before.
    void Take(const std::vector<ItemPropertyInput>& inputs);
    /// The changes that make the part what the lines say. Lines that can't be had so are marked in
    /// the request with their reason; no value then.
    std::optional<std::vector<std::shared_ptr<const ProductChange>>> MakeChanges();
    /// The lines can't be had together.
    void RefuseAll();

private:
    using Line = ItemPropertiesRequest::Line;
    using Value = ItemPropertiesRequest::Value;

    Line MakeLine(const PropertyRecord& record) const;
    /// The section is one of those of the style, by its place.
    void PutSections(Line& line) const;
    bool IsCount(const PropertyRecord& record) const;
    PropValue GetValue(const PropertyRecord& record) const;
    bool CanChange(const PropertyRecord& record) const;
    SharedText MakeSource(const PropertyRecord& record) const;
    /// In the property's own unit; no value for a text in place of a number.
    std::optional<PropValue> ToStored(std::size_t line) const;
    /// Null where the value is no value of the property at all.
    std::shared_ptr<const ProductChange> MakeChange(std::size_t line) const;
    SharedText MakeRefusal(std::size_t line, std::optional<ProductText> reason) const;

    EditRules m_rules;
    const PartEntry& m_part;
    UniqueMetaObjectKey m_embodiment;
    std::vector<StyleSection> m_sections;
    ItemPropertiesRequest m_request;
    /// By line.
    std::vector<const PropertyRecord*> m_records;
    /// What stood in the lines at first.
    std::vector<Value> m_first;
};

} // namespace platform
