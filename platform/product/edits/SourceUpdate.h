// Brings an imported product up to date with another reading of its source. All that the user has
// done stays: what is still there keeps its key, its values and its place, and follows the file
// only in what he has left alone. Pure: who reads the file and who is asked about what is gone are
// the caller's business.
#pragma once

#include "platform/product/edits/SourceMatch.h"

#include <cstddef>
#include <vector>

namespace platform {

/// What becomes of parts that the source does not have any more.
enum class GoneParts {
    Remove,
    /// They are the user's own from then on.
    Keep
};

struct GonePart {
    SharedText part;
    /// Where it is not used any more; empty: nowhere in the product.
    SharedText assembly;
    /// Only so many of its uses there, which had values of their own; 0: all.
    std::size_t uses = 0;
};

enum class UpdateFault {
    None,
    /// What is kept would make an assembly a component of itself.
    Cycle,
    /// The source has assemblies now, and the product has embodiments.
    Embodiments
};

struct SourceUpdate {
    UpdateFault fault = UpdateFault::None;
    /// At its home; the present one where there is a fault.
    ProductModel model;
    /// The keys of the model's objects by those of the reading.
    SourceMatch::Keys keys;
    /// What the model does not have any more, each part once.
    std::vector<GonePart> gone;
    /// Components that are new where they stand, and objects that follow the file otherwise.
    std::size_t newParts = 0;
    std::size_t changedParts = 0;
};

/// `present` and `fresh` have a source, and stand at their homes.
SourceUpdate UpdateFromSource(const ProductModel& present, const ProductModel& fresh,
                              GoneParts gone);

} // namespace platform
