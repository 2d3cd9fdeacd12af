#include "desktop/CommandLine.h"
#include "desktop/Display.h"
#include "desktop/Document.h"
#include "desktop/Headless.h"
#include "desktop/SampleFile.h"
#include "desktop/Session.h"
#include "desktop/books/UserLists.h"
#include "desktop/preview/PreviewRun.h"
#include "desktop/window/WindowProgram.h"

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <utility>

namespace {

using namespace desktop;

/// The exit status of a file that can't be read or written.
constexpr int c_fileError = 2;

/// The picture that is taken when nobody asked for anything and there is no display.
constexpr const char* c_usualPicture = "product-tree.png";

void Complain(const std::filesystem::path& path, const std::string& text) {
    std::fprintf(stderr, "%s\n", Diagnostic(path, text).c_str());
}

int End(const CommandLineEnd& end) {
    std::fputs(end.text.c_str(), end.exitCode == 0 ? stdout : stderr);
    return end.exitCode;
}

bool WriteOut(const std::string& text) {
    const bool isWritten = std::fwrite(text.data(), 1, text.size(), stdout) == text.size();
    return std::fflush(stdout) == 0 && isWritten;
}

/// Prints and takes pictures as asked, or both where a window was asked for and can't be.
int RunHeadless(std::unique_ptr<Session> session, CommandLine options) {
    if (options.print == PrintForm::None && options.screenshot.empty()) {
        options.print = PrintForm::Text;
        options.screenshot = c_usualPicture;
    }
    if (options.computesMasses)
        ComputeMasses(*session);
    if (options.print != PrintForm::None &&
        !WriteOut(Print(*session, options.print, options.showsAllRows))) {
        Complain("standard output", "cannot be written");
        return c_fileError;
    }
    if (options.screenshot.empty())
        return EXIT_SUCCESS;
    if (options.showsAllRows)
        session->ExpandAll();
    if (WritePicture(std::move(session), options.screenshot))
        return EXIT_SUCCESS;
    Complain(options.screenshot, "cannot be written");
    return c_fileError;
}

int DrawPicture(const CommandLine& options) {
    const auto fault = WriteFilePicture({options.file, options.step.assembly, options.step.encoding,
                                         options.pictureSize, options.picture});
    if (!fault)
        return EXIT_SUCCESS;
    Complain(fault->path, fault->error.reason);
    return c_fileError;
}

int Run(const CommandLine& options, const std::filesystem::path& file) {
    const bool isWindowWanted =
        options.print == PrintForm::None && options.screenshot.empty() && HasDisplay();
    // A panel asks for its lists as soon as it is there.
    UserLists lists(UserLists::GetUsualFile());
    const platform::UserListsSlot slot(lists);
    auto opened = OpenDocument(file, options.step);
    if (const auto* error = std::get_if<FileError>(&opened)) {
        Complain(file, error->reason);
        if (isWindowWanted)
            RunEmptyWindow(file, *error, lists);
        return c_fileError;
    }
    auto document = std::get<Document>(std::move(opened));
    // The sample is there to be looked at and tried, not to be written over.
    if (options.file.empty())
        document = MakeUnnamed(std::move(document));
    auto session = std::make_unique<Session>(std::move(document));
    for (const std::string& note : session->GetNotes())
        Complain(file, note);
    if (!isWindowWanted)
        return RunHeadless(std::move(session), options);
    if (options.showsAllRows)
        session->ExpandAll();
    return RunWindow(std::move(session), lists);
}

} // namespace

int main(int argc, char** argv) {
    const auto parsed = ParseCommandLine(argc, argv);
    if (const auto* end = std::get_if<CommandLineEnd>(&parsed))
        return End(*end);
    const auto& options = std::get<CommandLine>(parsed);
    if (options.answersPreview)
        AnswerPreviewRequest();
    const std::filesystem::path file = options.file.empty() ? FindSampleFile() : options.file;
    try {
        return options.picture.empty() ? Run(options, file) : DrawPicture(options);
    } catch (const std::exception& error) {
        Complain(file, error.what());
        return c_fileError;
    }
}
