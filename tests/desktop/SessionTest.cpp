#include "desktop/Session.h"
#include "desktop/import/StepImport.h"
#include "desktop/store/ProductFile.h"
#include "host/ProductProperties.h"
#include "platform/view/TreeTableView.h"
#include "tests/support/ProductBuilder.h"
#include "tests/support/TestFolder.h"
#include "tests/support/ViewDump.h"

#include <gtest/gtest.h>

#include <fstream>

namespace {

using desktop::Session;

class ImportedAssembly final : public desktop::step::StepDocument {
public:
    const platform::ProductModel& GetModel() const override { return m_model; }
    const std::vector<std::string>& GetNotes() const override { return m_notes; }
    const std::vector<std::string>& GetForeignTexts() const override { return m_texts; }
    const std::string& GetEncoding() const override { return m_encoding; }
    std::optional<std::wstring> Decode(const std::string&, const std::string&) const override { return std::nullopt; }
    std::unique_ptr<desktop::step::Measuring> StartMeasuring(desktop::step::MeasuredParts,
                                                             const UniqueMetaObjectKey&) override {
        return nullptr;
    }
    std::variant<desktop::step::LineDrawing, desktop::FileError> Draw(const UniqueMetaObjectKey&) override {
        return desktop::step::LineDrawing{};
    }

private:
    platform::ProductModel m_model;
    std::vector<std::string> m_notes, m_texts;
    std::string m_encoding;
};

platform::ProductModel Gearbox() {
    return support::Product()
        .Root(L"Gearbox")
        .MassOfParts()
        .Simplified()
        .Columns({L"material.density", L"mass", L"note"})
        .Object("case", L"Case")
        .Section(20, L"Parts")
        .Uses()
        .Object("pin", L"Pin")
        .Section(20, L"Parts")
        .Uses(2);
}

class SessionTest : public testing::Test {
protected:
    SessionTest() { std::filesystem::create_directories(m_folder); }
    ~SessionTest() override { std::filesystem::remove_all(m_folder); }

    std::unique_ptr<Session> Open(const std::string& name, bool isStep = false) {
        desktop::Document document;
        document.path = m_folder / name;
        document.model = Gearbox();
        if (isStep)
            document.step = std::make_unique<ImportedAssembly>();
        return std::make_unique<Session>(std::move(document));
    }
    static std::string Dump(const Session& session) { return support::DumpView(session.GetView()); }
    static platform::TreeTableRow& Part(const Session& session, std::size_t index) {
        return session.GetView().GetRoot()->GetChildRow(0).GetChildRow(index);
    }
    static void Rename(const Session& session, const wchar_t* name) {
        ASSERT_TRUE(session.GetView().EditNameByUser(Part(session, 0), SharedText(name)));
    }
    static std::wstring Shown(const platform::TreeTableRow& row, const wchar_t* column) {
        const platform::TreeCell* cell = row.FindCell(column);
        return cell ? cell->GetShownText().Str() : L"no cell";
    }

    std::filesystem::path m_folder = support::GetTestFolder();
};

TEST_F(SessionTest, AnEditIsAStepThatIsUndoneByName) {
    const auto session = Open("a.json");
    const std::string before = Dump(*session);
    EXPECT_FALSE(session->CanUndo());
    Rename(*session, L"Ring");
    const std::string after = Dump(*session);
    EXPECT_EQ(after, "Gearbox [Parts (x3) [Pin (x2) [Pin | Pin] | Ring]]");
    EXPECT_EQ(session->GetUndoName().Str(), L"Change of Name");
    session->Undo();
    EXPECT_EQ(Dump(*session), before);
    EXPECT_FALSE(session->IsModified());
    EXPECT_EQ(session->GetRedoName().Str(), L"Change of Name");
    session->Redo();
    EXPECT_EQ(Dump(*session), after);
    EXPECT_TRUE(session->IsModified());
}

TEST_F(SessionTest, AnEditedAssemblyIsSavedAsAProductFileWithEverythingInIt) {
    const auto session = Open("gear.step", true);
    std::ofstream(m_folder / "gear.step") << "ISO-10303-21;";
    EXPECT_EQ(session->GetProductPath(), m_folder / "gear.json");
    session->TakeMeasures({{{support::Key("case"), 0.5}, {support::Key("pin"), 0.25}}});
    EXPECT_FALSE(session->IsModified());
    Rename(*session, L"Housing");
    const auto density = platform::CellInput(1000.0);
    ASSERT_TRUE(session->GetView().EditCellByUser(Part(*session, 0), L"material.density", density));
    EXPECT_EQ(Shown(Part(*session, 0), L"mass"), L"500");

    EXPECT_TRUE(session->SaveAs(m_folder / "gear.step"));
    EXPECT_FALSE(session->IsProductFile());
    EXPECT_FALSE(session->SaveAs(session->GetProductPath()));
    EXPECT_TRUE(session->IsProductFile());
    EXPECT_FALSE(session->IsModified());
    EXPECT_EQ(session->GetPath(), m_folder / "gear.json");

    auto read = desktop::store::ReadProductFile(m_folder / "gear.json");
    ASSERT_TRUE(std::holds_alternative<platform::ProductModel>(read));
    EXPECT_EQ(std::get<platform::ProductModel>(read).objects[1].volume, 0.25);
    session->Undo();
    EXPECT_EQ(Shown(Part(*session, 0), L"mass"), L"");
    EXPECT_TRUE(session->IsModified());
}

TEST_F(SessionTest, AnImportedPartIsNamedAsItsFileKnowsIt) {
    desktop::Document document;
    document.path = m_folder / "gear.json";
    document.model = Gearbox();
    const std::string step = (m_folder / "gear.step").string();
    const auto import = [&](const char* key, const wchar_t* id, const wchar_t* name) {
        auto& object = document.model.objects[key == std::string("pin") ? 1 : 0];
        object.source = platform::SourceProduct{SharedText(id), SharedText(name), {}, {}};
        object.documents.emplace_back().file = (m_folder / "note.step").string();
    };
    document.model.source = platform::SourceFile{step, {}, "GBK", {}};
    document.model.root.source = platform::SourceProduct{SharedText(L"G-1"), {}, {}, {}};
    import("case", L"C-1", L"case");
    import("pin", L"P-1", L"pin");
    const platform::ProductModel file = document.model;
    Session session(std::move(document));
    Rename(session, L"Housing");
    platform::TreeTableRow& housing = Part(session, 0);
    const desktop::StepPart part{L"C-1", L"case", "case", "GBK"};
    EXPECT_EQ(session.FindStepPart(housing), part);
    EXPECT_EQ(session.FindStepPart(Part(session, 1)).name, L"pin") << "all members are uses of one object";
    EXPECT_TRUE(session.FindStepPart(*housing.GetParentRow()).IsEmpty());
    session.GetView().SelectByUser({&housing}, &housing);
    EXPECT_EQ(session.FindDocumentPart(L"gear.step"), part);
    EXPECT_TRUE(session.FindDocumentPart(L"note.step").IsEmpty()) << "it was attached by hand";
    platform::TreeTableRow& root = *session.GetView().GetRoot();
    EXPECT_EQ(session.FindStepPart(root).id, L"G-1");
    session.GetView().SelectByUser({&root}, &root);
    EXPECT_EQ(session.FindDocumentPath(L"gear.step"), std::wstring(step.begin(), step.end()));
    std::ofstream(m_folder / "all.txt") << "all";
    session.AddDocuments({m_folder / "all.txt"});
    EXPECT_FALSE(session.FindDocumentPath(L"all.txt").empty());

    platform::ProductModel twins = file;
    twins.objects[1].source = twins.objects[0].source;
    EXPECT_EQ(desktop::FindObject(twins, part), support::Key("case"));
    EXPECT_EQ(desktop::FindObject(twins, {L"C-1", L"case", "pin", {}}), support::Key("pin"));
    EXPECT_EQ(desktop::FindObject(twins, {L"P-1", L"pin", "pin", {}}), std::nullopt);

    desktop::StepSource source;
    platform::SourceUpdate update;
    update.keys = {{support::Key("product7"), support::Key("case")}};
    source.OnUpdated(update);
    EXPECT_EQ(source.FindKeyInFile(file, support::Key("case")), support::Key("product7"));
    EXPECT_EQ(source.FindKeyInFile(file, support::Key("pin")), support::Key("pin"));
}

TEST_F(SessionTest, MeasuresThatComeAfterSavingAreStillToBeSaved) {
    const auto session = Open("gear.step", true);
    EXPECT_FALSE(session->SaveAs(m_folder / "gear.json"));
    session->TakeMeasures({{{support::Key("case"), 0.5}}});
    EXPECT_TRUE(session->IsModified());
    EXPECT_FALSE(session->SaveAs(m_folder / "gear.json"));
    EXPECT_FALSE(session->IsModified());
}

TEST_F(SessionTest, AFileThatCannotBeWrittenLeavesTheSessionAsItWas) {
    const auto session = Open("a.json");
    Rename(*session, L"Housing");
    EXPECT_TRUE(session->SaveAs(m_folder / "no" / "such.json"));
    EXPECT_TRUE(session->IsModified());
    EXPECT_EQ(session->GetPath(), m_folder / "a.json");
}

TEST_F(SessionTest, WhatIsNoProductIsNeverWrittenOver) {
    const auto session = Open("gear.step", true);
    const std::pair<const char*, const char*> files[] = {{"gear.step", "ISO-10303-21;\nHEADER;"},
                                                         {"named.json", "ISO-10303-21;\nHEADER;"},
                                                         {"package.json", "{\"name\": \"other\"}"},
                                                         {"notes.txt", "notes"}};
    const auto tryAll = [&] {
        for (const auto& [name, text] : files) {
            std::ofstream(m_folder / name, std::ios::binary) << text;
            const auto error = session->SaveAs(m_folder / name);
            EXPECT_TRUE(error && error->reason.find("not written over") != std::string::npos) << name;
            std::ifstream file(m_folder / name, std::ios::binary);
            EXPECT_EQ(std::string(std::istreambuf_iterator(file), {}), text);
        }
    };
    tryAll();
    ASSERT_FALSE(session->SaveAs(m_folder / "gear.json"));
    EXPECT_FALSE(session->SaveAs(m_folder / "gear.json"));
    tryAll();
    std::ofstream(m_folder / "empty.json").flush();
    EXPECT_FALSE(session->SaveAs(m_folder / "empty.json"));
}

TEST_F(SessionTest, AChangeOnDiskIsNoticedOnceAndOurOwnNever) {
    using desktop::FileNews;
    const auto session = Open("a.json");
    const auto write = [&](const std::string& text) { std::ofstream(m_folder / "a.json", std::ios::binary) << text; };
    ASSERT_FALSE(session->SaveAs(m_folder / "a.json"));
    EXPECT_EQ(session->NoticeChangeOnDisk(), FileNews::None);
    write(desktop::store::FormatProduct(Gearbox()));
    EXPECT_EQ(session->NoticeChangeOnDisk(), FileNews::None) << "the same contents";
    write("{");
    EXPECT_EQ(session->NoticeChangeOnDisk(), FileNews::Changed);
    EXPECT_EQ(session->NoticeChangeOnDisk(), FileNews::None);
    EXPECT_FALSE(session->IsModified());
    std::filesystem::remove(m_folder / "a.json");
    EXPECT_EQ(session->NoticeChangeOnDisk(), FileNews::Gone);
    EXPECT_EQ(session->NoticeChangeOnDisk(), FileNews::None);
    EXPECT_TRUE(session->IsModified());
    EXPECT_FALSE(session->SaveAs(m_folder / "a.json"));
    EXPECT_FALSE(session->IsModified());
}

TEST_F(SessionTest, AFileReadAgainKeepsTheUsersViewByIdentity) {
    const auto session = Open("a.json");
    platform::TreeTableRow& section = session->GetView().GetRoot()->GetChildRow(0);
    section.SetExpandedByUser(true);
    session->GetView().SelectByUser({&Part(*session, 0)}, &Part(*session, 0));
    Rename(*session, L"Housing");
    platform::ProductModel other = Gearbox();
    other.objects.insert(other.objects.begin(),
                         support::Product().Object("arm", L"Arm").Section(20, L"Parts").Uses().Model().objects[0]);
    ASSERT_FALSE(desktop::store::WriteProductFile(m_folder / "a.json", other));
    EXPECT_FALSE(session->Reload(L"Reading Again"));
    EXPECT_EQ(support::DumpView(session->GetView(), {.expandedOnly = true, .selection = true}),
              "Gearbox [Parts (x4) [Arm | >>Case | Pin (x2)+]]");
    EXPECT_FALSE(session->IsModified());
    session->Undo();
    EXPECT_EQ(support::DumpView(session->GetView(), {.expandedOnly = true, .selection = true}),
              "Gearbox [Parts (x3) [>>Housing | Pin (x2)+]]");
    EXPECT_TRUE(session->IsModified());
    session->Undo();
    EXPECT_FALSE(session->CanUndo());
}

TEST_F(SessionTest, AnInvalidFileKeepsTheOpenProduct) {
    const auto session = Open("a.json");
    Rename(*session, L"Housing");
    const std::string before = Dump(*session);
    std::ofstream(m_folder / "a.json") << "{\"format\":\n 7}";
    const auto error = session->Reload({});
    ASSERT_TRUE(error);
    EXPECT_EQ(error->reason.find('\n'), std::string::npos);
    EXPECT_EQ(Dump(*session), before);
    EXPECT_TRUE(session->CanUndo());
}

} // namespace
