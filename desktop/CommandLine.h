// The command line of the program. Reads the options and nothing else: whether the file is there is
// not its business.
#pragma once

#include "desktop/import/StepImport.h"

#include <filesystem>
#include <string>
#include <variant>

namespace desktop {

enum class PrintForm { None, Text, Json };

struct CommandLine {
    /// Empty: the sample.
    std::filesystem::path file;
    PrintForm print = PrintForm::None;
    /// All rows, not only what is below expanded ones.
    bool showsAllRows = false;
    /// Empty: no picture.
    std::filesystem::path screenshot;
    bool computesMasses = false;
    /// Of what the file holds, without the window; empty: none.
    std::filesystem::path picture;
    /// Of the longer side of that picture, in pixels.
    int pictureSize = 1000;
    /// The program has called itself to work a preview out: there are no other options.
    bool answersPreview = false;
    step::StepOptions step;
};

/// The program ends at once: help was asked for, or the options are wrong.
struct CommandLineEnd {
    int exitCode = 0;
    /// For standard output when the exit code is 0, else for standard error.
    std::string text;
};

std::variant<CommandLine, CommandLineEnd> ParseCommandLine(int argc, const char* const* argv);

} // namespace desktop
