// The host's name of an object of the product.
#pragma once

#include <boost/smart_ptr/intrusive_ptr.hpp>
#include <compare>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>

/// An 8-bit string, compared byte by byte. The empty key names nothing. A key must not hold the
/// character '|', which separates keys in the id of a per-embodiment count column.
///
/// Copies share the string and its hash by counting: rows, cells, ids and indexes hold the same few
/// keys many times over. The count is plain, so that a key and its copies stay on one thread.
class UniqueMetaObjectKey {
public:
    static const UniqueMetaObjectKey null;

    UniqueMetaObjectKey() noexcept = default;
    explicit UniqueMetaObjectKey(std::string key);
    /// The key whose WString is `wide`. Characters above 255 have no byte and are dropped.
    explicit UniqueMetaObjectKey(const std::wstring& wide);

    bool IsEmpty() const noexcept { return !m_rep; }
    const std::string& String() const noexcept;
    /// Each byte as one wide character, so that any key comes back from its wide form.
    std::wstring WString() const;
    /// One key in memory: a cheap test that never says the same wrongly.
    bool IsSame(const UniqueMetaObjectKey& other) const noexcept { return m_rep == other.m_rep; }
    std::size_t GetHash() const noexcept { return m_rep ? m_rep->hash : 0; }

    /// A note that the host may leave for all copies of the key, for instance where it keeps what
    /// the key names. It proves nothing: another part of the host may have written it. 0 until set;
    /// the empty key takes none.
    std::uint32_t GetHint() const noexcept { return m_rep ? m_rep->hint : 0; }
    void SetHint(std::uint32_t hint) const noexcept {
        if (m_rep)
            m_rep->hint = hint;
    }

    friend bool operator==(const UniqueMetaObjectKey& a, const UniqueMetaObjectKey& b) noexcept {
        if (a.m_rep == b.m_rep)
            return true;
        return a.m_rep && b.m_rep && a.m_rep->hash == b.m_rep->hash && a.m_rep->key == b.m_rep->key;
    }
    friend std::strong_ordering operator<=>(const UniqueMetaObjectKey& a,
                                            const UniqueMetaObjectKey& b) noexcept {
        return a.String().compare(b.String()) <=> 0;
    }

private:
    struct Rep {
        unsigned count;
        std::uint32_t hint;
        std::size_t hash;
        std::string key;

        friend void intrusive_ptr_add_ref(Rep* rep) noexcept { ++rep->count; }
        friend void intrusive_ptr_release(Rep* rep) noexcept {
            if (--rep->count == 0)
                Destroy(rep);
        }
        // Apart from its callers: inlined, it makes each of them bigger.
        [[gnu::noinline]] static void Destroy(Rep* rep) noexcept { delete rep; }
    };

    boost::intrusive_ptr<Rep> m_rep;
};

template <>
struct std::hash<UniqueMetaObjectKey> {
    // Not noexcept, although it throws nothing: the standard library's hash tables then keep the
    // hash beside the key and need not look at each key they pass.
    std::size_t operator()(const UniqueMetaObjectKey& key) const { return key.GetHash(); }
};
