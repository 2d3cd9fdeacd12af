// The kinds of changes that steps are made of. Each holds the other state of what it changes, and
// changes places with the model: after going forth it knows the way back, and nothing else is kept.
#pragma once

#include "platform/product/edits/ModelEditor.h"

#include <memory>

namespace platform {

enum class Direction { Forth, Back };

class IModelEdit {
public:
    virtual ~IModelEdit() = default;

    /// Called with Forth first, then with Back and Forth in turn. What has gone from the model in
    /// between is passed over.
    virtual void Swap(ModelEditor& editor, Direction direction) = 0;
};

class ValuesEdit final : public IModelEdit {
public:
    explicit ValuesEdit(std::vector<HeldValue> values) : m_values(std::move(values)) {}

    void Swap(ModelEditor& editor, Direction direction) override;

private:
    std::vector<HeldValue> m_values;
};

class LinksEdit final : public IModelEdit {
public:
    explicit LinksEdit(std::vector<HeldLink> links) : m_links(std::move(links)) {}

    void Swap(ModelEditor& editor, Direction direction) override;

private:
    std::vector<HeldLink> m_links;
};

class FlagsEdit final : public IModelEdit {
public:
    explicit FlagsEdit(std::vector<HeldFlag> flags) : m_flags(std::move(flags)) {}

    void Swap(ModelEditor& editor, Direction direction) override;

private:
    std::vector<HeldFlag> m_flags;
};

class AttributesEdit final : public IModelEdit {
public:
    explicit AttributesEdit(std::vector<HeldAttribute> attributes)
        : m_attributes(std::move(attributes)) {}

    void Swap(ModelEditor& editor, Direction direction) override;

private:
    std::vector<HeldAttribute> m_attributes;
};

class CountsEdit final : public IModelEdit {
public:
    explicit CountsEdit(std::vector<HeldCount> counts) : m_counts(std::move(counts)) {}

    void Swap(ModelEditor& editor, Direction direction) override;

private:
    std::vector<HeldCount> m_counts;
};

class DocumentsEdit final : public IModelEdit {
public:
    explicit DocumentsEdit(std::vector<HeldDocuments> documents)
        : m_documents(std::move(documents)) {}

    void Swap(ModelEditor& editor, Direction direction) override;

private:
    std::vector<HeldDocuments> m_documents;
};

/// A record that is in the model or was taken from it.
template <class Record>
struct PlacedRecord {
    UniqueMetaObjectKey key;
    /// Of a record that was taken away.
    std::size_t place = 0;
    std::optional<Record> record;

    bool IsHeld() const { return record.has_value(); }
};

/// Records of one list come and go together.
template <class Record>
class RecordsSwap final {
public:
    /// None.
    RecordsSwap() = default;
    /// Records to be taken away, by their keys.
    explicit RecordsSwap(const std::vector<UniqueMetaObjectKey>& keys);
    /// One to be put in.
    RecordsSwap(Record record, std::size_t place);

    void Swap(std::vector<Record>& records);

    /// The records are out of the model.
    bool AreHeld() const { return m_areHeld; }
    const std::vector<PlacedRecord<Record>>& GetRecords() const { return m_records; }

private:
    void Take(std::vector<Record>& records);
    void PutBack(std::vector<Record>& records);

    /// In the order of their places, when they are out of the model.
    std::vector<PlacedRecord<Record>> m_records;
    bool m_areHeld = false;
};

struct UsesOfObject {
    UniqueMetaObjectKey object;
    RecordsSwap<OccurrenceRecord> uses;
};

struct ObjectReferences {
    UniqueMetaObjectKey object;
    std::vector<UniqueMetaObjectKey> parents;
    std::vector<UniqueMetaObjectKey> owners;
};

struct PartGroup {
    UniqueMetaObjectKey part;
    UniqueMetaObjectKey group;
};

/// Objects and uses that come or go, and what the parts that stay say of them.
struct StructureChange {
    std::vector<ObjectReferences> references;
    std::vector<PartGroup> groups;
    std::vector<UsesOfObject> uses;
    RecordsSwap<ObjectRecord> objects;
};

class StructureEdit final : public IModelEdit {
public:
    explicit StructureEdit(StructureChange change) : m_change(std::move(change)) {}

    void Swap(ModelEditor& editor, Direction direction) override;

private:
    StructureChange m_change;
};

/// Uses that the source has are deleted, and don't come back with it.
class DeletedUsesEdit final : public IModelEdit {
public:
    explicit DeletedUsesEdit(std::vector<DeletedUse> uses) : m_uses(std::move(uses)) {}

    void Swap(ModelEditor& editor, Direction direction) override;

private:
    std::vector<DeletedUse> m_uses;
};

/// Whether mass, density and material are plain values.
class SimplifiedEdit final : public IModelEdit {
public:
    explicit SimplifiedEdit(bool isSimplified) : m_isSimplified(isSimplified) {}

    void Swap(ModelEditor& editor, Direction direction) override;

private:
    bool m_isSimplified;
};

/// The whole document, as it was read from elsewhere.
class DocumentEdit final : public IModelEdit {
public:
    explicit DocumentEdit(ProductModel model) : m_model(std::move(model)) {}

    void Swap(ModelEditor& editor, Direction direction) override;

private:
    ProductModel m_model;
};

} // namespace platform
