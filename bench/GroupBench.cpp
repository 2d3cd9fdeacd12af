// A group of many members: reading its row against reading those of its members, and an edit of the
// group against a refresh.

#include "bench/BenchProduct.h"
#include "bench/GeneratedProduct.h"
#include "host/frame/FeatureTrees.h"
#include "items/ProductTreeItemImpl.h"
#include "platform/view/HostFrame.h"

namespace {

using bench::Measure;
using platform::HostFrame;
using platform::TreeTableRow;

const SharedText c_column = L"comment";

TreeTableRow* FindRowWith(TreeTableRow& row, std::size_t children) {
    if (row.GetChildCount() == children)
        return &row;
    for (std::size_t i = 0; i < row.GetChildCount(); ++i) {
        if (TreeTableRow* const found = FindRowWith(row.GetChildRow(i), children))
            return found;
    }
    return nullptr;
}

/// Two groups of that many members, and nothing else.
template <class Product = platform::MemoryProduct>
struct Groups {
    explicit Groups(const benchmark::State& state)
        : members(static_cast<std::size_t>(state.range(0))),
          product(std::make_shared<Product>(bench::GenerateProduct(2 * members, members))),
          frame(product), row(*FindRowWith(*frame.GetView().GetRoot(), members)) {}

    std::size_t members;
    std::shared_ptr<platform::MemoryProduct> product;
    HostFrame frame;
    TreeTableRow& row;
};

void GroupMembers(benchmark::State& state) {
    const Groups<> groups(state);
    Measure(state, [&] {
        productTree::FindItemOfRow(groups.row)
            ->ForEachChildItem([](productTree::ProductTreeItemImpl& child) {
                child.UpdateRow();
                return true;
            });
        return 0;
    });
}
BENCHMARK(GroupMembers)->Apply(bench::GroupSizes);

// The members' rows are read first, as they are by each refresh.
void GroupAndMembers(benchmark::State& state) {
    const Groups<> groups(state);
    Measure(state, [&] {
        productTree::FindItemOfRow(groups.row)->UpdateRow();
        return 0;
    });
}
BENCHMARK(GroupAndMembers)->Apply(bench::GroupSizes);

void GroupRefresh(benchmark::State& state) {
    const Groups<bench::UntellingProduct> groups(state);
    Measure(state, [&] {
        groups.frame.GetTree().Refresh();
        return 0;
    });
}
BENCHMARK(GroupRefresh)->Apply(bench::GroupSizes);

void GroupEdit(benchmark::State& state) {
    const Groups<> groups(state);
    const SharedText texts[] = {L"Mirrored", L"As drawn"};
    std::size_t turn = 0;
    bool isOneStep = true;
    Measure(state, [&] {
        const std::uint64_t stamp = groups.product->GetChangeStamp();
        const SharedText& text = texts[turn++ % 2];
        const bool isTaken = groups.frame.GetView().EditCellByUser(groups.row, c_column, text);
        isOneStep = isOneStep && isTaken && groups.product->GetChangeStamp() == stamp + 1 &&
                    groups.row.GetChildRow(0).FindCell(c_column)->GetShownText() == text;
        return 0;
    });
    if (!isOneStep)
        state.SkipWithError("the edit was not one step");
}
BENCHMARK(GroupEdit)->Apply(bench::GroupSizes);

} // namespace
