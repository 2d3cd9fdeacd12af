// The two bodies of meta data of a product in memory: the document's parts, which are the uses in
// the document's order, and the objects. The aggregator hands them out; both answer from the index,
// neutrally for keys of the other body.
#pragma once

#include "host/data/IfProductDataAggregator.h"
#include "platform/product/index/ProductIndex.h"

namespace platform {

/// What both bodies answer alike.
class MemoryMetaData : public IfMetaProductData {
public:
    int GetPartKind(const UniqueMetaObjectKey& key) const override;
    SimplePropVal GetProperty(const UniqueMetaObjectKey& key,
                              const std::wstring& property) const override;
    UniqueMetaObjectKey GetBilletOwner(const UniqueMetaObjectKey& key) const override;
    bool IsAssociativeBillet(const UniqueMetaObjectKey& key) const override;
    bool HasPartHandler(const UniqueMetaObjectKey& key) const override;
    PartHandler GetPartHandler(const UniqueMetaObjectKey& key) const override;
    std::vector<UniqueMetaObjectKey> GetPartsOfKinds(const std::set<int>& kinds) const override;
    std::vector<UniqueMetaObjectKey>
    GetOrderedPartsOfKinds(const std::set<int>& kinds) const override;
    const GroupingRecord* GetGroupingRecord(const UniqueMetaObjectKey& key) const override;

protected:
    explicit MemoryMetaData(const ProductIndex& index) : m_index(index) {}

    const ProductIndex& GetIndex() const { return m_index; }

private:
    /// Null for a part of the other body and for the root, which is no part.
    const PartEntry* FindOwn(const UniqueMetaObjectKey& key) const;
    virtual bool IsOwn(const PartEntry& part) const = 0;
    virtual std::span<const PartEntry> GetParts() const = 0;
    virtual const std::vector<const PartEntry*>& GetPartsByKey() const = 0;

    const ProductIndex& m_index;
};

class OccurrenceMetaData final : public MemoryMetaData {
public:
    explicit OccurrenceMetaData(const ProductIndex& index) : MemoryMetaData(index) {}

    /// The uses in a top part.
    std::vector<UniqueMetaObjectKey> GetDirectParts(const UniqueMetaObjectKey& key) const override;
    std::set<UniqueMetaObjectKey> GetBillets(const UniqueMetaObjectKey& key) const override;
    std::set<UniqueMetaObjectKey> GetParentParts(const UniqueMetaObjectKey& key) const override;

private:
    bool IsOwn(const PartEntry& part) const override;
    std::span<const PartEntry> GetParts() const override;
    const std::vector<const PartEntry*>& GetPartsByKey() const override;
};

class ObjectMetaData final : public MemoryMetaData {
public:
    ObjectMetaData(const ProductIndex& index, const ProductModel& model)
        : MemoryMetaData(index), m_model(model) {}

    /// The objects used in a top part, or those that name the object as their parent.
    std::vector<UniqueMetaObjectKey> GetDirectParts(const UniqueMetaObjectKey& key) const override;
    std::set<UniqueMetaObjectKey> GetBillets(const UniqueMetaObjectKey& key) const override;
    /// The objects named as parents, and the root where the object is used in all embodiments, else
    /// the embodiments. Empty for an object that nothing uses.
    std::set<UniqueMetaObjectKey> GetParentParts(const UniqueMetaObjectKey& key) const override;

private:
    bool IsOwn(const PartEntry& part) const override;
    std::span<const PartEntry> GetParts() const override;
    const std::vector<const PartEntry*>& GetPartsByKey() const override;

    const ProductModel& m_model;
};

/// The handler of one record; invalid for one that has none, or for null.
PartHandler MakePartHandler(const PartEntry* part);

} // namespace platform
