// A place for the files of one test: tests run beside each other, and those that shared a folder
// would take each other's files away.
#pragma once

#include <filesystem>
#include <gtest/gtest.h>
#include <string>
#include <unistd.h>

namespace support {

/// Named by the running test and process; it is not made.
inline std::filesystem::path GetTestFolder() {
    const testing::TestInfo& test = *testing::UnitTest::GetInstance()->current_test_info();
    return std::filesystem::path(testing::TempDir()) /
           (std::string("product-tree-") + test.test_suite_name() + '-' + test.name() + '-' + std::to_string(getpid()));
}

} // namespace support
