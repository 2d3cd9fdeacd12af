// Yardsticks without a panel: a plain sort of the same keys, and the same rows and texts written
// straight into the view in memory.

#include "bench/BenchProduct.h"
#include "platform/view/HostFrame.h"

#include <algorithm>
#include <tuple>
#include <vector>

namespace {

using bench::GetProduct;
using bench::Measure;
using platform::CellKind;
using platform::TreeCell;
using platform::TreeTableRow;
using platform::TreeTableView;

struct Record {
    const SPCSection* section;
    std::wstring designation;
    const std::wstring* name;
    std::wstring material;
    double mass;

    auto Keys() const { return std::tie(section->numbers, designation, *name, material, mass); }
};

double GetMass(const platform::MemoryProduct& product, const UniqueMetaObjectKey& key) {
    return product.GetValue({key, {}, L"mass", {}}).to_double();
}

// One record an occurrence, in the order of the document.
std::vector<Record> MakeRecords(const platform::MemoryProduct& product) {
    std::vector<Record> records;
    for (const platform::ObjectRecord& object : product.GetModel().objects) {
        const Record record{
            &object.section, object.marking.Make(VariantMarkingData::MakeAll, false, false),
            &object.name.Str(), product.GetValue({object.key, {}, L"material", {}}).to_wstring(),
            GetMass(product, object.key)};
        records.insert(records.end(), std::max<std::size_t>(object.occurrences.size(), 1), record);
    }
    return records;
}

void PlainSort(benchmark::State& state) {
    const auto product = GetProduct(static_cast<std::size_t>(state.range(0)));
    const std::vector<Record> records = MakeRecords(*product);
    std::vector<const Record*> documentOrder;
    documentOrder.reserve(records.size());
    for (const Record& record : records)
        documentOrder.push_back(&record);
    Measure(state, [&] {
        std::vector<const Record*> sorted = documentOrder;
        std::ranges::sort(sorted,
                          [](const Record* a, const Record* b) { return a->Keys() < b->Keys(); });
        return sorted;
    });
}
BENCHMARK(PlainSort)->Apply(bench::Sizes);

void CopyCell(const TreeTableRow& from, const TreeCell& cell, ITreeTableRow& to) {
    const SharedText& column = from.GetColumnOf(cell);
    const SharedText& icon = from.GetIconOf(cell);
    switch (cell.GetKind()) {
    case CellKind::Int:
        to.InitIntEditor(column, cell.GetInt(), true, 0, 0, cell.IsEditable(), {});
        break;
    case CellKind::Double:
        to.InitDoubleEditor(column, cell.GetDouble(), true, cell.IsEditable(), {}, 1, 0, 0);
        break;
    case CellKind::Bool:
        to.InitBoolEditor(column, cell.GetBool(), true, cell.IsEditable(), {});
        break;
    default:
        to.InitTextEditor(column, {}, cell.IsEditable(), {}, nullptr);
        to.SetTextCell(column, cell.GetText(), cell.GetShownText(), cell.IsEditable(), false, icon,
                       nullptr);
    }
}

TreeRowPtr CopyRow(const TreeTableRow& from, TreeTableView& view) {
    TreeRowPtr row = view.CreateRow();
    row->SetReadOnly(from.IsReadOnly());
    row->SetName(from.GetNameText(), from.GetShownName(), L"name");
    row->SetNameEditable(from.IsNameEditable());
    row->SetIcon(from.GetIcon(), {});
    row->SetSectionRowStyle(from.IsSection());
    const auto editor = row->GetMarkingEditor();
    editor->SetBase(from.GetMarking().GetBase());
    editor->SetDisplayText(from.GetMarking().GetDisplayText());
    for (std::size_t i = 0; i < from.GetCellCount(); ++i)
        CopyCell(from, from.GetCell(i), *row);
    row->SetCellCount(from.GetCellCount());
    for (std::size_t i = 0; i < from.GetChildCount(); ++i)
        row->AppendChild(CopyRow(from.GetChildRow(i), view));
    return row;
}

void PlainViewFill(benchmark::State& state) {
    const platform::HostFrame frame(GetProduct(static_cast<std::size_t>(state.range(0))));
    const TreeTableRow& root = *frame.GetView().GetRoot();
    Measure(state, [&] {
        boost::intrusive_ptr<TreeTableView> view(new TreeTableView);
        view->BeginUpdate();
        view->SetRootRow(CopyRow(root, *view));
        view->EndUpdate();
        return view;
    });
}
BENCHMARK(PlainViewFill)->Apply(bench::Sizes);

} // namespace
