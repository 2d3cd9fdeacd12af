#include "host/IfPropertyDescription.h"
#include "host/MeasurementDataBase.h"
#include "host/ProductProperties.h"
#include "tests/support/ProductBuilder.h"

#include <gtest/gtest.h>
#include <limits>
#include <set>

namespace {

using ProductProperties::GetPath;
using ProductProperties::GetPropId;

TEST(Properties, EachSystemPathComesBackFromItsNumber) {
    std::set<std::wstring> paths;
    for (unsigned long number = 0; number <= ProductProperties::lastSystemId; ++number) {
        const std::wstring path = GetPath(number);
        if (path.empty())
            continue;
        EXPECT_EQ(GetPropId(path), number);
        EXPECT_TRUE(paths.insert(path).second) << number;
    }
    for (const wchar_t* const known :
         {L"mass", L"material.density", L"SPCSection.subSectionNumb", L"marking.documentNumber", L"\u0441olumn",
          L"isPhantom", L"location", L"documentNumber", L"density"})
        EXPECT_TRUE(paths.contains(known));
}

TEST(Properties, FixedNumbersAreThoseOfTheHost) {
    EXPECT_EQ(GetPath(4), L"marking");
    EXPECT_EQ(GetPath(5), L"name");
    EXPECT_EQ(GetPath(6), L"count");
}

TEST(Properties, NumbersOfUsersHaveAPathEach) {
    for (const unsigned long number : {1000UL, 1001UL, std::numeric_limits<unsigned long>::max()})
        EXPECT_EQ(GetPropId(GetPath(number)), number);
    EXPECT_EQ(GetPath(1000), L"user.1000");
}

TEST(Properties, ATextThatIsNoPathHasNoNumber) {
    for (const wchar_t* const text :
         {L"", L"Mass", L"column", L"user.", L"user.999", L"user.01000", L"user.+1000", L"user.1000 ",
          L"user.99999999999999999999999", L"user.18446744073709551616", L"count|a"})
        EXPECT_EQ(GetPropId(text), 0U);
}

TEST(Properties, ThoseThatCanBeColumnsAreDescribed) {
    const auto product = support::Product().Make();
    std::set<unsigned long> numbers;
    for (const IfPropertyDescription* const description : product->GetPropertyDescriptions()) {
        const std::wstring path = GetPath(description->GetId());
        EXPECT_FALSE(path.empty());
        EXPECT_STRNE(description->GetCaption(), L"");
        EXPECT_LE(description->GetType(), 3U);
        EXPECT_EQ(product->GetPropertyDescription(path), description);
        EXPECT_TRUE(numbers.insert(description->GetId()).second);
        const std::wstring unit = description->GetUnitCode();
        EXPECT_EQ(unit.empty(), GetMeasurementDataBaseMng()->GetUnitName(unit).empty());
    }
    for (const unsigned long fixed : {4UL, 5UL, 6UL})
        EXPECT_TRUE(numbers.contains(fixed));
    EXPECT_EQ(product->GetPropertyDescription(L"no such column"), nullptr);
    EXPECT_EQ(product->GetPropertyDescription(L"user.1000"), nullptr);
}

TEST(Properties, TheModelAddsItsOwnAndReplacesTheSystems) {
    platform::PropertyRecord mass;
    mass.number = GetPropId(L"mass");
    mass.caption = L"Weight";
    mass.type = 1;
    mass.unitCode = L"g";
    mass.unitCoefficient = 1000;
    platform::PropertyRecord own;
    own.number = 1200;
    own.caption = L"Coating";
    own.list = {SimplePropVal(L"zinc"), SimplePropVal(L"none")};
    const auto product = support::Product().Property(mass).Property(own).Make();

    const IfPropertyDescription& described = *product->GetPropertyDescription(L"mass");
    EXPECT_STREQ(described.GetCaption(), L"Weight");
    EXPECT_EQ(described.GetUnitCoefficient(), 1000);
    const IfPropertyDescription& coating = *product->GetPropertyDescription(L"user.1200");
    EXPECT_TRUE(coating.HasList());
    EXPECT_EQ(coating.GetList().size(), 2U);
    EXPECT_EQ(product->GetPropertyDescriptions().back(), &coating);
}

TEST(Properties, DescriptionsOutliveAChangeUntilTheNextBuild) {
    platform::PropertyRecord own;
    own.number = 1200;
    own.caption = L"A caption longer than any short text";
    const auto product = support::Product().Property(own).Make();
    const IfPropertyDescription* const held = product->GetPropertyDescription(L"user.1200");
    product->Change([](platform::ProductModel& model) { model.properties.clear(); });
    EXPECT_STREQ(held->GetCaption(), L"A caption longer than any short text");
    EXPECT_EQ(product->GetPropertyDescription(L"user.1200"), nullptr);
    product->BeginRebuild();
    EXPECT_NE(product->GetPropertyDescription(L"mass"), nullptr);
}

} // namespace
