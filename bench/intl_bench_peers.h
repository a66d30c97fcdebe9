// What a user would take from the C library in the place of the string operations. All work on Shift-JIS by the locale
// that PeersSetLocale puts in force.
#pragma once

#include <stddef.h>

#ifdef __cplusplus
extern "C" {
#endif

// Puts ja_JP.SJIS in force for the C library's multibyte functions; where the machine lacks it, it is made with
// localedef in a folder of its own first. 0 if that can't be done.
int PeersSetLocale(void);

size_t PeerCount(const char* text, size_t bytes);                                       // mbsnrtowcs
size_t PeerMid(char* out, const char* text, size_t bytes, size_t start, size_t count);  // mbrlen
int PeerMatches(const char* text, const char* pattern);                                 // fnmatch
size_t PeerWideTokens(wchar_t* out, const char* line);                                  // mbsrtowcs, wcstok
size_t PeerTokens(char* out, const char* line);                                         // a copy of the line, strtok_r
size_t PeerFull(char* out, const char* text, size_t bytes);                             // iconv, a table, iconv
size_t PeerHalf(char* out, const char* text, size_t bytes);

#ifdef __cplusplus
}
#endif
