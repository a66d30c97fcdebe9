// Languages, as the environment names them.
#include <gtest/gtest.h>

#include <utility>
#include <vector>

#include <morvl15/host_native.h>

#include "support/locale.h"
#include "variable.h"

namespace {

TEST(Languages, NamesOfTheEnvironment) {
    const std::pair<LANGID, std::vector<const char*>> kRows[] = {
        {kJapanese, {"ja_JP.UTF-8", "ja_JP.eucJP", "ja", "JA_jp"}},  // the charset doesn't count, nor does case
        {kJapanese, {"ja_JP_and_a_very_long_territory_of_no_use_to_anyone"}},
        {kGerman, {"de_DE", "de_DE@euro", "de_DE.ISO-8859-15@euro", "de_XX"}},  // at the end no territory of German
        {0x0C07, {"de-AT.UTF-8"}},
        {kChineseTraditional, {"zh_TW.Big5"}},
        {kChinese, {"zh_CN.GB18030"}},
        {0x1004, {"zh_SG"}},
        {kKorean, {"ko_KR.UTF-8"}},
        {0x281A, {"sr_RS"}},
        {0x241A, {"sr_RS@latin"}},
        {0x2C1A, {"sr_ME.UTF-8@latin"}},
        {0x0416, {"pt_BR"}},
        {0x0816, {"pt_PT"}},
        {kEnglish, {"C", "C.UTF-8", "POSIX", "_DE", "xx_YY.UTF-8@zz"}},
        {kEnglish, {"a_language_name_beyond_all_that_is_known_to_the_table"}},
    };
    for (const auto& [language, names] : kRows) {
        for (const char* name : names) {
            TestVariable lang("LANG", name);
            HostSetLanguages(0, 0);
            EXPECT_EQ(GetSystemDefaultLangID(), language) << name;
        }
    }
    HostSetLanguages(kEnglish, kEnglish);
}

TEST(Languages, TheVariablesCountInTheirOrder) {
    struct {
        const char* variables[3];  // LANG, LC_CTYPE, LC_ALL
        LANGID system;
        LCID user;
    } const kRows[] = {
        {{nullptr, nullptr, nullptr}, kEnglish, kEnglish}, {{"ja_JP.UTF-8", nullptr, nullptr}, kJapanese, kJapanese},
        {{"ja_JP", "de_DE", nullptr}, kJapanese, kGerman}, {{"ja_JP", "de_DE", "ar_SA"}, kJapanese, kArabic},
        {{"ja_JP", "", ""}, kJapanese, kJapanese},  // empty is not set
        {{"", "he_IL", nullptr}, kEnglish, kHebrew},       {{"ko_KR", nullptr, "C"}, kKorean, kEnglish},
    };
    for (const auto& c : kRows) {
        TestVariable lang("LANG", c.variables[0]);
        TestVariable ctype("LC_CTYPE", c.variables[1]);
        TestVariable all("LC_ALL", c.variables[2]);
        HostSetLanguages(0, 0);
        EXPECT_EQ(GetSystemDefaultLangID(), c.system) << testing::PrintToString(c.variables);
        EXPECT_EQ(GetUserDefaultLCID(), c.user) << testing::PrintToString(c.variables);
    }
    HostSetLanguages(kEnglish, kEnglish);
}

}  // namespace
