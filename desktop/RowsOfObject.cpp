#include "desktop/RowsOfObject.h"

#include "items/ProductTreeItemData.h"
#include "platform/product/model/ProductModel.h"
#include "platform/view/TreeTableRow.h"

#include <algorithm>
#include <set>

namespace desktop {

namespace {

using Keys = std::set<UniqueMetaObjectKey>;

/// The keys of the object and of all its uses, each of which may stand for it.
Keys FindAllKeys(const platform::ProductModel& model, const UniqueMetaObjectKey& key) {
    Keys keys{key};
    for (const platform::ObjectRecord& object : model.objects) {
        const auto& uses = object.occurrences;
        const bool isIt =
            object.key == key ||
            std::ranges::find(uses, key, &platform::OccurrenceRecord::key) != uses.end();
        if (!isIt)
            continue;
        keys.insert(object.key);
        for (const platform::OccurrenceRecord& use : uses)
            keys.insert(use.key);
        return keys;
    }
    return keys;
}

bool StandsFor(const platform::TreeTableRow& row, const Keys& keys) {
    const productTree::ProductTreeItemData* const data = row.GetData();
    const UniqueMetaObjectKey own = data ? data->GetObjectKey() : UniqueMetaObjectKey();
    // The root row and those of sections stand for no object, whatever stands below them.
    if (own.IsEmpty())
        return false;
    const std::vector<UniqueMetaObjectKey> all = data->GetAllKeys();
    return keys.contains(own) || std::ranges::any_of(all, [&](const UniqueMetaObjectKey& member) {
               return keys.contains(member);
           });
}

void Collect(platform::TreeTableRow& row, const Keys& keys,
             std::vector<platform::TreeTableRow*>& rows) {
    if (StandsFor(row, keys))
        rows.push_back(&row);
    for (std::size_t i = 0; i < row.GetChildCount(); ++i)
        Collect(row.GetChildRow(i), keys, rows);
}

} // namespace

std::vector<platform::TreeTableRow*> FindRowsOf(const platform::ProductModel& model,
                                                const UniqueMetaObjectKey& key,
                                                platform::TreeTableRow* root) {
    std::vector<platform::TreeTableRow*> rows;
    if (root)
        Collect(*root, FindAllKeys(model, key), rows);
    return rows;
}

} // namespace desktop
