#include "columns/headers/HeaderTable.h"

#include "columns/PropertyKeys.h"
#include "columns/headers/CountHeader.h"
#include "columns/headers/PlainHeaders.h"
#include "host/data/IfProductTreeData.h"

#include <algorithm>
#include <iterator>

namespace productTree {

namespace {

using HeaderPtr = std::shared_ptr<ProductTreeHeaderImpl>;
using ModelPtr = boost::intrusive_ptr<ITreeTableModel>;
using HeaderMaker = HeaderPtr (*)(const ColumnInfo&, IfProductTreeData*, const ModelPtr&);

struct HeaderRow {
    const std::wstring& columnId;
    HeaderMaker make;
};

template <class Header>
HeaderPtr Make(const ColumnInfo& column, IfProductTreeData* data, const ModelPtr& model) {
    return std::make_shared<Header>(column, data, model);
}

// Such a column is a plain value only where the product has no records of materials.
template <class Header>
HeaderPtr MakeSimplified(const ColumnInfo& column, IfProductTreeData* data, const ModelPtr& model) {
    return data->IsSimplifiedMode() ? Make<Header>(column, data, model) : nullptr;
}

// A column that has no cell has no head.
HeaderPtr MakeNone(const ColumnInfo&, IfProductTreeData*, const ModelPtr&) {
    return nullptr;
}

// clang-format off
const HeaderRow c_headers[] = {
    {keys::materialDensity,  MakeSimplified<DoubleHeaderImpl>},
    {keys::mass,             MakeSimplified<DoubleHeaderImpl>},
    {keys::count,            Make<CountHeaderImpl>},
    {keys::notSected,        MakeNone},
    {keys::material,         MakeNone},
    {keys::featureType,      Make<FeatureTypeHeaderImpl>},
    {keys::position,         Make<StringHeaderImpl>},
    {keys::stampAuthor,      MakeNone},
    {keys::checkedBy,        MakeNone},
    {keys::approvedBy,       MakeNone},
    {keys::mfgApprovedBy,    MakeNone},
    {keys::rateOfInspection, MakeNone},
    {keys::signer,           MakeNone},
    {keys::revisionLetter,   MakeNone},
    {keys::SPCSection,       Make<FeatureTypeHeaderImpl>},
    {keys::specRoughSign,    MakeNone},
    {keys::specRoughValue,   MakeNone},
};

// By the column's type of value.
constexpr HeaderMaker c_typedHeaders[] = {
    Make<IntHeaderImpl>,
    Make<DoubleHeaderImpl>,
    Make<StringHeaderImpl>,
    Make<BoolHeaderImpl>,
};
// clang-format on

} // namespace

HeaderPtr CreateHeader(const ColumnInfo& column, IfProductTreeData* data, const ModelPtr& model) {
    const auto* const row = std::ranges::find_if(
        c_headers, [&](const HeaderRow& r) { return r.columnId == column.GetId(); });
    if (row != std::end(c_headers))
        return row->make(column, data, model);
    if (!ColumnInfo::ConvertGroupCountFromId(column.GetId()).empty())
        return Make<CountHeaderImpl>(column, data, model);
    if (!column.GetStoredList().empty())
        return Make<ListHeaderImpl>(column, data, model);
    const unsigned type = column.GetType();
    return type < std::size(c_typedHeaders) ? c_typedHeaders[type](column, data, model) : nullptr;
}

} // namespace productTree
