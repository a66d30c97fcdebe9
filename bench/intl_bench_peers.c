#define _GNU_SOURCE
#include "intl_bench_peers.h"

#include <fnmatch.h>
#include <iconv.h>
#include <locale.h>
#include <stdint.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <unistd.h>
#include <wchar.h>

#define LOCALE_FOLDER "/tmp/morvl15-bench-locale"

enum { kMaxText = 4096 };

static iconv_t gToWide;
static iconv_t gFromWide;
static uint16_t gFull[65536];    // of a UTF-16 unit; 0: stays
static uint16_t gVoiced[65536];  // ... with a voiced mark behind it
static uint16_t gSemiVoiced[65536];
static uint16_t gHalf[65536];
static uint16_t gHalfMark[65536];

static void AddPair(uint16_t half, uint16_t full, uint16_t mark) {
    uint16_t* table = mark == 0 ? gFull : mark == 0xFF9E ? gVoiced : gSemiVoiced;
    table[half] = full;
    gHalf[full] = half;
    gHalfMark[full] = mark;
}

static void FillTables(void) {
    static const uint16_t kKana[] = {
        0x3002, 0x300C, 0x300D, 0x3001, 0x30FB, 0x30F2, 0x30A1, 0x30A3, 0x30A5, 0x30A7, 0x30A9, 0x30E3, 0x30E5,
        0x30E7, 0x30C3, 0x30FC, 0x30A2, 0x30A4, 0x30A6, 0x30A8, 0x30AA, 0x30AB, 0x30AD, 0x30AF, 0x30B1, 0x30B3,
        0x30B5, 0x30B7, 0x30B9, 0x30BB, 0x30BD, 0x30BF, 0x30C1, 0x30C4, 0x30C6, 0x30C8, 0x30CA, 0x30CB, 0x30CC,
        0x30CD, 0x30CE, 0x30CF, 0x30D2, 0x30D5, 0x30D8, 0x30DB, 0x30DE, 0x30DF, 0x30E0, 0x30E1, 0x30E2, 0x30E4,
        0x30E6, 0x30E8, 0x30E9, 0x30EA, 0x30EB, 0x30EC, 0x30ED, 0x30EF, 0x30F3, 0x309B, 0x309C};
    for (uint16_t i = 0; i < sizeof kKana / sizeof kKana[0]; ++i) AddPair((uint16_t)(0xFF61 + i), kKana[i], 0);
    for (uint16_t half = 0xFF76; half <= 0xFF84; ++half) AddPair(half, (uint16_t)(gFull[half] + 1), 0xFF9E);
    for (uint16_t half = 0xFF8A; half <= 0xFF8E; ++half) {
        AddPair(half, (uint16_t)(gFull[half] + 1), 0xFF9E);
        AddPair(half, (uint16_t)(gFull[half] + 2), 0xFF9F);
    }
    AddPair(0xFF73, 0x30F4, 0xFF9E);
    AddPair(0x20, 0x3000, 0);
    for (uint16_t half = 0x21; half < 0x7F; ++half) AddPair(half, (uint16_t)(half + 0xFEE0), 0);
}

int PeersSetLocale(void) {
    gToWide = iconv_open("UTF-16LE", "CP932");
    gFromWide = iconv_open("CP932", "UTF-16LE");
    FillTables();
    if (setlocale(LC_CTYPE, "ja_JP.SJIS") != NULL) return 1;
    // The C library remembers what it didn't find, so the locale has to be there before the folder is named.
    static const char kMake[] =
        "mkdir -p " LOCALE_FOLDER " && localedef -c -f SHIFT_JIS -i ja_JP " LOCALE_FOLDER "/ja_JP.SJIS >/dev/null 2>&1";
    if (access(LOCALE_FOLDER "/ja_JP.SJIS/LC_CTYPE", R_OK) != 0 && system(kMake) == -1) return 0;
    setenv("LOCPATH", LOCALE_FOLDER, 1);
    return setlocale(LC_CTYPE, "ja_JP.SJIS") != NULL;
}

size_t PeerCount(const char* text, size_t bytes) {
    mbstate_t state = {0};
    return mbsnrtowcs(NULL, &text, bytes, 0, &state);
}

static const char* Skip(const char* at, const char* end, size_t count) {
    mbstate_t state = {0};
    while (count-- > 0 && at < end) {
        const size_t width = mbrlen(at, (size_t)(end - at), &state);
        if (width == 0 || width > 2) break;
        at += width;
    }
    return at;
}

size_t PeerMid(char* out, const char* text, size_t bytes, size_t start, size_t count) {
    const char* first = Skip(text, text + bytes, start);
    const size_t length = (size_t)(Skip(first, text + bytes, count) - first);
    memcpy(out, first, length);
    out[length] = '\0';
    return length;
}

int PeerMatches(const char* text, const char* pattern) {
    return fnmatch(pattern, text, 0) == 0;
}

size_t PeerWideTokens(wchar_t* out, const char* line) {
    wchar_t wide[kMaxText];
    mbstate_t state = {0};
    mbsrtowcs(wide, &line, kMaxText, &state);
    size_t tokens = 0;
    wchar_t* rest;
    for (wchar_t* token = wcstok(wide, L",", &rest); token != NULL; token = wcstok(NULL, L",", &rest)) {
        wcscpy(out, token);
        ++tokens;
    }
    return tokens;
}

size_t PeerTokens(char* out, const char* line) {
    char copy[kMaxText];
    strcpy(copy, line);
    size_t tokens = 0;
    char* rest;
    for (char* token = strtok_r(copy, ",", &rest); token != NULL; token = strtok_r(NULL, ",", &rest)) {
        strcpy(out, token);
        ++tokens;
    }
    return tokens;
}

static size_t ToWide(uint16_t* wide, const char* text, size_t bytes) {
    char* in = (char*)text;
    char* out = (char*)wide;
    size_t room = kMaxText * sizeof *wide;
    iconv(gToWide, &in, &bytes, &out, &room);
    return (size_t)((uint16_t*)out - wide);
}

static size_t FromWide(char* text, const uint16_t* wide, size_t units) {
    char* in = (char*)wide;
    char* out = text;
    size_t bytes = units * sizeof *wide;
    size_t room = kMaxText;
    iconv(gFromWide, &in, &bytes, &out, &room);
    *out = '\0';
    return (size_t)(out - text);
}

size_t PeerFull(char* out, const char* text, size_t bytes) {
    uint16_t wide[kMaxText + 1];
    uint16_t full[kMaxText];
    const size_t units = ToWide(wide, text, bytes);
    wide[units] = 0;
    size_t count = 0;
    for (size_t i = 0; i < units; ++i) {
        const uint16_t unit = wide[i];
        uint16_t to = wide[i + 1] == 0xFF9E ? gVoiced[unit] : wide[i + 1] == 0xFF9F ? gSemiVoiced[unit] : 0;
        if (to != 0) {
            ++i;
        } else {
            to = gFull[unit] != 0 ? gFull[unit] : unit;
        }
        full[count++] = to;
    }
    return FromWide(out, full, count);
}

size_t PeerHalf(char* out, const char* text, size_t bytes) {
    uint16_t wide[kMaxText];
    uint16_t half[2 * kMaxText];
    const size_t units = ToWide(wide, text, bytes);
    size_t count = 0;
    for (size_t i = 0; i < units; ++i) {
        const uint16_t unit = wide[i];
        half[count++] = gHalf[unit] != 0 ? gHalf[unit] : unit;
        if (gHalfMark[unit] != 0) half[count++] = gHalfMark[unit];
    }
    return FromWide(out, half, count);
}
