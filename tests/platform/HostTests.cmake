# Tests of the values, the services and the product in memory.
find_package(rapidcheck REQUIRED)
add_executable(hostTests
    AllocationCounter.cpp
    EventsBusTest.cpp
    GroupingComparatorTest.cpp
    ItemPropertiesTest.cpp
    MarkingTest.cpp
    NaturalOrderTest.cpp
    ProductCountsTest.cpp
    ProductDocumentsTest.cpp
    ProductHistoryTest.cpp
    ProductIndexTest.cpp
    ProductLinksTest.cpp
    ProductMaterialsTest.cpp
    ProductQuestionsTest.cpp
    ProductStructureTest.cpp
    ProductValuesTest.cpp
    PropertiesTest.cpp
    ResourcesTest.cpp
    RoughnessTest.cpp
    ServicesTest.cpp
    SourceUpdateTest.cpp
    ValuesTest.cpp)
target_link_libraries(hostTests PRIVATE
    productTreeTestSupport productTreeProduct oHost rapidcheck GTest::gmock GTest::gtest_main
    productTreeRules)
gtest_discover_tests(hostTests DISCOVERY_TIMEOUT 60)
