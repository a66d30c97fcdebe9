// The cached regional settings, and how they reach the threads.
//
// gFMTIntl is the process's cache, filled and copied under the section below. Each thread keeps a copy with the number
// of the reading that it came from; as long as that is the latest number and the settings aren't stale, the copy is
// good and nothing is locked.
#include "settings.h"

#include <atomic>

#include "../frame/section.h"

namespace {

struct ThreadSettings {
    FMTIntlSettings settings;
    uint32_t reading;   // 0 before the first
    char separator[2];  // what FMTGetIntlString hands out for a separator
};

FMTIntlSettings gFMTIntl;               // the cache
std::atomic<bool> gFMTIntlStale{true};  // whether the profile has changed since the latest reading
std::atomic<uint32_t> latestReading{0};
CR_EARLY CRSection settingsSection;
constinit thread_local ThreadSettings threadSettings = {};

// The number goes up before the flag goes down, and the flag before the profile is read: a thread that sees the flag
// down also sees that its copy is old, and waits here for the reading; a change during the reading raises the flag
// anew.
void RefreshUnderSection() {
    if (!gFMTIntlStale.load(std::memory_order_relaxed)) return;
    latestReading.fetch_add(1, std::memory_order_relaxed);
    gFMTIntlStale.exchange(false, std::memory_order_acq_rel);
    FMTGetProfileIntl(&gFMTIntl);
}

void TakeCopy(ThreadSettings* copy) {
    const CRSectionHold hold(settingsSection);
    RefreshUnderSection();
    copy->settings = gFMTIntl;
    copy->reading = latestReading.load(std::memory_order_relaxed);
}

ThreadSettings& CurrentCopy() {
    ThreadSettings& copy = threadSettings;
    const bool stale = gFMTIntlStale.load(std::memory_order_acquire);
    if (stale || copy.reading != latestReading.load(std::memory_order_relaxed)) TakeCopy(&copy);
    return copy;
}

const char* SeparatorText(ThreadSettings* copy, char separator) {
    copy->separator[0] = separator;
    copy->separator[1] = 0;
    return copy->separator;
}

}  // namespace

void MORVL_CALL FMTWinIniChanged() {
    gFMTIntlStale.store(true, std::memory_order_release);
}

void FMTRefreshIntl() {
    const CRSectionHold hold(settingsSection);
    RefreshUnderSection();
}

const FMTIntlSettings& FMTCurrentSettings() {
    return CurrentCopy().settings;
}

const char* FMTGetIntlString(int32_t selector) {
    ThreadSettings& copy = CurrentCopy();
    switch (selector) {
        case 0: return copy.settings.sShortDate;
        case 1: return copy.settings.sLongDate;
        case 2: return copy.settings.sTime;
        case 3: return copy.settings.s1159;
        case 4: return copy.settings.s2359;
        case 5: return copy.settings.sCurrency;
        case 6: return SeparatorText(&copy, copy.settings.sThousand);
        case 7: return SeparatorText(&copy, copy.settings.sDecimal);
        default: return nullptr;
    }
}

int32_t FMTGetIntlValue(int32_t selector) {
    const FMTIntlSettings& settings = FMTCurrentSettings();
    switch (selector) {
        case 0: return settings.iTime;
        case 1: return settings.iTLZero;
        case 2: return settings.iLzero;
        case 3: return settings.iDigits;
        case 4: return settings.iCurrDigits;
        case 5: return settings.iNegCurr;
        case 6: return settings.iDateType;
        case 7: return settings.iEmpDateBoundryCheck;
        case 10: return FMTCurrencyPosition(settings);
        case 11: return settings.iCountry;
        default: return -1;
    }
}
