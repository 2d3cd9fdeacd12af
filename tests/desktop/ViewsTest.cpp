// Several views of one product: what they have in common, and what each has for itself.
#include "control/IfProductTreeCtrl.h"
#include "desktop/Session.h"
#include "desktop/store/ProductFile.h"
#include "platform/services/UserDecisions.h"
#include "platform/view/TreeTableView.h"
#include "tests/support/ProductBuilder.h"
#include "tests/support/ViewDump.h"

#include <gtest/gtest.h>

namespace {

using desktop::Session;
using platform::TreeTableRow;
using support::Key;

constexpr const char* c_car = R"({
 "format": "product-tree 1",
 "product": {"key": "car", "name": "Car"},
 "columns": ["position", "comment"],
 "sectionRows": false,
 "objects": [
  {"key": "axle", "name": "Axle", "section": 15, "kind": "assembly", "uses": 2},
  {"key": "wheel", "name": "Wheel", "section": 20, "uses": 1},
  {"key": "seat", "name": "Seat", "section": 20, "uses": 1}
 ],
 "objectsBelow": [{"key": "tube", "name": "Tube", "section": 20}],
 "assemblies": [
  {"object": "car"},
  {"object": "axle", "components": [{"object": "wheel", "uses": 2}, {"object": "tube", "uses": 1}]}
 ]
})";

class ViewsTest : public testing::Test {
protected:
    ViewsTest() {
        auto read = desktop::store::ParseProduct(c_car);
        EXPECT_FALSE(std::get_if<desktop::FileError>(&read));
        desktop::Document document;
        document.path = "car.json";
        document.model = std::get<platform::ProductModel>(std::move(read));
        m_first = std::make_unique<Session>(std::move(document));
        m_second = m_first->MakeView();
    }
    static std::string Dump(const platform::TreeTableView& view, bool selection = false) {
        return support::DumpView(view, {.selection = selection, .column = L"comment"});
    }
    std::string First() const { return Dump(m_first->GetView(), true); }
    std::string Second() const { return Dump(m_second->GetView(), true); }
    static TreeTableRow& Row(const Session& session, std::size_t place) {
        return session.GetView().GetRoot()->GetChildRow(place);
    }
    static void Comment(const Session& session, std::size_t place, const wchar_t* text) {
        EXPECT_TRUE(session.GetView().EditCellByUser(Row(session, place), L"comment", SharedText(text)));
    }
    static void Select(const Session& session, std::vector<TreeTableRow*> rows) {
        session.GetView().SelectByUser(rows, rows.empty() ? nullptr : rows.front());
    }

    std::unique_ptr<Session> m_first;
    std::unique_ptr<Session> m_second;
};

TEST_F(ViewsTest, ShareValuesSelectionAndStepsAndNothingElse) {
    Comment(*m_first, 1, L"spare");
    EXPECT_EQ(Second(), "Car [Axle (x2) [Axle | Axle] | Seat =spare | Wheel]");
    Select(*m_second, {&Row(*m_second, 2), &Row(*m_second, 0)});
    EXPECT_EQ(First(), "Car [>>Axle (x2) [Axle | Axle] | Seat =spare | >Wheel]");
    m_second->Undo();
    EXPECT_EQ(First(), "Car [>>Axle (x2) [Axle | Axle] | Seat | >Wheel]");

    m_second->GetView().SetColumnsVisibleByUser({{L"comment", 0}});
    m_second->ExpandAll();
    const auto shows = [](const Session& session) {
        return session.GetView().IsColumnVisible(session.GetView().FindColumn(L"comment"));
    };
    EXPECT_FALSE(shows(*m_second));
    EXPECT_TRUE(shows(*m_first)) << "each view has its own columns";
    EXPECT_FALSE(Row(*m_first, 0).IsExpanded());
    EXPECT_EQ(m_second->GetNumber(), 2U);
    EXPECT_FALSE(m_first->IsAlone());
    m_first.reset();
    EXPECT_TRUE(m_second->IsAlone());
    EXPECT_EQ(m_second->GetProduct().GetVisiblePropertyIds().size(), 1U) << "its columns stay when the other goes";
    EXPECT_TRUE(m_second->CanRedo()) << "the document lives as long as the last view";
    m_second->Redo();
    EXPECT_TRUE(m_second->IsModified());
}

TEST_F(ViewsTest, StandAtLevelsOfTheirOwn) {
    ASSERT_TRUE(m_second->OpenAssembly(Row(*m_second, 0)));
    EXPECT_EQ(Second(), "Axle [Tube | Wheel (x2) [Wheel | Wheel]]");
    Comment(*m_first, 2, L"round");
    EXPECT_EQ(Second(), "Axle [Tube | Wheel (x2) =round [Wheel =round | Wheel =round]]");
    Comment(*m_second, 0, L"steel");
    EXPECT_EQ(First(), "Car [Axle (x2) [Axle | Axle] | Seat | Wheel =round]");
    m_first->Undo();
    EXPECT_EQ(First(), "Axle [Tube | Wheel (x2) =round [Wheel =round | Wheel =round]]") << "where it was done";
    m_first->Undo();
    EXPECT_EQ(First(), "Car [Axle (x2) [Axle | Axle] | Seat | Wheel]");
    EXPECT_EQ(Second(), "Axle [Tube | Wheel (x2) [Wheel | Wheel]]");
    // A level that has gone by way of another view.
    platform::ScriptedDecisions decisions;
    m_first->SetDecisions(&decisions);
    m_first->Activate();
    Select(*m_first, {&Row(*m_first, 0)});
    decisions.AnswerNext(0);
    m_first->GetView().RunCommandByUser(7746);
    EXPECT_EQ(Second(), "Car [Seat | Wheel]") << "its assembly is gone";
    EXPECT_EQ(m_second->GetWay().size(), 1U);
    m_first->SetDecisions(nullptr);
}

} // namespace
