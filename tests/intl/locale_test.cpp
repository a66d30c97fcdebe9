// The locale values of a system whose user speaks its language. Pairs of languages stand in locale_native.cpp.
#include <gtest/gtest.h>

#include <morvl15/intl.h>

#include "intl/locale_values.h"
#include "support/locale.h"

namespace {

struct LocaleValues {
    int32_t doubleByte;
    int32_t codePageClass;
    int32_t rightToLeft;
    uint16_t blank;
};

void ExpectLocale(uint16_t inForce, const LocaleValues& want) {
    const TestLanguage language(inForce);
    EXPECT_EQ(IntlDBCSEnabled(), want.doubleByte);
    EXPECT_EQ(gIntlDBCS, want.doubleByte);
    EXPECT_EQ(gIntlCodePageClass, want.codePageClass);
    EXPECT_EQ(IntlIsBiDiEnabled(), want.rightToLeft);
    EXPECT_EQ(IntlDBCSBlank(), want.blank);
    EXPECT_EQ(gIntlLangId, inForce);
    EXPECT_EQ(gIntlPrimaryLang, inForce & 0x3FF);
}

TEST(Locale, IsSingleByte) {
    ExpectLocale(kEnglish, {0, kClassNone, 0, 0});
}
TEST(LocaleGerman, IsSingleByte) {
    ExpectLocale(kGerman, {0, kClassNone, 0, 0});
}
TEST(LocaleJapanese, IsDoubleByte) {
    ExpectLocale(kJapanese, {1, kClassJapanese, 0, 0x8140});
}
TEST(LocaleChinese, IsDoubleByte) {
    ExpectLocale(kChinese, {1, kClassChinese, 0, 0xA140});
}
TEST(LocaleChineseTraditional, IsDoubleByte) {
    ExpectLocale(kChineseTraditional, {1, kClassChinese, 0, 0xA140});
}
TEST(LocaleKorean, IsDoubleByte) {
    ExpectLocale(kKorean, {1, kClassKorean, 0, 0xA1A1});
}
TEST(LocaleArabic, IsBiDirectional) {
    ExpectLocale(kArabic, {0, kClassNone, 1, 0});
}
TEST(LocaleHebrew, IsBiDirectional) {
    ExpectLocale(kHebrew, {0, kClassNone, 1, 0});
}
TEST(LocaleFarsi, IsBiDirectional) {
    ExpectLocale(kFarsi, {0, kClassNone, 1, 0});
}

}  // namespace
