// An opened file: what kind it is, its product, and what the user should know about it. Reading
// tells the kind by what the file holds, not by its name.
#pragma once

#include "desktop/FileError.h"
#include "desktop/import/StepImport.h"
#include "platform/product/ProductModel.h"

#include <filesystem>
#include <memory>
#include <string>
#include <variant>
#include <vector>

namespace desktop {

struct Document {
    std::filesystem::path path;
    platform::ProductModel model;
    /// Null for a product file.
    std::unique_ptr<import::StepDocument> step;
    /// A line each.
    std::vector<std::string> notes;
};

/// The options that choose what is shown of a STEP file are an error for a product file.
std::variant<Document, FileError> OpenDocument(const std::filesystem::path& path,
                                               const import::StepOptions& options);

/// Writes the masses, in kilograms, into the model; masses of objects that it has not are ignored.
void ApplyMasses(platform::ProductModel& model, const import::StepDocument::Masses& masses);

/// "product-tree: FILE: text" as one line without its end, whatever the texts hold.
std::string Diagnostic(const std::filesystem::path& path, const std::string& text);

} // namespace desktop
