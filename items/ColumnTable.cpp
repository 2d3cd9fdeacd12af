#include "items/ColumnTable.h"

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
#include "columns/PropertyKeys.h"
#include "columns/headers/CountHeader.h"
#include "columns/headers/DialogHeaders.h"
#include "columns/headers/PlainHeaders.h"
#include "columns/headers/PopupHeaders.h"
#include "columns/headers/RoughnessHeaders.h"
#include "host/data/IfProductTreeData.h"
#include "items/MakerMemory.h"
#include "items/ProductTreeItemImpl.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <set>
#include <utility>

namespace productTree {

namespace {

using CellPtr = std::shared_ptr<ProductTreeCellImpl>;
using HeaderPtr = std::shared_ptr<ProductTreeHeaderImpl>;
using ModelPtr = boost::intrusive_ptr<ITreeTableModel>;

template <class Cell>
CellPtr Make(const ColumnInfo& column, const CellOrigin& origin) {
    return CellArena::Make<Cell>(origin.arena, origin.data, origin.row, column, origin.key);
}

template <class Cell, GroupMode mode>
CellPtr MakeGroup(const ColumnInfo& column, const CellOrigin& origin) {
    return CellArena::Make<Cell>(origin.arena, origin.data, origin.row, column, mode, origin.key);
}

constexpr auto c_all = GroupMode::AllValues;
constexpr auto c_common = GroupMode::CommonValue;
constexpr auto c_own = GroupMode::NoValue;

template <class Header>
HeaderPtr MakeHead(const ColumnInfo& column, IfProductTreeData* data, const ModelPtr& model) {
    return std::make_shared<Header>(column, data, model);
}

// Where the product has no records of materials, mass, density and material are plain values.
template <CellMaker plain, CellMaker linked>
CellPtr MakeMip(const ColumnInfo& column, const CellOrigin& origin) {
    return origin.data->IsSimplifiedMode() ? plain(column, origin) : linked(column, origin);
}

template <class Plain>
HeaderPtr MakeMipHead(const ColumnInfo& column, IfProductTreeData* data, const ModelPtr& model) {
    return data->IsSimplifiedMode() ? MakeHead<Plain>(column, data, model)
                                    : MakeHead<MIPHeaderImpl>(column, data, model);
}

// Of what no class knows how to show.
CellPtr NoCell(const ColumnInfo&, const CellOrigin&) {
    return nullptr;
}

HeaderPtr NoHead(const ColumnInfo&, IfProductTreeData*, const ModelPtr&) {
    return nullptr;
}

using Embodiments = std::set<UniqueMetaObjectKey>;

CellPtr MakeCountOf(const Embodiments& embodiments, const ColumnInfo& column,
                    const CellOrigin& origin) {
    const bool inGroup = FindItemOfRow(*origin.row)->IsParentGroup();
    return CellArena::Make<CountCellImpl>(
        origin.arena, origin.data, origin.row, column, origin.key,
        origin.data->GetCountKey(origin.key, embodiments, inGroup));
}

CellPtr MakeCount(const ColumnInfo& column, const CellOrigin& origin) {
    return MakeCountOf(origin.data->GetCurrentEmbodiments(), column, origin);
}

CellPtr MakeEmbodimentCount(const Embodiments& embodiments, const ColumnInfo& column,
                            const CellOrigin& origin) {
    if (embodiments.size() > 1)
        return MakeCountOf(embodiments, column, origin);
    return CellArena::Make<CountCellImpl>(origin.arena, origin.data, origin.row, column, origin.key,
                                          *embodiments.begin());
}

CellPtr MakeEmbodimentGroupCount(const Embodiments& embodiments, const ColumnInfo& column,
                                 const CellOrigin& origin) {
    return CellArena::Make<CountGroupCellImpl>(origin.arena, origin.data, origin.row, column,
                                               origin.key, embodiments);
}

CellPtr MakeGroupCount(const ColumnInfo& column, const CellOrigin& origin) {
    return MakeEmbodimentGroupCount(origin.data->GetCurrentEmbodiments(), column, origin);
}

// clang-format off
constexpr CellMaker byType = nullptr;
constexpr HeaderMaker headByType = nullptr;
constexpr CellMaker textsOfAll   = MakeGroup<StringGroupCellImpl, c_all>;
constexpr CellMaker commonText   = MakeGroup<StringGroupCellImpl, c_common>;
constexpr CellMaker commonShown  = MakeGroup<DisabledGroupCellImpl, c_common>;
constexpr CellMaker person       = Make<ParticipantCellImpl>;
constexpr CellMaker samePerson   = Make<ParticipantGroupCellImpl>;
constexpr HeaderMaker personHead = MakeHead<ParticipantHeaderImpl>;
constexpr CellMaker mass         = MakeMip<Make<DoubleCellImpl>, Make<MassCellImpl>>;
constexpr CellMaker masses       = MakeMip<MakeGroup<MassSimplifiedGroupCellImpl, c_own>, MakeGroup<MassGroupCellImpl, c_own>>;
constexpr CellMaker density      = MakeMip<Make<DoubleCellImpl>, Make<DensityCellImpl>>;
constexpr CellMaker sameDensity  = MakeMip<MakeGroup<DensitySimplifiedGroupCellImpl, c_common>, MakeGroup<DensityGroupCellImpl, c_common>>;
constexpr CellMaker material     = MakeMip<Make<MaterialSimplifiedCellImpl>, Make<MaterialNameCellImpl>>;
constexpr CellMaker sameMaterial = MakeMip<MakeGroup<MaterialSimplifiedGroupCellImpl, c_common>, MakeGroup<MipGroupCellImpl, c_common>>;

const ColumnTableRow c_columns[] = {
//   column                   cell of an object             cell of a group                head
    {keys::name,             Make<NameCellImpl>,           Make<NameGroupCellImpl>,       headByType},
    {keys::marking,          Make<MarkingCellImpl>,        Make<MarkingGroupCellImpl>,    headByType},
    {keys::mass,             mass,                         masses,                        MakeMipHead<DoubleHeaderImpl>},
    {keys::material,         material,                     sameMaterial,                  MakeMipHead<SimplifiedMaterialHeaderImpl>},
    {keys::materialDensity,  density,                      sameDensity,                   MakeMipHead<DoubleHeaderImpl>},
    {keys::SPCSection,       Make<SPCSectionCellImpl>,     Make<SpcSectionGroupCellImpl>, MakeHead<SpcSectionHeaderImpl>},
    {keys::note,             byType,                       textsOfAll,                    headByType},
    {keys::zone,             byType,                       textsOfAll,                    headByType},
    {keys::format,           byType,                       textsOfAll,                    headByType},
    {keys::comment,          byType,                       textsOfAll,                    headByType},
    {keys::productCode,      byType,                       commonText,                    headByType},
    {keys::jobDescription,   byType,                       commonText,                    headByType},
    {keys::author,           byType,                       commonText,                    headByType},
    {keys::organization,     byType,                       commonText,                    headByType},
    {keys::position,         Make<PosCellImpl>,            Make<PosGroupCellImpl>,        MakeHead<StringHeaderImpl>},
    {keys::notSected,        Make<NotSectedCellImpl>,      Make<NotSectedGroupCellImpl>,  MakeHead<NotSectedHeaderImpl>},
    {keys::stampAuthor,      person,                       samePerson,                    personHead},
    {keys::checkedBy,        person,                       samePerson,                    personHead},
    {keys::approvedBy,       person,                       samePerson,                    personHead},
    {keys::mfgApprovedBy,    person,                       samePerson,                    personHead},
    {keys::rateOfInspection, person,                       samePerson,                    personHead},
    {keys::signer,           person,                       samePerson,                    personHead},
    {keys::revisionLetter,   Make<LiteraCellImpl>,         Make<LiteraGroupCellImpl>,     MakeHead<LiteraHeaderImpl>},
    {keys::featureType,      Make<FeatureTypeCellImpl>,    commonShown,                   MakeHead<FeatureTypeHeaderImpl>},
    {keys::specRoughSign,    Make<RoughSignCellImpl>,      commonShown,                   MakeHead<RoughSignHeaderImpl>},
    {keys::specRoughValue,   Make<RoughValueCellImpl>,     commonShown,                   MakeHead<RoughValueHeaderImpl>},
    {keys::count,            MakeCount,                    MakeGroupCount,                MakeHead<CountHeaderImpl>},
};

// What a column has that the table does not name: by its list of values, else by its type.
struct TypedRow {
    CellMaker objectCell;
    CellMaker groupCell;
    HeaderMaker head;
};

constexpr TypedRow c_list = {Make<ListCellImpl>, Make<ListGroupCellImpl>, MakeHead<ListHeaderImpl>};
constexpr std::array c_types = {
    TypedRow{Make<IntCellImpl>,    Make<UserIntGroupCellImpl>,    MakeHead<IntHeaderImpl>},
    TypedRow{Make<DoubleCellImpl>, Make<UserDoubleGroupCellImpl>, MakeHead<DoubleHeaderImpl>},
    TypedRow{Make<StringCellImpl>, commonText,                    MakeHead<StringHeaderImpl>},
    TypedRow{Make<BoolCellImpl>,   Make<UserBoolGroupCellImpl>,   MakeHead<BoolHeaderImpl>},
};
constexpr TypedRow c_unknown = {NoCell, NoCell, NoHead};
// clang-format on

const ColumnTableRow* FindRow(const ColumnInfo& column) {
    const auto* const row = std::ranges::find_if(
        c_columns, [&](const ColumnTableRow& entry) { return entry.columnId == column.GetId(); });
    return row == std::end(c_columns) ? nullptr : row;
}

const TypedRow& FindTyped(const ColumnInfo& column) {
    if (!column.GetStoredList().empty())
        return c_list;
    const unsigned type = column.GetType();
    return type < c_types.size() ? c_types[type] : c_unknown;
}

// How the cells of a column are made in one kind of row.
struct CellChoice {
    CellMaker make = nullptr;
    // Those that the id of a count column names; empty for any other column.
    Embodiments embodiments;
};

CellChoice ChooseCell(const ColumnInfo& column, CellMaker ColumnTableRow::*named,
                      CellMaker TypedRow::*typed) {
    const ColumnTableRow* const row = FindRow(column);
    if (row && row->*named)
        return {row->*named, {}};
    Embodiments embodiments = ColumnInfo::ConvertGroupCountFromId(column.GetId());
    if (!embodiments.empty())
        return {nullptr, std::move(embodiments)};
    return {FindTyped(column).*typed, {}};
}

} // namespace

std::span<const ColumnTableRow> GetColumnTable() {
    return c_columns;
}

CellPtr CreateObjectCell(const ColumnInfo& column, const CellOrigin& origin) {
    static MakerMemory<CellChoice> memory;
    const CellChoice& choice = memory.Find(column, [](const ColumnInfo& asked) {
        return ChooseCell(asked, &ColumnTableRow::objectCell, &TypedRow::objectCell);
    });
    return choice.make ? choice.make(column, origin)
                       : MakeEmbodimentCount(choice.embodiments, column, origin);
}

CellPtr CreateGroupCell(const ColumnInfo& column, const CellOrigin& origin) {
    static MakerMemory<CellChoice> memory;
    const CellChoice& choice = memory.Find(column, [](const ColumnInfo& asked) {
        return ChooseCell(asked, &ColumnTableRow::groupCell, &TypedRow::groupCell);
    });
    return choice.make ? choice.make(column, origin)
                       : MakeEmbodimentGroupCount(choice.embodiments, column, origin);
}

HeaderPtr CreateHeader(const ColumnInfo& column, IfProductTreeData* data, const ModelPtr& model) {
    const ColumnTableRow* const row = FindRow(column);
    if (row && row->head)
        return row->head(column, data, model);
    if (!ColumnInfo::ConvertGroupCountFromId(column.GetId()).empty())
        return MakeHead<CountHeaderImpl>(column, data, model);
    return FindTyped(column).head(column, data, model);
}

} // namespace productTree
