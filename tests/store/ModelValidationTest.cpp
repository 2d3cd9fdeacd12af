#include "platform/product/validation/ProductValidation.h"

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
        {[](ProductModel& m) { m.objects[1].key = UniqueMetaObjectKey(std::string("\xE4")); }, "objects[1].key",
         "the key is not UTF-8", "\xE4"},
        {[](ProductModel& m) { m.objects[1].kind = 9; }, "objects[1].kind", "a number from 0 to 8 is expected", "b"},
        {[](ProductModel& m) { m.objects[0].name = SharedText(L"\xD800"); }, "objects[0].name",
         "the text is not Unicode", "a"},
        {[](ProductModel& m) {
             m.objects[0].counts = {{m.root.key, SharedText(L"\xD800")}};
         },
         "objects[0].counts[0].count", "the text is not Unicode", "a"},
        {[](ProductModel& m) {
             m.objects[0].counts = {{UniqueMetaObjectKey("?"), L"1"}};
         },
         "objects[0].counts[0].embodiment", "there is no embodiment '?'", "a"},
        {[](ProductModel& m) {
             m.objects[0].counts = {{m.root.key, L"1"}, {m.root.key, L"2"}};
         },
         "objects[0].counts[1].embodiment", "the embodiment has a count already", "a"},
        {[](ProductModel& m) { m.objects[0].marking.SetCodeDelim(wchar_t{0x110000}); }, "objects[0].designation",
         "the text is not Unicode", "a"},
        {[&](ProductModel& m) {
             m.objects[1].properties = {{mass, PropValue(SimplePropVal(nan))}};
         },
         "objects[1].properties[0]", "a finite number is expected", "b"},
        {[&](ProductModel& m) {
             m.objects[1].properties = {{mass, PropValue(SimplePropVal(1.0))}, {998, PropValue(SimplePropVal(1.0))}};
         },
         "objects[1].properties[1]", "there is no property 998", "b"},
        {[&](ProductModel& m) {
             m.objects[0].properties = {{mass, DeepValue(21)}};
         },
         "objects[0].properties[0]", "the structure is nested too deep or holds a text that is not Unicode", "a"},
        {[&](ProductModel& m) {
             const DateTime farAway{std::numeric_limits<std::int64_t>::max()};
             m.objects[0].properties = {{mass, PropValue(SimplePropVal(farAway))}};
         },
         "objects[0].properties[0]", "a number from -62135596800 to 253402300799 is expected", "a"},
        {[&](ProductModel& m) {
             m.objects[0].occurrences.emplace_back().key = UniqueMetaObjectKey("u");
             m.objects[0].occurrences[0].properties = {{mass, PropValue(SimplePropVal(1.0))}};
         },
         "objects[0].uses[0].properties[0]", "only the object itself has the property", "a"},
        {[](ProductModel& m) { m.objects[1].volume = 0.0; }, "objects[1].volume", "a positive number is expected", "b"},
        {[](ProductModel& m) { m.objects[1].sumsPartMasses = true; }, "objects[1].massOfParts",
         "only the product itself and its assemblies have their mass from their parts", "b"},
        {[](ProductModel& m) {
             m.objects[1].links = {{ProductProperties::markingId, m.objects[0].key, 11}};
         },
         "objects[1].links[0]", "a designation or a section can't be a link", "b"},
        {[](ProductModel& m) { m.objects[1].readOnlyProperties = {998}; }, "objects[1].readOnlyProperties",
         "there is no property 998", "b"},
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

TEST(ModelValidation, FindsLinksThatComeBack) {
    ProductModel model = SoundModel();
    const unsigned long comment = ProductProperties::GetPropId(L"comment");
    const unsigned long note = ProductProperties::GetPropId(L"note");
    OccurrenceRecord use;
    use.key = UniqueMetaObjectKey("u");
    model.objects[0].occurrences.push_back(use);
    const UniqueMetaObjectKey a("a");
    const UniqueMetaObjectKey b("b");
    model.objects[0].links = {{comment, b, comment}};
    model.objects[1].links = {{comment, use.key, note}, {note, UniqueMetaObjectKey("gone"), note}};
    EXPECT_FALSE(ValidateModel(model));

    model.objects[1].links[0].targetProperty = comment; // which the use has from its object
    const std::optional<ModelFault> fault = ValidateModel(model);
    ASSERT_TRUE(fault);
    EXPECT_EQ(fault->path, "objects[0].links[0]");
    EXPECT_EQ(fault->reason, "the link leads back to itself");

    model.objects[0].occurrences[0].properties = {{comment, PropValue()}};
    EXPECT_FALSE(ValidateModel(model));
}

TEST(ModelValidation, FollowsAChainOfLinksThroughTheWholeProduct) {
    ProductModel model = SoundModel();
    model.objects.clear();
    constexpr int count = 100'000;
    for (int i = 0; i < count; ++i) {
        model.objects.push_back(Object("o" + std::to_string(i)));
        model.objects.back().links = {{11, UniqueMetaObjectKey("o" + std::to_string((i + 1) % count)), 11}};
    }
    EXPECT_TRUE(ValidateModel(model));
    model.objects[500].links.clear();
    EXPECT_FALSE(ValidateModel(model));
}

} // namespace

} // namespace platform
