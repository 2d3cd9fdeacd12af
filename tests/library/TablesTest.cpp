// The table that says which cells and which head a column has, row by row: the maker makes the
// class, and what it makes survives a reading, an edit, no value and a value of another kind.

#include "cells/CountCells.h"
#include "cells/MarkingCells.h"
#include "cells/MaterialCells.h"
#include "cells/MaterialGroupCells.h"
#include "cells/NameCells.h"
#include "cells/PlainCells.h"
#include "cells/PopupCells.h"
#include "cells/RoughnessCells.h"
#include "cells/SectionAndPositionCells.h"
#include "cells/TypedGroupCells.h"
#include "columns/headers/CountHeader.h"
#include "columns/headers/DialogHeaders.h"
#include "columns/headers/PlainHeaders.h"
#include "columns/headers/PopupHeaders.h"
#include "columns/headers/RoughnessHeaders.h"
#include "items/ColumnTable.h"
#include "items/ProductTreeItemImpl.h"
#include "tests/library/PanelTest.h"

#include <gtest/gtest.h>
#include <set>
#include <string>
#include <typeindex>

namespace {

using namespace productTree;
using platform::PropertyRecord;
using platform::TreeTableRow;
using support::Product;

const std::type_index c_nothing = typeid(void);

template <class Object>
std::type_index ClassOf(const std::shared_ptr<Object>& object) {
    if (!object)
        return c_nothing;
    const Object& made = *object;
    return typeid(made);
}

struct TableRow {
    const wchar_t* columnId;
    std::type_index objectCell;
    std::type_index groupCell;
    std::type_index head;
    /// Of a text that a group shows.
    GroupMode mode = GroupMode::NoValue;
};

constexpr GroupMode c_all = GroupMode::AllValues;
constexpr GroupMode c_common = GroupMode::CommonValue;

// clang-format off
const TableRow c_mipLinks[] = {
    {L"material.density", typeid(DensityCellImpl), typeid(DensityGroupCellImpl), typeid(MIPHeaderImpl), c_common},
    {L"mass", typeid(MassCellImpl), typeid(MassGroupCellImpl), typeid(MIPHeaderImpl)},
    {L"material", typeid(MaterialNameCellImpl), typeid(MipGroupCellImpl), typeid(MIPHeaderImpl), c_common},
};

const TableRow c_rows[] = {
    {L"material.density", typeid(DoubleCellImpl), typeid(DensitySimplifiedGroupCellImpl), typeid(DoubleHeaderImpl), c_common},
    {L"mass", typeid(DoubleCellImpl), typeid(MassSimplifiedGroupCellImpl), typeid(DoubleHeaderImpl)},
    {L"notSected", typeid(NotSectedCellImpl), typeid(NotSectedGroupCellImpl), typeid(NotSectedHeaderImpl), c_common},
    {L"material", typeid(MaterialSimplifiedCellImpl), typeid(MaterialSimplifiedGroupCellImpl), typeid(SimplifiedMaterialHeaderImpl), c_common},
    {L"featureType", typeid(FeatureTypeCellImpl), typeid(DisabledGroupCellImpl), typeid(FeatureTypeHeaderImpl), c_common},
    {L"position", typeid(PosCellImpl), typeid(PosGroupCellImpl), typeid(StringHeaderImpl)},
    {L"stampAuthor", typeid(ParticipantCellImpl), typeid(ParticipantGroupCellImpl), typeid(ParticipantHeaderImpl), c_common},
    {L"checkedBy", typeid(ParticipantCellImpl), typeid(ParticipantGroupCellImpl), typeid(ParticipantHeaderImpl), c_common},
    {L"approvedBy", typeid(ParticipantCellImpl), typeid(ParticipantGroupCellImpl), typeid(ParticipantHeaderImpl), c_common},
    {L"mfgApprovedBy", typeid(ParticipantCellImpl), typeid(ParticipantGroupCellImpl), typeid(ParticipantHeaderImpl), c_common},
    {L"rateOfInspection", typeid(ParticipantCellImpl), typeid(ParticipantGroupCellImpl), typeid(ParticipantHeaderImpl), c_common},
    {L"signer", typeid(ParticipantCellImpl), typeid(ParticipantGroupCellImpl), typeid(ParticipantHeaderImpl), c_common},
    {L"revisionLetter", typeid(LiteraCellImpl), typeid(LiteraGroupCellImpl), typeid(LiteraHeaderImpl), c_common},
    {L"SPCSection", typeid(SPCSectionCellImpl), typeid(SpcSectionGroupCellImpl), typeid(SpcSectionHeaderImpl)},
    {L"specRoughSign", typeid(RoughSignCellImpl), typeid(DisabledGroupCellImpl), typeid(RoughSignHeaderImpl), c_common},
    {L"specRoughValue", typeid(RoughValueCellImpl), typeid(DisabledGroupCellImpl), typeid(RoughValueHeaderImpl), c_common},
    {L"count", typeid(CountCellImpl), typeid(CountGroupCellImpl), typeid(CountHeaderImpl)},
    {L"comment", typeid(StringCellImpl), typeid(StringGroupCellImpl), typeid(StringHeaderImpl), c_all},
    {L"note", typeid(StringCellImpl), typeid(StringGroupCellImpl), typeid(StringHeaderImpl), c_all},
    {L"zone", typeid(StringCellImpl), typeid(StringGroupCellImpl), typeid(StringHeaderImpl), c_all},
    {L"format", typeid(StringCellImpl), typeid(StringGroupCellImpl), typeid(StringHeaderImpl), c_all},
    {L"productCode", typeid(StringCellImpl), typeid(StringGroupCellImpl), typeid(StringHeaderImpl), c_common},
    {L"jobDescription", typeid(StringCellImpl), typeid(StringGroupCellImpl), typeid(StringHeaderImpl), c_common},
    {L"author", typeid(StringCellImpl), typeid(StringGroupCellImpl), typeid(StringHeaderImpl), c_common},
    {L"organization", typeid(StringCellImpl), typeid(StringGroupCellImpl), typeid(StringHeaderImpl), c_common},
    {L"sheetsNumber", typeid(IntCellImpl), typeid(UserIntGroupCellImpl), typeid(IntHeaderImpl), c_common},
    {L"fromExternalLibrary", typeid(BoolCellImpl), typeid(UserBoolGroupCellImpl), typeid(BoolHeaderImpl), c_common},
    {L"user.1001", typeid(IntCellImpl), typeid(UserIntGroupCellImpl), typeid(IntHeaderImpl), c_common},
    {L"user.1002", typeid(DoubleCellImpl), typeid(UserDoubleGroupCellImpl), typeid(DoubleHeaderImpl), c_common},
    {L"user.1003", typeid(StringCellImpl), typeid(StringGroupCellImpl), typeid(StringHeaderImpl), c_common},
    {L"user.1004", typeid(BoolCellImpl), typeid(UserBoolGroupCellImpl), typeid(BoolHeaderImpl), c_common},
    {L"user.1005", typeid(ListCellImpl), typeid(ListGroupCellImpl), typeid(ListHeaderImpl), c_common},
    {L"user.1006", c_nothing, c_nothing, c_nothing},
};
// clang-format on

// A group of two with one part below it, and a billet.
Product AllKindsOfRows() {
    Product product;
    product.Root(L"r").Simplified();
    for (unsigned type = 0; type <= 5; ++type) {
        PropertyRecord record;
        record.number = 1001 + type;
        record.type = type == 4 ? 2 : type == 5 ? 7 : type;
        if (type == 4)
            record.list = {SimplePropVal(L"x"), SimplePropVal(L"y")};
        product.Property(record);
    }
    return product.Object("a", L"a", L"1").Uses(2);
}

class Tables : public testing::Test {
protected:
    ColumnInfo Column(const wchar_t* id) const { return ColumnInfo(m_panel.data->GetPropertyDescription(id)); }

    TreeTableRow& Section() { return m_panel.View().GetRoot()->GetChildRow(0); }
    TreeTableRow& Group() { return Section().GetChildRow(0); }

    std::shared_ptr<ProductTreeCellImpl> Make(const TreeTableRow& row, const ColumnInfo& column) {
        return FindItemOfRow(row)->CreateCell(column);
    }

    void ExpectMakers(const TableRow& row) {
        const ColumnInfo column = Column(row.columnId);
        const std::string id(column.GetId().begin(), column.GetId().end());
        EXPECT_EQ(ClassOf(Make(Group().GetChildRow(0), column)), row.objectCell) << id;
        EXPECT_EQ(ClassOf(Make(*m_panel.View().GetRoot(), column)),
                  id == "count" ? typeid(EmptyDisabledCellImpl) : row.objectCell)
            << id;
        const auto groupCell = Make(Group(), column);
        EXPECT_EQ(ClassOf(groupCell), row.groupCell) << id;
        if (const auto* const mixed = dynamic_cast<const GroupCellImpl*>(groupCell.get())) {
            EXPECT_EQ(mixed->GetGroupMode(), row.mode) << id;
        }
        EXPECT_EQ(ClassOf(Make(Section(), column)), c_nothing) << id;
        EXPECT_EQ(ClassOf(CreateHeader(column, m_panel.data.get(), &m_panel.View())), row.head) << id;
    }

    Panel m_panel{AllKindsOfRows()};
};

TEST_F(Tables, EachColumnHasItsCellsAndItsHead) {
    for (const TableRow& row : c_rows)
        ExpectMakers(row);
    m_panel.Change([](platform::ProductModel& model) { model.isSimplified = false; });
    for (const TableRow& row : c_mipLinks)
        ExpectMakers(row);
    for (const wchar_t* id : {L"count|root", L"count|a|b"}) {
        const ColumnInfo column(id, {}, 0);
        EXPECT_EQ(ClassOf(Make(Group().GetChildRow(0), column)), typeid(CountCellImpl));
        EXPECT_EQ(ClassOf(Make(*m_panel.View().GetRoot(), column)), typeid(EmptyDisabledCellImpl));
        EXPECT_EQ(ClassOf(Make(Group(), column)), typeid(CountGroupCellImpl));
        EXPECT_EQ(ClassOf(CreateHeader(column, m_panel.data.get(), &m_panel.View())), typeid(CountHeaderImpl));
    }
    const ColumnInfo name(L"name", {}, 0);
    const ColumnInfo marking(L"marking", {}, 0);
    EXPECT_EQ(ClassOf(Make(Group().GetChildRow(0), name)), typeid(NameCellImpl));
    EXPECT_EQ(ClassOf(Make(Group().GetChildRow(0), marking)), typeid(MarkingCellImpl));
    EXPECT_EQ(ClassOf(Make(Group(), name)), typeid(NameGroupCellImpl));
    EXPECT_EQ(ClassOf(Make(Group(), marking)), typeid(MarkingGroupCellImpl));
}

TEST_F(Tables, NoColumnIsForgottenHere) {
    std::set<std::wstring> met{L"name", L"marking"};
    for (const TableRow& row : c_rows)
        met.insert(row.columnId);
    for (const ColumnTableRow& row : GetColumnTable())
        EXPECT_TRUE(met.contains(row.columnId)) << std::string(row.columnId.begin(), row.columnId.end())
                                                << ": say in c_rows which cells and head the column is to have";
}

TEST_F(Tables, EveryCellSurvivesReadingsEditsAndValuesOfAnyKind) {
    const PropValue values[] = {PropValue(),
                                PropValue(SimplePropVal(L"text")),
                                PropValue(SimplePropVal(true)),
                                PropValue(SimplePropVal(7)),
                                PropValue(SimplePropVal(0.5)),
                                PropValue(SimplePropVal(DateTime{1})),
                                VariantMarking().GetPropValue()};
    std::vector<ColumnInfo> columns{ColumnInfo(L"name", {}, 0), ColumnInfo(L"marking", {}, 0)};
    for (const TableRow& row : c_rows)
        columns.push_back(Column(row.columnId));
    for (TreeTableRow* row : {m_panel.View().GetRoot(), &Group(), &Group().GetChildRow(0)}) {
        for (const ColumnInfo& column : columns) {
            const auto cell = Make(*row, column);
            if (!cell)
                continue;
            // Before the row has a place for it, and with one.
            cell->Update();
            cell->OnValueEdited();
            cell->InitEditor();
            for (const PropValue& value : values) {
                ProductInfObjChangesResult changes = cell->MakeChanges(value, std::nullopt);
                m_panel.data->CommitChanges(changes);
                m_panel.Tree().Refresh();
                cell->Update();
                // Positions build the rows anew in any case.
                const bool builds = dynamic_cast<PosCellImpl*>(cell.get()) != nullptr;
                EXPECT_EQ(cell->OnValueEdited().action,
                          builds ? TreeActionResult::Synchronise : TreeActionResult::Nothing)
                    << "nobody has typed anything, column "
                    << std::string(column.GetId().begin(), column.GetId().end());
            }
            TreeActionResult result;
            const bool isCount =
                dynamic_cast<CountCellImpl*>(cell.get()) || dynamic_cast<CountGroupCellImpl*>(cell.get());
            EXPECT_EQ(cell->ExecCommand(7759, result), isCount) << "only counts are worked out";
            EXPECT_TRUE(isCount || result.action == TreeActionResult::Nothing);
            cell->GetAvailableCommands();
        }
    }
}

TEST_F(Tables, EveryHeadSurvivesAnEditThatNobodyMade) {
    m_panel.View().SelectByUser({&Group(), &Group().GetChildRow(0)}, &Group());
    for (const TableRow& row : c_rows) {
        const auto head = CreateHeader(Column(row.columnId), m_panel.data.get(), &m_panel.View());
        if (!head)
            continue;
        head->InitEditor();
        EXPECT_EQ(head->OnValueEdited().action, TreeActionResult::Nothing);
        EXPECT_EQ(head->OnClicked().action, TreeActionResult::Nothing);
        EXPECT_EQ(head->OnPopupCommand(1).action, TreeActionResult::Nothing);
    }
}

TEST(CountCommands, TypedCountsAreWorkedOutAgain) {
    Panel panel(Product()
                    .Root(L"r")
                    .NoSectionRows()
                    .Columns({L"count"})
                    .Object("a", {}, L"1")
                    .Count("root", L"9")
                    .Uses(2)
                    .Count("root", L"5")
                    .Object("b", {}, L"2")
                    .AggrIntoProduct(false)
                    .Uses()
                    .Count("root", L"5"));
    const TreeTableRow& group = panel.View().GetRoot()->GetChildRow(0);
    const auto cell = [](const TreeTableRow& row) -> ProductTreeCellImpl& {
        return *FindItemOfRow(row)->FindCell(std::wstring(L"count"));
    };
    const auto offers = [&](const TreeTableRow& row) { return cell(row).GetAvailableCommands().contains(7759); };
    const TreeTableRow& countedOut = panel.View().GetRoot()->GetChildRow(1);
    EXPECT_FALSE(cell(countedOut).IsEditable());
    EXPECT_EQ(cell(countedOut).GetAvailableCommands(), std::set<int>{7759});

    const auto recalculate = [&](const TreeTableRow& row) {
        TreeActionResult result;
        EXPECT_TRUE(cell(row).ExecCommand(7759, result));
        EXPECT_TRUE(result.selectKey.IsEmpty());
        panel.Tree().Refresh();
        return result.action;
    };
    EXPECT_TRUE(offers(group));
    EXPECT_EQ(recalculate(group), TreeActionResult::ValuesChanged);
    EXPECT_EQ(cell(group).GetShownValue().to_wstring().Str(), L"10");
    EXPECT_FALSE(offers(group));
    EXPECT_EQ(recalculate(group), TreeActionResult::Nothing);
    EXPECT_TRUE(offers(group.GetChildRow(0)));
    EXPECT_EQ(recalculate(group.GetChildRow(0)), TreeActionResult::Synchronise);
    EXPECT_EQ(recalculate(group.GetChildRow(0)), TreeActionResult::Nothing);
    EXPECT_EQ(cell(group).GetShownValue().to_wstring().Str(), L"6");

    panel.Change([](platform::ProductModel& model) { model.isReadOnly = true; });
    EXPECT_TRUE(cell(panel.View().GetRoot()->GetChildRow(0)).GetAvailableCommands().empty());
}

} // namespace
