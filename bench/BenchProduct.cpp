#include "bench/BenchProduct.h"

#include "tests/support/GeneratedProduct.h"

#include <map>

namespace bench {

std::shared_ptr<platform::MemoryProduct> GetProduct(std::size_t occurrences) {
    static std::map<std::size_t, std::shared_ptr<platform::MemoryProduct>> products;
    auto& product = products[occurrences];
    if (!product)
        product = std::make_shared<platform::MemoryProduct>(support::GenerateProduct(occurrences));
    return product;
}

void Sizes(benchmark::internal::Benchmark* benchmark) {
    benchmark->Arg(1'000)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMillisecond);
}

} // namespace bench
