#include "platform/product/answers/MaterialChoice.h"
#include "platform/product/answers/MemoryProductState.h"

namespace platform {

bool MemoryProduct::IsSimplifiedMode() const {
    return m_state->model.isSimplified;
}

bool MemoryProduct::EditMip(const std::vector<UniqueMetaObjectKey>& keys, MipSource source) {
    return source == MipSource::TakeAway ? TakeMaterialsAway(keys) : ChooseMaterial(keys);
}

bool MemoryProduct::ChooseMaterial(const std::vector<UniqueMetaObjectKey>& keys) {
    if (!m_state->look->decisions)
        return false;
    std::optional<MaterialDecision> decision;
    {
        const MaterialChoice choice(m_state->GetRules(), keys);
        if (const std::optional<ProductText> refusal = choice.FindRefusal()) {
            m_state->refusal = refusal;
            return false;
        }
        const MaterialRequest request = choice.MakeRequest();
        decision = m_state->look->decisions->ChooseMaterial(request);
    }
    if (!decision)
        return false;
    // The document may be another one by now.
    MaterialChoice choice(m_state->GetRules(), keys);
    std::optional<Step> step = choice.MakeStep(*decision);
    if (!step) {
        m_state->refusal = choice.GetRefused();
        return false;
    }
    return m_state->Do(*std::move(step));
}

bool MemoryProduct::TakeMaterialsAway(const std::vector<UniqueMetaObjectKey>& keys) {
    MaterialChoice choice(m_state->GetRules(), keys);
    std::optional<Step> step = choice.MakeRemoval();
    if (!step) {
        m_state->refusal = choice.GetRefused();
        return false;
    }
    const std::vector<SharedText> notes = choice.MakeNotes(number::material);
    if (!notes.empty())
        m_state->note = notes.front();
    return m_state->Do(*std::move(step));
}

} // namespace platform
