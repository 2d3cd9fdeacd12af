#include "items/CellTable.h"

#include "cells/CountCells.h"
#include "cells/MarkingCells.h"
#include "cells/NameCells.h"
#include "cells/PlainCells.h"
#include "cells/SectionAndPositionCells.h"
#include "cells/TypedGroupCells.h"
#include "columns/PropertyKeys.h"
#include "host/data/IfProductTreeData.h"
#include "items/ProductTreeItemImpl.h"

#include <algorithm>
#include <iterator>
#include <set>
#include <span>
#include <utility>
#include <vector>

namespace productTree {

namespace {

using CellPtr = std::shared_ptr<ProductTreeCellImpl>;
using CellMaker = CellPtr (*)(const ColumnInfo&, const CellOrigin&);

struct CellRow {
    const std::wstring& columnId;
    CellMaker make;
};

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

// Such a column is a plain value only where the product has no records of materials.
template <class Cell>
CellPtr MakeSimplified(const ColumnInfo& column, const CellOrigin& origin) {
    return origin.data->IsSimplifiedMode() ? Make<Cell>(column, origin) : nullptr;
}

// A plain cell would let the user type what only an editor made for the column may write.
CellPtr MakeNone(const ColumnInfo&, const CellOrigin&) {
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
const CellRow c_objectCells[] = {
    {keys::name,             Make<NameCellImpl>},
    {keys::marking,          Make<MarkingCellImpl>},
    {keys::materialDensity,  MakeSimplified<DoubleCellImpl>},
    {keys::mass,             MakeSimplified<DoubleCellImpl>},
    {keys::notSected,        MakeNone},
    {keys::material,         MakeNone},
    {keys::featureType,      Make<FeatureTypeCellImpl>},
    {keys::position,         Make<PosCellImpl>},
    {keys::stampAuthor,      MakeNone},
    {keys::checkedBy,        MakeNone},
    {keys::approvedBy,       MakeNone},
    {keys::mfgApprovedBy,    MakeNone},
    {keys::rateOfInspection, MakeNone},
    {keys::signer,           MakeNone},
    {keys::revisionLetter,   MakeNone},
    {keys::SPCSection,       Make<SPCSectionCellImpl>},
    {keys::specRoughSign,    MakeNone},
    {keys::specRoughValue,   MakeNone},
    {keys::count,            MakeCount},
};

const CellRow c_groupCells[] = {
    {keys::name,             Make<NameGroupCellImpl>},
    {keys::marking,          Make<MarkingGroupCellImpl>},
    {keys::mass,             MakeNone},
    {keys::material,         MakeNone},
    {keys::materialDensity,  MakeNone},
    {keys::SPCSection,       Make<SpcSectionGroupCellImpl>},
    {keys::note,             MakeGroup<StringGroupCellImpl, c_all>},
    {keys::zone,             MakeGroup<StringGroupCellImpl, c_all>},
    {keys::format,           MakeGroup<StringGroupCellImpl, c_all>},
    {keys::productCode,      MakeGroup<StringGroupCellImpl, c_common>},
    {keys::jobDescription,   MakeGroup<StringGroupCellImpl, c_common>},
    {keys::position,         Make<PosGroupCellImpl>},
    {keys::notSected,        MakeNone},
    {keys::stampAuthor,      MakeNone},
    {keys::checkedBy,        MakeNone},
    {keys::approvedBy,       MakeNone},
    {keys::mfgApprovedBy,    MakeNone},
    {keys::rateOfInspection, MakeNone},
    {keys::signer,           MakeNone},
    {keys::revisionLetter,   MakeNone},
    {keys::featureType,      MakeGroup<DisabledGroupCellImpl, c_common>},
    {keys::specRoughSign,    MakeGroup<DisabledGroupCellImpl, c_common>},
    {keys::specRoughValue,   MakeGroup<DisabledGroupCellImpl, c_common>},
    {keys::author,           MakeGroup<StringGroupCellImpl, c_common>},
    {keys::organization,     MakeGroup<StringGroupCellImpl, c_common>},
    {keys::comment,          MakeGroup<StringGroupCellImpl, c_all>},
    {keys::count,            MakeGroupCount},
};

// By the column's type of value.
constexpr CellMaker c_typedObjectCells[] = {
    Make<IntCellImpl>,
    Make<DoubleCellImpl>,
    Make<StringCellImpl>,
    Make<BoolCellImpl>,
};

constexpr CellMaker c_typedGroupCells[] = {
    Make<UserIntGroupCellImpl>,
    Make<UserDoubleGroupCellImpl>,
    MakeGroup<StringGroupCellImpl, c_common>,
    Make<UserBoolGroupCellImpl>,
};
// clang-format on

// What is said of a kind of row: cells by the column's id; by the embodiments that its id names;
// those of columns with a list; by the type of value.
struct CellTable {
    std::span<const CellRow> byId;
    CellPtr (*embodimentCount)(const Embodiments&, const ColumnInfo&, const CellOrigin&);
    CellMaker list;
    std::span<const CellMaker> byType;
};

const CellTable c_objectTable{c_objectCells, MakeEmbodimentCount, Make<ListCellImpl>,
                              c_typedObjectCells};
const CellTable c_groupTable{c_groupCells, MakeEmbodimentGroupCount, Make<ListGroupCellImpl>,
                             c_typedGroupCells};

// What a table says of a column, remembered for the columns asked for last: each row asks for the
// same few in the same order.
class MakerMemory {
public:
    explicit MakerMemory(const CellTable& table) : m_table(table) {}

    CellPtr Make(const ColumnInfo& column, const CellOrigin& origin) {
        const Entry& entry = Find(column);
        if (entry.make)
            return entry.make(column, origin);
        return entry.embodiments.empty()
                   ? nullptr
                   : m_table.embodimentCount(entry.embodiments, column, origin);
    }

private:
    struct Entry {
        /// Held, so that no other column can come to be taken for it.
        ColumnInfo column;
        /// Null for a column without cells, and for one that counts for embodiments.
        CellMaker make = nullptr;
        /// Those of a count column; empty for any other.
        Embodiments embodiments;
    };

    const Entry& Find(const ColumnInfo& column) {
        for (std::size_t i = 0; i < m_entries.size(); ++i) {
            m_next = m_next + 1 < m_entries.size() ? m_next + 1 : 0;
            if (m_entries[m_next].column.IsSame(column))
                return m_entries[m_next];
        }
        // The same column as it was before, and columns that are gone, would only be searched.
        std::erase_if(m_entries,
                      [&](const Entry& entry) { return entry.column.GetId() == column.GetId(); });
        if (m_entries.size() == c_most)
            m_entries.clear();
        m_next = m_entries.size();
        return m_entries.emplace_back(LookUp(column));
    }

    Entry LookUp(const ColumnInfo& column) const {
        const auto row = std::ranges::find_if(
            m_table.byId, [&](const CellRow& r) { return r.columnId == column.GetId(); });
        if (row != m_table.byId.end())
            return {column, row->make, {}};
        Embodiments embodiments = ColumnInfo::ConvertGroupCountFromId(column.GetId());
        if (!embodiments.empty())
            return {column, nullptr, std::move(embodiments)};
        if (!column.GetStoredList().empty())
            return {column, m_table.list, {}};
        const unsigned type = column.GetType();
        return {column, type < m_table.byType.size() ? m_table.byType[type] : nullptr, {}};
    }

    /// More than any panel shows; a forgotten column is only looked up again.
    static constexpr std::size_t c_most = 4096;

    const CellTable& m_table;
    std::vector<Entry> m_entries;
    std::size_t m_next = 0;
};

} // namespace

CellPtr CreateObjectCell(const ColumnInfo& column, const CellOrigin& origin) {
    static MakerMemory memory(c_objectTable);
    return memory.Make(column, origin);
}

CellPtr CreateGroupCell(const ColumnInfo& column, const CellOrigin& origin) {
    static MakerMemory memory(c_groupTable);
    return memory.Make(column, origin);
}

} // namespace productTree
