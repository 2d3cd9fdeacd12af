#include "platform/product/answers/MemoryProductState.h"

namespace platform {

bool MemoryProduct::EditRoughSign(const UniqueMetaObjectKey&, ProductInfObjChangesResult&) {
    return false;
}

} // namespace platform
