// The host's name of an object of the product.
#pragma once

#include <compare>
#include <functional>
#include <string>
#include <utility>

/// An 8-bit string, compared byte by byte. The empty key names nothing. A key must not hold the
/// character '|', which separates keys in the id of a per-embodiment count column.
class UniqueMetaObjectKey {
public:
    static const UniqueMetaObjectKey null;

    UniqueMetaObjectKey() = default;
    explicit UniqueMetaObjectKey(std::string key) : m_key(std::move(key)) {}
    /// The key whose WString is `wide`. Characters above 255 have no byte and are dropped.
    explicit UniqueMetaObjectKey(const std::wstring& wide);

    bool IsEmpty() const noexcept { return m_key.empty(); }
    const std::string& String() const noexcept { return m_key; }
    /// Each byte as one wide character, so that any key comes back from its wide form.
    std::wstring WString() const;

    friend bool operator==(const UniqueMetaObjectKey&, const UniqueMetaObjectKey&) = default;
    friend std::strong_ordering operator<=>(const UniqueMetaObjectKey& a,
                                            const UniqueMetaObjectKey& b) noexcept {
        return a.m_key.compare(b.m_key) <=> 0;
    }

private:
    std::string m_key;
};

template <>
struct std::hash<UniqueMetaObjectKey> {
    std::size_t operator()(const UniqueMetaObjectKey& key) const noexcept {
        return std::hash<std::string>{}(key.String());
    }
};
