// The numbers of property paths, remembered by the text that was asked with. A panel asks for
// millions of values with a few dozen texts, those of its columns.
#pragma once

#include "host/SharedText.h"

#include <array>

namespace platform {

class PathNumbers {
public:
    /// As ProductProperties::GetPropId.
    unsigned long Get(const SharedText& path);

private:
    struct Entry {
        /// Held, so that no other text can come to stand at its address.
        SharedText path;
        unsigned long number = 0;
    };

    std::array<Entry, 64> m_entries;
};

} // namespace platform
