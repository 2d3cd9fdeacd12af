#include "bench/BenchProduct.h"

#include "tests/support/GeneratedProduct.h"

#include <map>
#include <vector>

namespace bench {

std::shared_ptr<platform::MemoryProduct> GetProduct(std::size_t occurrences) {
    static std::map<std::size_t, std::shared_ptr<platform::MemoryProduct>> products;
    auto& product = products[occurrences];
    if (!product)
        product = std::make_shared<platform::MemoryProduct>(support::GenerateProduct(occurrences));
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

void Sizes(benchmark::internal::Benchmark* benchmark) {
    benchmark->Arg(1'000)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMillisecond);
}

void GroupSizes(benchmark::internal::Benchmark* benchmark) {
    benchmark->Arg(1'000)->Arg(10'000)->Unit(benchmark::kMillisecond);
}

} // namespace bench
