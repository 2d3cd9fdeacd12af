#include "platform/product/PathNumbers.h"

#include "host/ProductProperties.h"

#include <cstdint>

namespace platform {

unsigned long PathNumbers::Get(const SharedText& path) {
    const auto address = reinterpret_cast<std::uintptr_t>(&path.Str());
    Entry& entry = m_entries[((address >> 4) ^ (address >> 10)) % m_entries.size()];
    if (!entry.path.IsSame(path))
        entry = {path, ProductProperties::GetPropId(path)};
    return entry.number;
}

} // namespace platform
