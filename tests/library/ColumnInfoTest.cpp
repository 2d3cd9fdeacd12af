#include "columns/ColumnInfo.h"
#include "host/MeasurementDataBase.h"
#include "host/ProductProperties.h"
#include "tests/library/TestDescription.h"

#include <cmath>
#include <gtest/gtest.h>
#include <iomanip>
#include <limits>
#include <sstream>
#include <string>

namespace {

using productTree::ColumnInfo;

enum Type : unsigned { Integer, Double, String, Boolean };

constexpr unsigned long c_userProperty = 1001;

ColumnInfo ColumnWithCoefficient(double coefficient) {
    TestDescription description(c_userProperty, Double, L"Length");
    description.coefficient = coefficient;
    return ColumnInfo(&description);
}

std::set<UniqueMetaObjectKey> Keys(std::initializer_list<const char*> keys) {
    std::set<UniqueMetaObjectKey> result;
    for (const char* key : keys)
        result.insert(UniqueMetaObjectKey(key));
    return result;
}

TEST(ColumnInfo, WithoutADescriptionIsAnEmptyStringColumn) {
    const ColumnInfo column(nullptr);
    EXPECT_EQ(column.GetId(), L"");
    EXPECT_EQ(column.GetType(), String);
    EXPECT_EQ(column.GetWidth(), 189.39);
    EXPECT_TRUE(column.GetListOfVariant().empty());
}

TEST(ColumnInfo, OnlyNumbersHaveARangeAndACoefficient) {
    for (const unsigned type : {Integer, Double, String, Boolean}) {
        TestDescription description(c_userProperty, type, L"P");
        description.min = 1;
        description.max = 10;
        description.coefficient = 1000;
        const ColumnInfo column(&description);
        const bool numeric = type <= Double;
        EXPECT_EQ(column.GetMax(), numeric ? 10 : 0) << type;
        EXPECT_EQ(column.IsUnitCoefficientDefined(), numeric) << type;
    }
}

TEST(ColumnInfo, ARangeHoldsItsEndsAndNoRangeHoldsEverything) {
    TestDescription description(c_userProperty, Double, L"P");
    EXPECT_TRUE(ColumnInfo(&description).IsValueInMinMaxRange(-5));
    description.max = 10;
    const ColumnInfo column(&description);
    EXPECT_FALSE(column.IsValueInMinMaxRange(-5));
    EXPECT_TRUE(column.IsValueInMinMaxRange(0));
    EXPECT_TRUE(column.IsValueInMinMaxRange(10));
    EXPECT_FALSE(column.IsValueInMinMaxRange(std::nan("")));
}

TEST(ColumnInfo, TheEndOfARangeAndRoundNumbersComeBackFromWhatIsShown) {
    TestDescription description(1001, 1, L"Length");
    for (const double coefficient : {0.01, 25.4, 3.6, 1000.0, 0.001, 1 / 3.0}) {
        for (int number = 1; number <= 5000; ++number) {
            description.coefficient = coefficient;
            description.min = -1;
            description.max = number;
            const ColumnInfo column(&description);
            std::ostringstream shown;
            shown << std::setprecision(15) << column.ApplyUnitCoefficient(double(number));
            const double typed = std::stod(shown.str());
            ASSERT_TRUE(column.IsValueInMinMaxRange(column.UnapplyUnitCoefficient(typed)));
            ASSERT_EQ(column.UnapplyUnitCoefficient(typed), number) << coefficient;
            description.max = 1e6;
            const ColumnInfo wide(&description);
            const double half = number + 0.5;
            ASSERT_EQ(wide.UnapplyUnitCoefficient(wide.ApplyUnitCoefficient(half)), half);
        }
    }
    description.coefficient = 0.01;
    description.type = 0;
    EXPECT_EQ(ColumnInfo(&description).UnapplyUnitCoefficient(57), 5700);
}

TEST(ColumnInfo, ConvertsBetweenStoredAndShownUnitsWithoutDividingByNothing) {
    const ColumnInfo half = ColumnWithCoefficient(0.5);
    EXPECT_EQ(half.ApplyUnitCoefficient(7), 3);
    EXPECT_EQ(half.ApplyUnitCoefficient(-7), -3);
    EXPECT_EQ(half.UnapplyUnitCoefficient(3), 6);
    EXPECT_EQ(half.UnapplyUnitCoefficient(1.5), 3.0);
    for (const double none : {0.0, 1e-11}) {
        const ColumnInfo column = ColumnWithCoefficient(none);
        EXPECT_EQ(column.ApplyUnitCoefficient(2.5), 2.5);
        EXPECT_EQ(column.UnapplyUnitCoefficient(2.5), 2.5);
        EXPECT_EQ(column.ApplyUnitCoefficient(7), 7);
        EXPECT_EQ(column.UnapplyUnitCoefficient(7), 7);
    }
    constexpr int largest = std::numeric_limits<int>::max();
    EXPECT_EQ(ColumnWithCoefficient(1000).ApplyUnitCoefficient(largest), largest);
    EXPECT_EQ(ColumnWithCoefficient(-1000).ApplyUnitCoefficient(largest), std::numeric_limits<int>::min());
}

TEST(ColumnInfo, ScalesTheNumbersOfItsListOnly) {
    TestDescription description(c_userProperty, Double, L"P");
    description.coefficient = 10;
    description.list = {SimplePropVal(2), SimplePropVal(1.5), SimplePropVal(L"free")};
    const ColumnInfo column(&description);
    EXPECT_EQ(column.GetListWithUnitCoef(),
              (std::list{SimplePropVal(20), SimplePropVal(15.0), SimplePropVal(L"free")}));
    EXPECT_EQ(column.GetListOfVariant(), description.list);
}

TEST(ColumnInfo, TheCaptionCarriesTheUnitWhereThePropertyMayHaveOne) {
    const auto* const units = GetMeasurementDataBaseMng();
    ASSERT_TRUE(units);
    const std::wstring unit = units->GetUnitName(L"mm");
    ASSERT_FALSE(unit.empty());

    TestDescription description(c_userProperty, Double, L"Length");
    description.unitCode = L"mm";
    EXPECT_EQ(ColumnInfo(&description).GetHeader(), L"Length, " + unit);
    description.unitCode = L"no such unit";
    EXPECT_EQ(ColumnInfo(&description).GetHeader(), L"Length");

    TestDescription comment(ProductProperties::GetPropId(L"comment"), String, L"Comment");
    comment.unitCode = L"mm";
    EXPECT_EQ(ColumnInfo(&comment).GetHeader(), L"Comment");
    comment.hasCaption = false;
    EXPECT_EQ(ColumnInfo(&comment).GetHeader(), L"");
}

TEST(ColumnInfo, AnUpdateKeepsTheUsersWidthAndACopyItsOwn) {
    TestDescription description(c_userProperty, Double, L"Old");
    ColumnInfo column(&description);
    const ColumnInfo copy = column;
    column.SetWidth(321);
    description.caption = L"New";
    description.max = 5;
    column.UpdateByDescription(description);
    EXPECT_EQ(column.GetWidth(), 321);
    EXPECT_EQ(column.GetHeader(), L"New");
    EXPECT_EQ(column.GetMax(), 5);
    EXPECT_EQ(copy.GetWidth(), 75.75);
    EXPECT_EQ(copy.GetHeader(), L"Old");
    column.InitByDescription(description);
    EXPECT_EQ(column.GetWidth(), 75.75);
}

TEST(ColumnInfo, TheIdOfAGroupCountHoldsItsEmbodiments) {
    EXPECT_EQ(ColumnInfo::ConvertGroupCountToId({}), L"count");
    EXPECT_EQ(ColumnInfo::ConvertGroupCountToId(Keys({""})), L"count");
    EXPECT_EQ(ColumnInfo::ConvertGroupCountToId(Keys({"b", "", "a"})), L"count|a|b");

    EXPECT_TRUE(ColumnInfo::ConvertGroupCountFromId(L"count").empty());
    EXPECT_TRUE(ColumnInfo::ConvertGroupCountFromId(L"other|k").empty());
    EXPECT_TRUE(ColumnInfo::ConvertGroupCountFromId(L"|").empty());
    EXPECT_EQ(ColumnInfo::ConvertGroupCountFromId(L"count|k"), Keys({"k"}));
    EXPECT_EQ(ColumnInfo::ConvertGroupCountFromId(L"|count|b|a"), Keys({"a", "b"}));

    const auto anyBytes = Keys({"\xd0\xb0", "#12"});
    EXPECT_EQ(ColumnInfo::ConvertGroupCountFromId(ColumnInfo::ConvertGroupCountToId(anyBytes)), anyBytes);
}

} // namespace
