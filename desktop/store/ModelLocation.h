// Finds in a file's text what the validation of the product complains about.
#pragma once

#include "desktop/store/JsonDocument.h"

namespace desktop::store {

struct ModelLocation {
    TextPosition at;
    /// The path in the file's own terms: uses that stand there counted are one entry, properties
    /// have the names that the file gives them.
    std::string path;
};

/// `path` is that of a ModelFault. Where the file leaves a member out, its owner is the place.
ModelLocation LocateInText(const JsonValue& product, std::string_view path);

} // namespace desktop::store
