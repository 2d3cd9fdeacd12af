#include "desktop/store/ModelLocation.h"

#include <charconv>

namespace desktop::store {

namespace {

/// How many entries of the product an entry of the list stands for.
std::size_t EntryCount(const JsonValue& entry) {
    const JsonObject* const object = entry.As<JsonObject>();
    const JsonMember* const count = object ? FindMember(*object, "count") : nullptr;
    const std::int64_t* const number = count ? count->value.As<std::int64_t>() : nullptr;
    return number && *number > 0 ? static_cast<std::size_t>(*number) : 1;
}

class Walk final {
public:
    explicit Walk(const JsonValue& product) : m_value(&product) { m_found.at = product.at; }

    ModelLocation Follow(std::string_view path) {
        while (!path.empty()) {
            const bool isIndex = path.front() == '[';
            const bool isNext = path.front() == '.';
            const std::size_t end = path.find_first_of(isIndex ? "]" : ".[", isNext ? 1 : 0);
            const std::string_view step = path.substr(0, end);
            const bool isFound =
                isIndex ? Enter(IndexOf(step)) : EnterMember(step.substr(isNext ? 1 : 0));
            if (!isFound)
                break;
            path.remove_prefix(step.size() + (isIndex ? 1 : 0));
        }
        return std::move(m_found);
    }

private:
    static std::size_t IndexOf(std::string_view step) {
        std::size_t index = 0;
        std::from_chars(step.data() + 1, step.data() + step.size(), index);
        return index;
    }

    void AppendName(std::string_view name) {
        if (!m_found.path.empty())
            m_found.path += '.';
        m_found.path += name;
    }

    void EnterMember(const JsonMember& member) {
        AppendName(member.name);
        m_value = &member.value;
        m_found.at = m_value->at;
    }

    bool EnterMember(std::string_view name) {
        const JsonObject* const object = m_value->As<JsonObject>();
        if (!object)
            return false;
        const JsonMember* const member = FindMember(*object, name);
        if (!member) {
            AppendName(name);
            return false;
        }
        EnterMember(*member);
        return true;
    }

    bool Enter(std::size_t index) {
        if (const JsonObject* const object = m_value->As<JsonObject>()) {
            if (index >= object->size())
                return false;
            EnterMember((*object)[index]);
            return true;
        }
        const JsonArray* const array = m_value->As<JsonArray>();
        if (!array)
            return false;
        std::size_t before = 0;
        for (std::size_t i = 0; i < array->size(); ++i) {
            before += EntryCount((*array)[i]);
            if (index >= before)
                continue;
            m_value = &(*array)[i];
            m_found.at = m_value->at;
            m_found.path += '[' + std::to_string(i) + ']';
            return true;
        }
        return false;
    }

    const JsonValue* m_value;
    ModelLocation m_found;
};

} // namespace

ModelLocation LocateInText(const JsonValue& product, std::string_view path) {
    return Walk(product).Follow(path);
}

} // namespace desktop::store
