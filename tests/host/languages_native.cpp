// Languages, as the environment names them.
#include <gtest/gtest.h>

#include <cstdlib>
#include <optional>
#include <string>

#include <morvl15/host_native.h>

#include "support/locale.h"

namespace {

// Sets a variable of the environment for a scope; null takes it away.
class TestVariable {
  public:
    TestVariable(const char* name, const char* value) : name_(name) {
        if (const char* old = std::getenv(name)) saved_ = old;
        Put(value);
    }
    ~TestVariable() { Put(saved_ ? saved_->c_str() : nullptr); }
    TestVariable(const TestVariable&) = delete;
    TestVariable& operator=(const TestVariable&) = delete;

  private:
    void Put(const char* value) { value != nullptr ? setenv(name_, value, 1) : unsetenv(name_); }
    const char* name_;
    std::optional<std::string> saved_;
};

TEST(Languages, NamesOfTheEnvironment) {
    struct {
        int line;
        const char* name;
        LANGID language;
    } const kRows[] = {
        {__LINE__, "ja_JP.UTF-8", kJapanese},
        {__LINE__, "ja_JP.eucJP", kJapanese},  // the charset doesn't count
        {__LINE__, "ja", kJapanese},
        {__LINE__, "JA_jp", kJapanese},
        {__LINE__, "de_DE", kGerman},
        {__LINE__, "de_DE@euro", kGerman},
        {__LINE__, "de_DE.ISO-8859-15@euro", kGerman},
        {__LINE__, "de-AT.UTF-8", 0x0C07},
        {__LINE__, "de_XX", kGerman},  // a territory unknown for the language
        {__LINE__, "zh_TW.Big5", kChineseTraditional},
        {__LINE__, "zh_CN.GB18030", kChinese},
        {__LINE__, "zh_SG", 0x1004},
        {__LINE__, "ko_KR.UTF-8", kKorean},
        {__LINE__, "sr_RS", 0x281A},
        {__LINE__, "sr_RS@latin", 0x241A},
        {__LINE__, "sr_ME.UTF-8@latin", 0x2C1A},
        {__LINE__, "pt_BR", 0x0416},
        {__LINE__, "pt_PT", 0x0816},
        {__LINE__, "C", kEnglish},
        {__LINE__, "C.UTF-8", kEnglish},
        {__LINE__, "POSIX", kEnglish},
        {__LINE__, "", kEnglish},
        {__LINE__, nullptr, kEnglish},
        {__LINE__, "_DE", kEnglish},
        {__LINE__, "xx_YY.UTF-8@zz", kEnglish},
        {__LINE__, "ja_JP_and_a_very_long_territory_of_no_use_to_anyone", kJapanese},
        {__LINE__, "a_language_name_beyond_all_that_is_known_to_the_table", kEnglish},
    };
    for (const auto& c : kRows) {
        testing::ScopedTrace row(__FILE__, c.line, c.name != nullptr ? c.name : "(null)");
        TestVariable lang("LANG", c.name);
        HostSetLanguages(0, 0);
        EXPECT_EQ(GetSystemDefaultLangID(), c.language);
    }
    HostSetLanguages(kEnglish, kEnglish);
}

TEST(Languages, TheVariablesCountInTheirOrder) {
    struct {
        int line;
        const char* lang;
        const char* ctype;
        const char* all;
        LANGID system;
        LCID user;
    } const kRows[] = {
        {__LINE__, nullptr, nullptr, nullptr, kEnglish, kEnglish},
        {__LINE__, "ja_JP.UTF-8", nullptr, nullptr, kJapanese, kJapanese},
        {__LINE__, "ja_JP", "de_DE", nullptr, kJapanese, kGerman},
        {__LINE__, "ja_JP", "de_DE", "ar_SA", kJapanese, kArabic},
        {__LINE__, "ja_JP", "", "", kJapanese, kJapanese},  // empty is not set
        {__LINE__, nullptr, "he_IL", nullptr, kEnglish, kHebrew},
        {__LINE__, "ko_KR", nullptr, "C", kKorean, kEnglish},
    };
    for (const auto& c : kRows) {
        testing::ScopedTrace row(__FILE__, c.line, "");
        TestVariable lang("LANG", c.lang);
        TestVariable ctype("LC_CTYPE", c.ctype);
        TestVariable all("LC_ALL", c.all);
        HostSetLanguages(0, 0);
        EXPECT_EQ(GetSystemDefaultLangID(), c.system);
        EXPECT_EQ(GetUserDefaultLCID(), c.user);
    }
    HostSetLanguages(kEnglish, kEnglish);
}

}  // namespace
