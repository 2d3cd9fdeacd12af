#include "bench/BenchProduct.h"

#include "bench/GeneratedProduct.h"

#include <cstdlib>
#include <ctime>
#include <map>
#include <vector>

namespace bench {

std::shared_ptr<platform::MemoryProduct> GetProduct(std::size_t occurrences) {
    static std::map<std::size_t, std::shared_ptr<platform::MemoryProduct>> products;
    auto& product = products[occurrences];
    if (!product)
        product = std::make_shared<platform::MemoryProduct>(bench::GenerateProduct(occurrences));
    return product;
}

void UndoAll(platform::MemoryProduct& product) {
    while (product.CanUndo())
        product.Undo();
}

void CoolCaches() {
    constexpr std::size_t line = 64;
    static std::vector<unsigned char> other(std::size_t{16} << 20);
    for (std::size_t i = 0; i < other.size(); i += line)
        ++other[i];
    benchmark::ClobberMemory();
}

double GetProcessorTime() {
    timespec now{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

void Sizes(benchmark::internal::Benchmark* benchmark) {
    if (std::getenv("PRODUCT_TREE_BENCH_LARGE"))
        benchmark->Arg(1'000'000);
    benchmark->Arg(1'000)
        ->Arg(10'000)
        ->Arg(100'000)
        ->Unit(benchmark::kMillisecond)
        ->UseManualTime();
}

void GroupSizes(benchmark::internal::Benchmark* benchmark) {
    benchmark->Arg(1'000)->Arg(10'000)->Unit(benchmark::kMillisecond)->UseManualTime();
}

} // namespace bench
