// What all benchmarks share: one generated product a size, and the counting of allocations.
#pragma once

#include "bench/Allocations.h"
#include "platform/product/MemoryProduct.h"

#include <benchmark/benchmark.h>
#include <memory>

namespace bench {

/// The same product at each call.
std::shared_ptr<platform::MemoryProduct> GetProduct(std::size_t occurrences);

/// 1k, 10k and 100k occurrences.
void Sizes(benchmark::internal::Benchmark* benchmark);

template <class T>
void Drop(T) {}

/// Runs `work` as the benchmark and reports its allocations per occurrence. What `work` gives back
/// is destroyed outside of the measured time.
template <class Work>
void Measure(benchmark::State& state, const Work& work) {
    std::size_t allocations = 0;
    for (auto _ : state) {
        const std::size_t before = GetAllocationCount();
        auto result = work();
        allocations += GetAllocationCount() - before;
        state.PauseTiming();
        benchmark::DoNotOptimize(result);
        Drop(std::move(result));
        state.ResumeTiming();
    }
    state.counters["allocations"] =
        static_cast<double>(allocations) / static_cast<double>(state.iterations() * state.range(0));
}

} // namespace bench
