// Reading again, all rows or those that have changed: what it costs, and that a front end hears of
// nothing but what has.

#include "bench/BenchProduct.h"
#include "bench/GeneratedProduct.h"
#include "host/data/ProductInfObjChangesResult.h"
#include "host/frame/FeatureTrees.h"
#include "platform/view/HostFrame.h"

#include <algorithm>
#include <utility>

namespace {

using bench::GetProduct;
using bench::Measure;
using platform::HostFrame;
using platform::TreeTableChanges;
using platform::TreeTableRow;
using platform::TreeTableView;

const SharedText c_column = L"comment";

std::size_t GetSize(const benchmark::State& state) {
    return static_cast<std::size_t>(state.range(0));
}

/// A front end that only listens.
class Listener final : public platform::TreeTableObserver {
public:
    explicit Listener(TreeTableView& view) : m_view(view) {
        m_view.TakeChanges();
        m_view.SetObserver(this);
    }
    Listener(const Listener&) = delete;
    Listener& operator=(const Listener&) = delete;
    ~Listener() override { m_view.SetObserver(nullptr); }

    void OnRowsAboutToChange() override { ++m_heard; }
    void OnRowsChanged() override { ++m_heard; }
    void OnChangesPending() override { ++m_heard; }

    /// How many calls there were since the last question.
    std::size_t TakeHeard() { return std::exchange(m_heard, 0); }

private:
    TreeTableView& m_view;
    std::size_t m_heard = 0;
};

void Refresh(benchmark::State& state) {
    const HostFrame frame(
        std::make_shared<bench::UntellingProduct>(bench::GenerateProduct(GetSize(state))));
    Listener listener(frame.GetView());
    Measure(state, [&] {
        frame.GetTree().Refresh();
        return 0;
    });
    if (listener.TakeHeard() != 0)
        state.SkipWithError("the front end was told of changes where there were none");
}
BENCHMARK(Refresh)->Apply(bench::Sizes);

void RefreshUnchanged(benchmark::State& state) {
    const HostFrame frame(GetProduct(GetSize(state)));
    Measure(state, [&] {
        frame.GetTree().Refresh();
        return 0;
    });
}
BENCHMARK(RefreshUnchanged)->Apply(bench::Sizes);

/// Some use in the middle of the document of an object that is used once: one row shows its values.
UniqueMetaObjectKey FindSingleUse(const platform::MemoryProduct& product) {
    const auto& objects = product.GetModel().objects;
    const auto middle = objects.begin() + static_cast<std::ptrdiff_t>(objects.size() / 2);
    return std::find_if(middle, objects.end(),
                        [](const auto& object) { return object.occurrences.size() == 1; })
        ->occurrences.front()
        .key;
}

void SetValue(platform::MemoryProduct& product, const UniqueMetaObjectKey& key,
              const SharedText& text) {
    auto changes =
        product.MakeValueChanges({key, {}, c_column, {}}, PropValue(SimplePropVal(text)));
    product.CommitChanges(changes);
}

/// Whether the row that shows that text was told, and none but it and the group row above it, which
/// stands for its value too.
bool IsThatRowAlone(const TreeTableChanges& changes, const SharedText& text) {
    if (changes.rows || !changes.values || changes.valueRows.empty())
        return false;
    const auto shows = [&](const TreeTableRow* row) {
        const platform::TreeCell* const cell = row->FindCell(c_column);
        return cell && cell->GetShownText() == text;
    };
    const auto row = std::ranges::find_if(changes.valueRows, shows);
    return row != changes.valueRows.end() &&
           std::ranges::all_of(changes.valueRows, [&](const TreeTableRow* told) {
               return told == *row || told == (*row)->GetParentRow();
           });
}

void RefreshOneChange(benchmark::State& state) {
    const auto product = GetProduct(GetSize(state));
    const UniqueMetaObjectKey key = FindSingleUse(*product);
    const HostFrame frame(product);
    Listener listener(frame.GetView());
    const SharedText texts[] = {L"Mirrored", L"As drawn"};
    std::size_t turn = 0;
    bool isTold = true;
    Measure(state, [&] {
        const SharedText& text = texts[turn++ % 2];
        SetValue(*product, key, text);
        frame.GetTree().Refresh();
        isTold = isTold && listener.TakeHeard() == 1 &&
                 IsThatRowAlone(frame.GetView().TakeChanges(), text);
        return 0;
    });
    bench::UndoAll(*product);
    if (!isTold)
        state.SkipWithError("the front end was not told of the changed row alone");
}
BENCHMARK(RefreshOneChange)->Apply(bench::Sizes);

} // namespace
