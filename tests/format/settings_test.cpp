// The regional settings, read from the profile and cached.
#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include <morvl15/host.h>

#include "format/picture_tokens.h"
#include "format/settings.h"
#include "private_region.h"
#include "support/profile.h"

namespace {

// Takes every key that the settings are read from out of the profile.
std::vector<TestProfile::Entry> AllAbsent() {
    std::vector<TestProfile::Entry> entries;
    for (const char* key :
         {"iCountry",    "sList",    "sCurrency",  "iCurrency", "iDigits",  "sThousand", "sDecimal", "iLzero",
          "iDate",       "sDate",    "iTime",      "s1159",     "s2359",    "sTime",     "iTLZero",  "iMeasure",
          "iCurrDigits", "iNegCurr", "sShortDate", "sLongDate", "sCountry", "sLanguage"}) {
        entries.push_back({"intl", key, nullptr});
    }
    entries.push_back({"MORVANEL", "sDateType", nullptr});
    entries.push_back({"MORVANEL", "iEmpDateBoundryCheck", nullptr});
    return entries;
}

FMTIntlSettings ReadProfile() {
    FMTIntlSettings settings;
    std::memset(&settings, 0xA5, sizeof settings);
    FMTGetProfileIntl(&settings);
    return settings;
}

TEST(ProfileSettings, Defaults) {
    const TestProfile profile(AllAbsent());
    const FMTIntlSettings s = ReadProfile();
    EXPECT_EQ(+s.iCountry, 1);
    EXPECT_EQ(s.sList, ',');
    EXPECT_STREQ(s.sCurrency, "$");
    EXPECT_EQ(+s.iCurrSpace, 0);
    EXPECT_EQ(+s.iCurrAfter, 0);
    EXPECT_EQ(+s.iDigits, 2);
    EXPECT_EQ(s.sThousand, ',');
    EXPECT_EQ(s.sDecimal, '.');
    EXPECT_EQ(+s.iLzero, 0);
    EXPECT_EQ(+s.iDate, 0);
    EXPECT_EQ(s.sDate, '/');
    EXPECT_EQ(+s.iTime, 0);
    EXPECT_STREQ(s.s1159, "AM");
    EXPECT_STREQ(s.s2359, "PM");
    EXPECT_STREQ(s.sTime, ":");
    EXPECT_EQ(+s.iTLZero, 0);
    EXPECT_EQ(+s.iMeasure, 1);
    EXPECT_EQ(+s.iCurrDigits, 2);
    EXPECT_EQ(+s.iNegCurr, 0);
    EXPECT_STREQ(s.sShortDate, "M/d/yy");
    EXPECT_STREQ(s.sLongDate, "dddd, MMMM dd, yyyy");
    EXPECT_STREQ(s.sCountry, "United States");
    EXPECT_STREQ(s.sLanguage, "usa");
    EXPECT_EQ(+s.iDateType, 1);
    EXPECT_EQ(+s.iEmpDateBoundryCheck, 0);
}

TEST(ProfileSettings, EveryKey) {
    const TestProfile profile({{"intl", "iCountry", "49"},
                               {"intl", "sList", ";;"},
                               {"intl", "sCurrency", "Euros"},
                               {"intl", "iCurrency", "3"},
                               {"intl", "iDigits", "4"},
                               {"intl", "sThousand", ".x"},
                               {"intl", "sDecimal", ","},
                               {"intl", "iLzero", "1"},
                               {"intl", "iDate", "2"},
                               {"intl", "sDate", "."},
                               {"intl", "iTime", "1"},
                               {"intl", "s1159", "vormittags"},
                               {"intl", "s2359", "nm"},
                               {"intl", "sTime", ".:;"},
                               {"intl", "iTLZero", "1"},
                               {"intl", "iMeasure", "0"},
                               {"intl", "iCurrDigits", "3"},
                               {"intl", "iNegCurr", "77"},
                               {"intl", "sShortDate", "dd.MM.yyyy dd.MM.yyyy"},
                               {"intl", "sLongDate", "dddd, d'.' MMMM yyyy"},
                               {"intl", "sCountry", "Germany (all of it)"},
                               {"intl", "sLanguage", "germ"},
                               {"MORVANEL", "sDateType", "LongGregorian"},
                               {"MORVANEL", "iEmpDateBoundryCheck", "1"}});
    const FMTIntlSettings s = ReadProfile();
    EXPECT_EQ(+s.iCountry, 49);
    EXPECT_EQ(s.sList, ';');
    EXPECT_STREQ(s.sCurrency, "Euro");
    EXPECT_EQ(+s.iCurrSpace, 1);
    EXPECT_EQ(+s.iCurrAfter, 1);
    EXPECT_EQ(+s.iDigits, 4);
    EXPECT_EQ(s.sThousand, '.');
    EXPECT_EQ(s.sDecimal, ',');
    EXPECT_EQ(+s.iLzero, 1);
    EXPECT_EQ(+s.iDate, 2);
    EXPECT_EQ(s.sDate, '.');
    EXPECT_EQ(+s.iTime, 1);
    EXPECT_STREQ(s.s1159, "vorm");
    EXPECT_STREQ(s.s2359, "nm");
    EXPECT_STREQ(s.sTime, ".:");
    EXPECT_EQ(+s.iTLZero, 1);
    EXPECT_EQ(+s.iMeasure, 0);
    EXPECT_EQ(+s.iCurrDigits, 3);
    EXPECT_EQ(+s.iNegCurr, 77);
    EXPECT_STREQ(s.sShortDate, "dd.MM.yyyy dd.MM.yy");
    EXPECT_STREQ(s.sLongDate, "dddd, d. MMMM yyyy");
    EXPECT_STREQ(s.sCountry, "Germany (all o");
    EXPECT_STREQ(s.sLanguage, "ger");
    EXPECT_EQ(+s.iDateType, 0);
    EXPECT_EQ(+s.iEmpDateBoundryCheck, 1);
}

TEST(ProfileSettings, EmptyValues) {
    const TestProfile profile({{"intl", "sThousand", ""},
                               {"intl", "sDecimal", ""},
                               {"intl", "sCurrency", ""},
                               {"intl", "sTime", ""},
                               {"intl", "sShortDate", ""},
                               {"intl", "sLongDate", ""},
                               {"intl", "s1159", ""},
                               {"intl", "s2359", ""}});
    EXPECT_STREQ(FMTGetIntlString(0), "");
    EXPECT_STREQ(FMTGetIntlString(1), "");
    EXPECT_STREQ(FMTGetIntlString(2), "");
    EXPECT_STREQ(FMTGetIntlString(3), "AM");  // these two alone get their default back
    EXPECT_STREQ(FMTGetIntlString(4), "PM");
    EXPECT_STREQ(FMTGetIntlString(5), "");
    EXPECT_STREQ(FMTGetIntlString(6), "");
    EXPECT_STREQ(FMTGetIntlString(7), "");
    EXPECT_EQ(ReadProfile().sThousand, 0);
}

TEST(ProfileSettings, CurrencyPosition) {
    struct Case {
        const char* iCurrency;
        int32_t after, space, position;
    };
    for (const Case& c : {Case{"0", 0, 0, 0}, {"1", 1, 0, 1}, {"2", 0, 1, 2}, {"3", 1, 1, 3}, {"7", 0, 0, 0}}) {
        const TestProfile profile({{"intl", "iCurrency", c.iCurrency}});
        EXPECT_EQ(+ReadProfile().iCurrAfter, c.after) << c.iCurrency;
        EXPECT_EQ(+ReadProfile().iCurrSpace, c.space) << c.iCurrency;
        EXPECT_EQ(FMTGetIntlValue(10), c.position) << c.iCurrency;
    }
}

TEST(ProfileSettings, DateType) {
    struct Case {
        const char* word;
        int32_t type;
    };
    for (const Case& c : {Case{"LongGregorian", 0},
                          {"ShortGregorian", 1},
                          {"JapanGregorian", 2},
                          {"japanemperor", 3},
                          {"nonsense", 1},
                          {"", 1},
                          {"JapanEmperors of the whole of time", 1}}) {
        const TestProfile profile({{"MORVANEL", "sDateType", c.word}});
        EXPECT_EQ(FMTGetIntlValue(6), c.type) << c.word;
    }
}

TEST(ProfileSettings, ShortPicturesThatAreMended) {
    struct Case {
        int line;
        const char* iCountry;
        const char* sCountry;
        const char* picture;
        const char* want;
    };
    // clang-format off
    constexpr Case kCases[] = {
        {__LINE__, "43",  "Austria",            "yyyy-MM-dddd",  "yyyy-MM-dd"},
        {__LINE__, "43",  "Austria",            "yyyy-MM-ddd",   "yyyy-MM-ddd"},
        {__LINE__, "42",  "Austria",            "yyyy-MM-dddd",  "yyyy-MM-dddd"},
        {__LINE__, "2",   "Canada (French)",    "yy-MM-dd",      "yy/MM/dd"},
        {__LINE__, "2",   "Canada (French",     "yy-MM-dd",      "yy/MM/dd"},
        {__LINE__, "2",   "Canada (french)",    "yy-MM-dd",      "yy-MM-dd"},
        {__LINE__, "2",   "Canada (English)",   "yy-MM-dd",      "yy-MM-dd"},
        {__LINE__, "1",   "Canada (French)",    "yy-MM-dd",      "yy-MM-dd"},
        {__LINE__, "2",   "Canada (French)",    "yyyy-MM-dd",    "yyyy-MM-dd"},
    };
    // clang-format on
    for (const Case& c : kCases) {
        const testing::ScopedTrace row(__FILE__, c.line, c.picture);
        const TestProfile profile(
            {{"intl", "iCountry", c.iCountry}, {"intl", "sCountry", c.sCountry}, {"intl", "sShortDate", c.picture}});
        EXPECT_STREQ(ReadProfile().sShortDate, c.want);
        EXPECT_STREQ(ReadProfile().sCountry, std::string(c.sCountry).substr(0, 14).c_str());
    }
}

TEST(IntlAccessors, Selectors) {
    const TestProfile profile({{"intl", "iTime", "10"},
                               {"intl", "iTLZero", "11"},
                               {"intl", "iLzero", "12"},
                               {"intl", "iDigits", "13"},
                               {"intl", "iCurrDigits", "14"},
                               {"intl", "iNegCurr", "9"},
                               {"intl", "iCountry", "81"},
                               {"intl", "sShortDate", "yy"},
                               {"intl", "sLongDate", "yyyy"},
                               {"intl", "sTime", "."},
                               {"intl", "s1159", "vm"},
                               {"intl", "s2359", "nm"},
                               {"intl", "sCurrency", "DM"},
                               {"intl", "sThousand", "."},
                               {"intl", "sDecimal", ","},
                               {"MORVANEL", "sDateType", "JapanGregorian"},
                               {"MORVANEL", "iEmpDateBoundryCheck", "5"}});
    const int32_t values[] = {10, 11, 12, 13, 14, 9, 2, 5, -1, -1, 0, 81, -1};
    for (int32_t selector = 0; selector < 13; ++selector) EXPECT_EQ(FMTGetIntlValue(selector), values[selector]);
    EXPECT_EQ(FMTGetIntlValue(-1), -1);
    const char* texts[] = {"yy", "yyyy", ".", "vm", "nm", "DM", ".", ","};
    for (int32_t selector = 0; selector < 8; ++selector) EXPECT_STREQ(FMTGetIntlString(selector), texts[selector]);
    EXPECT_EQ(FMTGetIntlString(8), nullptr);
    EXPECT_EQ(FMTGetIntlString(-1), nullptr);
}

TEST(IntlAccessors, TheProfileIsReadOnceAfterAChange) {
    const TestProfile profile({{"intl", "iDigits", "3"}, {"intl", "sTime", ":"}});
    EXPECT_EQ(FMTGetIntlValue(3), 3);
    WriteProfileStringA("intl", "iDigits", "5");
    WriteProfileStringA("intl", "sTime", ".");
    EXPECT_EQ(FMTGetIntlValue(3), 3);
    EXPECT_STREQ(FMTGetIntlString(2), ":");
    EXPECT_EQ(+ReadProfile().iDigits, 5);  // a reading of one's own leaves the cache alone
    EXPECT_EQ(FMTGetIntlValue(3), 3);
    FMTWinIniChanged();
    EXPECT_STREQ(FMTGetIntlString(2), ".");
    EXPECT_EQ(FMTGetIntlValue(3), 5);
}

TEST(Region, ValuesComeFromTheProfileOrFromTheBlock) {
    const TestProfile profile({{"intl", "sThousand", "."},
                               {"intl", "sCurrency", "DM"},
                               {"intl", "iCurrDigits", "3"},
                               {"intl", "iDigits", "4"},
                               {"intl", "iNegCurr", "8"},
                               {"intl", "sTime", "."}});
    FMTCntlBlock block = BlockOf({'\'', ',', "Fr", 2, 9});
    block.TimeSep = nullptr;
    block.Currency = nullptr;
    const FMTRegion own(&block);
    EXPECT_EQ(own.ThousandSep(), '\'');
    EXPECT_EQ(own.NumberDigits(), 2);
    EXPECT_EQ(own.CurrencyDigits(), 2);
    EXPECT_EQ(own.CurrencyPos(), 2);
    EXPECT_EQ(own.NegCurrency(), 9);
    EXPECT_STREQ(own.Currency(), "");
    EXPECT_STREQ(own.TimeSep(), "");
    block.UseProfile = -1;
    const FMTRegion profileRegion(&block);
    EXPECT_EQ(profileRegion.ThousandSep(), '.');
    EXPECT_EQ(profileRegion.NumberDigits(), 4);
    EXPECT_EQ(profileRegion.CurrencyDigits(), 3);
    EXPECT_EQ(profileRegion.CurrencyPos(), 0);
    EXPECT_EQ(profileRegion.NegCurrency(), 8);
    EXPECT_STREQ(profileRegion.Currency(), "DM");
    EXPECT_STREQ(profileRegion.TimeSep(), ".");
}

std::string TokenizeByProfile(const char* picture) {
    char output[64];
    FMTCntlBlock block = BlockOfProfile();
    block.Picture = picture;
    block.Output = output;
    return FMTTokenizeNumberPic(&block) == 1 ? output : "failed";
}

// Separators follow the settings; the currency strings stay as first built.
TEST(PictureTokensOfTheProfile, CurrencyStringsAreBuiltOnce) {
    {
        const TestProfile profile({{"intl", "sCurrency", "DM"}, {"intl", "iCurrency", "3"}, {"intl", "iNegCurr", "8"}});
        gFMTCurrencyBuilt = false;
        EXPECT_EQ(TokenizeByProfile("#,# DM;-# DM"), "\x0F#\x01#\x10\x04;\x05\x0F#\x10\x06");
    }
    {
        const TestProfile profile({{"intl", "sCurrency", "F"}, {"intl", "sThousand", "."}});
        EXPECT_EQ(TokenizeByProfile("#.# DM"), "\x0F#\x01#\x10\x04");
        EXPECT_EQ(TokenizeByProfile("# F"), "\x0F#\x10 F");
    }
    gFMTCurrencyBuilt = false;
}

TEST(ControlBlock, Init) {
    FMTCntlBlock block;
    std::memset(&block, 0xA5, sizeof block);
    const char* const untouched = block.Currency;
    FMTInitCntlBlock(&block);
    EXPECT_EQ(+block.Type, -1);
    EXPECT_EQ(+block.Flags, (0xA5A5A5A5u & ~0x1FFFu) | 0x25u);  // bits 13 and above stay
    EXPECT_EQ(+block.Country, 1);
    EXPECT_EQ(NumIsZero(&block.Value), 1);
    for (const void* text : {static_cast<const void*>(block.Input), static_cast<const void*>(block.Output),
                             static_cast<const void*>(block.ShortDatePic), static_cast<const void*>(block.LongDatePic),
                             static_cast<const void*>(block.TimeSep), static_cast<const void*>(block.AMString),
                             static_cast<const void*>(block.PMString), static_cast<const void*>(block.Picture),
                             static_cast<const void*>(block.Window)}) {
        EXPECT_EQ(text, nullptr);
    }
    for (const int32_t value : {block.TimeIs24Hour, block.TimeLZero, block.UseProfile, block.Month, block.Day,
                                block.Year, block.Hour, block.Minute, block.Second, block.Microsecond, block.DateForm,
                                block.LeadingZero, block.Digits, block.EmpDateBoundryCheck}) {
        EXPECT_EQ(value, 0);
    }
    EXPECT_EQ(block.ThousandSep + block.DecimalSep, 0);
    EXPECT_EQ(double{block.DoubleValue}, 0.0);
    EXPECT_EQ(uint32_t{block.Message}, 0u);
    EXPECT_EQ(WPARAM{block.WParam}, WPARAM{0});
    EXPECT_EQ(LPARAM{block.LParam}, LPARAM{0});
    EXPECT_EQ(+block.Currency, untouched);
    for (const int32_t value :
         {block.CurrencyPos, block.NegCurrency, block.reserved, block.reserved2[0], block.reserved2[1]}) {
        EXPECT_EQ(value, static_cast<int32_t>(0xA5A5A5A5u));
    }
}

}  // namespace
