#include "host/UniqueMetaObjectKey.h"

#include <utility>

namespace {

std::string ToBytes(const std::wstring& wide) {
    std::string bytes;
    bytes.reserve(wide.size());
    for (const wchar_t c : wide) {
        if (c >= 0 && c <= 0xFF)
            bytes.push_back(static_cast<char>(c));
    }
    return bytes;
}

} // namespace

const UniqueMetaObjectKey UniqueMetaObjectKey::null;

UniqueMetaObjectKey::UniqueMetaObjectKey(std::string key) {
    if (key.empty())
        return;
    const std::size_t hash = std::hash<std::string>{}(key);
    m_rep = new Rep{0, 0, hash, std::move(key)};
}

UniqueMetaObjectKey::UniqueMetaObjectKey(const std::wstring& wide)
    : UniqueMetaObjectKey(ToBytes(wide)) {}

const std::string& UniqueMetaObjectKey::String() const noexcept {
    static const std::string empty;
    return m_rep ? m_rep->key : empty;
}

std::wstring UniqueMetaObjectKey::WString() const {
    const std::string& key = String();
    std::wstring wide;
    wide.reserve(key.size());
    for (const char c : key)
        wide.push_back(static_cast<unsigned char>(c));
    return wide;
}
