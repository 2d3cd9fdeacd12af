// The files of a product's documents on this machine: whether they are there. What only the
// desktop can do, which is to open them and to look into them, is asked of the desk of the window
// that the user works with.
#pragma once

#include "platform/product/answers/DocumentFiles.h"

namespace desktop {

class StepSource;

class AttachedFiles final : public platform::IDocumentFiles {
public:
    /// `source` knows the desk, and must outlive this.
    explicit AttachedFiles(const StepSource& source) : m_source(source) {}

    /// Where the product's file stands or is to stand; empty for a product without one.
    void UseFolderOf(const std::filesystem::path& product);

    std::filesystem::path GetFolder() const override { return m_folder; }
    Found Look(const std::string& path) const override;
    bool Open(const std::string& path) override;
    std::optional<platform::SheetSize> FindSheetSize(const std::string& path) override;

private:
    const StepSource& m_source;
    std::filesystem::path m_folder;
};

} // namespace desktop
