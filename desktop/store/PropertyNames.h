// How the product file names properties: by the name that the user has given one, where that name
// is unmistakable, else by the path. Also tells which type of values a property takes. Made from
// the file's own definitions, used by reading and writing alike.
#pragma once

#include "platform/product/model/ProductModel.h"

#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

namespace desktop::store {

enum class ValueType { Integer = 0, Number = 1, Text = 2, Boolean = 3, Time = 4 };

class PropertyNames final {
public:
    PropertyNames() = default;
    explicit PropertyNames(const std::vector<platform::PropertyRecord>& definitions);

    /// The path of a number above the system's own is always there; an unknown number has none.
    static std::string PathOf(unsigned long number);
    /// 0 for what is no path.
    static unsigned long NumberOfPath(const std::string& path);

    /// The name to write.
    std::string NameOf(unsigned long number) const;
    /// The number of a path or name; 0 when there is none, or when two properties have the name.
    unsigned long NumberOf(const std::string& name) const;
    /// No value: the property takes any.
    std::optional<ValueType> TypeOf(unsigned long number) const;
    /// What stores numbers for the elements of its list; null for any other property.
    const platform::PropertyRecord* FindNumbered(unsigned long number) const;

private:
    std::unordered_map<std::string, unsigned long> m_numbers;
    std::unordered_map<unsigned long, std::string> m_names;
    std::unordered_map<unsigned long, ValueType> m_types;
    std::unordered_map<unsigned long, platform::PropertyRecord> m_numbered;
};

} // namespace desktop::store
