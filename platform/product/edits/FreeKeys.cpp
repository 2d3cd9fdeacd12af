#include "platform/product/edits/FreeKeys.h"

#include <unordered_set>

namespace platform {

UniqueMetaObjectKey MakeFreeKey(const ProductModel& model, const ProductIndex& index,
                                const std::string& prefix) {
    std::unordered_set<UniqueMetaObjectKey> named;
    for (const ObjectRecord& object : model.objectsBelow) {
        named.insert(object.key);
        for (const OccurrenceRecord& use : object.occurrences)
            named.insert(use.key);
    }
    for (const PartEntry* const part : index.GetLinkedParts()) {
        for (const LinkRecord& link : part->record->links)
            named.insert(link.target);
    }
    const auto isTaken = [&](const UniqueMetaObjectKey& key) {
        return index.Find(key) || named.contains(key);
    };
    for (int number = 1;; ++number) {
        UniqueMetaObjectKey key(prefix + std::to_string(number));
        if (!isTaken(key) && !isTaken(UniqueMetaObjectKey(key.String() + "#1")))
            return key;
    }
}

} // namespace platform
