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

TEST(Document, OptionsForStepFilesAreRefusedForAProductFile) {
    const Folder folder;
    const auto file = folder.Write("product.json", "{}");
    desktop::step::StepOptions flatten;
    flatten.flatten = true;
    EXPECT_EQ(Reason(file, flatten), "--flatten is for STEP files");
    desktop::step::StepOptions assembly;
    assembly.assembly = "x";
    EXPECT_EQ(Reason(file, assembly), "--assembly is for STEP files");
}

TEST(Document, MeasuredPartsHaveAMassByTheDensityThatTheyHaveByThen) {
    platform::ProductModel model = support::Product()
                                       .Object("steel")
                                       .Value(L"material.density", SimplePropVal(8000.0))
                                       .Object("unknown")
                                       .Object("frame")
                                       .Object("weighed")
                                       .Mass(7);
    desktop::ApplyMeasures(model, {{{support::Key("steel"), 0.5},
                                    {support::Key("unknown"), 0.25},
                                    {support::Key("gone"), 1.0}},
                                   {{support::Key("frame"), 3.5}, {support::Key("weighed"), 9.0}}});
    std::string text;
    for (const platform::ObjectRecord& object : model.objects) {
        text += std::string(object.key.String()) + ':';
        for (const auto& [number, value] : object.properties) {
            if (number == ProductProperties::GetPropId(L"mass"))
                text += std::to_string(value.to_int());
        }
        text += object.volume ? " measured " : " ";
    }
    EXPECT_EQ(text, "steel:4000 measured unknown: measured frame:3 weighed:7 ");
}

TEST(Document, ADiagnosticIsOneLine) {
    EXPECT_EQ(desktop::Diagnostic("a\nb.step", "cut\r\noff"), "product-tree: a b.step: cut  off");
}

} // namespace
