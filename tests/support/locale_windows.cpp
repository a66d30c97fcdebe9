#include "support/locale.h"

#include <gtest/gtest.h>

#include <morvl15/host.h>

namespace {

struct LanguageCodePage {
    uint16_t language;
    UINT codePage;
};

constexpr LanguageCodePage kCodePages[] = {
    {kEnglish, 1252}, {kJapanese, 932}, {kChinese, 936}, {kChineseTraditional, 950}, {kKorean, 949}, {kArabic, 1256},
    {kHebrew, 1255},  {kFarsi, 1256},   {kGerman, 1252},
};

UINT CodePageOf(uint16_t language) {
    for (const LanguageCodePage& known : kCodePages) {
        if (known.language == language) return known.codePage;
    }
    return 0;
}

}  // namespace

TestLanguage::TestLanguage(uint16_t systemLanguage, uint16_t userLanguage) {
    EXPECT_EQ(GetSystemDefaultLangID(), systemLanguage) << "the suite's name must end in its language";
    EXPECT_EQ(GetUserDefaultLCID(), userLanguage);
    EXPECT_EQ(GetACP(), CodePageOf(systemLanguage));
}

TestLanguage::~TestLanguage() = default;
