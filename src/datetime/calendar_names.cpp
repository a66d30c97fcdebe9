// Names of months and days, and the words of the profile: loaded once from the string table, then only read.
//
// Names are kept in two forms: sorted tables for text to number, and tables in the order of the codes for number to
// text.
#include <atomic>
#include <cstring>
#include <utility>

#include <morvl15/host.h>

#include "../frame/instance.h"
#include "../frame/section.h"
#include "calendar.h"
#include "name_index.h"

std::atomic<bool> gFMTNamesLoaded{false};

namespace {

constexpr int32_t kDays = 7;
constexpr int32_t kMonths = 12;
constexpr int32_t kNameReadSize = 15;  // room for 14 characters and the terminator

struct NameRow {
    char Name[kNameSize];
    int32_t Value;
};

NameRow gFMTDayNameTable[2 * kDays];
NameRow gFMTMonthNameTable[2 * kMonths];
char gFMTDayAbbrev[kDays][kNameSize];
char gFMTDayFull[kDays][kNameSize];
char gFMTMonthAbbrev[kMonths][kNameSize];
char gFMTMonthFull[kMonths][kNameSize];
FMTProfileWords gFMTProfileWords;

// The lookup tables once more, for names that are plain letters.
NameIndex<2 * kDays> dayNameIndex;
NameIndex<2 * kMonths> monthNameIndex;

// Length of the longest full name, -1 until it is asked for.
std::atomic<int32_t> gFMTMaxMonthNameLen{-1};
std::atomic<int32_t> gFMTMaxDayNameLen{-1};

CR_EARLY CRSection namesSection;

// Where the strings of code 1, 2, ... stand in the string table.
constexpr UINT kDayAbbrevIds[kDays] = {2030, 2031, 2025, 2026, 2027, 2028, 2029};
constexpr UINT kDayFullIds[kDays] = {2037, 2038, 2032, 2033, 2034, 2035, 2036};
constexpr UINT kMonthAbbrevBase = 2000;
constexpr UINT kMonthFullBase = 2012;

struct ProfileWord {
    char* text;
    UINT id;
    INT size;
};
constexpr ProfileWord kProfileWords[] = {
    {gFMTProfileWords.dateType, 2039, sizeof gFMTProfileWords.dateType},
    {gFMTProfileWords.shortGregorian, 2041, sizeof gFMTProfileWords.shortGregorian},
    {gFMTProfileWords.longGregorian, 2040, sizeof gFMTProfileWords.longGregorian},
    {gFMTProfileWords.japanGregorian, 2042, sizeof gFMTProfileWords.japanGregorian},
    {gFMTProfileWords.japanEmperor, 2043, sizeof gFMTProfileWords.japanEmperor},
    {gFMTProfileWords.empDateBoundryCheck, 2044, sizeof gFMTProfileWords.empDateBoundryCheck},
};

bool LoadName(UINT id, NameRow* row, int32_t value, char* indexed) {
    const INT length = LoadStringA(gLibInstance, id, row->Name, kNameReadSize);
    if (length == 0) return false;
    row->Value = value;
    std::memcpy(indexed, row->Name, kNameReadSize);
    indexed[kNameSize - 1] = static_cast<char>(length);
    return true;
}

bool LoadDayNames() {
    NameRow* row = gFMTDayNameTable;
    for (int32_t day = 0; day < kDays; ++day) {
        if (!LoadName(kDayAbbrevIds[day], row++, day + 1, gFMTDayAbbrev[day])) return false;
        if (!LoadName(kDayFullIds[day], row++, day + 1, gFMTDayFull[day])) return false;
    }
    return true;
}

bool LoadMonthNames() {
    NameRow* row = gFMTMonthNameTable;
    for (int32_t month = 0; month < kMonths; ++month) {
        const auto offset = static_cast<UINT>(month + 1);
        if (!LoadName(kMonthAbbrevBase + offset, row++, month + 1, gFMTMonthAbbrev[month])) return false;
        if (!LoadName(kMonthFullBase + offset, row++, month + 1, gFMTMonthFull[month])) return false;
    }
    return true;
}

bool LoadProfileWords() {
    for (const ProfileWord& word : kProfileWords) {
        if (LoadStringA(gLibInstance, word.id, word.text, word.size) == 0) return false;
    }
    return true;
}

// Shell sort.
void SortNames(NameRow* rows, int32_t count) {
    for (int32_t gap = count / 2; gap > 0; gap /= 2) {
        for (int32_t next = gap; next < count; ++next) {
            for (int32_t at = next - gap; at >= 0 && lstrcmpiA(rows[at].Name, rows[at + gap].Name) > 0; at -= gap) {
                std::swap(rows[at], rows[at + gap]);
            }
        }
    }
}

template <int32_t kNames>
void IndexNames(const NameRow (&rows)[kNames], NameIndex<kNames>* index) {
    index->Clear();
    for (const NameRow& row : rows) index->Add(row.Name, row.Value);
}

int32_t SearchName(const NameRow* rows, int32_t count, const char* text) {
    int32_t low = 0;
    int32_t high = count - 1;
    while (low <= high) {
        const int32_t middle = (low + high) / 2;
        const int32_t order = lstrcmpiA(text, rows[middle].Name);
        if (order == 0) return rows[middle].Value;
        if (order < 0) {
            high = middle - 1;
        } else {
            low = middle + 1;
        }
    }
    return 0;
}

template <int32_t kNames>
int32_t FindName(const NameRow (&rows)[kNames], const NameIndex<kNames>& index, const char* text) {
    if (text == nullptr || FMTEnsureNames() == 0) return 0;
    int32_t value = 0;
    return index.Find(text, &value) ? value : SearchName(rows, kNames, text);
}

template <int32_t kCount>
const char* NameAt(const char (&names)[kCount][kNameSize], int32_t number) {
    static constexpr char kNoName[kNameSize] = "";
    if (number < 1 || number > kCount || FMTEnsureNames() == 0) return kNoName;
    return names[number - 1];
}

template <int32_t kCount>
int32_t LongestOf(const char (&names)[kCount][kNameSize], std::atomic<int32_t>* kept) {
    int32_t longest = kept->load(std::memory_order_relaxed);
    if (longest >= 0 || FMTEnsureNames() == 0) return longest < 0 ? 0 : longest;
    for (const auto& name : names) {
        const auto length = static_cast<int32_t>(FMTNameLength(name));
        if (length > longest) longest = length;
    }
    kept->store(longest, std::memory_order_relaxed);
    return longest;
}

}  // namespace

int32_t FMTLoadNames() {
    const CRSectionHold hold(namesSection);
    if (gFMTNamesLoaded.load(std::memory_order_relaxed)) return 1;
    if (!LoadDayNames() || !LoadMonthNames()) return 0;
    SortNames(gFMTDayNameTable, 2 * kDays);
    SortNames(gFMTMonthNameTable, 2 * kMonths);
    IndexNames(gFMTDayNameTable, &dayNameIndex);
    IndexNames(gFMTMonthNameTable, &monthNameIndex);
    if (!LoadProfileWords()) return 0;
    gFMTNamesLoaded.store(true, std::memory_order_release);
    return 1;
}

int32_t FMTFindMonthName(const char* text) {
    return FindName(gFMTMonthNameTable, monthNameIndex, text);
}

int32_t FMTFindDayName(const char* text) {
    return FindName(gFMTDayNameTable, dayNameIndex, text);
}

int32_t FMTFindMonthNameByDefinition(const char* text) {
    return FMTEnsureNames() != 0 ? SearchName(gFMTMonthNameTable, 2 * kMonths, text) : 0;
}

int32_t FMTFindDayNameByDefinition(const char* text) {
    return FMTEnsureNames() != 0 ? SearchName(gFMTDayNameTable, 2 * kDays, text) : 0;
}

const char* FMTMonthAbbrev(int32_t month) {
    return NameAt(gFMTMonthAbbrev, month);
}

const char* FMTMonthFull(int32_t month) {
    return NameAt(gFMTMonthFull, month);
}

const char* FMTDayAbbrev(int32_t code) {
    return NameAt(gFMTDayAbbrev, code);
}

const char* FMTDayFull(int32_t code) {
    return NameAt(gFMTDayFull, code);
}

int32_t FMTMaxMonthNameLen() {
    return LongestOf(gFMTMonthFull, &gFMTMaxMonthNameLen);
}

int32_t FMTMaxDayNameLen() {
    return LongestOf(gFMTDayFull, &gFMTMaxDayNameLen);
}

const FMTProfileWords* FMTGetProfileWords() {
    return FMTEnsureNames() != 0 ? &gFMTProfileWords : nullptr;
}
