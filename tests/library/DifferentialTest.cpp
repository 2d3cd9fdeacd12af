// A panel that reads only what has changed is the one that reads everything, whatever has happened.
// The environment variable PRODUCT_TREE_SEEDS says how many runs are tried.
#include "platform/product/validation/ProductValidation.h"
#include "tests/support/PanelSteps.h"
#include "tests/support/RandomProduct.h"

#include <cstdlib>
#include <gtest/gtest.h>

namespace {

using support::PanelRun;

unsigned SeedCount() {
    const char* const count = std::getenv("PRODUCT_TREE_SEEDS");
    return count ? static_cast<unsigned>(std::strtoul(count, nullptr, 10)) : 20;
}

TEST(Differential, RandomProductsAreValid) {
    for (unsigned seed = 1; seed <= 200; ++seed) {
        const auto fault = platform::ValidateModel(support::MakeRandomProduct(seed, 12));
        ASSERT_FALSE(fault) << seed << " " << fault->path << ": " << fault->reason;
    }
}

TEST(Differential, ThePanelAfterEachStepIsAFreshPanel) {
    const auto fails = [](const PanelRun& run) { return FindDifference(run).has_value(); };
    for (unsigned seed = 1; seed <= SeedCount(); ++seed) {
        const PanelRun run = support::MakePanelRun(seed, 40);
        if (!fails(run))
            continue;
        const PanelRun shrunk = Shrink(run, fails);
        FAIL() << FindDifference(shrunk).value_or("") << "\n" << ToText(shrunk);
    }
}

} // namespace
