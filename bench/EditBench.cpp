// What a user's edit costs, from what he leaves in the editor to the rows as they are afterwards:
// one cell, one head over a tenth of the rows, and a name by which rows are sorted.

#include "bench/BenchProduct.h"
#include "host/frame/FeatureTrees.h"
#include "platform/view/HostFrame.h"

#include <algorithm>
#include <vector>

namespace {

using bench::GetProduct;
using bench::Measure;
using platform::HostFrame;
using platform::MemoryProduct;
using platform::TreeTableRow;

const SharedText c_column = L"comment";

std::size_t GetSize(const benchmark::State& state) {
    return static_cast<std::size_t>(state.range(0));
}

void CollectRows(TreeTableRow& row, std::vector<TreeTableRow*>& rows) {
    if (row.HasCell(c_column))
        rows.push_back(&row);
    for (std::size_t i = 0; i < row.GetChildCount(); ++i)
        CollectRows(row.GetChildRow(i), rows);
}

/// The first rows from the top that have the cell.
std::vector<TreeTableRow*> GetRows(const HostFrame& frame, std::size_t count) {
    std::vector<TreeTableRow*> rows;
    CollectRows(*frame.GetView().GetRoot(), rows);
    rows.resize(std::min(rows.size(), count));
    return rows;
}

/// Runs `edit` with one text and the other, and looks whether each time was one step.
template <class Edit>
void MeasureEdit(benchmark::State& state, MemoryProduct& product, const Edit& edit) {
    const SharedText texts[] = {L"Mirrored", L"As drawn"};
    std::size_t turn = 0;
    bool isOneStep = true;
    Measure(state, [&] {
        const std::uint64_t stamp = product.GetChangeStamp();
        const bool isTaken = edit(texts[turn++ % 2]);
        isOneStep = isOneStep && isTaken && product.GetChangeStamp() == stamp + 1;
        return 0;
    });
    bench::UndoAll(product);
    if (!isOneStep)
        state.SkipWithError("the edit was not one step");
}

void HeadEdit(benchmark::State& state) {
    const auto product = GetProduct(GetSize(state));
    const HostFrame frame(product);
    const std::vector<TreeTableRow*> rows = GetRows(frame, GetSize(state) / 10);
    frame.GetView().SelectByUser(rows, rows.front());
    MeasureEdit(state, *product, [&](const SharedText& text) {
        return frame.GetView().EditHeadByUser(c_column, text) &&
               rows.back()->FindCell(c_column)->GetShownText() == text;
    });
}
BENCHMARK(HeadEdit)->Apply(bench::Sizes);

void CellEdit(benchmark::State& state) {
    const auto product = GetProduct(GetSize(state));
    const HostFrame frame(product);
    TreeTableRow& row = *GetRows(frame, GetSize(state) / 2).back();
    MeasureEdit(state, *product, [&](const SharedText& text) {
        return frame.GetView().EditCellByUser(row, c_column, text) &&
               row.FindCell(c_column)->GetShownText() == text;
    });
}
BENCHMARK(CellEdit)->Apply(bench::Sizes);

/// Sorts the object of some row elsewhere.
void BuildAfterRename(benchmark::State& state) {
    const auto product = GetProduct(GetSize(state));
    const HostFrame frame(product);
    const UniqueMetaObjectKey key =
        product->GetModel().objects[product->GetModel().objects.size() / 2].key;
    const SharedText names[] = {L"Aa", L"Zz"};
    std::size_t turn = 0;
    bool isRebuilt = true;
    Measure(state, [&] {
        auto changes = product->MakeValueChanges({key, {}, SharedText(L"name"), {}},
                                                 PropValue(SimplePropVal(names[turn++ % 2])));
        product->CommitChanges(changes);
        isRebuilt = isRebuilt && product->IsRebuildRequired();
        frame.GetTree().Synchronize();
        return 0;
    });
    bench::UndoAll(*product);
    if (!isRebuilt)
        state.SkipWithError("the name did not matter");
}
BENCHMARK(BuildAfterRename)->Apply(bench::Sizes);

} // namespace
