// A change set: what is to change in the product. The product data makes it, the library merges
// several into one and gives it back to be applied; it never looks inside.
#pragma once

#include <memory>
#include <set>
#include <string>
#include <vector>

/// One change in a set, of a kind that only the host knows.
class IfProductChange {
public:
    virtual ~IfProductChange() = default;
};

class ProductInfObjChangesResult {
public:
    /// Before CommitChanges: there is something to apply. Afterwards: something was applied.
    bool IsExistsChanges() const noexcept { return !m_changes.empty(); }

    /// Takes over the changes of `other`, behind its own. Who merges two sets adds the other's
    /// `changedProperties` as well.
    ProductInfObjChangesResult& operator+=(const ProductInfObjChangesResult& other) {
        m_changes.insert(m_changes.end(), other.m_changes.begin(), other.m_changes.end());
        return *this;
    }

    /// For the host: in the order in which they are to be applied.
    const std::vector<std::shared_ptr<const IfProductChange>>& GetChanges() const noexcept {
        return m_changes;
    }
    void Add(std::shared_ptr<const IfProductChange> change) {
        m_changes.push_back(std::move(change));
    }
    void Clear() noexcept { m_changes.clear(); }

    /// Ids of the properties that the changes are about.
    std::set<std::wstring> changedProperties;

private:
    std::vector<std::shared_ptr<const IfProductChange>> m_changes;
};
