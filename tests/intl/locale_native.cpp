// The locale values where system and user speak different languages.
#include <gtest/gtest.h>

#include <string>

#include <morvl15/intl.h>

#include "intl/locale_values.h"
#include "support/locale.h"

namespace {

struct LanguageCase {
    uint16_t system;
    uint16_t user;
    int32_t doubleByte;
    int32_t codePageClass;
    int32_t rightToLeft;
    uint16_t blank;
};
constexpr LanguageCase kLanguages[] = {
    // system, user, double byte, class, right to left, blank
    {0x0C11, 0x0409, 1, kClassJapanese, 0, 0x8140},  // any country
    {0x0411, 0x040D, 1, kClassJapanese, 0, 0x8140},  // the user's Hebrew doesn't count
    {0x0409, 0x0401, 0, kClassNone, 1, 0},          {0x0409, 0x040D, 0, kClassNone, 1, 0},
    {0x0401, 0x0409, 0, kClassNone, 1, 0},          {0x040D, 0x0409, 0, kClassNone, 1, 0},
    {0x0429, 0x0409, 0, kClassNone, 1, 0},          {0x0409, 0x0429, 0, kClassNone, 1, 0},
    {0x0409, 0x0411, 0, kClassNone, 0, 0},  // nor does the user's Japanese
    {0x0409, 0x0101, 0, kClassNone, 1, 0},  // eight bits of the user's language count
};

TEST(LocalePairs, FollowTheLanguages) {
    for (const LanguageCase& c : kLanguages) {
        const testing::ScopedTrace row(__FILE__, __LINE__, std::to_string(c.system) + ", " + std::to_string(c.user));
        const TestLanguage language(c.system, c.user);
        EXPECT_EQ(IntlDBCSEnabled(), c.doubleByte);
        EXPECT_EQ(gIntlCodePageClass, c.codePageClass);
        EXPECT_EQ(IntlIsBiDiEnabled(), c.rightToLeft);
        EXPECT_EQ(IntlDBCSBlank(), c.blank);
        EXPECT_EQ(gIntlLangId, c.system);
        EXPECT_EQ(gIntlPrimaryLang, c.system & 0x3FF);
    }
}

}  // namespace
