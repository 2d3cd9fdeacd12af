#include "desktop/AttachedFiles.h"

#include "desktop/StepSource.h"

#include <algorithm>
#include <string_view>

namespace desktop {

namespace {

constexpr std::string_view c_seen[] = {".pdf", ".png",  ".jpg", ".jpeg", ".bmp", ".gif",
                                       ".tif", ".tiff", ".svg", ".webp", ".txt", ".csv",
                                       ".md",  ".log",  ".dxf", ".stp",  ".step"};

std::string LowerExtension(const std::string& path) {
    std::string extension = std::filesystem::path(path).extension().native();
    std::ranges::transform(extension, extension.begin(), [](char c) {
        return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    });
    return extension;
}

} // namespace

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

bool AttachedFiles::CanPreview(const std::string& path) const {
    return std::ranges::find(c_seen, LowerExtension(path)) != std::ranges::end(c_seen);
}

std::optional<platform::SheetSize> AttachedFiles::FindSheetSize(const std::string& path) {
    ISourceDesk* const desk = m_source.GetDesk();
    if (!desk || LowerExtension(path) != ".pdf")
        return std::nullopt;
    return desk->FindSheetSize(path);
}

} // namespace desktop
