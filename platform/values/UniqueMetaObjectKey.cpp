#include "host/UniqueMetaObjectKey.h"

const UniqueMetaObjectKey UniqueMetaObjectKey::null;

UniqueMetaObjectKey::UniqueMetaObjectKey(const std::wstring& wide) {
    m_key.reserve(wide.size());
    for (const wchar_t c : wide) {
        if (c >= 0 && c <= 0xFF)
            m_key.push_back(static_cast<char>(c));
    }
}

std::wstring UniqueMetaObjectKey::WString() const {
    std::wstring wide;
    wide.reserve(m_key.size());
    for (const char c : m_key)
        wide.push_back(static_cast<unsigned char>(c));
    return wide;
}
