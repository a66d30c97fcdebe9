// Languages, code pages and text services of the native host. All text is in the ANSI code page of the system default
// language; case and letters come from that code page, never from the C library's locale, which nobody needs to set or
// to install. Any thread may call at any time, but for a change of language (HostSetLanguages).
#ifndef MORVL15_HOST_LOCALE_H
#define MORVL15_HOST_LOCALE_H

#include <morvl15/host/types.h>

MORVL_BEGIN_C

// ---- languages --------------------------------------------------------------------------------------------------
//
// The environment is read once, when a language is first asked for. Of a name such as "ja_JP.UTF-8" the language, the
// territory and a script ("sr_RS@latin") count, not the charset. A territory that isn't known with its language gives
// the language's own; no name, "C", "POSIX" and an unknown language give 0x0409.

// GetSystemDefaultLangID: the system's language, from LANG.
MORVL_HOST_API LANGID GetSystemDefaultLangID(void);

// GetUserDefaultLCID: the user's, from the first of LC_ALL, LC_CTYPE and LANG that is set and not empty.
MORVL_HOST_API LCID GetUserDefaultLCID(void);

// ---- the code page ----------------------------------------------------------------------------------------------

// GetACP: the code page of the system language: 874, 932, 936, 949, 950, or 1250 to 1258; 1252 for a language that has
// none of its own.
MORVL_HOST_API UINT GetACP(void);

// IsDBCSLeadByte: whether a byte is the first one of a double-byte character of the code page.
MORVL_HOST_API BOOL IsDBCSLeadByte(BYTE byte);

// CharNextA: the character behind the one at `text`: two bytes on for a double-byte character, else one. It doesn't
// move off the terminator, and a lead byte directly before the terminator is a character of one byte.
MORVL_HOST_API LPSTR CharNextA(LPCSTR text);

// IsCharAlphaA, IsCharAlphaNumericA: whether a single-byte character is a letter of any alphabet, half-width katakana
// included; a letter or a digit, superscript digits included. No for lead bytes.
MORVL_HOST_API BOOL IsCharAlphaA(char character);
MORVL_HOST_API BOOL IsCharAlphaNumericA(char character);

// ---- case -------------------------------------------------------------------------------------------------------
//
// A letter changes when the code page has its other case in as many bytes; else it stays as it is. Double-byte letters
// (full-width Latin, Greek, Cyrillic, Roman numerals) change too, and the second byte of a double-byte character never
// changes as if it were a letter. "i" and "I" belong together in every language.

// CharUpperA, CharLowerA: change a text in place.
//   text    in/out: a text; or, as on the platform, a single-byte character code in the place of the address, told by
//           no bit above the low 16
// Result: the text; or the changed code, in the low 8 bits. Null gives null.
MORVL_HOST_API LPSTR CharUpperA(LPSTR text);
MORVL_HOST_API LPSTR CharLowerA(LPSTR text);

// CharUpperBuffA, CharLowerBuffA: change bytes in place, terminators or none.
//   text    in/out: `length` bytes; a lead byte at their end stays
// Result: the bytes done: `length`, 0 for a null text.
MORVL_HOST_API DWORD CharUpperBuffA(LPSTR text, DWORD length);
MORVL_HOST_API DWORD CharLowerBuffA(LPSTR text, DWORD length);

// ---- texts ------------------------------------------------------------------------------------------------------

// lstrlenA: bytes before the terminator; 0 for null.
MORVL_HOST_API INT lstrlenA(LPCSTR text);

// lstrcpyA, lstrcatA: copy a text over another, or behind it. The two may overlap.
//   destination  out: room for the whole result, terminator included
// Result: the destination; null, and nothing is written, when an argument is null.
MORVL_HOST_API LPSTR lstrcpyA(LPSTR destination, LPCSTR source);
MORVL_HOST_API LPSTR lstrcatA(LPSTR destination, LPCSTR source);

// lstrcpynA: the same as lstrcpyA, cut to size - 1 bytes, which may split a double-byte character. A size of 0 or less
// writes nothing.
MORVL_HOST_API LPSTR lstrcpynA(LPSTR destination, LPCSTR source, INT size);

// lstrcmpA, lstrcmpiA: the order of two texts as words, with and without regard to case. Over their whole length count,
// in turn: the letters (other characters, then digits, then letters by their alphabets, then double-byte characters by
// their codes; hyphens and apostrophes passed over); marks ("a" before "ä"); in lstrcmpA case (small before capital);
// hyphens and apostrophes. So "a" < "A" < "b" and "coop" < "co-op" < "coops". lstrcmpA gives 0 for equal texts only.
// Result: -1, 0 or 1. Null comes before every text.
MORVL_HOST_API INT lstrcmpA(LPCSTR first, LPCSTR second);
MORVL_HOST_API INT lstrcmpiA(LPCSTR first, LPCSTR second);

// wsprintfA: text from a format and values.
//   buffer  out: room for what is put there, at most 1,024 bytes, terminator included; what is longer is cut
//   format  in:  text with fields %[-][#][0][width][.precision][l|h]conversion: c a byte; s a text, at most `precision`
//           bytes of it, "(null)" for null; d, i a signed, u an unsigned, x, X a hexadecimal number of 32 bits, "l" or
//           not, or of 16 with "h", in at least `precision` digits. "-" puts the blanks behind, "#" puts 0x before,
//           "0" fills with zeros where there is neither "-" nor a precision. Any other conversion letter stands for
//           itself and takes no value: "%%" gives "%".
// Result: bytes written, terminator excluded.
MORVL_HOST_API INT wsprintfA(LPSTR buffer, LPCSTR format, ...);

MORVL_END_C

#endif
