// What a product in memory says about the properties that can be columns: the system's own from a
// table, replaced and joined by those of the model.
#pragma once

#include "host/IfPropertyDescription.h"
#include "platform/product/model/ProductModel.h"

#include <memory>
#include <unordered_map>
#include <vector>

namespace platform {

class PropertyDescriptions {
public:
    explicit PropertyDescriptions(const std::vector<PropertyRecord>& own);
    PropertyDescriptions(const PropertyDescriptions&) = delete;
    PropertyDescriptions& operator=(const PropertyDescriptions&) = delete;
    ~PropertyDescriptions();

    /// The system's properties in the order of their table, then the model's own.
    std::vector<const IfPropertyDescription*> GetAll() const;
    /// Null for a column that no property has.
    const IfPropertyDescription* Find(const std::wstring& columnId) const;
    /// Null for a number without description.
    const PropertyRecord* FindRecord(unsigned long number) const;

private:
    void Add(const PropertyRecord& record);

    class Description;

    std::vector<std::unique_ptr<Description>> m_descriptions;
    std::unordered_map<unsigned long, std::size_t> m_places;
};

} // namespace platform
