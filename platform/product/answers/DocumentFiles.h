// How a product in memory gets at the files of its documents. The program looks at them and opens
// them, a test scripts it; the product knows no format and never touches the disk.
#pragma once

#include <filesystem>
#include <optional>
#include <string>

namespace platform {

/// In millimetres.
struct SheetSize {
    double width = 0;
    double height = 0;
};

class IDocumentFiles {
public:
    virtual ~IDocumentFiles() = default;

    /// That of the product's file, from which paths are shown; empty where there is none.
    virtual std::filesystem::path GetFolder() const = 0;
    enum class Found { Nothing, File, Other };
    /// Paths are UTF-8 and absolute. Asked for the documents of one object at a time.
    virtual Found Look(const std::string& path) const = 0;
    /// In whatever program the user has for it. False: it was not opened.
    virtual bool Open(const std::string& path) = 0;
    /// Of the first sheet of a new document; no value where that is not known.
    virtual std::optional<SheetSize> FindSheetSize(const std::string& path) = 0;
};

} // namespace platform
