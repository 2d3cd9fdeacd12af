// What a product in memory says about the properties that can be columns: the system's own from a
// table, replaced and joined by those of the model.
#pragma once

#include "host/IfPropertyDescription.h"
#include "platform/product/ProductModel.h"

#include <memory>
#include <unordered_map>
#include <vector>

namespace platform {

class PropertyDescriptions {
public:
    explicit PropertyDescriptions(const std::vector<PropertyRecord>& own);

    /// The system's properties in the order of their table, then the model's own.
    std::vector<const IfPropertyDescription*> GetAll() const;
    /// Null for a column that no property has.
    const IfPropertyDescription* Find(const std::wstring& columnId) const;

private:
    void Add(const PropertyRecord& record);

    std::vector<std::unique_ptr<IfPropertyDescription>> m_descriptions;
    std::unordered_map<unsigned long, std::size_t> m_places;
};

} // namespace platform
