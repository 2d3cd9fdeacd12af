#include "desktop/import/StandardParts.h"

#include <gtest/gtest.h>

namespace {

using desktop::step::BeginsWithStandard;

TEST(StandardParts, BeginWithABodyAndANumber) {
    for (const wchar_t* name :
         {L"ISO 4762 M5x16", L"ISO4762", L"ISO-4762", L"DIN_912", L"din912-m5", L"DIN EN ISO 4017",
          L"EN 10025", L"ANSI B18.2.1", L"ANSI/ASME B18.3", L"ASME B 18.3", L"JIS B 1176",
          L"BS 3692", L"GB/T 70.1-2000", L"GB 5783", L"BS EN ISO 4014"})
        EXPECT_TRUE(BeginsWithStandard(name)) << testing::PrintToString(std::wstring(name));
}

TEST(StandardParts, AreNotMadeByLettersOrNumbersAlone) {
    for (const wchar_t* name :
         {L"", L"ISO", L"ISO screw 4762", L"ISOLATOR 3", L"ENGINE 2", L"DINner 4", L"BSP 1/2",
          L"screw ISO 4762", L"912", L"JISB1176x", L"ISO B 12", L"GBX 1"})
        EXPECT_FALSE(BeginsWithStandard(name)) << testing::PrintToString(std::wstring(name));
}

} // namespace
