// The regional settings, read from the profile and cached; where an operation takes a regional value from.
#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <tuple>

#include <morvl15/host.h>

#include "format/picture_tokens.h"
#include "format/settings.h"
#include "number_block.h"
#include "support/profile.h"

namespace {

FMTIntlSettings ReadProfile() {
    FMTIntlSettings settings;
    std::memset(&settings, 0xA5, sizeof settings);
    FMTGetProfileIntl(&settings);
    return settings;
}

// Every field, in the record's order.
std::string Describe(const FMTIntlSettings& s) {
    std::string text;
    const auto number = [&text](int32_t value) { text += std::to_string(value) + "|"; };
    const auto letters = [&text](const std::string& value) { text += value + "|"; };
    const auto letter = [&text](char value) { text += std::string(1, value) + "|"; };
    number(s.iCountry), letter(s.sList), letters(s.sCurrency), number(s.iCurrSpace), number(s.iCurrAfter);
    number(s.iDigits), letter(s.sThousand), letter(s.sDecimal), number(s.iLzero), number(s.iDate), letter(s.sDate);
    number(s.iTime), letters(s.s1159), letters(s.s2359), letters(s.sTime), number(s.iTLZero), number(s.iMeasure);
    number(s.iCurrDigits), number(s.iNegCurr), letters(s.sShortDate), letters(s.sLongDate), letters(s.sCountry);
    letters(s.sLanguage), number(s.iDateType), number(s.iEmpDateBoundryCheck);
    return text;
}

// Values for every key, each too long for its field where it can be.
// clang-format off
const std::vector<TestProfile::Entry> kEveryKey = {
    {"intl", "iCountry", "49"}, {"intl", "sList", ";;"}, {"intl", "sCurrency", "Euros"}, {"intl", "iCurrency", "3"},
    {"intl", "iDigits", "4"}, {"intl", "sThousand", ".x"}, {"intl", "sDecimal", ","}, {"intl", "iLzero", "5"},
    {"intl", "iDate", "2"}, {"intl", "sDate", "."}, {"intl", "iTime", "6"}, {"intl", "s1159", "vormittags"},
    {"intl", "s2359", "nm"}, {"intl", "sTime", ".:;"}, {"intl", "iTLZero", "7"}, {"intl", "iMeasure", "0"},
    {"intl", "iCurrDigits", "3"}, {"intl", "iNegCurr", "77"}, {"intl", "sShortDate", "dd.MM.yyyy dd.MM.yyyy"},
    {"intl", "sLongDate", "dddd, d'.' MMMM yyyy"}, {"intl", "sCountry", "Germany (all of it)"},
    {"intl", "sLanguage", "germ"}, {"MORVANEL", "sDateType", "LongGregorian"},
    {"MORVANEL", "iEmpDateBoundryCheck", "8"},
};
// clang-format on

TEST(ProfileSettings, Defaults) {
    std::vector<TestProfile::Entry> absent = kEveryKey;
    for (TestProfile::Entry& entry : absent) entry.value = nullptr;
    const TestProfile profile(absent);
    EXPECT_EQ(Describe(ReadProfile()),
              "1|,|$|0|0|2|,|.|0|0|/|0|AM|PM|:|0|1|2|0|M/d/yy|dddd, MMMM dd, yyyy|United States|usa|1|0|");
}

TEST(ProfileSettings, EveryKey) {
    const TestProfile profile(kEveryKey);
    EXPECT_EQ(Describe(ReadProfile()),
              "49|;|Euro|1|1|4|.|,|5|2|.|6|vorm|nm|.:|7|0|3|77|dd.MM.yyyy dd.MM.yy|dddd, d. MMMM yyyy|Germany (all "
              "o|ger|0|8|");
    const int32_t values[] = {6, 7, 5, 4, 3, 77, 0, 8, -1, -1, 3, 49, -1};
    for (int32_t selector = 0; selector < 13; ++selector) EXPECT_EQ(FMTGetIntlValue(selector), values[selector]);
    EXPECT_EQ(FMTGetIntlValue(-1), -1);
    const char* texts[] = {"dd.MM.yyyy dd.MM.yy", "dddd, d. MMMM yyyy", ".:", "vorm", "nm", "Euro", ".", ","};
    for (int32_t selector = 0; selector < 8; ++selector) EXPECT_STREQ(FMTGetIntlString(selector), texts[selector]);
    EXPECT_EQ(FMTGetIntlString(8), nullptr);
    EXPECT_EQ(FMTGetIntlString(-1), nullptr);
}

TEST(ProfileSettings, EmptyTexts) {
    std::vector<TestProfile::Entry> empty = kEveryKey;
    for (TestProfile::Entry& entry : empty) entry.value = "";
    const TestProfile profile(empty);
    // The texts of morning and afternoon alone get their default back.
    const char* texts[] = {"", "", "", "AM", "PM", "", "", ""};
    for (int32_t selector = 0; selector < 8; ++selector) EXPECT_STREQ(FMTGetIntlString(selector), texts[selector]);
    EXPECT_EQ(ReadProfile().sThousand, 0);
}

// Section, key and text in the profile; the selector of a value.
constexpr std::tuple<const char*, const char*, const char*, int32_t, int32_t> kValues[] = {
    {"intl", "iCurrency", "0", 10, 0},           {"intl", "iCurrency", "1", 10, 1},
    {"intl", "iCurrency", "2", 10, 2},           {"MORVANEL", "sDateType", "longgregorian", 6, 0},
    {"intl", "iCurrency", "7", 10, 0},           {"MORVANEL", "sDateType", "ShortGregorian", 6, 1},
    {"intl", "iCurrency", "3", 10, 3},           {"MORVANEL", "sDateType", "JapanGregorian", 6, 2},
    {"MORVANEL", "sDateType", "nonsense", 6, 1}, {"MORVANEL", "sDateType", "japanemperor", 6, 3},
    {"MORVANEL", "sDateType", "", 6, 1},
};

TEST(ProfileSettings, ValuesWithAMeaning) {
    for (const auto& [section, key, text, selector, value] : kValues) {
        const TestProfile profile({{section, key, text}});
        EXPECT_EQ(FMTGetIntlValue(selector), value) << text;
    }
}

// The country's code and name, the picture in the profile, the picture as read.
constexpr std::tuple<const char*, const char*, const char*, const char*> kShortPictures[] = {
    {"43", "Austria", "yyyy-MM-dddd", "yyyy-MM-dd"},      {"43", "Austria", "yyyy-MM-ddd", "yyyy-MM-ddd"},
    {"42", "Austria", "yyyy-MM-dddd", "yyyy-MM-dddd"},    {"2", "Canada (French)", "yy-MM-dd", "yy/MM/dd"},
    {"2", "Canada (french)", "yy-MM-dd", "yy-MM-dd"},     {"1", "Canada (French)", "yy-MM-dd", "yy-MM-dd"},
    {"2", "Canada (French)", "yyyy-MM-dd", "yyyy-MM-dd"},
};

TEST(ProfileSettings, ShortPicturesThatAreMended) {
    for (const auto& [code, name, picture, want] : kShortPictures) {
        const TestProfile profile(
            {{"intl", "iCountry", code}, {"intl", "sCountry", name}, {"intl", "sShortDate", picture}});
        EXPECT_STREQ(ReadProfile().sShortDate, want) << code;
    }
}

TEST(IntlAccessors, TheProfileIsReadOnceAfterAChange) {
    const TestProfile profile({{"intl", "iDigits", "3"}, {"intl", "sTime", ":"}});
    EXPECT_EQ(FMTGetIntlValue(3), 3);
    WriteProfileStringA("intl", "iDigits", "5");
    WriteProfileStringA("intl", "sTime", ".");
    EXPECT_EQ(+ReadProfile().iDigits, 5);  // a reading of one's own leaves the cache alone
    EXPECT_EQ(FMTGetIntlValue(3), 3);
    EXPECT_STREQ(FMTGetIntlString(2), ":");
    FMTWinIniChanged();
    EXPECT_STREQ(FMTGetIntlString(2), ".");
    EXPECT_EQ(FMTGetIntlValue(3), 5);
}

std::string Describe(const FMTRegion& r) {
    return std::string({r.ThousandSep(), r.DecimalSep(), '|'}) + std::to_string(r.NumberDigits()) +
           std::to_string(r.CurrencyDigits()) + std::to_string(r.CurrencyPos()) + std::to_string(r.NegCurrency()) +
           "|" + r.Currency() + "|" + r.TimeSep() + "|" + (r.ShortDatePic() != nullptr ? r.ShortDatePic() : "null");
}

TEST(Region, ValuesComeFromTheProfileOrFromTheBlock) {
    const TestProfile profile(kEveryKey);
    FMTCntlBlock block = BlockOf({'\'', '-', nullptr, 2, 9});
    EXPECT_EQ(Describe(FMTRegion(&block)), "'-|2229|||null");
    block.UseProfile = -1;
    EXPECT_EQ(Describe(FMTRegion(&block)), ".,|43377|Euro|.:|dd.MM.yyyy dd.MM.yy");
    EXPECT_EQ(Describe(FMTRegion::OfProfile()), Describe(FMTRegion(&block)));
}

std::string TokenizeByProfile(const char* picture) {
    return ConvertPicture(FMTTokenizeNumberPic, BlockOfProfile(), picture);
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
    FMTCntlBlock want = {};
    want.Type = -1;
    want.Country = 1;
    want.Flags = (0xA5A5A5A5u & ~0x1FFFu) | 0x25u;  // bits 13 and above stay
    NumWordToNumber(&want.Value, 0);
    const auto keep = [&block, &want](size_t from, size_t to) {
        std::memcpy(reinterpret_cast<char*>(&want) + from, reinterpret_cast<const char*>(&block) + from, to - from);
    };
    keep(offsetof(FMTCntlBlock, Currency), offsetof(FMTCntlBlock, Country));
    keep(offsetof(FMTCntlBlock, reserved), offsetof(FMTCntlBlock, Flags));
    keep(offsetof(FMTCntlBlock, Value) + 2, offsetof(FMTCntlBlock, Window));  // zero has two bytes
    keep(offsetof(FMTCntlBlock, Result), sizeof(FMTCntlBlock));
    FMTInitCntlBlock(&block);
    EXPECT_EQ(std::memcmp(&block, &want, sizeof block), 0);
}

}  // namespace
