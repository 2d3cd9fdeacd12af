// Writes into the model while an edit goes back or forth, keeps the index in step, and notes what
// the panel and the derived values will have to catch up with. Values are written in place and cost
// nothing but themselves; what moves records costs one walk over the model.
#pragma once

#include "platform/product/index/ShownValues.h"

#include <unordered_set>
#include <variant>
#include <vector>

namespace platform {

/// What one property of one holder has, or has had, in the model. No entry: it has none.
struct HeldValue {
    UniqueMetaObjectKey part;
    unsigned long number = 0;
    std::optional<PropValue> value;
    /// Among the values of its part, behind the last one where that is less.
    std::size_t place = PartPlace::none;
};

/// The same for a link.
struct HeldLink {
    UniqueMetaObjectKey part;
    unsigned long number = 0;
    std::optional<LinkRecord> link;
    std::size_t place = PartPlace::none;
};

/// What follows from something else: the name of an object from its section, or its mass from
/// those of its parts.
struct HeldFlag {
    UniqueMetaObjectKey object;
    bool ObjectRecord::*flag = nullptr;
    bool isSet = false;
};

/// Whether an object counts into the product, or the specifications that a part stands in.
using AttributeValue = std::variant<std::optional<bool>, meta_data::SPUsed>;

struct HeldAttribute {
    UniqueMetaObjectKey part;
    AttributeValue value;
};

/// As HeldLink for a count that was typed.
struct HeldCount {
    UniqueMetaObjectKey part;
    UniqueMetaObjectKey embodiment;
    std::optional<CountRecord> count;
    std::size_t place = PartPlace::none;
};

/// The list of an object's documents.
struct HeldDocuments {
    UniqueMetaObjectKey object;
    std::vector<DocumentRecord> documents;
};

class ModelEditor {
public:
    /// Both must outlive the editor and belong together.
    ModelEditor(ProductModel& model, ProductIndex& index) : m_model(model), m_index(index) {}

    ProductModel& GetModel() { return m_model; }
    /// Up to date.
    ProductIndex& GetIndex();
    /// Null for a part that is gone.
    PartRecord* FindPart(const UniqueMetaObjectKey& key);
    ObjectRecord* FindObject(const UniqueMetaObjectKey& key);

    /// What is held and what stands in the model change places. A part that is gone takes nothing.
    void Exchange(HeldValue& held);
    /// `record` is that of the link's part. Its place in memory stays.
    void Exchange(HeldLink& held, PartRecord& record);
    void Exchange(HeldFlag& held);
    void Exchange(HeldCount& held);
    void Exchange(HeldDocuments& held);
    /// NoteEverything has to follow, once for all of them.
    void Exchange(HeldAttribute& held);
    /// Records have come, gone or moved, or say other things of other parts.
    void NoteStructure();
    /// The model may be another one.
    void NoteEverything();
    /// Another document's model changes places with the one that stands.
    void Exchange(ProductModel& model);

    bool IsAnythingChanged() const { return m_isAnythingChanged; }
    /// Style and properties may be others, too.
    bool IsDocumentChanged() const { return m_isDocumentChanged; }
    /// Rows or columns depend on what was changed.
    bool AreRowsChanged() const { return m_areRowsChanged; }
    void NoteRows() { m_areRowsChanged = true; }
    /// How the document is edited, which cells and heads depend on, and nothing of what it holds.
    void NoteMode() { m_isAnythingChanged = m_areRowsChanged = true; }
    /// What something was written of, where no rows are changed. Parts may be in it twice.
    const std::vector<UniqueMetaObjectKey>& GetChangedParts() const { return m_changedParts; }
    /// Among it are counts.
    bool AreCountsChanged() const { return m_areCountsChanged; }
    /// Masses of parts may be others.
    bool AreMassesChanged() const { return m_areMassesChanged; }
    /// The objects whose densities were changed, and those whose masses were.
    const std::vector<UniqueMetaObjectKey>& GetDensityChanges() const { return m_densityChanges; }
    bool IsMassChanged(const UniqueMetaObjectKey& object) const {
        return m_massChanges.contains(object);
    }

private:
    ObjectRecord& GetObject(const PartEntry& part);
    PartRecord& GetRecord(const PartEntry& part);
    void NotePart(const UniqueMetaObjectKey& key);
    void NoteValue(const PartEntry& part, unsigned long number);
    void NoteWeight(const PartEntry& part, unsigned long number);

    ProductModel& m_model;
    ProductIndex& m_index;
    bool m_isMoved = false;
    bool m_isUnknown = false;
    bool m_isDocumentChanged = false;
    bool m_isAnythingChanged = false;
    bool m_areRowsChanged = false;
    bool m_areCountsChanged = false;
    bool m_areMassesChanged = false;
    std::vector<UniqueMetaObjectKey> m_changedParts;
    std::vector<UniqueMetaObjectKey> m_densityChanges;
    std::unordered_set<UniqueMetaObjectKey> m_massChanges;
};

} // namespace platform
