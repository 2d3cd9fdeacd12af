// What deleting parts takes with it, and the edits that do it. An occurrence goes alone unless it
// is the last of its object; an object goes with its occurrences and its billets. Whoever refers to
// what goes forgets it, and a property that was linked to it keeps what it showed.
#pragma once

#include "platform/product/edits/ModelEdits.h"
#include "platform/product/index/RowRules.h"

#include <memory>
#include <set>
#include <unordered_set>
#include <vector>

namespace platform {

class Deletion final {
public:
    /// Keys of the root and of nothing are passed over. The index must stay as it is for as long as
    /// the deletion is used.
    Deletion(const ProductIndex& index, const RowRules& rows,
             const std::set<UniqueMetaObjectKey>& keys);

    bool IsEmpty() const { return m_gone.empty(); }
    /// Rows that go, groups' own apart; at least one, since something was chosen to go.
    std::size_t GetRowCount() const {
        return IsEmpty() || m_rowCount > 0 ? m_rowCount : std::size_t{1};
    }
    /// All keys are of one object or its occurrences, whatever goes along with it.
    bool IsOneObject(const std::set<UniqueMetaObjectKey>& keys) const;
    /// One of the objects that are deleted or lose occurrences; null when there is none.
    const PartEntry* GetObject() const { return m_object; }

    /// To be swapped forth, in their order. `assembly` is the one that is shown.
    std::vector<std::unique_ptr<IModelEdit>> MakeEdits(const UniqueMetaObjectKey& assembly) const;

private:
    using Parts = std::vector<const PartEntry*>;

    void TakeObject(const PartEntry& object);
    void TakeUses(const PartEntry& object, const Parts& uses);
    bool IsGone(const UniqueMetaObjectKey& key) const;
    std::vector<HeldValue> FindLastValues() const;
    std::vector<ObjectReferences> FindReferences() const;
    std::vector<PartGroup> FindGroups() const;
    std::vector<DeletedUse> FindDeletedUses(const UniqueMetaObjectKey& assembly) const;

    const ProductIndex& m_index;
    const RowRules& m_rows;
    /// Objects and uses.
    std::unordered_set<const PartEntry*> m_gone;
    std::vector<UniqueMetaObjectKey> m_objects;
    std::vector<UsesOfObject> m_uses;
    std::size_t m_rowCount = 0;
    const PartEntry* m_object = nullptr;
};

} // namespace platform
