#include "platform/product/edits/ModelEditor.h"

#include "host/ProductProperties.h"
#include "platform/product/model/PropertyNumbers.h"

#include <algorithm>
#include <boost/property_tree/ptree.hpp>

namespace platform {

namespace {

/// The entry that `isIt` finds changes places with `entry`, which keeps the place of one that it
/// takes away.
template <class Entry, class IsIt>
void ExchangeEntry(std::vector<Entry>& entries, std::optional<Entry>& entry, std::size_t& place,
                   const IsIt& isIt) {
    const auto found = std::ranges::find_if(entries, isIt);
    if (found == entries.end()) {
        if (!entry)
            return;
        const auto offset = static_cast<std::ptrdiff_t>(std::min(place, entries.size()));
        entries.insert(entries.begin() + offset, std::move(*entry));
        entry.reset();
        return;
    }
    if (entry) {
        std::swap(*found, *entry);
        return;
    }
    place = static_cast<std::size_t>(found - entries.begin());
    entry = std::move(*found);
    entries.erase(found);
}

void ExchangeName(SharedText& name, std::optional<PropValue>& value) {
    const SharedText present = name;
    name = value ? value->to_wstring() : SharedText();
    value.reset();
    if (!present.IsEmpty())
        value = PropValue(SimplePropVal(present));
}

void ExchangeMarking(VariantMarking& marking, std::optional<PropValue>& value) {
    const VariantMarking present = marking;
    marking = {};
    if (value)
        marking.FromPropertyTree(value->GetPropertyTree());
    value.reset();
    if (!(present == VariantMarking()))
        value = present.GetPropValue();
}

void ExchangeSection(SPCSection& section, std::optional<PropValue>& value) {
    SPCSection wanted;
    if (value)
        spc_section::FromPropertyTree(wanted, value->GetPropertyTree());
    const PropValue present = spc_section::ToPropValue(section);
    section = std::move(wanted);
    value.reset();
    if (!present.IsEmpty())
        value = present;
}

void ExchangeProperty(PropertyValues& properties, HeldValue& held) {
    std::optional<PropertyValues::value_type> entry;
    if (held.value)
        entry.emplace(held.number, std::move(*held.value));
    ExchangeEntry(properties, entry, held.place,
                  [&](const auto& property) { return property.first == held.number; });
    held.value.reset();
    if (entry)
        held.value = std::move(entry->second);
}

} // namespace

ProductIndex& ModelEditor::GetIndex() {
    if (m_isUnknown)
        m_index.Rebuild(m_model);
    else if (m_isMoved)
        m_index.Rearrange(m_model);
    if (m_isUnknown || m_isMoved)
        RegroupLinkedObjects(m_index);
    m_isUnknown = false;
    m_isMoved = false;
    return m_index;
}

ObjectRecord& ModelEditor::GetObject(const PartEntry& part) {
    const std::size_t place = m_index.GetPlace(part).object;
    return place == PartPlace::none ? m_model.root : m_model.objects[place];
}

PartRecord& ModelEditor::GetRecord(const PartEntry& part) {
    ObjectRecord& object = GetObject(part);
    if (!part.isUse)
        return object;
    return object.occurrences[m_index.GetPlace(part).use];
}

PartRecord* ModelEditor::FindPart(const UniqueMetaObjectKey& key) {
    const PartEntry* const part = GetIndex().Find(key);
    return part ? &GetRecord(*part) : nullptr;
}

ObjectRecord* ModelEditor::FindObject(const UniqueMetaObjectKey& key) {
    const PartEntry* const part = GetIndex().Find(key);
    return part && !part->isUse ? &GetObject(*part) : nullptr;
}

void ModelEditor::Exchange(HeldValue& held) {
    const PartEntry* const part = GetIndex().Find(held.part);
    if (!part)
        return;
    if (part->isUse)
        ExchangeProperty(GetRecord(*part).properties, held);
    else if (held.number == ProductProperties::nameId)
        ExchangeName(GetObject(*part).name, held.value);
    else if (held.number == ProductProperties::markingId)
        ExchangeMarking(GetObject(*part).marking, held.value);
    else if (held.number == number::section)
        ExchangeSection(GetObject(*part).section, held.value);
    else
        ExchangeProperty(GetObject(*part).properties, held);
    NoteValue(*part, held.number);
}

void ModelEditor::Exchange(HeldLink& held, PartRecord& record) {
    ExchangeEntry(record.links, held.link, held.place,
                  [&](const LinkRecord& link) { return link.property == held.number; });
    if (held.number == number::density)
        m_densityChanges.push_back(held.part);
    NoteStructure();
}

void ModelEditor::Exchange(HeldFlag& held) {
    ObjectRecord* const object = FindObject(held.object);
    if (!object)
        return;
    std::swap(object->*held.flag, held.isSet);
    NotePart(held.object);
    m_areMassesChanged |= held.flag == &ObjectRecord::sumsPartMasses;
}

void ModelEditor::Exchange(HeldCount& held) {
    const PartEntry* const part = GetIndex().Find(held.part);
    if (!part)
        return;
    ExchangeEntry(GetRecord(*part).counts, held.count, held.place,
                  [&](const CountRecord& count) { return count.embodiment == held.embodiment; });
    m_index.UpdateCounts(*part);
    NotePart(held.part);
    m_areCountsChanged = true;
}

void ModelEditor::Exchange(HeldDocuments& held) {
    ObjectRecord* const object = FindObject(held.object);
    if (!object)
        return;
    object->documents.swap(held.documents);
    NotePart(held.object);
}

void ModelEditor::Exchange(HeldAttribute& held) {
    if (auto* const used = std::get_if<meta_data::SPUsed>(&held.value)) {
        if (PartRecord* const part = FindPart(held.part))
            std::swap(part->part.used, *used);
    } else if (ObjectRecord* const object = FindObject(held.part)) {
        std::swap(object->aggrIntoProduct, std::get<std::optional<bool>>(held.value));
    }
}

void ModelEditor::Exchange(ProductModel& model) {
    std::swap(m_model, model);
    // How the document is looked at stays.
    m_model.embodimentMode = model.embodimentMode && !m_model.embodiments.empty();
    m_isDocumentChanged = true;
    NoteEverything();
}

void ModelEditor::NoteStructure() {
    m_isMoved = true;
    m_isAnythingChanged = true;
    m_areRowsChanged = true;
    m_areMassesChanged = true;
}

void ModelEditor::NoteEverything() {
    m_isUnknown = true;
    NoteStructure();
}

void ModelEditor::NotePart(const UniqueMetaObjectKey& key) {
    m_isAnythingChanged = true;
    m_changedParts.push_back(key);
}

void ModelEditor::NoteValue(const PartEntry& part, unsigned long number) {
    NotePart(part.key);
    m_areCountsChanged |= number == number::count;
    m_index.Update(part, number);
    if (!part.isUse && IsGroupedBy(number))
        m_areRowsChanged |= RegroupByShownValues(m_index, part);
    NoteWeight(part, number);
}

void ModelEditor::NoteWeight(const PartEntry& part, unsigned long number) {
    if (part.isUse)
        return;
    if (number == number::density)
        m_densityChanges.push_back(part.key);
    if (number == number::mass) {
        m_massChanges.insert(part.key);
        m_areMassesChanged = true;
    }
}

} // namespace platform
