// The list of documents below the tree, as its user works with it in the box of the host.

#include "control/IfProductTreeCtrl.h"
#include "items/ProductTreeItemData.h"
#include "platform/services/UserDecisions.h"
#include "platform/values/Utf8.h"
#include "tests/library/PanelTest.h"
#include "tests/support/RecordingProductData.h"
#include "tests/support/ScriptedFiles.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace {

using platform::DocumentTable;
using platform::TreeTableRow;
using support::Key;
using support::Product;
using support::RecordingProductData;

enum Command : unsigned { Open = 7749, UseFormat, TakeAsSource, Add = 7783, Preview, Remove };

Product TwoParts() {
    Product product;
    product.Root(L"r").NoSectionRows();
    product.Object("a", L"a")
        .Document("/d/1.pdf", L"D.1", L"One", L"A3")
        .Document("/d/2.txt")
        .Document("/d/3.pdf", {}, L"Three")
        .Uses();
    product.Object("b", L"b").Document("/d/9.pdf").Document("/d/3.pdf").Uses();
    return product;
}

class Documents : public testing::Test {
public:
    Documents() {
        data->Product().SetDecisions(&decisions);
        data->Product().SetDocumentFiles(&files);
        data->canPreview = [](const PartDocument& document) { return document.file.ends_with(L".pdf"); };
        frame = std::make_unique<platform::HostFrame>(data);
    }

    platform::DocumentBox& Box() const { return *frame->GetDocumentBox(); }
    DocumentTable& Table() const { return Box().GetDocuments(); }
    TreeTableRow& Row(std::size_t place) const { return frame->GetView().GetRoot()->GetChildRow(place); }
    void Show() const {
        Box().SetVisibleByUser(true);
        frame->GetView().SelectByUser({&Row(0)}, nullptr);
    }

    /// Files with their pictures, the selected ones in brackets.
    std::string List() const {
        const std::vector<std::size_t> selected = Table().GetSelection();
        std::string list;
        for (std::size_t i = 0; i < Table().GetRows().size(); ++i) {
            const auto& cells = Table().GetRows()[i].cells;
            const std::string file = platform::ToUtf8(std::get<SharedText>(cells[3]).Str()).substr(3);
            const bool isSelected = std::ranges::find(selected, i) != selected.end();
            list += (isSelected ? "[" + file + "]" : file) + std::to_string(std::get<int>(cells[0])) + " ";
        }
        return list;
    }
    /// The enabled commands, with the checked ones marked.
    std::string Commands() const {
        std::string list;
        for (const unsigned command : {Open, UseFormat, TakeAsSource, Add, Preview}) {
            if (Table().IsCommandEnabled(command))
                list += std::to_string(command) + (Table().IsCommandChecked(command) ? "* " : " ");
        }
        return list + (Table().IsRemoveEnabled() ? "remove" : "");
    }
    void Change(const std::function<void(std::vector<platform::DocumentRecord>&)>& change) const {
        data->Product().Change([&](platform::ProductModel& model) { change(model.objects[0].documents); });
        frame->GetTree().Refresh();
    }

    platform::ScriptedDecisions decisions;
    support::ScriptedFiles files;
    std::shared_ptr<RecordingProductData> data = std::make_shared<RecordingProductData>(TwoParts());
    std::unique_ptr<platform::HostFrame> frame;
};

TEST_F(Documents, AreReadOnlyWhileTheyAreSeen) {
    const auto reads = [&] { return std::ranges::count(data->TakeCalls(), "GetPartDocuments"); };
    reads();
    frame->GetView().SelectByUser({&Row(0)}, nullptr);
    frame->GetTree().Synchronize();
    EXPECT_EQ(reads(), 0);
    Box().SetVisibleByUser(true);
    EXPECT_EQ(reads(), 1);
    EXPECT_EQ(List(), "[1.pdf]0 2.txt0 3.pdf0 ");
    Box().SetVisibleByUser(false);
    Box().SetVisibleByUser(true);
    EXPECT_EQ(reads(), 0);
}

TEST_F(Documents, StaySelectedByFileUntilAnotherPartIs) {
    Show();
    Table().SelectByUser({1, 2});
    Change([](auto& documents) { std::swap(documents[0], documents[2]); });
    EXPECT_EQ(List(), "[3.pdf]0 [2.txt]0 1.pdf0 ");
    Change([](auto& documents) { documents.erase(documents.begin(), documents.begin() + 2); });
    EXPECT_EQ(List(), "[1.pdf]0 ");
    frame->GetView().SelectByUser({&Row(1)}, nullptr);
    EXPECT_EQ(List(), "[9.pdf]0 3.pdf0 ");
    Table().SelectByUser({1});
    frame->GetView().SelectByUser({&Row(0)}, nullptr);
    EXPECT_EQ(List(), "[1.pdf]0 ");
    frame->GetView().SelectByUser({&Row(0), &Row(1)}, nullptr);
    EXPECT_EQ(List(), "");
    EXPECT_EQ(Commands(), "");
}

TEST_F(Documents, HaveTheCommandsThatTheSelectedOnesCanDo) {
    Show();
    EXPECT_EQ(Commands(), "7749 7750 7751 7783 7784* remove");
    Table().SelectByUser({1});
    EXPECT_EQ(Commands(), "7749 7783 remove");
    Table().SelectByUser({2});
    EXPECT_EQ(Commands(), "7749 7751 7783 7784* remove");
    Table().SelectByUser({0, 1});
    EXPECT_EQ(Commands(), "7749 7783 remove");
    Table().SelectByUser({});
    EXPECT_EQ(Commands(), "7783 ");
    Table().SelectByUser({0});
    Table().RunCommandByUser(UseFormat);
    std::string menu;
    for (const DocumentTable::MenuItem& item : Table().MakeMenu())
        menu += std::to_string(item.command) + (item.isCheckable ? item.isChecked ? "+ " : "- " : " ");
    EXPECT_EQ(menu, "7783 7749 7784+ 7751- 7750+ 7785 ");
    EXPECT_TRUE(Table().ChooseFromMenuByUser(UseFormat));
    EXPECT_EQ(Commands(), "7749 7750 7751 7783 7784* remove");
}

TEST_F(Documents, AreAddedRemovedAndOpened) {
    Show();
    decisions.ChooseNextFiles({"/d/0.pdf"});
    Table().RunCommandByUser(Add);
    EXPECT_EQ(List(), "[1.pdf]0 2.txt0 3.pdf0 0.pdf0 ");
    Table().SelectByUser({1, 3});
    Table().RunCommandByUser(Open);
    EXPECT_EQ(files.opened, (std::vector<std::string>{"/d/2.txt", "/d/0.pdf"}));
    decisions.AnswerNext(std::nullopt);
    Table().RemoveByUser();
    EXPECT_EQ(List(), "1.pdf0 [2.txt]0 3.pdf0 [0.pdf]0 ");
    decisions.AnswerNext(0);
    Table().RemoveByUser();
    EXPECT_EQ(List(), "[1.pdf]0 3.pdf0 ");
    data->Product().Undo();
    frame->GetTree().Refresh();
    EXPECT_EQ(List(), "[1.pdf]0 2.txt0 3.pdf0 0.pdf0 ");
}

TEST_F(Documents, GiveThePartItsNameAndItStaysSelected) {
    Show();
    Table().RunCommandByUser(UseFormat);
    EXPECT_EQ(List(), "[1.pdf]2 2.txt0 3.pdf0 ");
    const auto enabled = [&] { return Table().GetRows()[0].enabled; };
    EXPECT_EQ(enabled(), (std::vector<bool>{true, true, true, false, false, true}));
    Table().RunCommandByUser(TakeAsSource);
    EXPECT_EQ(List(), "[1.pdf]3 2.txt0 3.pdf0 ");
    EXPECT_EQ(enabled(), std::vector<bool>(6, true));
    // It stands behind the other part now.
    EXPECT_EQ(support::DumpView(frame->GetView(), {}), "r [b | One]");
    EXPECT_EQ(frame->GetView().GetSelectedRows().size(), 1U);
    EXPECT_EQ(frame->GetView().GetSelectedRows().at(0).get(), &Row(1));
}

TEST_F(Documents, ThatCannotBeSeenHideThePreviewAndLeaveItWanted) {
    Show();
    const auto preview = [&] {
        const auto& shown = Box().GetPreview();
        return (shown.isShown ? "+" : "-") + platform::ToUtf8(shown.file);
    };
    EXPECT_EQ(preview(), "+/d/1.pdf");
    Table().SelectByUser({1});
    EXPECT_EQ(preview(), "-/d/1.pdf");
    Table().SelectByUser({2});
    EXPECT_EQ(preview(), "+/d/3.pdf");
    Table().RunCommandByUser(Preview);
    EXPECT_EQ(preview(), "-/d/3.pdf");
    Table().SelectByUser({0});
    EXPECT_EQ(preview(), "-/d/3.pdf");
    EXPECT_FALSE(Table().IsCommandChecked(Preview));
    Table().RunCommandByUser(Preview);
    EXPECT_EQ(preview(), "+/d/1.pdf");
}

TEST_F(Documents, OfAHostThatThrowsAreListedAgainByTheNextBuild) {
    const struct {
        const char* what;
        std::function<void(Documents&)> run;
    } operations[] = {{"selection", [](Documents& t) { t.frame->GetView().SelectByUser({&t.Row(1)}, nullptr); }},
                      {"documents", [](Documents& t) { t.Table().SelectByUser({2}); }},
                      {"format", [](Documents& t) { t.Table().RunCommandByUser(UseFormat); }},
                      {"source", [](Documents& t) { t.Table().RunCommandByUser(TakeAsSource); }},
                      {"adding", [](Documents& t) { t.Table().RunCommandByUser(Add); }},
                      {"opening", [](Documents& t) { t.Table().RunCommandByUser(Open); }},
                      {"removal", [](Documents& t) { t.Table().RemoveByUser(); }},
                      {"menu", [](Documents& t) { t.Table().MakeMenu(); }},
                      {"hidden", [](Documents& t) {
                           t.Box().SetVisibleByUser(false);
                           t.frame->GetView().SelectByUser({&t.Row(1)}, nullptr);
                           t.Box().SetVisibleByUser(true);
                       }}};
    for (const auto& operation : operations) {
        SCOPED_TRACE(operation.what);
        bool isThrowing = true;
        for (std::size_t n = 1; isThrowing; ++n) {
            ASSERT_LT(n, 10'000U);
            data = std::make_shared<RecordingProductData>(TwoParts());
            data->Product().SetDecisions(&decisions);
            data->Product().SetDocumentFiles(&files);
            frame = std::make_unique<platform::HostFrame>(data);
            Show();
            decisions.ChooseNextFiles({"/d/0.pdf"});
            decisions.AnswerNext(0);
            data->ThrowAt(n);
            isThrowing = false;
            try {
                operation.run(*this);
            } catch (const support::HostError&) {
                isThrowing = true;
            }
            data->ThrowAt(0);
            ASSERT_FALSE(frame->GetTreeId()->IsNeedSyncronize());
            ASSERT_FALSE(frame->GetTreeId()->IsNeedRefresh());
            frame->GetTree().Synchronize();
            frame->GetView().SelectByUser({&Row(0)}, nullptr);
            frame->GetTree().Refresh();
            // What it is called now may have moved it.
            const UniqueMetaObjectKey key = Row(0).GetData()->GetObjectKey();
            ASSERT_EQ(Table().GetRows().size(), data->Product().GetPartDocuments(key).size()) << n;
            ASSERT_TRUE(Table().IsCommandEnabled(Add)) << n;
            decisions = {};
        }
    }
}

} // namespace
