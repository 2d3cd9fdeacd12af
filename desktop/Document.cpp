#include "desktop/Document.h"

#include "desktop/LevelChoice.h"
#include "desktop/store/ProductFile.h"
#include "platform/product/edits/MassRules.h"
#include "platform/values/Utf8.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fstream>
#include <string_view>
#include <utility>

namespace desktop {

namespace {

enum class FileKind { Unknown, Step, Product };

constexpr std::string_view c_stepMark = "ISO-10303-21";
constexpr std::string_view c_byteOrderMark = "\xEF\xBB\xBF";

std::variant<FileKind, FileError> TellKind(const std::filesystem::path& path) {
    std::error_code error;
    const auto status = std::filesystem::status(path, error);
    if (status.type() == std::filesystem::file_type::not_found)
        return FileError{"no such file"};
    if (std::filesystem::is_directory(status))
        return FileError{"is a directory"};
    if (error)
        return FileError{"cannot be read: " + error.message()};
    if (!std::filesystem::is_regular_file(status))
        return FileError{"is not a regular file"};

    errno = 0;
    std::ifstream file(path, std::ios::binary);
    if (!file)
        return FileError{"cannot be read: " + std::string(std::strerror(errno))};
    std::string start(c_byteOrderMark.size(), '\0');
    file.read(start.data(), static_cast<std::streamsize>(start.size()));
    if (start != c_byteOrderMark) {
        file.clear();
        file.seekg(0);
    }
    file >> std::ws;
    start.assign(c_stepMark.size(), '\0');
    file.read(start.data(), static_cast<std::streamsize>(start.size()));
    if (start == c_stepMark)
        return FileKind::Step;
    return start.front() == '{' || start.front() == '[' ? FileKind::Product : FileKind::Unknown;
}

/// Notes where the product comes from. A path that can't be kept as text is forgotten.
[[maybe_unused]] void NoteSource(Document& document, const std::optional<FileMark>& mark,
                                 const std::string& encoding) {
    std::error_code error;
    const std::string path =
        std::filesystem::absolute(document.path, error).lexically_normal().native();
    if (!mark || error)
        return;
    if (!platform::FromUtf8(path)) {
        document.notes.emplace_back("the path is no UTF-8, so that changes of the file are not "
                                    "noticed");
        return;
    }
    document.model.source = platform::SourceFile{path, mark->Get(), encoding, {}};
}

std::variant<Document, FileError> OpenStep(const std::filesystem::path& path,
                                           const step::StepOptions& options) {
#ifdef PRODUCT_TREE_HAS_STEP
    const std::optional<FileMark> mark = FileMark::Take(path);
    auto read = step::StepDocument::Read(path, options);
    if (auto* error = std::get_if<FileError>(&read))
        return std::move(*error);
    Document document;
    document.path = path;
    document.step = std::get<std::unique_ptr<step::StepDocument>>(std::move(read));
    document.model = document.step->GetModel();
    document.notes = document.step->GetNotes();
    NoteSource(document, mark, options.encoding);
    return document;
#else
    static_cast<void>(path);
    static_cast<void>(options);
    return FileError{"this build reads no STEP files"};
#endif
}

std::variant<Document, FileError> OpenProduct(const std::filesystem::path& path) {
    Document document;
    document.mark = FileMark::Take(path);
    auto read = store::ReadProductFile(path);
    if (auto* error = std::get_if<FileError>(&read))
        return std::move(*error);
    document.path = path;
    document.model = std::get<platform::ProductModel>(std::move(read));
    return document;
}

std::variant<Document, FileError> OpenWhole(const std::filesystem::path& path,
                                            const step::StepOptions& options) {
    const auto kind = TellKind(path);
    if (const auto* error = std::get_if<FileError>(&kind))
        return *error;
    switch (std::get<FileKind>(kind)) {
    case FileKind::Step:
        return OpenStep(path, options);
    case FileKind::Product:
        return OpenProduct(path);
    case FileKind::Unknown:
        break;
    }
    return FileError{"neither a STEP file nor a product file"};
}

constexpr const char* c_unnamed = "Unnamed";

} // namespace

Document MakeEmptyDocument() {
    Document document;
    document.model.root.key = UniqueMetaObjectKey(std::string("product"));
    return MakeUnnamed(std::move(document));
}

Document MakeUnnamed(Document document) {
    document.path = c_unnamed;
    document.mark.reset();
    document.isNew = true;
    return document;
}

std::optional<FileError> FindWhatStands(const std::filesystem::path& path) {
    std::error_code error;
    if (!std::filesystem::is_regular_file(path, error) ||
        std::filesystem::file_size(path, error) == 0)
        return std::nullopt;
    const auto kind = TellKind(path);
    if (const auto* const known = std::get_if<FileKind>(&kind); known && *known == FileKind::Step)
        return FileError{"is a STEP file and is not written over"};
    if (std::holds_alternative<FileError>(store::ReadProductFile(path)))
        return FileError{"holds something else than a product and is not written over"};
    return std::nullopt;
}

std::variant<Document, FileError> OpenDocument(const std::filesystem::path& path,
                                               const step::StepOptions& options) {
    auto opened = OpenWhole(path, options);
    auto* const document = std::get_if<Document>(&opened);
    if (!document)
        return opened;
    auto level = ShowLevel(document->model, options);
    if (auto* error = std::get_if<FileError>(&level))
        return std::move(*error);
    if (const std::string& note = std::get<std::string>(level); !note.empty())
        document->notes.push_back(note);
    return opened;
}

void ApplyMeasures(platform::ProductModel& model, const step::Measures& measures) {
    platform::ApplyVolumes(model, measures.volumes);
}

std::string Diagnostic(const std::filesystem::path& path, const std::string& text) {
    std::string line = "product-tree: " + path.string() + ": " + text;
    std::replace_if(
        line.begin(), line.end(),
        [](char character) { return static_cast<unsigned char>(character) < 0x20; }, ' ');
    return line;
}

} // namespace desktop
