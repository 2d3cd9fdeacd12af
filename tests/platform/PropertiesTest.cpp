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

TEST(Properties, ATextThatIsNoPathHasNoNumber) {
    for (const wchar_t* const text :
         {L"", L"Mass", L"column", L"user.", L"user.999", L"user.01000", L"user.+1000", L"user.1000 ",
          L"user.99999999999999999999999", L"user.18446744073709551616", L"count|a"})
        EXPECT_EQ(GetPropId(text), 0U);
}

} // namespace
