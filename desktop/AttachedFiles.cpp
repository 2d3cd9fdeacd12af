#include "desktop/AttachedFiles.h"

#include "desktop/StepSource.h"

namespace desktop {

void AttachedFiles::UseFolderOf(const std::filesystem::path& product) {
    std::error_code error;
    m_folder = product.empty()
                   ? std::filesystem::path()
                   : std::filesystem::absolute(product, error).lexically_normal().parent_path();
}

platform::IDocumentFiles::Found AttachedFiles::Look(const std::string& path) const {
    std::error_code error;
    const std::filesystem::file_status status = std::filesystem::status(path, error);
    if (std::filesystem::is_regular_file(status))
        return Found::File;
    return std::filesystem::exists(status) ? Found::Other : Found::Nothing;
}

bool AttachedFiles::Open(const std::string& path) {
    ISourceDesk* const desk = m_source.GetDesk();
    return desk && desk->OpenFile(path);
}

std::optional<platform::SheetSize> AttachedFiles::FindSheetSize(const std::string& path) {
    ISourceDesk* const desk = m_source.GetDesk();
    return desk ? desk->FindSheetSize(path) : std::nullopt;
}

} // namespace desktop
