#include "items/ProductTreeItemId.h"

#include <functional>

namespace productTree {

namespace {

// Keeps the hashes of the classes apart, and the two ways in which groups are equal.
enum HashSalt : std::size_t {
    ByKey = 0x9e3779b97f4a7c15,
    ByNumbers = 0xc2b2ae3d27d4eb4f,
    ByName = 0x165667b19e3779f9,
    ByGroupKey = 0x27d4eb2f165667c5,
    ByFirstChild = 0x85ebca77c2b2ae63,
};

std::size_t Mix(std::size_t hash, std::size_t value) {
    constexpr std::size_t prime = 0x100000001b3;
    return (hash ^ value) * prime;
}

bool IsSameKey(const UniqueMetaObjectKey& a, const UniqueMetaObjectKey& b) {
    return !a.IsEmpty() && a == b;
}

bool HasNumbers(const SPCSection& section) {
    return section.numbers != SPCSection().numbers;
}

} // namespace

bool ItemIdByKey::Equals(const ProductTreeItemId& other) const {
    const auto* id = dynamic_cast<const ItemIdByKey*>(&other);
    return id && IsSameKey(m_key, id->m_key);
}

void ItemIdByKey::AppendHashes(std::vector<std::size_t>& hashes) const {
    if (!m_key.IsEmpty())
        hashes.push_back(Mix(ByKey, std::hash<UniqueMetaObjectKey>{}(m_key)));
}

bool SectionItemId::Equals(const ProductTreeItemId& other) const {
    const auto* id = dynamic_cast<const SectionItemId*>(&other);
    if (!id)
        return false;
    if (!HasNumbers(m_section) && !HasNumbers(id->m_section))
        return m_section.name == id->m_section.name;
    return m_section.numbers == id->m_section.numbers;
}

void SectionItemId::AppendHashes(std::vector<std::size_t>& hashes) const {
    if (!HasNumbers(m_section)) {
        hashes.push_back(Mix(ByName, std::hash<std::wstring>{}(m_section.name)));
        return;
    }
    std::size_t hash = ByNumbers;
    for (const std::int32_t number : m_section.numbers)
        hash = Mix(hash, static_cast<std::size_t>(number));
    hashes.push_back(hash);
}

bool GroupItemId::Equals(const ProductTreeItemId& other) const {
    const auto* id = dynamic_cast<const GroupItemId*>(&other);
    if (!id)
        return false;
    if (IsSameKey(m_key, id->m_key))
        return true;
    return m_firstChild && id->m_firstChild && m_firstChild->Equals(*id->m_firstChild);
}

void GroupItemId::AppendHashes(std::vector<std::size_t>& hashes) const {
    if (!m_key.IsEmpty())
        hashes.push_back(Mix(ByGroupKey, std::hash<UniqueMetaObjectKey>{}(m_key)));
    if (!m_firstChild)
        return;
    const std::size_t begin = hashes.size();
    m_firstChild->AppendHashes(hashes);
    for (std::size_t i = begin; i < hashes.size(); ++i)
        hashes[i] = Mix(ByFirstChild, hashes[i]);
}

} // namespace productTree
