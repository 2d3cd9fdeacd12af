#include "platform/product/model/ModelEmbodiments.h"

namespace platform {

std::size_t ModelEmbodiments::GetCount() const {
    return m_model.embodiments.size();
}

std::set<UniqueMetaObjectKey> ModelEmbodiments::GetRawKeys(std::size_t index) const {
    const EmbodimentRecord* const embodiment = Find(index);
    if (!embodiment || embodiment->key.IsEmpty())
        return {};
    return {embodiment->key};
}

VariantMarking ModelEmbodiments::GetEmbodimentMarking(std::size_t index) const {
    const EmbodimentRecord* const embodiment = Find(index);
    return embodiment ? embodiment->marking : VariantMarking();
}

const EmbodimentRecord* ModelEmbodiments::Find(std::size_t index) const {
    return index < m_model.embodiments.size() ? &m_model.embodiments[index] : nullptr;
}

} // namespace platform
