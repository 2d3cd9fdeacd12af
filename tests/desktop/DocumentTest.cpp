#include "desktop/Document.h"
#include "host/ProductProperties.h"
#include "tests/support/ProductBuilder.h"
#include "tests/support/TestFolder.h"

#include <gtest/gtest.h>

#include <fstream>

namespace {

using desktop::FileError;

class Folder {
public:
    Folder() : m_path(support::GetTestFolder()) { std::filesystem::create_directories(m_path); }
    ~Folder() { std::filesystem::remove_all(m_path); }

    std::filesystem::path Write(const std::string& name, const std::string& content) const {
        std::ofstream(m_path / name, std::ios::binary) << content;
        return m_path / name;
    }
    const std::filesystem::path& Path() const { return m_path; }

private:
    std::filesystem::path m_path;
};

std::string Reason(const std::filesystem::path& path, const desktop::step::StepOptions& options) {
    const auto opened = desktop::OpenDocument(path, options);
    const auto* error = std::get_if<FileError>(&opened);
    return error ? error->reason : "opened";
}

TEST(Document, AFileIsKnownByWhatItHolds) {
    const Folder folder;
    const std::string neither = "neither a STEP file nor a product file";
    const std::pair<std::string, bool> cases[] = {
        {"", false},
        {" \n\t ", false},
        {"ISO-10303-22;", false},
        {"ISO-1", false},
        {"\xEF\xBB", false},
        {"\x89PNG", false},
        {"<svg/>", false},
        {"{", true},
        {"\xEF\xBB\xBF  {", true},
        {"\r\n[", true},
        {"ISO-10303-21;", true},
        {"\xEF\xBB\xBF\n  ISO-10303-21;", true},
    };
    for (const auto& [content, isKnown] : cases) {
        const std::string reason = Reason(folder.Write("file.any", content), {});
        if (isKnown)
            EXPECT_NE(reason, neither) << content;
        else
            EXPECT_EQ(reason, neither) << content;
        EXPECT_EQ(reason.find('\n'), std::string::npos);
    }
}

TEST(Document, WhatIsNoFileHasAReason) {
    const Folder folder;
    EXPECT_EQ(Reason(folder.Path() / "missing.step", {}), "no such file");
    EXPECT_EQ(Reason(folder.Path(), {}), "is a directory");
    EXPECT_EQ(Reason("/dev/zero", {}), "is not a regular file");
    EXPECT_EQ(Reason(folder.Write("file", "{}") / "below", {}), "no such file");
}

/// Names with blanks at their ends are told from others by these alone.
TEST(Document, AnAssemblyIsAskedForByNameDesignationOrTrimmedName) {
    const Folder folder;
    const auto file = folder.Write("product.json", R"({"format": "product-tree 1",
        "product": {"name": "car"}, "objects": [
            {"key": "a", "name": "arm ", "designation": "A-1", "uses": 1},
            {"key": "b", "name": "arm", "uses": 1}, {"key": "c", "name": "nut", "uses": 1}],
        "assemblies": [{"object": "product"}, {"object": "a"}, {"object": "b"}]})");
    const auto shown = [&](const char* name) {
        auto opened = desktop::OpenDocument(file, {name, false, ""});
        const auto* const error = std::get_if<desktop::FileError>(&opened);
        return error ? error->reason : std::string(std::get<desktop::Document>(opened).model.root.key.String());
    };
    EXPECT_EQ(shown("arm"), "b");
    EXPECT_EQ(shown("arm "), "a");
    EXPECT_EQ(shown(" arm "), "a");
    EXPECT_EQ(shown("A-1"), "a");
    EXPECT_EQ(shown("car"), "product");
    EXPECT_EQ(shown("nut"), "\"nut\" is no assembly: it has no components");
    EXPECT_EQ(shown("nothing"), "no product is called \"nothing\"");
}

TEST(Document, MeasuredPartsHaveAMassByTheDensityThatTheyHaveByThen) {
    platform::ProductModel model = support::Product()
                                       .Object("steel")
                                       .Value(L"material.density", SimplePropVal(8000.0))
                                       .Object("unknown")
                                       .Object("weighed")
                                       .Mass(7);
    desktop::ApplyMeasures(model, {{{support::Key("steel"), 0.5},
                                    {support::Key("unknown"), 0.25},
                                    {support::Key("weighed"), 0.25},
                                    {support::Key("gone"), 1.0}}});
    std::string text;
    for (const platform::ObjectRecord& object : model.objects) {
        text += std::string(object.key.String()) + ':';
        for (const auto& [number, value] : object.properties) {
            if (number == ProductProperties::GetPropId(L"mass"))
                text += std::to_string(value.to_int());
        }
        text += object.volume ? " measured " : " ";
    }
    EXPECT_EQ(text, "steel:4000 measured unknown: measured weighed:7 measured ");
}

TEST(Document, ADiagnosticIsOneLine) {
    EXPECT_EQ(desktop::Diagnostic("a\nb.step", "cut\r\noff"), "product-tree: a b.step: cut  off");
}

} // namespace
