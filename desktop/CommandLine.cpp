#include "desktop/CommandLine.h"

#include <CLI/CLI.hpp>

namespace desktop {

namespace {

/// The exit status of wrong options.
constexpr int c_usageError = 1;

constexpr int c_smallestPicture = 16;
constexpr int c_largestPicture = 8192;

std::string CheckEncoding([[maybe_unused]] const std::string& name) {
#ifdef PRODUCT_TREE_HAS_STEP
    if (!step::IsKnownEncoding(name))
        return "unknown encoding " + name;
#endif
    return {};
}

/// What --print stands for when nothing follows it.
constexpr const char* c_plainFlag = "true";

std::string CheckPrintForm(const std::string& form) {
    const bool isKnown = form == c_plainFlag || form == "text" || form == "json";
    return isKnown ? std::string() : form + " is neither text nor json";
}

std::string CheckNotEmpty(const std::string& text) {
    return text.empty() ? "must not be empty" : std::string();
}

} // namespace

std::variant<CommandLine, CommandLineEnd> ParseCommandLine(int argc, const char* const* argv) {
    CommandLine result;
    std::string print;
    CLI::App app("Shows the structure of a product: of a STEP assembly or of a product file.",
                 "product-tree");
    app.set_version_flag("--version", "product-tree " PRODUCT_TREE_VERSION, "Show the version");
    app.add_option("FILE", result.file, "STEP assembly or product file; none: the sample")
        ->option_text(" ");
    auto* const printing =
        app.add_flag("--print", print, "Print the tree; with --print=json as JSON")
            ->check(CheckPrintForm);
    auto* const all = app.add_flag("--all", result.showsAllRows,
                                   "Show all rows, not only those that are expanded");
    auto* const screenshot =
        app.add_option("--screenshot", result.screenshot, "Write a picture of the window")
            ->option_text("PNG")
            ->check(CheckNotEmpty);
    auto* const picture =
        app.add_option("--picture", result.picture, "Draw what the file holds, without the window")
            ->option_text("PNG")
            ->check(CheckNotEmpty);
    app.add_option("--size", result.pictureSize, "The longer side of that drawing in pixels (1000)")
        ->option_text("W")
        ->needs(picture)
        ->check(CLI::Range(c_smallestPicture, c_largestPicture));
    app.add_flag("--answer-preview", result.answersPreview)->group("");
    auto* const mass =
        app.add_flag("--mass", result.computesMasses, "Work out masses before printing");
    app.add_option("--assembly", result.step.assembly,
                   "Take this sub-assembly as the root; with --picture this part")
        ->option_text("NAME")
        ->check(CheckNotEmpty);
    auto* const flatten =
        app.add_flag("--flatten", result.step.flatten, "Show all parts of all sub-assemblies");
    app.add_option("--encoding", result.step.encoding,
                   "What 8-bit text of a STEP file is when it is not UTF-8 (Latin-1)")
        ->option_text("NAME")
        ->check(CheckEncoding);
    // A drawing knows nothing of a tree.
    for (auto* const other : {printing, all, screenshot, mass, flatten})
        picture->excludes(other);
    app.get_formatter()->column_width(26);

    try {
        app.parse(argc, argv);
    } catch (const CLI::CallForHelp&) {
        return CommandLineEnd{0, app.help()};
    } catch (const CLI::CallForVersion& version) {
        return CommandLineEnd{0, std::string(version.what()) + '\n'};
    } catch (const CLI::ParseError& error) {
        return CommandLineEnd{c_usageError,
                              "product-tree: " + std::string(error.what()) + "\n\n" + app.help()};
    }
    if (!result.picture.empty() && result.file.empty())
        return CommandLineEnd{c_usageError,
                              "product-tree: --picture needs a FILE\n\n" + app.help()};
    if (!print.empty())
        result.print = print == "json" ? PrintForm::Json : PrintForm::Text;
    return result;
}

} // namespace desktop
