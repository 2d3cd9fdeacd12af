#include "desktop/tree/GroupValues.h"
#include "platform/view/TreeTableView.h"

#include <gtest/gtest.h>

#include <optional>
#include <vector>

namespace {

using desktop::GroupValues;
using State = desktop::GroupValues::State;

const SharedText c_column = L"value";

/// A view of a product with one row that has rows below it, all with one cell in one column.
class GroupValuesTest : public testing::Test {
protected:
    using Numbers = std::vector<std::optional<double>>;

    GroupValuesTest() { m_head.id = c_column.Str(); }

    void MakeRows(std::size_t members) {
        m_members.clear();
        m_group = MakeRow();
        for (std::size_t i = 0; i < members; ++i) {
            m_members.push_back(MakeRow());
            m_group->AppendChild(m_members.back());
        }
        const TreeRowPtr root = m_view->CreateRow();
        root->AppendChild(m_group);
        m_view->SetRootRow(root);
    }
    void MakeTexts(const std::vector<SharedText>& texts, const SharedText& raw, const SharedText& shown) {
        MakeRows(texts.size());
        for (std::size_t i = 0; i < texts.size(); ++i)
            SetText(*m_members[i], texts[i], texts[i]);
        SetText(*m_group, raw, shown);
    }
    void MakeNumbers(const Numbers& numbers, std::optional<double> common) {
        MakeRows(numbers.size());
        for (std::size_t i = 0; i < numbers.size(); ++i)
            SetNumber(*m_members[i], numbers[i]);
        SetNumber(*m_group, common);
    }

    State GetState() const { return Values().GetState(); }
    std::string Tip() const { return Values().MakeTip().toStdString(); }

    TreeRowPtr m_group;
    std::vector<TreeRowPtr> m_members;

private:
    GroupValues Values() const { return {m_view->GetRoot()->GetChildRow(0), m_head}; }
    TreeRowPtr MakeRow() const {
        TreeRowPtr row = m_view->CreateRow();
        row->SetCellCount(1);
        row->SetCellColumn(0, c_column.Str());
        return row;
    }
    static void SetText(ITreeTableRow& row, const SharedText& raw, const SharedText& shown) {
        row.SetTextCell(c_column, raw, shown, true, false, {}, nullptr);
    }
    static void SetNumber(ITreeTableRow& row, std::optional<double> number) {
        row.SetDoubleCell(c_column, number.value_or(0), number.has_value(), true, {}, 0, 0);
    }

    boost::intrusive_ptr<platform::TreeTableView> m_view{new platform::TreeTableView};
    platform::ColumnHead m_head;
};

TEST_F(GroupValuesTest, OneValueAListAndDifferentValuesAreToldApart) {
    MakeTexts({L"a", L"a"}, L"a", L"a");
    EXPECT_EQ(GetState(), State::Same);
    MakeTexts({L"a", L"a"}, {}, L"a");
    EXPECT_EQ(GetState(), State::Same) << "a list of one";
    MakeTexts({L"a", L"b"}, {}, L"a;b");
    EXPECT_EQ(GetState(), State::List);
    MakeTexts({L"a", L""}, {}, L"a");
    EXPECT_EQ(GetState(), State::List) << "one member has none";
    MakeTexts({L"", L""}, {}, {});
    EXPECT_EQ(GetState(), State::Same) << "nothing";

    MakeNumbers({5, 5}, 5);
    EXPECT_EQ(GetState(), State::Same);
    MakeNumbers({5, 6}, {});
    EXPECT_EQ(GetState(), State::Different);
    MakeNumbers({0, {}}, {});
    EXPECT_EQ(GetState(), State::Different) << "zero is a value";
    MakeNumbers({{}, {}}, {});
    EXPECT_EQ(GetState(), State::Same);
}

TEST_F(GroupValuesTest, RowsThatAreNoGroupHaveNoMembers) {
    MakeNumbers({}, {});
    EXPECT_EQ(GetState(), State::None) << "no rows below";
    MakeNumbers({5, 6}, {});
    m_group->SetSectionRowStyle(true);
    EXPECT_EQ(GetState(), State::None) << "a section";

    m_group->SetSectionRowStyle(false);
    EXPECT_EQ(GetState(), State::Different);
    m_group->SetCellCount(0);
    EXPECT_EQ(GetState(), State::None) << "no cell";
}

TEST_F(GroupValuesTest, TheTipCountsTheMembersOfEachValue) {
    MakeNumbers({6, 5, {}, 5}, {});
    EXPECT_EQ(Tip(), "3 values:\n5 (2)\n6 (1)\nnone (1)");
    MakeNumbers({5, 5}, 5);
    EXPECT_EQ(Tip(), "");
    MakeTexts({L"%1\n%2", L"b"}, {}, L"b;%1\n%2");
    EXPECT_EQ(Tip(), "2 values:\n%1 %2 (1)\nb (1)");

    // Texts that begin alike are different ones.
    const std::wstring text(70, L'x');
    MakeTexts({text + L"1", text + L"2"}, {}, L"x");
    const std::string cut = std::string(59, 'x') + "\xE2\x80\xA6 (1)";
    EXPECT_EQ(Tip(), "2 values:\n" + cut + "\n" + cut);
}

TEST_F(GroupValuesTest, TheTipHasAtMostTenLines) {
    Numbers numbers;
    for (int i = 0; i < 9; ++i)
        numbers.emplace_back(i);
    MakeNumbers(numbers, {});
    EXPECT_EQ(QString::fromStdString(Tip()).count('\n'), 9);
    numbers.emplace_back(9);
    MakeNumbers(numbers, {});
    EXPECT_EQ(Tip(), "10 values:\n0 (1)\n1 (1)\n2 (1)\n3 (1)\n4 (1)\n5 (1)\n6 (1)\n7 (1)\n"
                     "and 2 more");
}

} // namespace
