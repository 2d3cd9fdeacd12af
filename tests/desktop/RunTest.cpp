#include "tests/desktop/ProgramRun.h"

#include <QImage>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <cstdlib>
#include <set>
#include <sstream>

namespace {

using Json = nlohmann::json;
using run_tests::Folder;
using run_tests::Outcome;
using run_tests::RunProgram;

const std::filesystem::path c_sources = PRODUCT_TREE_SOURCES;

/// Where real assemblies are kept; not everybody has them.
std::filesystem::path Assembly(const std::string& name) {
    const char* const folder = std::getenv("PRODUCT_TREE_ASSEMBLIES");
    return (folder ? std::filesystem::path(folder) : c_sources / "../shared/assemblies") / name;
}

bool CanOpen(const std::filesystem::path& assembly) {
#ifdef PRODUCT_TREE_HAS_STEP
    return std::filesystem::exists(assembly);
#else
    static_cast<void>(assembly);
    return false;
#endif
}

std::vector<std::string> Lines(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);)
        lines.push_back(line);
    return lines;
}

/// The rows of the JSON form as the text form begins its lines.
void TextLines(const Json& row, bool all, const std::string& indent, std::vector<std::string>& lines) {
    const bool goesOn = all || row["expanded"];
    const char* const fold = row["children"].empty() ? "  " : goesOn ? "- " : "+ ";
    lines.push_back(indent + fold + row["text"].get<std::string>());
    for (const Json& child : row["children"]) {
        if (goesOn)
            TextLines(child, all, indent + "  ", lines);
    }
}

TEST(Run, AFileThatIsNoneIsRefusedInOneLine) {
    const Folder folder;
    folder.Write("plain.txt", "hello");
    folder.Write("empty", "");
    folder.Write("cut.step", "ISO-10303-21;\nHEADER;\n");
    folder.Write("cut.json", "{\"format\": ");
    folder.Write("nested.json", std::string(2'000'000, '['));
    const std::pair<const char*, const char*> cases[] = {
        {"missing.step", "no such file"},
        {".", "is a directory"},
        {"plain.txt", "neither a STEP file nor a product file"},
        {"empty", "neither a STEP file nor a product file"},
        {"cut.step", ""},
        {"cut.json", "line 1, column "},
        {"nested.json", "line 1, column "},
    };
    for (const auto& [file, reason] : cases) {
        for (const char* form : {"--print", "--print=json", "--screenshot=x.png"}) {
            const Outcome run = RunProgram(folder, {form, file});
            EXPECT_EQ(run.status, 2) << file;
            EXPECT_EQ(run.out, "") << file;
            EXPECT_EQ(Lines(run.err).size(), 1U) << run.err;
            EXPECT_EQ(run.err.rfind("product-tree: " + std::string(file) + ": " + reason, 0), 0U) << run.err;
            EXPECT_FALSE(folder.Has("x.png"));
        }
    }
}

TEST(Run, WrongOptionsShowTheUsage) {
    const Folder folder;
    for (const char* option : {"--unknown", "--print=xml", "--screenshot"}) {
        const Outcome run = RunProgram(folder, {option});
        EXPECT_EQ(run.status, 1) << option;
        EXPECT_EQ(run.out, "") << option;
        EXPECT_NE(run.err.find("Usage:"), std::string::npos) << run.err;
    }
}

TEST(Run, HelpAndVersionAreAnswersAndNoErrors) {
    const Folder folder;
    for (const char* option : {"--help", "--version"}) {
        const Outcome run = RunProgram(folder, {option});
        EXPECT_EQ(run.status, 0) << option;
        EXPECT_NE(run.out, "") << option;
        EXPECT_EQ(run.err, "") << option;
    }
}

TEST(Run, TextAndJsonSayTheSame) {
    const Folder folder;
    const Outcome jsonRun = RunProgram(folder, {"--print=json"});
    ASSERT_EQ(jsonRun.status, 0) << jsonRun.err;
    EXPECT_EQ(jsonRun.err, "");
    const Json json = Json::parse(jsonRun.out);
    for (const bool all : {false, true}) {
        std::vector<std::string> expected;
        TextLines(json["root"], all, "", expected);
        EXPECT_GT(expected.size(), 5U);
        const Outcome run = all ? RunProgram(folder, {"--print", "--all"}) : RunProgram(folder, {"--print"});
        EXPECT_EQ(run.status, 0);
        EXPECT_EQ(run.err, "");
        const std::vector<std::string> lines = Lines(run.out);
        ASSERT_EQ(lines.size(), expected.size() + 2);
        EXPECT_EQ(lines[0], json["caption"]);
        EXPECT_EQ(lines[1].rfind(json["columns"][0]["caption"].get<std::string>(), 0), 0U);
        for (std::size_t i = 0; i < expected.size(); ++i)
            EXPECT_EQ(lines[i + 2].rfind(expected[i], 0), 0U) << lines[i + 2];
    }
}

TEST(Run, APictureShowsTheRows) {
    const Folder folder;
    const auto distinctColours = [&](const std::string& name) {
        const QImage image(QString::fromStdString((folder.Path() / name).string()));
        EXPECT_GE(image.width(), 1000) << name;
        EXPECT_GE(image.height(), 400) << name;
        std::set<QRgb> colours;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x)
                colours.insert(image.pixel(x, y));
        }
        return colours.size();
    };
    const Outcome run = RunProgram(folder, {"--screenshot", "all.png", "--all"});
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(run.out, "");
    EXPECT_EQ(run.err, "");
    EXPECT_GT(distinctColours("all.png"), 100U);
}

TEST(Run, APictureThatCannotBeWrittenIsAnError) {
    const Folder folder;
    const Outcome run = RunProgram(folder, {"--screenshot", "no/such/folder.png"});
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.err, "product-tree: no/such/folder.png: cannot be written\n");
}

TEST(Run, WithoutDisplayAndOptionsItPrintsAndTakesAPicture) {
    const Folder folder;
    const Outcome run = RunProgram(folder, {});
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(run.out, RunProgram(folder, {"--print"}).out);
    EXPECT_TRUE(folder.Has("product-tree.png"));
}

TEST(Run, FilesThatAnAssemblyRefersToAreToldOfOnce) {
    const auto file = Assembly("s1-c5-214/s1-c5-214.stp");
    if (!CanOpen(file))
        GTEST_SKIP() << "no STEP import, or no assembly " << file;
    const Folder folder;
    const Outcome run = RunProgram(folder, {"--print=json", file.string()});
    EXPECT_EQ(run.status, 0);
    ASSERT_EQ(Lines(run.err).size(), 1U) << run.err;
    EXPECT_EQ(run.err.rfind("product-tree: " + file.string() + ": ", 0), 0U);
    EXPECT_NE(run.err.find(" 4 "), std::string::npos) << run.err;
    EXPECT_TRUE(Json::accept(run.out));
}

TEST(Run, AnAssemblyIsShownByItsUses) {
    const auto file = Assembly("as1-oc-214.stp");
    if (!CanOpen(file))
        GTEST_SKIP() << "no STEP import, or no assembly " << file;
    const Folder folder;
    const auto print = [&](std::vector<std::string> arguments) {
        arguments.insert(arguments.begin(), "--print=json");
        arguments.push_back(file.string());
        const Outcome run = RunProgram(folder, arguments);
        EXPECT_EQ(run.status, 0) << run.err;
        std::vector<std::string> lines;
        TextLines(Json::parse(run.out)["root"], false, "", lines);
        return lines;
    };
    using StringList = std::vector<std::string>;
    EXPECT_EQ(print({}), (StringList{"- as1", "  + Assembly units (x3)", "  + Parts (x1)"}));
    EXPECT_EQ(print({"--flatten"}), (StringList{"- as1", "  + Parts (x18)"}));
    EXPECT_EQ(print({"--assembly", "rod-assembly", "--mass"}), (StringList{"- rod-assembly", "  + Parts (x3)"}));
}

TEST(Run, APartOfAnAssemblyIsDrawnByItsName) {
    const auto file = Assembly("as1-oc-214.stp");
    if (!CanOpen(file))
        GTEST_SKIP() << "no STEP import, or no assembly " << file;
    const Folder folder;
    const auto draw = [&](std::vector<std::string> arguments) {
        arguments.insert(arguments.begin(), {"--picture", "x.png", "--size", "300"});
        return RunProgram(folder, arguments);
    };
    EXPECT_EQ(draw({"--assembly", "bolt", file.string()}).err, "");
    const QImage bolt(QString::fromStdString((folder.Path() / "x.png").string()));
    EXPECT_EQ(std::max(bolt.width(), bolt.height()), 300);
    EXPECT_EQ(draw({file.string()}).err, "");
    EXPECT_NE(QImage(QString::fromStdString((folder.Path() / "x.png").string())), bolt);
    const Outcome unknown = draw({"--assembly", "nut & bolt", file.string()});
    EXPECT_EQ(unknown.status, 2);
    EXPECT_EQ(unknown.err, "product-tree: " + file.string() + ": no product is called \"nut & bolt\"\n");
    EXPECT_EQ(draw({"none.step"}).err, "product-tree: none.step: no such file\n");
    EXPECT_EQ(draw({}).status, 1);
}

} // namespace
