// What makes a row the same row after a rebuild. Rows are used again by position, so that the id is
// the only thing by which expansion and selection find their rows again.
#pragma once

#include "host/SPCSection.h"
#include "host/UniqueMetaObjectKey.h"

#include <cstddef>
#include <memory>
#include <vector>

namespace productTree {

class ProductTreeItemId {
public:
    /// Ids of different classes are never equal.
    virtual bool Equals(const ProductTreeItemId& other) const = 0;
    virtual ~ProductTreeItemId() = default;

    /// Appends hashes under which the id is to be looked for. Two equal ids have at least one in
    /// common; an id that equals nothing has none.
    virtual void AppendHashes(std::vector<std::size_t>& hashes) const = 0;
};

/// The row of one object. An empty key equals nothing, not even an empty key.
class ItemIdByKey final : public ProductTreeItemId {
public:
    explicit ItemIdByKey(UniqueMetaObjectKey key) : m_key(std::move(key)) {}

    bool Equals(const ProductTreeItemId& other) const override;
    void AppendHashes(std::vector<std::size_t>& hashes) const override;

private:
    UniqueMetaObjectKey m_key;
};

/// A section is known by its numbers; one without numbers by its name.
class SectionItemId final : public ProductTreeItemId {
public:
    explicit SectionItemId(SPCSection section) : m_section(std::move(section)) {}

    bool Equals(const ProductTreeItemId& other) const override;
    void AppendHashes(std::vector<std::size_t>& hashes) const override;

private:
    SPCSection m_section;
};

/// A group is known by its key, or else by its first child: the sorter may choose another key when
/// the members change.
class GroupItemId final : public ProductTreeItemId {
public:
    /// `firstChild` is null for a group without children.
    GroupItemId(UniqueMetaObjectKey key, std::shared_ptr<ProductTreeItemId> firstChild)
        : m_key(std::move(key)), m_firstChild(std::move(firstChild)) {}

    bool Equals(const ProductTreeItemId& other) const override;
    void AppendHashes(std::vector<std::size_t>& hashes) const override;

private:
    UniqueMetaObjectKey m_key;
    std::shared_ptr<ProductTreeItemId> m_firstChild;
};

} // namespace productTree
