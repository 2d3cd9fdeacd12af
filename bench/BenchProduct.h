// What all benchmarks share: one generated product a size, and the counting of allocations.
#pragma once

#include "bench/Allocations.h"
#include "platform/product/answers/MemoryProduct.h"

#include <benchmark/benchmark.h>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <utility>

namespace bench {

/// The same product at each call.
std::shared_ptr<platform::MemoryProduct> GetProduct(std::size_t occurrences);

/// It can't tell what has changed, so that each refresh reads all rows.
class UntellingProduct final : public platform::MemoryProduct {
public:
    using MemoryProduct::MemoryProduct;

    ChangedObjects GetChangedObjects(std::uint64_t /*since*/) const override { return {}; }
};

/// Takes back what a benchmark has changed in a product, which others are measured with too.
void UndoAll(platform::MemoryProduct& product);

/// Drives everything out of the processor's own caches. A user does other things between two
/// builds, and ten thousand rows that stayed there can't be compared with a hundred thousand that
/// don't fit.
void CoolCaches();

/// 1k, 10k and 100k occurrences, and a million where PRODUCT_TREE_BENCH_LARGE is set.
void Sizes(benchmark::internal::Benchmark* benchmark);

/// 1k and 10k members of one group.
void GroupSizes(benchmark::internal::Benchmark* benchmark);

template <class T>
void Drop(T) {}

/// Processor time of this process in seconds, which other programs have no part in.
double GetProcessorTime();

/// Runs `work` as the benchmark and reports, per occurrence, its allocations and the bytes that
/// what it gives back holds. That is destroyed outside of the measured time, which is taken here:
/// the benchmark's own clock would count what it costs to stop it.
template <class Work>
void Measure(benchmark::State& state, const Work& work) {
    std::size_t allocations = 0;
    double bytes = 0;
    CoolCaches();
    for (auto _ : state) {
        const std::size_t before = GetAllocationCount();
        const double begin = GetProcessorTime();
        auto result = work();
        state.SetIterationTime(GetProcessorTime() - begin);
        allocations += GetAllocationCount() - before;
        benchmark::DoNotOptimize(result);
        const auto held = static_cast<double>(GetLiveBytes());
        Drop(std::move(result));
        bytes += held - static_cast<double>(GetLiveBytes());
        CoolCaches();
    }
    const auto runs = static_cast<double>(state.iterations() * state.range(0));
    state.counters["allocations"] = static_cast<double>(allocations) / runs;
    state.counters["bytes"] = bytes / runs;
}

} // namespace bench
