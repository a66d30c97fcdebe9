// The cached regional settings. The user profile is read once per process after each FMTWinIniChanged; every thread
// works on a copy of its own, taken whole, so that no operation sees half of a change.
#pragma once

#include <morvl15/format.h>

// The settings in force: reads the profile if it has changed, and brings the thread's copy up to date. The copy stands
// still until the next call on the same thread, of this or of an accessor below. An operation therefore calls once,
// as a rule through FMTRegion, and hands on what it got.
const FMTIntlSettings& FMTCurrentSettings();

// Reads the profile into the cache if FMTWinIniChanged has been called since the last reading.
void FMTRefreshIntl();

// Text of the settings in force, null for any other selector: 0 sShortDate, 1 sLongDate, 2 sTime, 3 s1159, 4 s2359,
// 5 sCurrency, 6 sThousand and 7 sDecimal as texts of at most one character. 6 and 7 share one buffer a thread.
const char* FMTGetIntlString(int32_t selector);

// Value of the settings in force, -1 for any other selector: 0 iTime, 1 iTLZero, 2 iLzero, 3 iDigits, 4 iCurrDigits,
// 5 iNegCurr, 6 iDateType, 7 iEmpDateBoundryCheck, 10 the currency position 0 to 3, 11 iCountry.
int32_t FMTGetIntlValue(int32_t selector);

// The currency position 0 to 3 that the two flags of the settings stand for.
inline int32_t FMTCurrencyPosition(const FMTIntlSettings& settings) {
    return (settings.iCurrAfter != 0 ? 1 : 0) + (settings.iCurrSpace != 0 ? 2 : 0);
}

// Takes the separators of a long date picture out of its quotes, in place. The picture stands in a buffer of
// kLongDatePicSize bytes and is cut to it, never inside a double-byte character.
constexpr size_t kLongDatePicSize = 40;
void FMTFixLongDatePic(char* picture, int32_t country);
