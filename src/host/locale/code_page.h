// The ANSI code pages: which bytes lead, which are letters, how case changes, how texts are sorted. A code page is
// built once, when a language first needs it, and never changes or goes away afterwards.
#pragma once

#include <array>
#include <atomic>
#include <cstdint>
#include <vector>

#include <morvl15/host.h>

#include "unicode_letters.h"

// A character's place in the order of texts. Texts are compared by `letter` first, over their whole length, then by
// `mark`, then by case.
struct SortWeight {
    uint32_t letter;  // the same for a letter with and without marks, in either case; 0 for the terminator only
    uint16_t mark;    // tells letters apart that differ by their marks; 0 for none
    bool isUpper;
};

// The double-byte characters of one lead byte that have another case, by their trail bytes; 0 for those without.
struct CaseRow {
    std::array<uint16_t, 256> upper{};
    std::array<uint16_t, 256> lower{};
};

struct CodePage {
    UINT id = 0;
    std::array<bool, 256> isLead{};
    std::array<CharacterKind, 256> kind{};  // of single-byte characters
    std::array<uint8_t, 256> upper{};
    std::array<uint8_t, 256> lower{};
    std::array<SortWeight, 256> weight{};
    std::array<uint8_t, 256> caseRowOf{};  // by lead byte: 0 for none, else 1 + the index of a row
    std::vector<CaseRow> caseRows;
};

// The code page of a system language: 1252 for one that has none of its own.
UINT CodePageOfLanguage(LANGID language);

// The code page with that number, one of 874, 932, 936, 949, 950, 1250 to 1258; 1252 for any other.
const CodePage& CodePageById(UINT id);

// Fills a code page from the C library's converter. Without a converter it knows the letters of ASCII alone.
void BuildCodePage(CodePage& page, UINT id);

// The current code page is looked up in the system language again when it is next needed.
void ForgetCurrentCodePage();

// ---- the code page in force -------------------------------------------------------------------------------------

extern std::atomic<const CodePage*> currentCodePage;  // null before the first use
const CodePage& FindCurrentCodePage();

inline const CodePage& CurrentCodePage() {
    const CodePage* page = currentCodePage.load(std::memory_order_acquire);
    return page != nullptr ? *page : FindCurrentCodePage();
}

// The bytes of the character at `at`, where `left` bytes are left: 2 for a lead byte with a byte other than zero
// behind it, else 1.
inline size_t CharacterBytes(const CodePage& page, const char* at, size_t left) {
    return page.isLead[static_cast<uint8_t>(at[0])] && left > 1 && at[1] != 0 ? 2 : 1;
}

// The code of a double-byte character.
inline uint16_t DoubleByteCode(const char* at) {
    return static_cast<uint16_t>(static_cast<uint8_t>(at[0]) << 8 | static_cast<uint8_t>(at[1]));
}

// The other case of a double-byte character, or the character itself.
inline uint16_t DoubleByteCase(const CodePage& page, uint16_t code, std::array<uint16_t, 256> CaseRow::*to) {
    const uint8_t row = page.caseRowOf[code >> 8];
    if (row == 0) return code;
    const uint16_t mapped = (page.caseRows[row - 1].*to)[code & 0xFF];
    return mapped != 0 ? mapped : code;
}
