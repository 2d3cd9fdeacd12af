// Says whether a product makes sense as a whole: keys, references, chains of ownership, numbers in
// their ranges, texts that are Unicode. Readers of files call it before a product is shown, writers
// before they replace a file; MemoryProduct relies on what it has found right.
#pragma once

#include "platform/product/model/ProductModel.h"

#include <optional>
#include <string>

namespace platform {

struct ModelFault {
    /// What is wrong, as a path of the product file's names: "objects[3].uses[0].embodiments[1]".
    /// Values of properties are counted: "objects[3].properties[2]".
    std::string path;
    /// The object it belongs to; the null key outside of objects.
    UniqueMetaObjectKey object;
    /// One line, unless a key in it holds a line break.
    std::string reason;
};

/// The first fault in the product's order; no value: there is none. Everything but values is looked
/// at before references are followed.
std::optional<ModelFault> ValidateModel(const ProductModel& model);

} // namespace platform
