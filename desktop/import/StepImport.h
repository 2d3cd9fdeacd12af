// Opens STEP assemblies as products. The structure comes from the file's products and their uses,
// never from pieces of geometry, and is there before any geometry is transferred; masses are worked
// out afterwards, on demand. Files that the file refers to are not followed.
#pragma once

#include "desktop/FileError.h"
#include "platform/product/ProductModel.h"

#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace desktop::import {

struct StepOptions {
    /// Name or id of the product that becomes the root; empty: the file's own root.
    std::string assembly;
    /// All leaf products with all their occurrences instead of the direct components.
    bool flatten = false;
    /// What raw 8-bit text is when it is not valid UTF-8; empty: Latin-1.
    std::string encoding;
};

/// Called during long work with the share done, 0 to 1; false stops the work.
using Progress = std::function<bool(double)>;

class StepDocument {
public:
    using Masses = std::vector<std::pair<UniqueMetaObjectKey, double>>;

    static std::variant<std::unique_ptr<StepDocument>, FileError>
    Read(const std::filesystem::path& path, const StepOptions& options);

    virtual ~StepDocument() = default;

    virtual const platform::ProductModel& GetModel() const = 0;
    /// What the user should know about the file, a line each, for instance that it refers to
    /// others.
    virtual const std::vector<std::string>& GetNotes() const = 0;
    /// Transfers the geometry, in a child process, and gives the mass, in kilograms, of each object
    /// that has volume and density; of an assembly when all its parts have. May be called on
    /// another thread, which then calls `progress`. Empty when stopped.
    virtual Masses ComputeMasses(const Progress& progress) = 0;
};

/// Whether text of that name can be read, for the command line's own check.
bool IsKnownEncoding(const std::string& encoding);

} // namespace desktop::import
