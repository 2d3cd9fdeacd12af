// The structure of a product in memory as the library asks for it: which body a key belongs to,
// what is a use of what, and who owns whom.
#pragma once

#include "platform/product/answers/MemoryMetaData.h"

namespace platform {

class MemoryAggregator final : public IfProductDataAggregator {
public:
    MemoryAggregator(const ProductIndex& index, const ProductModel& model)
        : m_index(index), m_occurrences(index), m_objects(index, model) {}

    IfMetaProductData& GetPrimaryMetaData() const override { return m_occurrences; }
    IfMetaProductData& GetMetaData() const override { return m_objects; }
    IfMetaProductData& GetPartMetaData(const UniqueMetaObjectKey& key) const override;
    /// The body of objects also for a key that the product does not have.
    IfMetaProductData& GetMetaDataOf(const UniqueMetaObjectKey& key) const override;
    std::vector<UniqueMetaObjectKey> GetOccurrences(const UniqueMetaObjectKey& object,
                                                    const IfMetaProductData* within) const override;
    UniqueMetaObjectKey GetOwnerObject(const UniqueMetaObjectKey& occurrence) const override;
    bool IsInfObject(const UniqueMetaObjectKey& key) const override;
    GroupPartHandler GetGroupPartHandler(const UniqueMetaObjectKey& key) const override;
    std::set<UniqueMetaObjectKey> GetOwners(const UniqueMetaObjectKey& key) const override;
    SPCSection GetSection(const UniqueMetaObjectKey& key) const override;
    bool IsUsedInStyle(const UniqueMetaObjectKey& key, meta_data::SP::StyleId style) const override;
    bool IsManualBillet(const UniqueMetaObjectKey& key) const override;

private:
    const ProductIndex& m_index;
    // Handed out as they are by questions; nothing of them changes.
    mutable OccurrenceMetaData m_occurrences;
    mutable ObjectMetaData m_objects;
};

} // namespace platform
