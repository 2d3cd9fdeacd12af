// The panel's own work on all rows: sorting, building, remembering.

#include "bench/BenchProduct.h"
#include "control/ProductTreeEmbItemsStates.h"
#include "host/frame/FeatureTrees.h"
#include "platform/view/HostFrame.h"
#include "sorting/StyleBasedProductTreeSorter.h"

#include <algorithm>

namespace {

using bench::GetProduct;
using bench::Measure;

std::size_t GetSize(const benchmark::State& state) {
    return static_cast<std::size_t>(state.range(0));
}

void Sort(benchmark::State& state) {
    productTree::StyleBasedProductTreeSorter sorter(GetProduct(GetSize(state)));
    Measure(state, [&] { return sorter.Sort(); });
}
BENCHMARK(Sort)->Apply(bench::Sizes);

void FirstBuild(benchmark::State& state) {
    const auto product = GetProduct(GetSize(state));
    Measure(state, [&] { return std::make_unique<platform::HostFrame>(product); });
}
BENCHMARK(FirstBuild)->Apply(bench::Sizes);

void Rebuild(benchmark::State& state) {
    const platform::HostFrame frame(GetProduct(GetSize(state)));
    Measure(state, [&] {
        frame.GetTree().Synchronize();
        return 0;
    });
}
BENCHMARK(Rebuild)->Apply(bench::Sizes);

// Every tenth row, so that all kinds of rows are among them.
void ExpandSome(platform::TreeTableRow& row, std::size_t& counter) {
    row.SetExpanded(counter++ % 10 == 0);
    for (std::size_t i = 0; i < row.GetChildCount(); ++i)
        ExpandSome(row.GetChildRow(i), counter);
}

struct ExpandedPanel {
    explicit ExpandedPanel(std::size_t size) : frame(GetProduct(size)) {
        std::size_t counter = 0;
        ExpandSome(*frame.GetView().GetRoot(), counter);
        states.Store(frame.GetView(), key, false);
    }

    platform::HostFrame frame;
    UniqueMetaObjectKey key{"root"};
    productTree::ProductTreeEmbItemsStates states;
};

void Store(benchmark::State& state) {
    ExpandedPanel panel(GetSize(state));
    Measure(state, [&] {
        panel.states.Store(panel.frame.GetView(), panel.key, false);
        return 0;
    });
}
BENCHMARK(Store)->Apply(bench::Sizes);

void Restore(benchmark::State& state) {
    ExpandedPanel panel(GetSize(state));
    // Inside an update, as a build does it: outside, each row that is selected is told of.
    Measure(state, [&] {
        panel.frame.GetView().BeginUpdate();
        panel.states.Restore(panel.frame.GetView(), panel.key, false);
        panel.frame.GetView().EndUpdate();
        return 0;
    });
}
BENCHMARK(Restore)->Apply(bench::Sizes);

// Of 1,000 objects that the document has selected, all over the tree.
void SelectByDocument(benchmark::State& state) {
    const auto product = GetProduct(GetSize(state));
    const platform::HostFrame frame(product);
    constexpr std::size_t count = 1'000;
    std::vector<UniqueMetaObjectKey> keys;
    const std::vector<platform::ObjectRecord>& objects = product->GetModel().objects;
    const std::size_t step = std::max<std::size_t>(1, objects.size() / count);
    for (std::size_t i = 0; i < objects.size() && keys.size() < count; i += step) {
        const auto& uses = objects[i].occurrences;
        keys.push_back(uses.empty() ? objects[i].key : uses.front().key);
    }
    product->SetSelectedKeys(keys);
    Measure(state, [&] {
        frame.GetTree().SetSelectionByDoc();
        return 0;
    });
    if (frame.GetView().GetSelectedRows().size() < keys.size() / 2)
        state.SkipWithError("the rows of the selected objects were not found");
    product->SetSelectedKeys({});
}
BENCHMARK(SelectByDocument)->Apply(bench::Sizes);

} // namespace
