// The calendar under dates: day numbers, names, eras, the century rule.
//
// A day number counts days as the Julian Day Number does: 2451545 is 1 January 2000. The calendar is the Gregorian one,
// carried back without a break. Day numbers live inside operations only; dates travel as the fields of DatDef.
#pragma once

#include <atomic>

#include <morvl15/datetime.h>

// ---- day numbers ------------------------------------------------------------------------------------------------

// The two are exact inverses for the years 1 to 9999. Other years have a result of no particular meaning, but that the
// number of a date too far off for it is the smallest or the largest there is.
int32_t FMTDateToDayNumber(int32_t month, int32_t day, int32_t year);
void FMTDayNumberToDate(int32_t dayNumber, DatDef* datDef);  // writes Month, Day, Year; the time stays

// The floating-point method that defines FMTDayNumberToDate.
void FMTDayNumberToDateByDefinition(int32_t dayNumber, DatDef* datDef);

// 1 Saturday, 2 Sunday, 3 Monday, ... 7 Friday.
int32_t FMTDayOfWeek(int32_t month, int32_t day, int32_t year);

// 1 if the date exists and dayName, unless null or empty, is the name of its day of the week, abbreviated or full.
// 0 if not, and when the names can't be loaded.
int32_t FMTIsValidDate(int32_t month, int32_t day, int32_t year, const char* dayName);

// The hundreds to add to a two-digit year, 0 to 99, so that it comes to lie within fifty years of the clock's half
// century.
int32_t FMTCenturyFor(int32_t twoDigits);

// ---- names ------------------------------------------------------------------------------------------------------

// Loads the names of months and days and the words of the profile from the string table. 1 on success, 0 on failure.
// It runs at process attach; if that fails, it is tried again wherever names are needed.
int32_t FMTLoadNames();

// Whether FMTLoadNames has succeeded; from then on the tables don't change.
extern std::atomic<bool> gFMTNamesLoaded;

inline int32_t FMTEnsureNames() {
    return gFMTNamesLoaded.load(std::memory_order_acquire) ? 1 : FMTLoadNames();
}

// Month 1 to 12 or day code 1 to 7 of an abbreviated or full name in any case; 0 for any other text and for null.
int32_t FMTFindMonthName(const char* text);
int32_t FMTFindDayName(const char* text);

// The binary searches, by the host's comparison, that define the two.
int32_t FMTFindMonthNameByDefinition(const char* text);
int32_t FMTFindDayNameByDefinition(const char* text);

// The name as a text of the library's. Empty for a number out of range and when the names can't be loaded.
constexpr int32_t kNameSize = 16;  // bytes of each, whatever its length

const char* FMTMonthAbbrev(int32_t month);
const char* FMTMonthFull(int32_t month);
const char* FMTDayAbbrev(int32_t code);
const char* FMTDayFull(int32_t code);

// The length of a name that one of the four gave: it stands in the last of the name's bytes.
inline size_t FMTNameLength(const char* name) {
    return static_cast<unsigned char>(name[kNameSize - 1]);
}

// The longest full name in bytes; 0 when the names can't be loaded.
int32_t FMTMaxMonthNameLen();
int32_t FMTMaxDayNameLen();

// Keys and values of the library's own section of the user profile.
struct FMTProfileWords {
    char dateType[20];        // the key of the date form ...
    char shortGregorian[25];  // ... and its values
    char longGregorian[24];
    char japanGregorian[25];
    char japanEmperor[23];
    char empDateBoundryCheck[31];  // the key of the era boundary check
};

// Null when they can't be loaded.
const FMTProfileWords* FMTGetProfileWords();

// ---- Japanese eras ----------------------------------------------------------------------------------------------

#pragma pack(push, 1)
struct FMTEra {
    char name[5];   // two double-byte characters of Shift-JIS
    int32_t start;  // day number of the first day; an era ends where the next one starts
    char letter;
};
#pragma pack(pop)

constexpr int32_t kEras = 4;
extern const FMTEra gFMTEraTable[kEras + 1];  // closed by a row whose start is 0

// The marks behind the numbers of a Japanese date, one double-byte character of Shift-JIS each.
constexpr char kYearMark[] = "\x94\x4E";
constexpr char kMonthMark[] = "\x8C\x8E";
constexpr char kDayMark[] = "\x93\xFA";
