#include "desktop/CommandLine.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

using desktop::CommandLine;
using desktop::CommandLineEnd;
using desktop::PrintForm;

std::variant<CommandLine, CommandLineEnd> Parse(std::vector<const char*> arguments) {
    arguments.insert(arguments.begin(), "product-tree");
    return desktop::ParseCommandLine(static_cast<int>(arguments.size()), arguments.data());
}

CommandLine Accepted(const std::vector<const char*>& arguments) {
    const auto parsed = Parse(arguments);
    if (const auto* end = std::get_if<CommandLineEnd>(&parsed)) {
        ADD_FAILURE() << end->text;
        return {};
    }
    return std::get<CommandLine>(parsed);
}

TEST(CommandLine, PrintTakesItsFormOnlyBehindAnEqualsSign) {
    EXPECT_EQ(Accepted({"--print", "a.step"}).print, PrintForm::Text);
    EXPECT_EQ(Accepted({"--print", "a.step"}).file, "a.step");
    EXPECT_EQ(Accepted({"--print=text", "a.step"}).print, PrintForm::Text);
    EXPECT_EQ(Accepted({"a.step", "--print=json"}).print, PrintForm::Json);
    EXPECT_EQ(Accepted({"a.step"}).print, PrintForm::None);
}

TEST(CommandLine, EveryOptionReachesItsPlace) {
    const CommandLine line = Accepted(
        {"--all", "--screenshot", "p.png", "--mass", "--assembly", "Gear box", "--flatten", "--", "--odd.json"});
    EXPECT_TRUE(line.showsAllRows);
    EXPECT_EQ(line.screenshot, "p.png");
    EXPECT_TRUE(line.computesMasses);
    EXPECT_EQ(line.step.assembly, "Gear box");
    EXPECT_TRUE(line.step.flatten);
    EXPECT_EQ(line.file, "--odd.json");
    const CommandLine drawing = Accepted({"--picture", "p.png", "--size", "300", "a.step"});
    EXPECT_EQ(drawing.picture, "p.png");
    EXPECT_EQ(drawing.pictureSize, 300);
}

TEST(CommandLine, WrongOptionsEndWithUsage) {
    const std::vector<std::vector<const char*>> cases = {
        {"--unknown"},
        {"a.step", "b.step"},
        {"--print=xml"},
        {"--screenshot"},
        {"--assembly"},
        {"--encoding"},
        {"--screenshot", ""},
        {"--assembly", ""},
        {"--flatten=maybe"},
        {"--picture", "p.png"},
        {"--picture", "p.png", "--print", "a.step"},
        {"--picture", "p.png", "--size", "0", "a.step"},
        {"--size", "300", "a.step"},
#ifdef PRODUCT_TREE_HAS_STEP
        {"--encoding", "no such encoding"},
#endif
    };
    for (const auto& arguments : cases) {
        const auto parsed = Parse(arguments);
        ASSERT_TRUE(std::holds_alternative<CommandLineEnd>(parsed)) << arguments.front();
        const auto& end = std::get<CommandLineEnd>(parsed);
        EXPECT_EQ(end.exitCode, 1);
        EXPECT_EQ(end.text.rfind("product-tree: ", 0), 0U) << end.text;
        EXPECT_NE(end.text.find("Usage: product-tree [OPTIONS] [FILE]"), std::string::npos);
    }
}

TEST(CommandLine, HelpNamesEveryOption) {
    const auto parsed = Parse({"--help"});
    ASSERT_TRUE(std::holds_alternative<CommandLineEnd>(parsed));
    EXPECT_EQ(std::get<CommandLineEnd>(parsed).exitCode, 0);
    for (const char* option : {"--print", "--all", "--screenshot", "--picture", "--size", "--mass", "--assembly",
                               "--flatten", "--encoding", "--help", "--version"})
        EXPECT_NE(std::get<CommandLineEnd>(parsed).text.find(option), std::string::npos) << option;
}

} // namespace
