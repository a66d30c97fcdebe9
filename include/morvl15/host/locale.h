// Languages, code pages and text services of the native host. All text is in the ANSI code page of the system default
// language; case and letters come from that code page, never from the C library's locale.
#ifndef MORVL15_HOST_LOCALE_H
#define MORVL15_HOST_LOCALE_H

#include <morvl15/host/types.h>

MORVL_BEGIN_C

MORVL_HOST_API LANGID GetSystemDefaultLangID(void);
MORVL_HOST_API LCID GetUserDefaultLCID(void);
MORVL_HOST_API UINT GetACP(void);

MORVL_HOST_API BOOL IsDBCSLeadByte(BYTE byte);
MORVL_HOST_API LPSTR CharNextA(LPCSTR text);
MORVL_HOST_API BOOL IsCharAlphaA(char character);
MORVL_HOST_API BOOL IsCharAlphaNumericA(char character);

// As on the platform, a "text" with no bits above the low 16 is a single character code, and the result is the code.
MORVL_HOST_API LPSTR CharUpperA(LPSTR text);
MORVL_HOST_API LPSTR CharLowerA(LPSTR text);
MORVL_HOST_API DWORD CharUpperBuffA(LPSTR text, DWORD length);
MORVL_HOST_API DWORD CharLowerBuffA(LPSTR text, DWORD length);

MORVL_HOST_API INT lstrlenA(LPCSTR text);
MORVL_HOST_API LPSTR lstrcpyA(LPSTR destination, LPCSTR source);
MORVL_HOST_API LPSTR lstrcpynA(LPSTR destination, LPCSTR source, INT size);
MORVL_HOST_API LPSTR lstrcatA(LPSTR destination, LPCSTR source);
MORVL_HOST_API INT lstrcmpA(LPCSTR first, LPCSTR second);
MORVL_HOST_API INT lstrcmpiA(LPCSTR first, LPCSTR second);

// At most 1,024 bytes, terminator included; s, c, d, i, u, x, X with "-", "#", "0", width, precision, "l" and "h".
MORVL_HOST_API INT wsprintfA(LPSTR buffer, LPCSTR format, ...);

MORVL_END_C

#endif
