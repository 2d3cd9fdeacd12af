# Tests of the tree-table in memory and of its text form.
add_executable(viewTests
    AllocationCounter.cpp
    ViewCellsTest.cpp
    ViewChangesTest.cpp
    ViewColumnsTest.cpp
    ViewEditsTest.cpp
    ViewPrintTest.cpp
    ViewRowsTest.cpp)
target_link_libraries(viewTests PRIVATE
    productTreeTestSupport productTreeView oProductTree GTest::gtest_main productTreeRules)
gtest_discover_tests(viewTests DISCOVERY_TIMEOUT 60)
