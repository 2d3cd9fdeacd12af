// How a product of a STEP file is named to another reading of that file, for instance to a process
// that draws it. Knows nothing of how the file is read.
#pragma once

#include "platform/product/model/ProductModel.h"

#include <optional>
#include <string>

namespace desktop {

struct StepPart {
    /// As the file writes them.
    std::wstring id;
    std::wstring name;
    /// Tells those apart that are called the same; empty: no part is meant.
    std::string key;
    /// What the texts of the file were read as; empty: the usual one.
    std::string encoding;

    bool IsEmpty() const { return key.empty(); }
    friend bool operator==(const StepPart&, const StepPart&) = default;
};

/// The object of the part in a model of its file, read just now; no value where nothing is called
/// so any more. Another export numbers everything anew, so that the key alone proves nothing.
std::optional<UniqueMetaObjectKey> FindObject(const platform::ProductModel& model,
                                              const StepPart& part);

} // namespace desktop
