// An opened file: what kind it is, its product, and what the user should know about it. Reading
// tells the kind by what the file holds, not by its name.
#pragma once

#include "desktop/FileMark.h"
#include "desktop/import/StepImport.h"
#include "desktop/messages/FileError.h"
#include "platform/product/model/ProductModel.h"

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace desktop {

struct Document {
    std::filesystem::path path;
    platform::ProductModel model;
    /// Null for a product file.
    std::unique_ptr<step::StepDocument> step;
    /// Of a product file, as it was when its reading began.
    std::optional<FileMark> mark;
    /// A line each.
    std::vector<std::string> notes;
    /// There is no file yet: `path` is a name to show and to begin with.
    bool isNew = false;
};

/// A product with nothing in it.
Document MakeEmptyDocument();
/// The product of a file as one that has none.
Document MakeUnnamed(Document document);

/// Why no product may be written there: what stands in the file is none. No value for a file that
/// holds a product or nothing, and where there is no file.
std::optional<FileError> FindWhatStands(const std::filesystem::path& path);

/// Shows the level that the options ask for.
std::variant<Document, FileError> OpenDocument(const std::filesystem::path& path,
                                               const step::StepOptions& options);

/// Gives the parts their volumes, and masses where they have a density, which need not be that of
/// the file. Measures of objects that are not in the model are ignored.
void ApplyMeasures(platform::ProductModel& model, const step::Measures& measures);

/// "product-tree: FILE: text" as one line without its end, whatever the texts hold.
std::string Diagnostic(const std::filesystem::path& path, const std::string& text);

} // namespace desktop
