#include "platform/product/answers/MemoryProductState.h"

namespace platform {

bool MemoryProduct::IsSimplifiedMode() const {
    return m_state->model.isSimplified;
}

bool MemoryProduct::EditMip(const std::vector<UniqueMetaObjectKey>&, MipSource) {
    return false;
}

} // namespace platform
