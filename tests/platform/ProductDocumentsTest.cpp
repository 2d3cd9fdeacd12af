#include "platform/product/model/DocumentNames.h"
#include "platform/product/model/SheetFormats.h"
#include "platform/services/UserDecisions.h"
#include "platform/values/Utf8.h"
#include "tests/support/ProductBuilder.h"
#include "tests/support/ScriptedFiles.h"

#include <gtest/gtest.h>

namespace {

using platform::MemoryProduct;
using support::Key;
using support::Product;

using Changes = ProductInfObjChangesResult;

/// "AB.101 Bracket.pdf": what the names of files are taken for.
TEST(Documents, TellDesignationAndNameByTheirFiles) {
    const struct {
        const char* file;
        const wchar_t* designation;
        const wchar_t* name;
    } cases[] = {{"/d/AB.101 Bracket.pdf", L"AB.101", L"Bracket"},
                 {"AB.101-02_Bracket left.dwg.pdf", L"AB.101-02", L"Bracket left.dwg"},
                 {"AB.101 - Bracket.pdf", L"AB.101", L"Bracket"},
                 {"Bracket of 2026.pdf", L"", L"Bracket of 2026"},
                 {"AB.101", L"AB.101", L""},
                 {".5", L".5", L""},
                 {"/", L"", L""}};
    for (const auto& sample : cases) {
        const platform::DocumentRecord document = platform::GuessDocument(sample.file);
        EXPECT_EQ(document.marking.GetDisplayName().Str(), sample.designation) << sample.file;
        EXPECT_EQ(document.name.Str(), sample.name) << sample.file;
    }
}

TEST(Documents, HaveTheFormatOfTheirSheetEitherWayUp) {
    const struct {
        double width;
        double height;
        const wchar_t* format;
    } cases[] = {{210, 297, L"A4"},   {298.9, 211.9, L"A4"}, {212.1, 297, L""},     {215.9, 279.4, L""},
                 {841, 297, L"A4x4"}, {841, 594, L"A1"},     {891, 420.5, L"A3x3"}, {0, 0, L""}};
    for (const auto& sample : cases)
        EXPECT_EQ(platform::FindSheetFormat(sample.width, sample.height).Str(), sample.format) << sample.width;
}

class DocumentsOfAProduct : public testing::Test {
public:
    DocumentsOfAProduct() { Use(MakeProduct()); }

    static Product MakeProduct() {
        Product product;
        product.Root(L"Gearbox");
        product.Object("a", L"Arm", L"AB.1")
            .Document("/plant/d/arm.pdf", L"AB.101", L"Bracket", L"A3")
            .Document("/else/arm.txt", L"", L"Lever", L"A4")
            .Uses(2);
        product.Object("billet", L"Bar").BilletOf("a");
        return product;
    }

    void Use(const platform::ProductModel& model) {
        product = std::make_shared<MemoryProduct>(model);
        product->SetDecisions(&decisions);
        product->SetDocumentFiles(&files);
    }

    /// A line a document: format used, source, file, designation, format, comment.
    std::string List(std::string_view key = "a") const {
        std::wstring lines;
        for (const PartDocument& document : product->GetPartDocuments(Key(key)))
            lines += (lines.empty() ? L"" : L"|") + std::wstring(document.formatUsed ? L"+" : L"") +
                     (document.isSource ? L"*" : L"") + document.file + L"," + document.marking.GetDisplayName().Str() +
                     L"," + document.format + L"," + document.comment;
        return platform::ToUtf8(lines);
    }
    PartDocument Document(std::size_t place, std::string_view key = "a") const {
        return product->GetPartDocuments(Key(key)).at(place);
    }
    bool Commit(Changes changes) const {
        product->CommitChanges(changes);
        return changes.IsExistsChanges();
    }
    std::string Value(const wchar_t* path) const {
        if (std::wstring_view(path) == L"marking")
            return platform::ToUtf8(product->GetModel().objects[0].marking.GetDisplayName().Str());
        return platform::ToUtf8(product->GetValue({Key("a"), {}, path, {}}).to_wstring().Str());
    }
    std::string State() const {
        return List() + " " + Value(L"name") + "," + Value(L"marking") + "," + Value(L"format");
    }

    platform::ScriptedDecisions decisions;
    support::ScriptedFiles files;
    std::shared_ptr<MemoryProduct> product;
};

// Whatever the edit, it is one step with a name, and there and back again is where it was.
TEST_F(DocumentsOfAProduct, AreEditedInOneStepEach) {
    const std::string first = "d/arm.pdf,AB.101,A3,";
    const std::string second = "/else/arm.txt,,A4,";
    const std::string arm = " Arm,AB.1,";
    const struct {
        const wchar_t* step;
        std::function<bool(DocumentsOfAProduct&)> edit;
        std::string after;
    } edits[] = {
        {L"New documents",
         [](DocumentsOfAProduct& t) {
             t.files.sizes["/plant/C.7 Cap.pdf"] = {420, 297};
             t.decisions.ChooseNextFiles({"/plant/d/../C.7 Cap.pdf", "/plant/C.7 Cap.pdf", "/plant/d/arm.pdf"});
             return t.Commit(t.product->AddDocument(Key("a#2")));
         },
         first + "|" + second + "|C.7 Cap.pdf,C.7,A3," + arm},
        {L"Removal of documents",
         [](DocumentsOfAProduct& t) {
             t.decisions.AnswerNext(0);
             Changes changes = t.product->RemoveDocument(Key("a"), t.Document(0));
             changes += t.product->RemoveDocument(Key("a"), t.Document(1));
             return t.Commit(changes);
         },
         arm},
        {L"Format from a document",
         [](DocumentsOfAProduct& t) {
             return t.Commit(t.product->UseDocumentFormat(Key("a#1"), t.Document(0), L"A3"));
         },
         "+" + first + "|" + second + arm + "A3"},
        {L"Name and designation from a document",
         [](DocumentsOfAProduct& t) { return t.Commit(t.product->SetDocumentSource(Key("a"), t.Document(0))); },
         "*" + first + "|" + second + " Bracket,AB.101,"},
        {L"Name and designation from a document",
         [](DocumentsOfAProduct& t) { return t.Commit(t.product->SetDocumentSource(Key("a"), t.Document(1))); },
         first + "|*" + second + " Lever,AB.1,"},
        {L"Change of “arm.pdf”",
         [](DocumentsOfAProduct& t) {
             t.decisions.EditNextDocument(platform::DocumentTexts{L"AB.9", L"Bracket", L"A2", L"old"});
             return t.product->EditDocument(Key("a"), L"d/arm.pdf");
         },
         "d/arm.pdf,AB.9,A2,old|" + second + arm},
    };
    const std::string before = State();
    for (const auto& edit : edits) {
        SCOPED_TRACE(edit.after);
        EXPECT_TRUE(edit.edit(*this));
        EXPECT_EQ(State(), edit.after);
        EXPECT_EQ(product->GetUndoName().Str(), edit.step);
        product->Undo();
        EXPECT_EQ(State(), before);
        EXPECT_FALSE(product->CanUndo());
        product->Redo();
        EXPECT_EQ(State(), edit.after);
        product->Undo();
    }
    EXPECT_EQ(decisions.GetQuestions().size(), 1U);
    EXPECT_NE(decisions.GetMessages().at(0).Str().find(L"arm.pdf: it is in the list already"), std::wstring::npos);
}

TEST_F(DocumentsOfAProduct, AreFollowedByWhatWasTakenFromThem) {
    Commit(product->SetDocumentSource(Key("a"), Document(0)));
    Commit(product->UseDocumentFormat(Key("a"), Document(0), L"A3"));
    decisions.EditNextDocument(platform::DocumentTexts{L"AB.9", L"", L"A2", L""});
    EXPECT_TRUE(product->EditDocument(Key("a"), L"d/arm.pdf"));
    EXPECT_EQ(State(), "+*d/arm.pdf,AB.9,A2,|/else/arm.txt,,A4, Bracket,AB.9,A2");
    // Only one is the source, and only one gives the format.
    Commit(product->SetDocumentSource(Key("a"), Document(1)));
    Commit(product->UseDocumentFormat(Key("a"), Document(1), L"A4"));
    EXPECT_EQ(State(), "d/arm.pdf,AB.9,A2,|+*/else/arm.txt,,A4, Lever,AB.9,A4");
    // What is cleared stays but for the format, and what was typed since is the part's own.
    Commit(product->ClearDocumentSource(Key("a"), Document(1)));
    Commit(product->ClearDocumentFormat(Key("a"), Document(1)));
    EXPECT_EQ(State(), "d/arm.pdf,AB.9,A2,|/else/arm.txt,,A4, Lever,AB.9,");
    Commit(product->SetDocumentSource(Key("a"), Document(1)));
    Commit(product->MakeValueChanges({Key("a"), {}, L"name", {}}, PropValue(SimplePropVal(L"Mine"))));
    EXPECT_FALSE(Document(1).isSource);
}

TEST_F(DocumentsOfAProduct, BelongToTheObjectAndGoAndComeWithIt) {
    EXPECT_EQ(List("a#1"), List("a"));
    EXPECT_EQ(List("billet"), "");
    EXPECT_EQ(List(""), "");
    EXPECT_EQ(product->AddDocumentFiles(Key("root"), {"/plant/all.pdf", "/plant/", "/a\nb/", "/\xE9/"}), 1U);
    EXPECT_EQ(decisions.GetMessages().at(0).Str(), L"These were not added:\nplant: it is no file\n"
                                                   L"a b: it is no file\n\u00E9: its path can't be kept");
    EXPECT_EQ(List("root"), "all.pdf,,,");
    const auto look = product->MakeLook();
    EXPECT_EQ(look->GetPartDocuments(Key("root")).size(), 1U);
    const std::string before = State();
    product->DeleteObjects({Key("a")});
    EXPECT_EQ(List(), "");
    product->Undo();
    EXPECT_EQ(State(), before);
}

TEST_F(DocumentsOfAProduct, WhoseFilesAreGoneSaySoAndAreNotOpened) {
    files.gone.insert("/plant/d/arm.pdf");
    EXPECT_EQ(Document(0).comment, L"File not found");
    EXPECT_FALSE(product->CanOpenDocument(Key("a"), Document(0)));
    // Whoever shows it says so.
    EXPECT_TRUE(product->CanPreviewDocument(Key("a"), Document(0)));
    const auto open = [&](std::size_t place) {
        product->OpenDocument(Document(place), {}, MbPath_From_String(Document(place).path));
    };
    open(0);
    EXPECT_TRUE(files.opened.empty());
    open(1);
    EXPECT_EQ(files.opened, std::vector<std::string>{"/else/arm.txt"});
    files.hasProgram = false;
    open(1);
    const std::vector<SharedText>& told = decisions.GetMessages();
    ASSERT_EQ(told.size(), 2U);
    EXPECT_EQ(told[0].Str(), L"the file is not there any more");
    EXPECT_EQ(told[1].Str(), L"no program was found that opens the file");
}

TEST_F(DocumentsOfAProduct, CannotBeChangedWhereThePartOrTheProductCannot) {
    platform::ProductModel model = MakeProduct().ReadOnly();
    Use(model);
    EXPECT_FALSE(product->CanAddDocument(Key("a")));
    EXPECT_FALSE(product->CanRemoveDocuments(Key("a"), {L"d/arm.pdf"}));
    EXPECT_FALSE(product->CanChangeDocumentSource(Key("a"), Document(0)));
    EXPECT_FALSE(product->CanUseDocumentFormat(Key("a"), Document(0), L"A3"));
    EXPECT_FALSE(product->CanEditDocument(Key("a"), L"d/arm.pdf"));
    EXPECT_EQ(product->AddDocumentFiles(Key("a"), {"/plant/b.pdf"}), 0U);

    model.isReadOnly = false;
    model.objects[0].lockedMarkingParts = {1};
    model.objects[0].documents[1].isSource = true;
    Use(model);
    EXPECT_FALSE(product->CanChangeDocumentSource(Key("a"), Document(0)));
    EXPECT_TRUE(product->CanChangeDocumentSource(Key("a"), Document(1)));
    // A document that the part follows takes no designation that the part can't.
    Commit(product->SetDocumentSource(Key("a"), Document(1)));
    decisions.EditNextDocument(platform::DocumentTexts{L"X.1", L"Lever", L"A4", L""});
    EXPECT_FALSE(product->EditDocument(Key("a"), L"/else/arm.txt"));
    EXPECT_EQ(decisions.GetDocumentRequests().at(1).refusal.Str(), L"the part has taken it over, and can't take this");
    decisions.AnswerNext(1);
    EXPECT_FALSE(Commit(product->RemoveDocument(Key("a"), Document(0))));
}

TEST_F(DocumentsOfAProduct, OfAnImportedPartBeginWithItsFile) {
    platform::ProductModel model = MakeProduct();
    model.source = platform::SourceFile{"/plant/gear.stp", {1, 2}, "", {}};
    model.objects[0].source = platform::SourceProduct{L"AB.1", L"Arm", {}, {}};
    Use(model);
    EXPECT_EQ(List(), "*gear.stp,AB.1,,|d/arm.pdf,AB.101,A3,|/else/arm.txt,,A4,");
    const PartDocument source = Document(0);
    EXPECT_TRUE(source.sourceLocked);
    EXPECT_TRUE(product->CanOpenDocument(Key("a"), source));
    EXPECT_FALSE(product->CanRemoveDocuments(Key("a"), {L"d/arm.pdf", L"gear.stp"}));
    EXPECT_FALSE(product->CanChangeDocumentSource(Key("a"), source));
    EXPECT_EQ(product->AddDocumentFiles(Key("a"), {"/plant/gear.stp"}), 0U);
    Commit(product->SetDocumentSource(Key("a"), Document(1)));
    EXPECT_EQ(List(), "gear.stp,AB.1,,|*d/arm.pdf,AB.101,A3,|/else/arm.txt,,A4,");
}

} // namespace
