#include "desktop/store/PropertyNames.h"

#include "desktop/store/Texts.h"
#include "host/ProductProperties.h"
#include "platform/product/model/PropertyDescriptions.h"
#include "platform/product/model/PropertyNumbers.h"
#include "platform/product/model/SystemProperties.h"

namespace desktop::store {

PropertyNames::PropertyNames(const std::vector<platform::PropertyRecord>& definitions) {
    for (const platform::PropertyRecord& record : definitions) {
        m_types.emplace(record.number, static_cast<ValueType>(record.type));
        std::string name = platform::ToUtf8(record.caption);
        if (name.empty() || NumberOfPath(name) != 0)
            continue;
        const auto [entry, isNew] = m_numbers.emplace(std::move(name), record.number);
        if (!isNew && entry->second != record.number)
            entry->second = 0;
    }
    for (const platform::PropertyRecord& record : platform::GetSystemProperties())
        m_types.emplace(record.number, static_cast<ValueType>(record.type));
    const platform::PropertyDescriptions descriptions(definitions);
    for (const unsigned long number : {platform::number::roughSign, platform::number::notSected})
        m_numbered.emplace(number, *descriptions.FindRecord(number));
    for (const auto& [name, number] : m_numbers)
        if (number > ProductProperties::lastSystemId)
            m_names.emplace(number, name);
}

std::string PropertyNames::PathOf(unsigned long number) {
    return platform::ToUtf8(ProductProperties::GetPath(number));
}

unsigned long PropertyNames::NumberOfPath(const std::string& path) {
    return ProductProperties::GetPropId(ToWide(path));
}

std::string PropertyNames::NameOf(unsigned long number) const {
    const auto found = m_names.find(number);
    return found == m_names.end() ? PathOf(number) : found->second;
}

unsigned long PropertyNames::NumberOf(const std::string& name) const {
    if (const unsigned long number = NumberOfPath(name))
        return number;
    const auto found = m_numbers.find(name);
    return found == m_numbers.end() ? 0 : found->second;
}

std::optional<ValueType> PropertyNames::TypeOf(unsigned long number) const {
    const auto found = m_types.find(number);
    if (found == m_types.end())
        return std::nullopt;
    return found->second;
}

const platform::PropertyRecord* PropertyNames::FindNumbered(unsigned long number) const {
    const auto found = m_numbered.find(number);
    return found == m_numbered.end() ? nullptr : &found->second;
}

} // namespace desktop::store
