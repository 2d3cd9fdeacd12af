#include "columns/headers/HeaderTable.h"

#include "columns/headers/PlainHeaders.h"

#include <algorithm>
#include <iterator>

namespace productTree {

namespace {

using HeaderPtr = std::shared_ptr<ProductTreeHeaderImpl>;
using ModelPtr = boost::intrusive_ptr<ITreeTableModel>;

struct HeaderRow {
    bool (*fits)(const ColumnInfo&);
    HeaderPtr (*make)(const ColumnInfo&, IfProductTreeData*, const ModelPtr&);
};

bool HasList(const ColumnInfo& column) {
    return !column.GetListOfVariant().empty();
}

template <unsigned type>
bool HasType(const ColumnInfo& column) {
    return column.GetType() == type;
}

template <class Header>
HeaderPtr Make(const ColumnInfo& column, IfProductTreeData* data, const ModelPtr& model) {
    return std::make_shared<Header>(column, data, model);
}

// clang-format off
constexpr HeaderRow c_headers[] = {
    {HasList,    Make<ListHeaderImpl>},
    {HasType<0>, Make<IntHeaderImpl>},
    {HasType<1>, Make<DoubleHeaderImpl>},
    {HasType<2>, Make<StringHeaderImpl>},
    {HasType<3>, Make<BoolHeaderImpl>},
};
// clang-format on

} // namespace

HeaderPtr CreateHeader(const ColumnInfo& column, IfProductTreeData* data, const ModelPtr& model) {
    const auto* const row =
        std::ranges::find_if(c_headers, [&](const HeaderRow& r) { return r.fits(column); });
    return row == std::end(c_headers) ? nullptr : row->make(column, data, model);
}

} // namespace productTree
