#include "platform/product/answers/MemoryProductState.h"

#include "host/ProductProperties.h"
#include "platform/product/model/ValueFitting.h"

#include <set>

namespace platform {

namespace {

/// What of an occurrence could be written to its object; no value: nothing.
std::optional<ValueHolder> FindOwnValue(const EditRules& rules, const PartEntry& part,
                                        unsigned long number) {
    if (!part.isUse || rules.IsFixed(part, number))
        return std::nullopt;
    const ShownValues shown(rules.index);
    const ValueHolder holder = shown.FindHolder(part, number);
    const bool isOwn = holder.part == &part;
    if (!isOwn || shown.FindLink(holder) || shown.FindLink({part.owner, number}))
        return std::nullopt;
    return holder;
}

} // namespace

// Of plain parts, which nearly all are, everything but the value is known beforehand.
PropertyReading MemoryProduct::ReadProperty(const UniqueMetaObjectKey& objectKey,
                                            const SharedText& propertyId) const {
    static const PropValue none;
    // Turned to this look once, and not for each question.
    State& state = *m_state.operator->();
    const PartEntry* const part = state.index.Find(objectKey);
    if (!part)
        return {};
    const PropertyTraits& property = state.properties.Get(propertyId);
    if (!part->isPlain)
        return IfProductTreeData::ReadProperty(objectKey, propertyId);
    PropertyReading reading;
    reading.kept = ShownValues(state.index).Find(*part, property.number);
    if (!reading.kept)
        reading.kept = &none;
    reading.isReadOnly = state.model.isReadOnly || property.isReadOnly;
    if (part->isUse && !property.belongsToObject)
        reading.bySource = true;
    return reading;
}

PropValue MemoryProduct::GetValue(const PropertyRef& ref) const {
    const PartEntry* const part = m_state->index.Find(ref.objectKey);
    if (!part)
        return {};
    const PropertyTraits& property = m_state->GetTraits(ref);
    return m_state->IsCount(property, ref)
               ? m_state->counts.Get(*part, ref.secondKey)
               : ShownValues(m_state->index).Get(*part, property.number);
}

bool MemoryProduct::IsReadOnly(const PropertyRef& ref) const {
    const PartEntry* const part = m_state->index.Find(ref.objectKey);
    if (!part)
        return true;
    const PropertyTraits& property = m_state->GetTraits(ref);
    if (m_state->IsCount(property, ref) &&
        (part->isRoot || !m_state->counts.IsCounted(ref.secondKey)))
        return true;
    return m_state->GetRules().IsFixed(*part, property);
}

ProductInfObjChangesResult MemoryProduct::MakeValueChanges(const PropertyRef& ref,
                                                           const PropValue& value) {
    const PropertyTraits& property = m_state->GetTraits(ref);
    if (m_state->IsCount(property, ref))
        return m_state->MakeSet(std::make_shared<CountChange>(ref.objectKey, ref.secondKey, value));
    return m_state->MakeSet(std::make_shared<ValueChange>(ref.objectKey, property.number, value));
}

std::optional<bool> MemoryProduct::GetBySource(const PropertyRef& ref) const {
    const PartEntry* const part = m_state->index.Find(ref.objectKey);
    const PropertyTraits& property = m_state->GetTraits(ref);
    if (!part || !part->isUse || property.belongsToObject)
        return std::nullopt;
    return part->isPlain ||
           ShownValues(m_state->index).FindHolder(*part, property.number).part != part;
}

ProductInfObjChangesResult MemoryProduct::MakeBySourceChanges(const PropertyRef& ref,
                                                              bool bySource) {
    return m_state->MakeSet(
        std::make_shared<BySourceChange>(ref.objectKey, m_state->GetTraits(ref).number, bySource));
}

SharedText MemoryProduct::State::NameStep(const ProductChange& change) const {
    if (SharedText name = change.MakeStepName(); !name.IsEmpty())
        return name;
    const SharedText caption = change.MakeCaption();
    return GetText(ProductText::Change,
                   {caption.IsEmpty() ? GetCaption(change.GetNumber()) : caption});
}

void MemoryProduct::CommitChanges(ProductInfObjChangesResult& changes) {
    if (!m_state->MayRemove(changes))
        return changes.Clear();
    ValuePlan plan(m_state->index);
    std::set<std::wstring> names;
    for (const auto& change : changes.GetChanges()) {
        const auto* const wanted = dynamic_cast<const ProductChange*>(change.get());
        if (!wanted || !wanted->Plan(m_state->GetRules(), plan))
            return changes.Clear();
        names.insert(m_state->NameStep(*wanted).Str());
        if (m_state->index.GetTopParts().GetCurrentKeys().size() > 1)
            m_state->note = wanted->MakeNote(m_state->GetRules());
    }
    std::vector<std::unique_ptr<IModelEdit>> edits = plan.MakeEdits();
    if (edits.empty())
        return changes.Clear();
    SharedText name =
        names.size() == 1 ? SharedText(*names.begin()) : GetText(ProductText::Changes);
    m_state->Do({std::move(name), std::move(edits)});
}

bool MemoryProduct::CanTransmitToSource(const UniqueMetaObjectKey& key,
                                        const std::wstring& columnId) const {
    const PartEntry* const part = m_state->index.Find(key);
    const unsigned long number = ProductProperties::GetPropId(columnId);
    const std::optional<ValueHolder> own =
        part ? FindOwnValue(m_state->GetRules(), *part, number) : std::nullopt;
    if (!own)
        return false;
    const ShownValues shown(m_state->index);
    return !(shown.Get(*part->owner, number) == shown.Get(*part, number));
}

void MemoryProduct::TransmitToSource(
    const std::wstring& columnId,
    const std::vector<std::pair<UniqueMetaObjectKey, PropValue>>& values) {
    const unsigned long number = ProductProperties::GetPropId(columnId);
    ValuePlan plan(m_state->index);
    for (const auto& [key, shown] : values) {
        const PartEntry* const part = m_state->index.Find(key);
        const std::optional<ValueHolder> own =
            part ? FindOwnValue(m_state->GetRules(), *part, number) : std::nullopt;
        if (!own)
            continue;
        const PropValue held = plan.GetHeld(*own).value_or(PropValue());
        std::optional<PropValue> value =
            FitShownValue(*m_state->properties.Get(number).record, held, shown);
        if (!value)
            continue;
        plan.SetValue({part->owner, number}, *std::move(value));
        plan.TakeBySource(*own);
    }
    m_state->Do(
        {GetText(ProductText::Transmission, {m_state->GetCaption(number)}), plan.MakeEdits()});
}

std::set<int> MemoryProduct::GetLockedMarkingParts(const UniqueMetaObjectKey& key) const {
    const PartEntry* const part = m_state->index.Find(key);
    if (!part || !part->hasLockedMarkingParts)
        return {};
    return part->object->record->lockedMarkingParts;
}

bool MemoryProduct::IsMarkingChangeAllowed(const UniqueMetaObjectKey& key,
                                           const PropValue& marking) const {
    const PartEntry* const part = m_state->index.Find(key);
    return part && FitMarking(*part->object->record, marking).has_value();
}

} // namespace platform
