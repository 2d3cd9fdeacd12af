#include "desktop/store/ProductFile.h"

#include "desktop/store/FileReplacement.h"
#include "desktop/store/JsonDocument.h"
#include "desktop/store/MemberReader.h"
#include "desktop/store/MemberWriter.h"
#include "desktop/store/ModelLocation.h"
#include "platform/product/model/AssemblyLevels.h"
#include "platform/product/validation/ProductValidation.h"

#include <cerrno>
#include <cstdio>
#include <memory>
#include <system_error>

namespace desktop::store {

namespace {

struct FileCloser {
    void operator()(std::FILE* file) const noexcept { std::fclose(file); }
};

std::filesystem::path FolderOf(const std::filesystem::path& path) {
    std::error_code ignored;
    return std::filesystem::absolute(path, ignored).lexically_normal().parent_path();
}

ReadResult ReadModel(const JsonResult& result, const std::filesystem::path& folder) {
    if (const FileError* const error = std::get_if<FileError>(&result))
        return *error;
    const JsonValue& json = std::get<JsonValue>(result);
    platform::ProductModel model;
    try {
        const ModelPath path;
        ReadContext context;
        context.folder = folder;
        MemberReader reader(json, path, context);
        Describe(reader, model);
        reader.Finish();
        model.level = GetHome(model);
    } catch (const ReadFault& fault) {
        return ErrorAt(fault.at, fault.reason);
    }
    if (const std::optional<platform::ModelFault> fault = platform::ValidateModel(model)) {
        const ModelLocation place = LocateInText(json, fault->path);
        return ErrorAt(place.at, place.path + ": " + fault->reason);
    }
    return model;
}

std::string Format(const platform::ProductModel& model, const std::filesystem::path& folder) {
    WriteContext context;
    context.folder = folder;
    MemberWriter writer(context);
    Describe(writer, model);
    return FormatJson(writer.TakeJson());
}

} // namespace

ReadResult ParseProduct(std::string_view json) {
    return ReadModel(ParseJson(json), {});
}

ReadResult ReadProductFile(const std::filesystem::path& path) {
    std::error_code ignored;
    if (std::filesystem::is_directory(path, ignored))
        return FileError{std::generic_category().message(EISDIR)};
    const std::unique_ptr<std::FILE, FileCloser> file(std::fopen(path.c_str(), "rbe"));
    if (!file)
        return FileError{std::generic_category().message(errno)};
    return ReadModel(ParseJson(*file), FolderOf(path));
}

std::string FormatProduct(const platform::ProductModel& model) {
    return Format(model, {});
}

std::optional<FileError> WriteProductFile(const std::filesystem::path& path,
                                          const platform::ProductModel& model) {
    if (const std::optional<platform::ModelFault> fault = platform::ValidateModel(model))
        return FileError{
            OneLine("the product can't be written: " + fault->path + ": " + fault->reason)};
    return ReplaceFile(path, Format(model, FolderOf(path)));
}

} // namespace desktop::store
