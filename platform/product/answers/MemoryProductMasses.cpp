// Masses that are sums, and whether they are typed at all.
#include "platform/product/answers/MemoryProductState.h"
#include "platform/product/model/PropertyNumbers.h"

namespace platform {

void MemoryProduct::SetSimplified(bool isSimplified) {
    if (m_state->model.isReadOnly || m_state->model.isSimplified == isSimplified)
        return;
    Step step;
    step.name = GetText(isSimplified ? ProductText::TypedMaterials : ProductText::BookMaterials);
    step.edits.push_back(std::make_unique<SimplifiedEdit>(isSimplified));
    m_state->Do(std::move(step));
}

MassesBelow MemoryProduct::FindMassesBelow(const UniqueMetaObjectKey& part) const {
    const PartEntry* const found = m_state->index.Find(part);
    return found ? platform::FindMassesBelow(m_state->model, m_state->index, *found)
                 : MassesBelow();
}

MassesBelow MemoryProduct::FindOwnMass(const UniqueMetaObjectKey& part) const {
    const PartEntry* const found = m_state->index.Find(part);
    if (!found)
        return {};
    MassesBelow own{1, {}};
    if (ShownValues(m_state->index).Get(*found, number::mass).IsEmpty())
        own.without.push_back(part);
    return own;
}

} // namespace platform
