#include "desktop/store/JsonDocument.h"

#include <nlohmann/json.hpp>

namespace desktop::store {

namespace {

constexpr std::size_t c_lineLength = 100;
constexpr std::size_t c_indent = 2;

std::string ScalarText(const JsonValue& value) {
    const auto dump = [](const nlohmann::json& scalar) {
        return scalar.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
    };
    return std::visit(
        [&](const auto& data) -> std::string {
            using Data = std::decay_t<decltype(data)>;
            if constexpr (std::is_same_v<Data, std::monostate>)
                return "null";
            else if constexpr (std::is_same_v<Data, JsonArray> || std::is_same_v<Data, JsonObject>)
                return {};
            else
                return dump(data);
        },
        value.data);
}

std::string NameText(const JsonMember& member) {
    return ScalarText(JsonValue{{}, member.name}) + ": ";
}

/// Appends the value in one line as long as `text` stays within the line; says whether it does.
bool AppendShort(std::string& text, const JsonValue& value, std::size_t room) {
    if (const JsonArray* const array = value.As<JsonArray>()) {
        text += '[';
        for (const JsonValue& item : *array) {
            if (&item != array->data())
                text += ", ";
            if (!AppendShort(text, item, room))
                return false;
        }
        text += ']';
    } else if (const JsonObject* const object = value.As<JsonObject>()) {
        text += '{';
        for (const JsonMember& member : *object) {
            if (&member != object->data())
                text += ", ";
            text += NameText(member);
            if (!AppendShort(text, member.value, room))
                return false;
        }
        text += '}';
    } else {
        text += ScalarText(value);
    }
    return text.size() <= room;
}

class Layout final {
public:
    void AppendTop(const JsonValue& value) {
        AppendLong(value, 0);
        m_text += '\n';
    }

    std::string TakeText() { return std::move(m_text); }

private:
    void Append(const JsonValue& value, std::size_t depth) {
        const std::size_t lineStart = m_text.rfind('\n') + 1;
        const std::size_t used = m_text.size() - lineStart;
        std::string line;
        if (used < c_lineLength && AppendShort(line, value, c_lineLength - used)) {
            m_text += line;
            return;
        }
        AppendLong(value, depth);
    }

    void AppendLong(const JsonValue& value, std::size_t depth) {
        if (const JsonArray* const array = value.As<JsonArray>()) {
            m_text += '[';
            for (const JsonValue& item : *array) {
                StartLine(depth + 1, &item == array->data());
                Append(item, depth + 1);
            }
            EndList(depth, ']');
        } else if (const JsonObject* const object = value.As<JsonObject>()) {
            m_text += '{';
            for (const JsonMember& member : *object) {
                StartLine(depth + 1, &member == object->data());
                m_text += NameText(member);
                Append(member.value, depth + 1);
            }
            EndList(depth, '}');
        } else {
            m_text += ScalarText(value);
        }
    }

    void StartLine(std::size_t depth, bool isFirst) {
        m_text += isFirst ? "\n" : ",\n";
        m_text.append(depth * c_indent, ' ');
    }

    void EndList(std::size_t depth, char bracket) {
        m_text += '\n';
        m_text.append(depth * c_indent, ' ');
        m_text += bracket;
    }

    std::string m_text;
};

} // namespace

std::string FormatJson(const JsonValue& value) {
    Layout layout;
    layout.AppendTop(value);
    return layout.TakeText();
}

} // namespace desktop::store
