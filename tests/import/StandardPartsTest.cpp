#include "desktop/import/StandardParts.h"

#include <gtest/gtest.h>

namespace {

using desktop::step::NamesStandard;

TEST(StandardParts, AreKnownByABodyAndANumberAnywhere) {
    for (const wchar_t* name : {L"ISO 4762 M5x16",
                                L"ISO4762",
                                L"ISO-4762",
                                L"DIN_912",
                                L"din912-m5",
                                L"DIN EN ISO 4017",
                                L"EN 10025",
                                L"ANSI B18.2.1",
                                L"ANSI/ASME B18.3",
                                L"ASME B 18.3",
                                L"JIS B 1176",
                                L"BS 3692",
                                L"GB/T 70.1-2000",
                                L"GB 5783",
                                L"BS EN ISO 4014",
                                L"screw ISO 4762",
                                L"cylinder_screw_M4x10-DIN912",
                                L"iso_7089-10",
                                L"\u0413\u041E\u0421\u0422 7798",
                                L"\u0411\u043E\u043B\u0442 \u0413\u041E\u0421\u0422 7798-70",
                                L"bolt (EN 14399)",
                                L"nut, ANSI B18"})
        EXPECT_TRUE(NamesStandard(name)) << testing::PrintToString(std::wstring(name));
}

TEST(StandardParts, AreNotMadeByPartsOfWordsOrNumbersAlone) {
    for (const wchar_t* name : {L"", L"ISO", L"ISO screw 4762", L"ISOLATOR 3", L"ENGINE 2", L"DINner 4", L"BSP 1/2",
                                L"912", L"JISB1176x", L"ISO B 12", L"GBX 1", L"GREEN 200", L"motor_en_2", L"DIN912x",
                                L"M4DIN912", L"\u0411\u0413\u041E\u0421\u0422 7798"})
        EXPECT_FALSE(NamesStandard(name)) << testing::PrintToString(std::wstring(name));
}

} // namespace
