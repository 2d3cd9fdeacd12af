#include "items/ProductTreeItemId.h"
#include "items/RowIdIndex.h"

#include <gtest/gtest.h>

namespace {

using namespace productTree;

using IdPtr = std::shared_ptr<ProductTreeItemId>;

IdPtr Object(const char* key) { return std::make_shared<ItemIdByKey>(UniqueMetaObjectKey(key)); }

IdPtr Section(int number, const wchar_t* name) {
    SPCSection section;
    section.numbers[0] = number;
    section.name = name;
    return std::make_shared<SectionItemId>(section);
}

IdPtr Group(const char* key, IdPtr firstChild) {
    return std::make_shared<GroupItemId>(UniqueMetaObjectKey(key), std::move(firstChild));
}

struct Case {
    const char* what;
    IdPtr a;
    IdPtr b;
    bool equal;
};

TEST(ProductTreeItemId, EqualsByTheRuleOfItsClassAndIsFoundByItsHashes) {
    const Case cases[] = {
        {"same key", Object("a"), Object("a"), true},
        {"other key", Object("a"), Object("b"), false},
        {"empty keys", Object(""), Object(""), false},
        {"same numbers, other name", Section(5, L"Old"), Section(5, L"New"), true},
        {"other numbers", Section(5, L"Same"), Section(10, L"Same"), false},
        {"anonymous sections", Section(0, L""), Section(0, L""), true},
        {"sections by name", Section(0, L"a"), Section(0, L"b"), false},
        {"number and none", Section(5, L""), Section(0, L""), false},
        {"object and section", Object("a"), Section(0, L"a"), false},
        {"group and object", Group("a", nullptr), Object("a"), false},
        {"same group key", Group("a", Object("x")), Group("a", Object("y")), true},
        {"same first child", Group("a", Object("x")), Group("b", Object("x")), true},
        {"first child against none", Group("a", Object("x")), Group("b", nullptr), false},
        {"nothing in common", Group("a", Object("x")), Group("b", Object("y")), false},
        {"empty group", Group("", nullptr), Group("", nullptr), false},
        {"empty key, same child", Group("", Object("x")), Group("", Object("x")), true},
        {"group of groups", Group("a", Group("c", nullptr)), Group("b", Group("c", nullptr)), true},
        {"child is another's group", Group("x", nullptr), Group("a", Object("x")), false},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(c.a->Equals(*c.b), c.equal) << c.what;
        EXPECT_EQ(c.b->Equals(*c.a), c.equal) << c.what;
        const std::vector<IdPtr> list = {Object("other"), c.a};
        EXPECT_EQ(RowIdIndex(list).Contains(*c.b), c.equal) << c.what;
    }
}

} // namespace
