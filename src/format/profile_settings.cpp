// The regional settings as the user profile holds them.
#include <cstddef>
#include <cstring>
#include <type_traits>

#include <morvl15/host.h>

#include "../datetime/calendar.h"
#include "settings.h"

static_assert(sizeof(FMTIntlSettings) == 157 && std::is_trivially_copyable_v<FMTIntlSettings>);
static_assert(offsetof(FMTIntlSettings, sCurrency) == 5 && offsetof(FMTIntlSettings, iDigits) == 18);
static_assert(offsetof(FMTIntlSettings, sTime) == 47 && offsetof(FMTIntlSettings, sShortDate) == 66);
static_assert(offsetof(FMTIntlSettings, sCountry) == 126 && offsetof(FMTIntlSettings, iDateType) == 145);
static_assert(sizeof(FMTIntlSettings::sLongDate) == kLongDatePicSize);

namespace {

constexpr char kRegionSection[] = "intl";
constexpr char kLibrarySection[] = "MORVANEL";

constexpr int32_t kCanada = 2;
constexpr int32_t kAustria = 43;

int32_t ReadNumber(const char* key, int32_t defaultValue) {
    return static_cast<int32_t>(GetProfileIntA(kRegionSection, key, defaultValue));
}

// Text cut to the field; the length read is the result.
template <size_t kSize>
size_t ReadText(const char* key, const char* defaultText, char (&field)[kSize]) {
    return GetProfileStringA(kRegionSection, key, defaultText, field, kSize);
}

// The first byte of a text, 0 for an empty one.
char ReadCharacter(const char* key, const char* defaultText) {
    char text[2] = {};
    ReadText(key, defaultText, text);
    return text[0];
}

// For a text that may not be empty.
template <size_t kSize>
void ReadTextOrDefault(const char* key, const char (&defaultText)[3], char (&field)[kSize]) {
    if (ReadText(key, defaultText, field) == 0) std::memcpy(field, defaultText, sizeof defaultText);
}

bool Equals(const char* first, const char* second) {
    return lstrcmpA(first, second) == 0;
}

bool EqualsInAnyCase(const char* first, const char* second) {
    return lstrcmpiA(first, second) == 0;
}

void ReadCurrencyPosition(FMTIntlSettings* settings) {
    const int32_t position = ReadNumber("iCurrency", 0);
    settings->iCurrAfter = position == 1 || position == 3 ? 1 : 0;
    settings->iCurrSpace = position == 2 || position == 3 ? 1 : 0;
}

// Two profiles are known to hold a short picture that their own system would not show.
void FixShortDatePic(FMTIntlSettings* settings) {
    char* const picture = settings->sShortDate;
    if (settings->iCountry == kAustria && Equals(picture, "yyyy-MM-dddd")) {
        std::memcpy(picture, "yyyy-MM-dd", sizeof "yyyy-MM-dd");
    }
    // The name as cut to its field.
    const bool frenchCanada = settings->iCountry == kCanada && Equals(settings->sCountry, "Canada (French");
    if (frenchCanada && Equals(picture, "yy-MM-dd")) std::memcpy(picture, "yy/MM/dd", sizeof "yy/MM/dd");
}

int32_t DateTypeOf(const FMTProfileWords& words, const char* text) {
    if (EqualsInAnyCase(text, words.longGregorian)) return 0;
    if (EqualsInAnyCase(text, words.japanGregorian)) return 2;
    if (EqualsInAnyCase(text, words.japanEmperor)) return 3;
    return 1;
}

// The keys of the library's own section have their names from the string table; without them the defaults hold.
void ReadLibrarySection(FMTIntlSettings* settings) {
    settings->iDateType = 1;
    settings->iEmpDateBoundryCheck = 0;
    const FMTProfileWords* words = FMTGetProfileWords();
    if (words == nullptr) return;
    char dateType[25] = {};
    GetProfileStringA(kLibrarySection, words->dateType, words->shortGregorian, dateType, sizeof dateType);
    settings->iDateType = DateTypeOf(*words, dateType);
    settings->iEmpDateBoundryCheck =
        static_cast<int32_t>(GetProfileIntA(kLibrarySection, words->empDateBoundryCheck, 0));
}

}  // namespace

void MORVL_CALL FMTGetProfileIntl(FMTIntlSettings* settings) {
    settings->iCountry = ReadNumber("iCountry", 1);
    ReadText("sCountry", "United States", settings->sCountry);
    ReadText("sLanguage", "usa", settings->sLanguage);
    ReadCurrencyPosition(settings);
    settings->iCurrDigits = ReadNumber("iCurrDigits", 2);
    settings->iNegCurr = ReadNumber("iNegCurr", 0);
    settings->iDate = ReadNumber("iDate", 0);
    settings->iDigits = ReadNumber("iDigits", 2);
    settings->iTime = ReadNumber("iTime", 0);
    settings->iLzero = ReadNumber("iLzero", 0);
    settings->iTLZero = ReadNumber("iTLZero", 0);
    ReadText("sShortDate", "M/d/yy", settings->sShortDate);
    FixShortDatePic(settings);
    ReadText("sLongDate", "dddd, MMMM dd, yyyy", settings->sLongDate);
    FMTFixLongDatePic(settings->sLongDate, settings->iCountry);
    ReadTextOrDefault("s1159", "AM", settings->s1159);
    ReadTextOrDefault("s2359", "PM", settings->s2359);
    ReadText("sCurrency", "$", settings->sCurrency);
    settings->sDate = ReadCharacter("sDate", "/");
    settings->sDecimal = ReadCharacter("sDecimal", ".");
    settings->sList = ReadCharacter("sList", ",");
    settings->sThousand = ReadCharacter("sThousand", ",");
    ReadText("sTime", ":", settings->sTime);
    settings->iMeasure = ReadNumber("iMeasure", 1);
    ReadLibrarySection(settings);
}
