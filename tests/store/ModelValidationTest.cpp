#include "platform/product/ProductValidation.h"

#include "host/ProductProperties.h"

#include <boost/property_tree/ptree.hpp>
#include <functional>
#include <gtest/gtest.h>
#include <limits>

namespace platform {

namespace {

ObjectRecord Object(const std::string& key) {
    ObjectRecord object;
    object.key = UniqueMetaObjectKey(key);
    return object;
}

ProductModel SoundModel() {
    ProductModel model;
    model.root = Object("root");
    model.objects = {Object("a"), Object("b")};
    return model;
}

PropValue DeepValue(int depth) {
    auto tree = std::make_shared<PropValue::Tree>();
    PropValue::Tree* end = tree.get();
    for (int i = 0; i < depth; ++i)
        end = &end->push_back({L"x", PropValue::Tree()})->second;
    return PropValue(std::move(tree));
}

struct Damage {
    std::function<void(ProductModel&)> harm;
    std::string path;
    std::string reason;
    std::string object;
};

/// What a file can't say, but a program can.
TEST(ModelValidation, FindsWhatNoFileCouldExpress) {
    const unsigned long mass = ProductProperties::GetPropId(L"mass");
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const Damage damages[] = {
        {[](ProductModel& m) { m.root.key = {}; }, "product.key", "a key is needed", ""},
        {[](ProductModel& m) { m.objects[1].key = UniqueMetaObjectKey(std::string("\xE4")); },
         "objects[1].key", "the key is not UTF-8", "\xE4"},
        {[](ProductModel& m) { m.objects[1].kind = 9; }, "objects[1].kind",
         "a number from 0 to 8 is expected", "b"},
        {[](ProductModel& m) { m.objects[0].name = SharedText(L"\xD800"); }, "objects[0].name",
         "the text is not Unicode", "a"},
        {[](ProductModel& m) { m.objects[0].marking.SetCodeDelim(wchar_t{0x110000}); },
         "objects[0].designation", "the text is not Unicode", "a"},
        {[&](ProductModel& m) {
             m.objects[1].properties = {{mass, PropValue(SimplePropVal(nan))}};
         },
         "objects[1].properties[0]", "a finite number is expected", "b"},
        {[&](ProductModel& m) {
             m.objects[1].properties = {{mass, PropValue(SimplePropVal(1.0))},
                                        {998, PropValue(SimplePropVal(1.0))}};
         },
         "objects[1].properties[1]", "there is no property 998", "b"},
        {[&](ProductModel& m) {
             m.objects[0].properties = {{mass, DeepValue(21)}};
         },
         "objects[0].properties[0]",
         "the structure is nested too deep or holds a text that is not Unicode", "a"},
        {[&](ProductModel& m) {
             const DateTime farAway{std::numeric_limits<std::int64_t>::max()};
             m.objects[0].properties = {{mass, PropValue(SimplePropVal(farAway))}};
         },
         "objects[0].properties[0]", "a number from -62135596800 to 253402300799 is expected", "a"},
        {[](ProductModel& m) {
             m.properties.emplace_back().number = 1000;
             m.properties[0].type = 4;
         },
         "properties[0].type", "a number from 0 to 3 is expected", ""},
    };
    for (const Damage& damage : damages) {
        ProductModel model = SoundModel();
        ASSERT_FALSE(ValidateModel(model));
        damage.harm(model);
        const std::optional<ModelFault> fault = ValidateModel(model);
        ASSERT_TRUE(fault) << damage.path;
        EXPECT_EQ(fault->path, damage.path);
        EXPECT_EQ(fault->reason, damage.reason) << damage.path;
        EXPECT_EQ(fault->object.String(), damage.object) << damage.path;
    }
}

TEST(ModelValidation, FollowsAChainOfOwnersThroughTheWholeProduct) {
    ProductModel model = SoundModel();
    model.objects.clear();
    constexpr int count = 100'000;
    for (int i = 0; i < count; ++i) {
        model.objects.push_back(Object("o" + std::to_string(i)));
        if (i > 0)
            model.objects.back().owners = {model.objects[static_cast<std::size_t>(i) - 1].key};
    }
    EXPECT_FALSE(ValidateModel(model));

    model.objects.front().owners = {model.objects.back().key};
    const std::optional<ModelFault> fault = ValidateModel(model);
    ASSERT_TRUE(fault);
    EXPECT_EQ(fault->reason, "the object owns itself");
}

TEST(ModelValidation, TakesSeveralWaysToOneOwnerForNoCycle) {
    ProductModel model = SoundModel();
    model.objects.push_back(Object("c"));
    model.objects.push_back(Object("d"));
    model.objects[0].parents = {model.objects[1].key, model.objects[2].key};
    model.objects[1].parents = {model.objects[3].key};
    model.objects[2].parents = {model.objects[3].key};
    EXPECT_FALSE(ValidateModel(model));
}

} // namespace

} // namespace platform
