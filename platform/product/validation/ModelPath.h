// Where in a product a value stands, for messages about it: "objects[3].section". The names are
// those of the product file. A path is a chain on the stack of whoever walks the product, so that
// it costs nothing until there is something to say.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace platform {

class ModelPath final {
public:
    /// The product itself.
    ModelPath() = default;
    /// A member of what `up` names. `up` and `name` must outlive the path.
    ModelPath(const ModelPath& up, std::string_view name) : m_up(&up), m_name(name) {}
    /// An entry of the list that `up` names.
    ModelPath(const ModelPath& up, std::size_t index)
        : m_up(&up), m_index(index), m_isIndex(true) {}

    std::string ToText() const {
        if (!m_up)
            return {};
        std::string text = m_up->ToText();
        if (m_isIndex)
            return text + '[' + std::to_string(m_index) + ']';
        if (!text.empty())
            text += '.';
        return text.append(m_name);
    }

private:
    const ModelPath* m_up = nullptr;
    std::string_view m_name;
    std::size_t m_index = 0;
    bool m_isIndex = false;
};

} // namespace platform
