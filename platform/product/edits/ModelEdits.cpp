#include "platform/product/edits/ModelEdits.h"

#include "platform/product/model/AssemblyLevels.h"

#include <algorithm>
#include <unordered_map>

namespace platform {

namespace {

/// What goes from the level that is shown may stand in assemblies that are not.
void KeepWhatOthersUse(ProductModel& model, const RecordsSwap<ObjectRecord>& moved) {
    if (!HasLevels(model))
        return;
    std::vector<const ObjectRecord*> gone;
    std::vector<UniqueMetaObjectKey> back;
    for (const PlacedRecord<ObjectRecord>& placed : moved.GetRecords()) {
        if (placed.record)
            gone.push_back(&*placed.record);
        else
            back.push_back(placed.key);
    }
    if (moved.AreHeld())
        KeepBelow(model, gone);
    else
        TakeFromBelow(model, back);
}

/// Back from the last to the first, since an entry's place is that among those of its time.
template <class Held, class Exchange>
void ForEachIn(std::vector<Held>& all, Direction direction, const Exchange& exchange) {
    if (direction == Direction::Forth)
        std::ranges::for_each(all, exchange);
    else
        std::for_each(all.rbegin(), all.rend(), exchange);
}

} // namespace

void ValuesEdit::Swap(ModelEditor& editor, Direction direction) {
    ForEachIn(m_values, direction, [&](HeldValue& held) { editor.Exchange(held); });
}

void LinksEdit::Swap(ModelEditor& editor, Direction direction) {
    // All parts are found before the first is changed: the index is made anew only once.
    std::unordered_map<UniqueMetaObjectKey, PartRecord*> parts;
    for (const HeldLink& held : m_links)
        parts.emplace(held.part, editor.FindPart(held.part));
    ForEachIn(m_links, direction, [&](HeldLink& held) {
        if (PartRecord* const part = parts.at(held.part))
            editor.Exchange(held, *part);
    });
}

void FlagsEdit::Swap(ModelEditor& editor, Direction direction) {
    ForEachIn(m_flags, direction, [&](HeldFlag& held) { editor.Exchange(held); });
}

void AttributesEdit::Swap(ModelEditor& editor, Direction direction) {
    ForEachIn(m_attributes, direction, [&](HeldAttribute& held) { editor.Exchange(held); });
    // Parts that stay where they are say other things of themselves.
    editor.NoteEverything();
}

void CountsEdit::Swap(ModelEditor& editor, Direction direction) {
    ForEachIn(m_counts, direction, [&](HeldCount& held) { editor.Exchange(held); });
}

void DocumentsEdit::Swap(ModelEditor& editor, Direction direction) {
    ForEachIn(m_documents, direction, [&](HeldDocuments& held) { editor.Exchange(held); });
}

template <class Record>
RecordsSwap<Record>::RecordsSwap(const std::vector<UniqueMetaObjectKey>& keys) {
    m_records.reserve(keys.size());
    for (const UniqueMetaObjectKey& key : keys)
        m_records.push_back({key, 0, std::nullopt});
}

template <class Record>
RecordsSwap<Record>::RecordsSwap(Record record, std::size_t place) : m_areHeld(true) {
    UniqueMetaObjectKey key = record.key;
    m_records.push_back({std::move(key), place, std::move(record)});
}

template <class Record>
void RecordsSwap<Record>::Swap(std::vector<Record>& records) {
    if (m_records.empty())
        return;
    if (m_areHeld)
        PutBack(records);
    else
        Take(records);
    m_areHeld = !m_areHeld;
}

template <class Record>
void RecordsSwap<Record>::Take(std::vector<Record>& records) {
    std::unordered_map<UniqueMetaObjectKey, PlacedRecord<Record>*> wanted;
    for (PlacedRecord<Record>& placed : m_records)
        wanted.emplace(placed.key, &placed);
    std::size_t kept = 0;
    for (std::size_t place = 0; place < records.size(); ++place) {
        const auto found = wanted.find(records[place].key);
        if (found != wanted.end() && !found->second->record) {
            found->second->place = place;
            found->second->record = std::move(records[place]);
            continue;
        }
        if (kept != place)
            records[kept] = std::move(records[place]);
        ++kept;
    }
    records.erase(records.begin() + static_cast<std::ptrdiff_t>(kept), records.end());
    std::ranges::sort(m_records, {}, &PlacedRecord<Record>::place);
}

template <class Record>
void RecordsSwap<Record>::PutBack(std::vector<Record>& records) {
    std::size_t kept = records.size();
    std::size_t left =
        static_cast<std::size_t>(std::ranges::count_if(m_records, &PlacedRecord<Record>::IsHeld));
    records.resize(kept + left);
    // From the end, where there is room: each record moves once, and none before the first place.
    std::size_t place = records.size();
    for (auto at = m_records.rbegin(); at != m_records.rend(); ++at) {
        PlacedRecord<Record>& placed = *at;
        if (!placed.IsHeld())
            continue;
        --left;
        while (place > std::min(placed.place, kept + left) + 1)
            records[--place] = std::move(records[--kept]);
        records[--place] = std::move(*placed.record);
        placed.record.reset();
    }
}

template class RecordsSwap<ObjectRecord>;
template class RecordsSwap<OccurrenceRecord>;

/// The same order both ways: all that is said of parts that stay is written before anything moves,
/// so that the index finds them as it is.
void StructureEdit::Swap(ModelEditor& editor, Direction /*direction*/) {
    for (ObjectReferences& references : m_change.references) {
        if (ObjectRecord* const object = editor.FindObject(references.object)) {
            object->parents.swap(references.parents);
            object->owners.swap(references.owners);
        }
    }
    for (PartGroup& group : m_change.groups) {
        if (PartRecord* const part = editor.FindPart(group.part))
            std::swap(part->groupKey, group.group);
    }
    for (UsesOfObject& uses : m_change.uses) {
        if (ObjectRecord* const object = editor.FindObject(uses.object))
            uses.uses.Swap(object->occurrences);
    }
    m_change.objects.Swap(editor.GetModel().objects);
    KeepWhatOthersUse(editor.GetModel(), m_change.objects);
    editor.NoteStructure();
}

void DeletedUsesEdit::Swap(ModelEditor& editor, Direction direction) {
    std::optional<SourceFile>& source = editor.GetModel().source;
    if (!source)
        return;
    std::vector<DeletedUse>& deleted = source->deletedUses;
    if (direction == Direction::Forth)
        deleted.insert(deleted.end(), m_uses.begin(), m_uses.end());
    else
        deleted.resize(deleted.size() - std::min(deleted.size(), m_uses.size()));
}

void SimplifiedEdit::Swap(ModelEditor& editor, Direction /*direction*/) {
    std::swap(editor.GetModel().isSimplified, m_isSimplified);
    editor.NoteMode();
}

void DocumentEdit::Swap(ModelEditor& editor, Direction /*direction*/) {
    editor.Exchange(m_model);
}

} // namespace platform
