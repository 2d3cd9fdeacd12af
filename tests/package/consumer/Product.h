// The product of a host: parts with a name, a section and a comment, each used some times. Like
// objects share a group row; comments can be edited.
#pragma once

#include "host/data/GroupingRecord.h"
#include "host/data/NeutralMetaData.h"
#include "host/data/NeutralProductData.h"

#include <algorithm>
#include <map>

struct Part {
    std::wstring name;
    std::wstring designation;
    int section = 0;
    std::wstring comment;
    /// Made once: the order of rows is found by comparing these.
    meta_data::grouping::GroupingRecord record =
        meta_data::grouping::MakeGroupingRecord({{section}, {}}, designation, name, {}, std::nullopt);
};

using Key = UniqueMetaObjectKey;

inline const Key c_root(std::string("product"));

/// One of the two bodies: the parts as objects, or their uses.
class Body final : public NeutralMetaData {
public:
    void Add(const Key& key, const Part& part) {
        m_keys.push_back(key);
        m_records.emplace(key, &part.record);
    }

    int GetPartKind(const Key& key) const override {
        return m_records.contains(key) ? PartKindDetail : PartKindUnknown;
    }
    std::vector<Key> GetDirectParts(const Key& key) const override {
        return key == c_root ? m_keys : std::vector<Key>();
    }
    std::set<Key> GetParentParts(const Key&) const override { return {c_root}; }
    std::vector<Key> GetPartsOfKinds(const std::set<int>& kinds) const override {
        return kinds.contains(PartKindDetail) ? m_keys : std::vector<Key>();
    }
    const meta_data::grouping::GroupingRecord* GetGroupingRecord(const Key& key) const override {
        const auto found = m_records.find(key);
        return found == m_records.end() ? nullptr : found->second;
    }

private:
    std::vector<Key> m_keys;
    std::map<Key, const meta_data::grouping::GroupingRecord*> m_records;
};

/// The columns: the two that every row has, and the comment. All three are texts.
class TextProperty final : public IfPropertyDescription {
public:
    TextProperty(unsigned long id, const wchar_t* caption) : m_id(id), m_caption(caption) {}

    unsigned long GetId() const override { return m_id; }
    unsigned GetType() const override { return value_type::String; }
    const wchar_t* GetCaption() const override { return m_caption; }
    double GetMin() const override { return 0; }
    double GetMax() const override { return 0; }
    bool HasList() const override { return false; }
    std::list<SimplePropVal> GetList() const override { return {}; }
    double GetUnitCoefficient() const override { return 0; }
    std::wstring GetUnitCode() const override { return {}; }
    bool IsVariable() const override { return false; }

private:
    unsigned long m_id;
    const wchar_t* m_caption;
};

class Product final : public NeutralProductData, private NeutralAggregator {
public:
    void Add(const std::string& key, int uses, Part part) {
        const Key object(key);
        const Part& stored = m_parts.emplace(object, std::move(part)).first->second;
        m_objects.Add(object, stored);
        for (int i = 1; i <= uses; ++i) {
            const Key use(key + "#" + std::to_string(i));
            m_uses.Add(use, stored);
            m_owners.emplace(use, object);
            m_usesOf[object].push_back(use);
        }
    }
    void SetComment(const std::string& key, const std::wstring& comment) {
        m_parts.at(Key(key)).comment = comment;
        ++m_stamp;
    }

    std::uint64_t GetChangeStamp() const override { return m_stamp; }
    bool IsRebuildRequired() const override { return false; }
    IfProductDataAggregator& GetAggregator() const override { return const_cast<Product&>(*this); }
    Key GetRootKey() const override { return c_root; }
    std::vector<Key> GetTopKeys() const override { return {c_root}; }
    std::string GetColumnSetKey() const override { return "parts"; }
    std::vector<unsigned long> GetVisiblePropertyIds() const override { return {m_comment.GetId()}; }
    std::vector<const IfPropertyDescription*> GetPropertyDescriptions() const override {
        return {&m_name, &m_marking, &m_comment};
    }
    PropValue GetValue(const PropertyRef& ref) const override {
        const Part* const part = Find(ref.objectKey);
        if (ref.objectKey == c_root && ref.propertyId == L"name")
            return PropValue(SimplePropVal(SharedText(L"Gearbox")));
        if (part && ref.propertyId == L"name")
            return PropValue(SimplePropVal(part->name));
        if (part && ref.propertyId == L"comment")
            return PropValue(SimplePropVal(part->comment));
        return {};
    }
    bool IsReadOnly(const PropertyRef& ref) const override { return ref.propertyId != L"comment"; }
    using NeutralProductData::IsReadOnly;
    ProductInfObjChangesResult MakeValueChanges(const PropertyRef& ref, const PropValue& value) override {
        ProductInfObjChangesResult changes;
        if (!IsReadOnly(ref) && Find(ref.objectKey) && !(GetValue(ref) == value)) {
            changes.Add(std::make_shared<NewComment>(ref.objectKey, value.to_wstring()));
            changes.changedProperties.insert(ref.propertyId);
        }
        return changes;
    }
    void CommitChanges(ProductInfObjChangesResult& changes) override {
        for (const auto& change : changes.GetChanges()) {
            const auto& comment = static_cast<const NewComment&>(*change);
            const_cast<Part*>(Find(comment.key))->comment = comment.text;
        }
        m_stamp += changes.IsExistsChanges();
    }

private:
    struct NewComment final : IfProductChange {
        NewComment(Key where, std::wstring what) : key(std::move(where)), text(std::move(what)) {}
        Key key;
        std::wstring text;
    };

    /// The part that an object, or a use of one, stands for.
    const Part* Find(const Key& key) const {
        const auto owner = m_owners.find(key);
        const auto part = m_parts.find(owner == m_owners.end() ? key : owner->second);
        return part == m_parts.end() ? nullptr : &part->second;
    }

    IfMetaProductData& GetPrimaryMetaData() const override { return m_uses; }
    IfMetaProductData& GetMetaData() const override { return m_objects; }
    std::vector<Key> GetOccurrences(const Key& object, const IfMetaProductData*) const override {
        const auto uses = m_usesOf.find(object);
        return uses == m_usesOf.end() ? std::vector<Key>() : uses->second;
    }
    Key GetOwnerObject(const Key& use) const override {
        const auto owner = m_owners.find(use);
        return owner == m_owners.end() ? Key() : owner->second;
    }
    SPCSection GetSection(const Key& key) const override {
        const Part* const part = Find(key);
        return part ? part->record.section : SPCSection();
    }

    const TextProperty m_name{ProductProperties::nameId, L"Name"};
    const TextProperty m_marking{ProductProperties::markingId, L"Designation"};
    const TextProperty m_comment{ProductProperties::GetPropId(L"comment"), L"Comment"};
    std::map<Key, Part> m_parts;
    std::map<Key, Key> m_owners;
    std::map<Key, std::vector<Key>> m_usesOf;
    mutable Body m_objects;
    mutable Body m_uses;
    std::uint64_t m_stamp = 1;
};
