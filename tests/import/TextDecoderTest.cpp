#include "desktop/import/TextDecoder.h"

#include "platform/values/Utf8.h"

#include <gtest/gtest.h>

namespace {

using desktop::step::TextDecoder;
using platform::ToUtf8;

struct TextCase {
    const char* what;
    const char* encoding;
    std::string inFile;
    const char* shown;
};

class DecodedText : public testing::TestWithParam<TextCase> {};

TEST_P(DecodedText, ReadsAsAPersonWouldReadIt) {
    const TextCase& text = GetParam();
    const std::optional<TextDecoder> decoder = TextDecoder::Make(text.encoding);
    ASSERT_TRUE(decoder) << text.encoding;
    EXPECT_EQ(ToUtf8(decoder->Decode(text.inFile)), text.shown) << text.what;
}

const TextCase textCases[] = {
    {"plain text", "", "M5 x 16", "M5 x 16"},
    {"empty text", "", "", ""},
    {"doubled quotes", "", "6'' disc of O''Neil", "6' disc of O'Neil"},
    {"doubled backslashes", "", R"(C:\\parts\\X2\\0041)", R"(C:\parts\X2\0041)"},
    {"codes of 16 bits", "", R"(\X2\30B930C6\X0\_1.8\X\B0)", "ステ_1.8°"},
    {"codes of 16 bits in lower case", "", R"(\X2\00e9\X0\)", "é"},
    {"a pair of surrogates", "", R"(\X2\D83DDD29\X0\)", "🔩"},
    {"a surrogate alone", "", R"(\X2\D83D0041\X0\|\X2\DD29\X0\|\X2\D83D\X0\)", "\uFFFDA|\uFFFD|\uFFFD"},
    {"codes of 32 bits", "", R"(\X4\0001F5290000004F\X0\)", "🔩O"},
    {"a code beyond all characters", "", R"(\X4\00110000\X0\)", "\uFFFD"},
    {"a code with digits missing", "", R"(\X2\004100\X0\!)", "A\uFFFD!"},
    {"no code at all", "", R"(a\X2\\X0\b)", "ab"},
    {"codes without an end", "", R"(\X2\0041)", R"(\X2\0041)"},
    {"codes with a foreign character", "", R"(\X2\00G1\X0\)", R"(\X2\00G1\X0\)"},
    {"codes of 8 bits", "", R"(\X\C5\X\c5)", "ÅÅ"},
    {"a code of 8 bits cut short", "", R"(\X\C)", R"(\X\C)"},
    {"the upper half of Latin-1", "", R"(\S\D\S\'')", "Ä§"},
    {"the upper half of another alphabet", "", R"(\PE\\S\2\S\P\PA\\S\D)", "ВаÄ"},
    {"an upper half of nothing", "", R"(\S\)", R"(\S\)"},
    {"lonely backslashes", "", R"(a\b\Pz\)", R"(a\b\Pz\)"},
    {"raw UTF-8", "", "Dübel 默认", "Dübel 默认"},
    {"raw UTF-8 whatever the encoding", "CP1251", "Dübel", "Dübel"},
    {"raw Latin-1", "",
     "D\xFC"
     "bel",
     "Dübel"},
    {"raw bytes that only begin like UTF-8", "", "\xC3", "Ã"},
    {"a UTF-8 form longer than needed", "", "\xC0\xAF", "À¯"},
    {"raw Chinese", "GBK", "top_\xC4\xAC\xC8\xCF", "top_默认"},
    {"raw Cyrillic", "CP1251", "\xC2\xE0\xEB", "Вал"},
    {"raw Cyrillic beside escapes", "windows-1251",
     R"(\X2\0412\X0\)"
     "\xE0\xEB''",
     "Вал'"},
    {"raw Japanese with a backslash for its second byte", "SJIS", "\x95\x5C\x8E\xA6", "表示"},
    {"raw Japanese beside escapes", "Shift_JIS",
     "\x83\x5C"
     R"(\X2\30B9\X0\~)",
     "ソス~"},
    {"raw Japanese of the wider set", "SJIS", "\x87\x40", "①"},
    {"raw traditional Chinese", "BIG5", "\xA4\x40", "一"},
    {"a byte that the encoding lacks", "GBK",
     "\xFF"
     "a",
     "ÿa"},
    {"half a letter at the end", "GBK", "\xC4\xAC\xC4", "默Ä"},
    {"Latin-1 by name", "latin-1", "\xE9", "é"},
};

INSTANTIATE_TEST_SUITE_P(Table, DecodedText, testing::ValuesIn(textCases));

TEST(TextDecoder, TakesOnlyEncodingsInWhichEscapesCanBeWritten) {
    for (const char* known : {"", "GBK", "cp1251", "SJIS", "big5", "UTF-8", "KOI8-R"})
        EXPECT_TRUE(TextDecoder::Make(known)) << known;
    for (const char* unknown : {"no-such", "UTF-16", "IBM037", "GBK//IGNORE", "../GBK", " "})
        EXPECT_FALSE(TextDecoder::Make(unknown)) << unknown;
}

} // namespace
