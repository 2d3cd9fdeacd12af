#include "platform/product/answers/MemoryProductState.h"
#include "platform/product/model/PropertyNumbers.h"

namespace platform {

std::set<UniqueMetaObjectKey> MemoryProduct::GetCurrentEmbodiments() const {
    const std::vector<UniqueMetaObjectKey>& keys = m_state->index.GetTopParts().GetCurrentKeys();
    return {keys.begin(), keys.end()};
}

UniqueMetaObjectKey MemoryProduct::GetCountKey(const UniqueMetaObjectKey& key,
                                               const std::set<UniqueMetaObjectKey>& embodiments,
                                               bool /*inGroup*/) const {
    const PartEntry* const part = m_state->index.Find(key);
    return part ? m_state->counts.FindEmbodiment(*part, embodiments) : UniqueMetaObjectKey();
}

PropValue MemoryProduct::GetGroupCount(const UniqueMetaObjectKey& key,
                                       const std::set<UniqueMetaObjectKey>& embodiments) const {
    const PartEntry* const part = m_state->index.Find(key);
    return part ? m_state->counts.GetOfGroup(*part, embodiments) : PropValue();
}

bool MemoryProduct::IsRecalcAvailable(const PropertyRef& ref) const {
    const PartEntry* const part = m_state->index.Find(ref.objectKey);
    // Nearly no count was typed.
    if (!part || !part->hasCounts || IsReadOnly(ref))
        return false;
    const CountRecord* const typed = m_state->counts.FindTyped(*part, ref.secondKey);
    return typed &&
           !(m_state->counts.WorkOutShown(*part, ref.secondKey).to_wstring() == typed->count);
}

ProductInfObjChangesResult MemoryProduct::MakeRecalcChanges(const UniqueMetaObjectKey& key,
                                                            const UniqueMetaObjectKey& embodiment) {
    return m_state->MakeSet(std::make_shared<CountChange>(key, embodiment, std::nullopt));
}

SharedText MemoryProduct::MakeCountNote(const UniqueMetaObjectKey& embodiment) const {
    const SharedText name = NameEmbodiment(m_state->model, embodiment);
    return name.IsEmpty() ? SharedText() : GetText(ProductText::CountGoesTo, {name});
}

} // namespace platform
