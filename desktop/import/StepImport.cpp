#include "desktop/import/StepImport.h"

#include "desktop/import/ImportedDocument.h"
#include "desktop/import/ProductObjects.h"
#include "desktop/import/StepContents.h"
#include "desktop/import/StepFile.h"
#include "desktop/import/StepReader.h"
#include "desktop/import/StepText.h"
#include "desktop/import/TextDecoder.h"
#include "desktop/messages/MessageTexts.h"

#include <new>
#include <optional>
#include <poll.h>

namespace desktop::step {

namespace {

/// A step of the reading: what the next one needs, or the error that ends it.
template <class Value>
using Step = std::variant<Value, FileError>;

template <class Value>
const FileError* ErrorOf(const Step<Value>& step) {
    return std::get_if<FileError>(&step);
}

template <class Value>
Value& ValueOf(Step<Value>& step) {
    return std::get<Value>(step);
}

struct LoadedFile {
    std::unique_ptr<StepReader> reader;
    StepContents contents;
};

Step<PreparedText> LoadText(const std::filesystem::path& path) {
    Step<std::string> file = LoadStepFile(path);
    if (const FileError* error = ErrorOf(file))
        return *error;
    return PrepareForReader(ValueOf(file));
}

Step<LoadedFile> LoadFile(const std::filesystem::path& path, const TextDecoder& decoder) {
    Step<PreparedText> text = LoadText(path);
    if (const FileError* error = ErrorOf(text))
        return *error;
    Step<std::unique_ptr<StepReader>> reader = StepReader::Load(ValueOf(text).text);
    if (const FileError* error = ErrorOf(reader))
        return *error;
    Step<StepContents> contents = ReadContents(ValueOf(reader)->GetModel(), decoder);
    if (const FileError* error = ErrorOf(contents))
        return *error;
    ValueOf(contents).otherFiles.merge(ValueOf(text).otherFiles);
    return LoadedFile{std::move(ValueOf(reader)), std::move(ValueOf(contents))};
}

Step<std::unique_ptr<StepDocument>> ReadUnguarded(const std::filesystem::path& path,
                                                  const StepOptions& options) {
    const std::optional<TextDecoder> decoder = TextDecoder::Make(options.encoding);
    if (!decoder)
        return FileError{"unknown encoding " + Quote(FromUtf8OrLatin1(options.encoding))};
    Step<LoadedFile> file = LoadFile(path, *decoder);
    if (const FileError* error = ErrorOf(file))
        return *error;
    auto& [reader, contents] = ValueOf(file);
    const ProductStructure& structure = contents.structure;
    if (const std::optional<std::size_t> culprit = FindCycle(structure))
        return FileError{"the product " + Quote(structure.GetProduct(*culprit).GetTitle()) +
                         " is a component of itself"};
    Step<FileRoots> roots = FindRoots(structure);
    if (const FileError* error = ErrorOf(roots))
        return *error;
    return std::make_unique<ImportedDocument>(std::move(reader), std::move(contents),
                                              std::move(ValueOf(roots)),
                                              FromUtf8OrLatin1(path.stem().native()), options);
}

} // namespace

std::variant<std::unique_ptr<StepDocument>, FileError>
StepDocument::Read(const std::filesystem::path& path, const StepOptions& options) {
    try {
        return ReadUnguarded(path, options);
    } catch (const std::bad_alloc&) {
        return FileError{"not enough memory"};
    }
}

void Measuring::Wait() {
    while (Advance()) {
        pollfd news{GetDescriptor(), POLLIN, 0};
        poll(&news, 1, -1);
    }
}

bool IsKnownEncoding(const std::string& encoding) {
    return TextDecoder::Make(encoding).has_value();
}

} // namespace desktop::step
