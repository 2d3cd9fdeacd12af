// Chooses what of a STEP file stands in the panel: the root and the components below it, either the
// direct ones or all parts at the ends of the structure.
#pragma once

#include "desktop/FileError.h"
#include "desktop/import/ProductStructure.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace desktop::step {

struct RootChoice {
    /// The definition that is the root; no value where several free ones stand under a root that
    /// the file itself lends its name.
    std::optional<std::size_t> root;
    /// The free definitions in that case, else the root alone.
    std::vector<std::size_t> tops;
    /// How many other assemblies have the name that was asked for.
    std::size_t namesakes = 0;
};

/// `assembly` is the name or id of a product with components; empty: what nothing else uses.
std::variant<RootChoice, FileError> ChooseRoot(const ProductStructure& structure,
                                               std::wstring_view assembly);

/// One product below the root.
struct Component {
    std::size_t product = 0;
    /// The first of its definitions that is used there.
    std::size_t definition = 0;
    bool isAssembly = false;
    /// A name for each use, unlike that of any other use in the file.
    std::vector<std::string> occurrences;
};

/// The products that the root uses itself, in the order of their first use.
std::vector<Component> DirectComponents(const ProductStructure& structure,
                                        const RootChoice& choice);

/// The products without components of their own, with all their occurrences, in the order of the
/// file. An error where the uses multiply to more than anybody could look at.
std::variant<std::vector<Component>, FileError> LeafComponents(const ProductStructure& structure,
                                                               const RootChoice& choice);

} // namespace desktop::step
