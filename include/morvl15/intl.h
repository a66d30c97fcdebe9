// International strings: what kind of system this is, the characters of a text, and the everyday operations on strings,
// in characters or in bytes as the caller says, none of which ever leaves half a double-byte character behind.
//
// All text is zero-terminated bytes in the system's ANSI code page. On a Chinese, Japanese or Korean system that is a
// double-byte code page, anywhere else every character is one byte; IntlDBCSEnabled tells which.
//
//   Character     one byte, or two where the first is a lead byte of the code page and the second isn't the terminator.
//                 The terminator is no character; a lead byte directly before it is a single-byte one.
//   Code          16 bits: a single byte zero-extended, or lead << 8 | trail. The Japanese blank, 81 40, is 0x8140.
//   White space   tab, line feed, vertical tab, form feed, carriage return, space, and the double-byte blank of the
//                 system (IntlDBCSBlank).
//   Units         counts, positions and results are in characters, those of names that end in B in bytes; where it is
//                 otherwise the entry says so. With single-byte text both are the same. All start at 0.
//   Limits        a count or position below 0 stands for 0, one beyond the end for the end, however far. A length of
//                 more than 2,147,483,647 is given as that. Texts may be of any length.
//   Buffers       belong to the caller, who makes them large enough: a result in characters takes up to two bytes for
//                 each, and the terminator. Nothing is written behind the terminator of a result, but where a copy is
//                 told to fill its count, and inside the text that is stripped in place.
//   Overlap       source and destination may be the same buffer, or overlap with the destination before the source,
//                 unless the entry says otherwise.
//   Null          a pointer must not be null unless the entry says what null gives.
//   Threads       nothing keeps state between calls: any operation may run on any thread at any time, on buffers of
//                 its own. IntlInit alone writes what the others read.
#ifndef MORVL15_INTL_H
#define MORVL15_INTL_H

#include <morvl15/base.h>

MORVL_BEGIN_C

// ---- the system -------------------------------------------------------------------------------------------------

// IntlInit: reads the system's and the user's language and the code page, and fixes by them how text is read. It runs
// at load, before anything else can; the application has no need to call it. No other operation of the library may run
// at the same time.
MORVL_API void MORVL_CALL IntlInit(void);

// IntlDBCSEnabled: 1 where the system default language is Chinese, Japanese or Korean, so that text is double-byte;
// else 0.
MORVL_API int32_t MORVL_CALL IntlDBCSEnabled(void);

// IntlIsBiDiEnabled: 1 where the system default language or the user's is Arabic, Hebrew or Farsi; else 0, and always 0
// where text is double-byte.
MORVL_API int32_t MORVL_CALL IntlIsBiDiEnabled(void);

// IntlDBCSBlank: the code of the double-byte blank: 0x8140 on a Japanese system, 0xA140 on a Chinese, 0xA1A1 on a
// Korean one; 0 where text is single-byte.
MORVL_API uint16_t MORVL_CALL IntlDBCSBlank(void);

// ---- one character ----------------------------------------------------------------------------------------------
//
// These look at the character under a pointer, which must stand at the start of one.

// IntlIsDBChar: 1 for a double-byte character, else 0; 0 on the terminator.
MORVL_API int32_t MORVL_CALL IntlIsDBChar(const char* text);

// IntlBytesInNextChar: the bytes of the character, 1 or 2; 0 on the terminator.
MORVL_API int32_t MORVL_CALL IntlBytesInNextChar(const char* text);

// IntlDBCSChar: the code of the character; 0 for null and on the terminator.
MORVL_API uint16_t MORVL_CALL IntlDBCSChar(const char* text);

// IntlStrIsNextChSpace: 1 if the character is white space, else 0; 0 on the terminator.
MORVL_API int32_t MORVL_CALL IntlStrIsNextChSpace(const char* text);

// IntlCharIsHexDigit: 1 for the codes of "0" to "9", "A" to "F" and "a" to "f", else 0.
MORVL_API int32_t MORVL_CALL IntlCharIsHexDigit(uint16_t character);

// IntlIsKanji: not 0 if a byte can start a double-byte character of the system; always 0 where text is single-byte.
MORVL_API int32_t MORVL_CALL IntlIsKanji(uint8_t byte);

// IntlIsKatakana: 1 on a Japanese system for the bytes of half-width katakana and their punctuation, 0xA0 to 0xDF, else
// 0.
MORVL_API int32_t MORVL_CALL IntlIsKatakana(uint8_t byte);

// ---- the characters of a text -----------------------------------------------------------------------------------

// IntlStrLen: the length of a text in characters; 0 for null.
MORVL_API int32_t MORVL_CALL IntlStrLen(const char* text);

// IntlStrLenB: the length of a text in bytes.
MORVL_API int32_t MORVL_CALL IntlStrLenB(const char* text);

// IntlStrNthChar: where a character of a text stands.
//   text    in:  a text, or null
//   index   in:  in characters
// Result: the address of the character; that of the terminator for an index equal to the length; null for a null text,
// an index below 0 and one above the length.
MORVL_API char* MORVL_CALL IntlStrNthChar(const char* text, int32_t index);

// IntlStrFirstChar, IntlStrLastChar: the first and the last character of a text as a signed value: a double-byte one
// lead << 8 | trail, a single byte sign-extended, as a plain char would be: 0xB1 gives 0xFFB1, which differs from
// IntlDBCSChar. 0 for null and for an empty text.
MORVL_API int16_t MORVL_CALL IntlStrFirstChar(const char* text);
MORVL_API int16_t MORVL_CALL IntlStrLastChar(const char* text);

// IntlIsNthCharDB: 1 if character n of a text is double-byte, else 0; 0 for null, for n below 0 and n at or behind the
// end.
//   n       in:  in characters
MORVL_API int32_t MORVL_CALL IntlIsNthCharDB(const char* text, int32_t n);

// IntlIsNthByteDB: what byte n of a text is: 1 the lead byte of a double-byte character, 2 its trail byte, 0 neither; 0
// for null, for n below 0 and n at or behind the end, and always where text is single-byte.
//   n       in:  in bytes
MORVL_API int32_t MORVL_CALL IntlIsNthByteDB(const char* text, int32_t n);

// IntlNextDBCInStr: the first double-byte character of a text; null if there is none, and for null.
MORVL_API char* MORVL_CALL IntlNextDBCInStr(const char* text);

// IntlStrChr: finds a character. Half of a double-byte character is never found: 0x5C isn't in 95 5C.
//   text       in:  a text
//   character  in:  its code, 0 for the terminator; where text is single-byte only the low byte counts
// Result: its first place, or null.
MORVL_API char* MORVL_CALL IntlStrChr(const char* text, uint16_t character);

// ---- parts of texts ---------------------------------------------------------------------------------------------
//
// Each has a twin that counts bytes. A twin's result has exactly the bytes that were asked for, as far as the source
// reaches: a double-byte character that is cut in two leaves one space in the place of the half that would stand in the
// result. With W for the bytes 82 A0 on a Japanese system:
//
//   IntlStrLeft(d, "aWb", 2)     "aW", 2      IntlStrLeftB(d, "aWb", 2)     "a ", 2
//   IntlStrMid(d, "aWb", 1, 2)   "Wb", 2      IntlStrMidB(d, "aWb", 2, 2)   " b", 2
//   IntlStrRight(d, "aWb", 2)    "Wb", 2      IntlStrRightB(d, "aWb", 3)    "Wb", 3
//
// Result of each: the length of what was written; of the two replace operations that of the whole new text.

// IntlStrLeft, IntlStrLeftB: copies the start of a text.
//   destination  out: the copy, terminated
//   source       in:  a text
//   count        in:  how much of it
MORVL_API int32_t MORVL_CALL IntlStrLeft(char* destination, const char* source, int32_t count);
MORVL_API int32_t MORVL_CALL IntlStrLeftB(char* destination, const char* source, int32_t count);

// IntlStrRight, IntlStrRightB: copies the end of a text.
//   destination  out: the copy, terminated
//   source       in:  a text
//   count        in:  how much of it
MORVL_API int32_t MORVL_CALL IntlStrRight(char* destination, const char* source, int32_t count);
MORVL_API int32_t MORVL_CALL IntlStrRightB(char* destination, const char* source, int32_t count);

// IntlStrMid, IntlStrMidB: copies a part from the middle of a text.
//   destination  out: the copy, terminated
//   source       in:  a text
//   start        in:  where the part begins
//   count        in:  how much of it
MORVL_API int32_t MORVL_CALL IntlStrMid(char* destination, const char* source, int32_t start, int32_t count);
MORVL_API int32_t MORVL_CALL IntlStrMidB(char* destination, const char* source, int32_t start, int32_t count);

// IntlStrReplace, IntlStrReplaceB: copies a text with a part of it replaced. The twin never cuts the insertion.
//   destination  out: the new text, terminated; a buffer other than the source and the insertion
//   source       in:  a text
//   insertion    in:  what goes in the place of the part, or, with a count of 0, in between
//   position     in:  where the part begins; at the end or behind it the insertion is appended
//   count        in:  how much of the source the insertion replaces
MORVL_API int32_t MORVL_CALL IntlStrReplace(char* destination, const char* source, const char* insertion,
                                            int32_t position, int32_t count);
MORVL_API int32_t MORVL_CALL IntlStrReplaceB(char* destination, const char* source, const char* insertion,
                                             int32_t position, int32_t count);

// IntlStrnCpy: copies a counted number of characters, as strncpy copies bytes: a source that fills the count leaves no
// terminator, and behind a shorter one zero bytes are written until count characters stand there, each zero counting as
// one.
//   destination  out: the copy
//   source       in:  a text
//   count        in:  in characters; 0 writes nothing
// Result: the destination.
MORVL_API char* MORVL_CALL IntlStrnCpy(char* destination, const char* source, uint16_t count);

// ---- comparison and case ----------------------------------------------------------------------------------------

// IntlIsStrEqual: 1 if two texts are the same byte for byte, else 0.
MORVL_API int32_t MORVL_CALL IntlIsStrEqual(const char* first, const char* second);

// IntlIsStrnEqual: 1 if the first bytes of two texts are the same, up to the terminator; else 0.
//   count   in:  in bytes; 0 gives 1
MORVL_API int32_t MORVL_CALL IntlIsStrnEqual(const char* first, const char* second, uint16_t count);

// IntlStrUpper, IntlStrLower: changes the case of a text in place, by the rules of the system's code page. A letter
// whose other case isn't in the code page stays as it is.
// Result: the text.
MORVL_API char* MORVL_CALL IntlStrUpper(char* text);
MORVL_API char* MORVL_CALL IntlStrLower(char* text);

// IntlStrProper: copies a text in lower case, with the first character of each word in upper case; a word is what
// stands between white space. Where text is double-byte a full-width letter becomes its full-width capital, and the
// small kana that have no small half-width form become large: 838E becomes 838F, 8395 834A, 8396 8350.
//   destination  out: the copy, terminated, of the source's length
//   source       in:  a text
// Result: the length in characters.
MORVL_API int32_t MORVL_CALL IntlStrProper(char* destination, const char* source);

// ---- white space ------------------------------------------------------------------------------------------------

// IntlStrTrim: copies a text without its leading and trailing blanks, and with one space for each run of blanks inside
// it. Blanks are here tab, vertical tab, form feed, space and the double-byte blank; line feed and carriage return
// stay.
//   destination  out: the copy, terminated, no longer than the source
//   source       in:  a text
// Result: the length of the copy in characters.
MORVL_API int32_t MORVL_CALL IntlStrTrim(char* destination, const char* source);

// IntlStripStartSpace: the first character of a text that is not white space, or the terminator. Nothing is changed.
// Null for null.
MORVL_API char* MORVL_CALL IntlStripStartSpace(const char* text);

// IntlStripStartBlank: the first character of a text that is neither a space nor the double-byte blank, or the
// terminator. Nothing is changed. Null for null.
MORVL_API char* MORVL_CALL IntlStripStartBlank(const char* text);

// IntlStripEndSpace: copies a text without the white space at its end.
//   destination  out: the copy, terminated, no longer than the source
//   source       in:  a text
// Result: the destination; null, and nothing is written, if either is null.
MORVL_API char* MORVL_CALL IntlStripEndSpace(char* destination, const char* source);

// IntlStrStripSpace: takes the white space off both ends of a text, in place.
// Result: the text; null for null.
MORVL_API char* MORVL_CALL IntlStrStripSpace(char* text);

// ---- search -----------------------------------------------------------------------------------------------------

// IntlStrScan: finds the first place in a text where a pattern can be laid down. Elements of a pattern:
//
//   %        any run of characters, also an empty one
//   _        one character; at the end of the text it takes nothing and doesn't fail
//   \x       the character x itself; a backslash at the pattern's end ends it
//   other    that character in either case
//
// The scan stops where the pattern ends, whatever follows in the text. On a mismatch it goes back to the latest "%"
// only, and goes on behind the place where it last found the first literal after it: "a%bc" isn't found in "abab". A
// "%" before any literal matches at 0, and so does "_" where another character follows. In the worst case the time
// grows with the product of both lengths.
//   text     in:  a text, or null
//   pattern  in:  a pattern, or null
// Result: the place in characters; -1 if there is none, if either is null, and if exactly one is empty; 0 if both are.
MORVL_API int32_t MORVL_CALL IntlStrScan(const char* text, const char* pattern);

// IntlStrSearch: the first character of a text that is one of a set.
//   text    in:  a text, or null
//   set     in:  the characters of the set as a text, or null
// Result: its address; null if there is none, and if either is null or empty.
MORVL_API char* MORVL_CALL IntlStrSearch(const char* text, const char* set);

// ---- tokens -----------------------------------------------------------------------------------------------------
//
// Each takes the next token from the start of a text: it steps over the bytes of a skip set, then over a lead
// character, and copies what stands from there to the nearest delimiter, or to the end. The delimiter stays in the
// text: to go on, call again from the result's offset with the delimiter in the skip set or as the lead character. Skip
// set, lead character and offsets are of bytes; the trail byte of a character is never taken for a delimiter, a quote
// or a parenthesis, and a delimiter that is a lead byte matches only such a byte before the terminator.
//
//   destination    out: the token, terminated; may be the source itself
//   source         in:  a text
//   skipSet        in:  bytes to step over; may be empty
//   delimiterSet   in:  bytes that end a token; may be empty: then the token is the rest of the text
//   leadCharacter  in:  0 for none; else its low byte has to stand in front of the token
//   size           in:  bytes of the destination, terminator included; 0 or less for no limit
// Result: the offset of the byte that ended the token, the delimiter or the terminator; 0, and nothing is written, if a
// pointer is null, the lead character is missing or the token doesn't fit. An empty token at the very start gives 0
// too, with an empty destination.

// IntlStrGetToken: the plain one.
MORVL_API int32_t MORVL_CALL IntlStrGetToken(char* destination, const char* source, const char* skipSet,
                                             const char* delimiterSet, uint16_t leadCharacter, int32_t size);

// IntlStrGetTokenNestedParens: delimiters between parentheses don't count: with "," the token of "f(a,b),c" is
// "f(a,b)". A "(" is never a delimiter, a ")" only one that has no partner; behind such a one, text counts as outside
// until one more "(" than usual has opened.
MORVL_API int32_t MORVL_CALL IntlStrGetTokenNestedParens(char* destination, const char* source, const char* skipSet,
                                                         const char* delimiterSet, uint16_t leadCharacter,
                                                         int32_t size);

// IntlStrGetTokenQuoted: delimiters between two quote bytes don't count. The quotes stay in the token; there is no way
// to write one inside quotes, two in a row close one quoted stretch and open the next. A quote without a second one
// protects nothing.
//   quote   in:  the quote byte; 0 for none
MORVL_API int32_t MORVL_CALL IntlStrGetTokenQuoted(char* destination, const char* source, const char* skipSet,
                                                   const char* delimiterSet, uint16_t leadCharacter, uint8_t quote,
                                                   int32_t size);

// ---- numbers ----------------------------------------------------------------------------------------------------

// IntlFetchNextNumLong: reads the whole number at the start of a text: white space, one sign, digits.
//   value   out: the number; untouched when the result is 0
//   text    in:  a text, or null
// Result: the bytes used from the text's start; 0 for null, where no number stands, and for one beyond 2,147,483,647 of
// either sign.
MORVL_API int32_t MORVL_CALL IntlFetchNextNumLong(int32_t* value, const char* text);

// IntlFetchNextNumDouble: reads the real number at the start of a text: white space, one sign, digits with at most one
// point, and an exponent behind "e" or "E". The point is a point in every locale of the process. ".5" and "1." are
// numbers, "1e" is none.
//   value   out: the number, rounded to the nearest double, an infinity beyond their range; untouched when the result
//                is 0, and for more than 99 bytes
//   text    in:  a text, or null
// Result: the bytes used from the text's start; 0 for null and where no number stands; -1 for more than 99 bytes, and,
// with the 0 stored, for a value that comes out as 0 although the bytes used are not all signs, zeros, point and "e":
// so for "1e-999", but also for " 0", and for any number behind a double-byte blank.
MORVL_API int32_t MORVL_CALL IntlFetchNextNumDouble(double* value, const char* text);

// ---- Japanese width ---------------------------------------------------------------------------------------------
//
// Shift-JIS has Latin letters, digits, signs and katakana in two forms: half-width, one byte, and full-width, two. A
// half-width kana with a voiced mark (DE) or semi-voiced mark (DF) behind it is one full-width character. Both
// operations convert wherever text is double-byte, whether or not the code page is Shift-JIS; where it is single-byte
// they copy. What has no other form stays as it is. Result of each: the length of the destination in characters; -1,
// and nothing is written, if either pointer is null.

// IntlStrJapanFull: copies a text with its half-width characters made full-width.
//   destination  out: the copy, terminated: up to two bytes for each byte of the source; a buffer other than the source
//   source       in:  a text, or null
MORVL_API int32_t MORVL_CALL IntlStrJapanFull(char* destination, const char* source);

// IntlStrJapanHalf: copies a text with its full-width characters made half-width. Three small kana come out large:
// 838E, 8395 and 8396, which go back to 838F, 834A and 8350.
//   destination  out: the copy, terminated, of no more bytes than the source
//   source       in:  a text, or null
MORVL_API int32_t MORVL_CALL IntlStrJapanHalf(char* destination, const char* source);

MORVL_END_C

#endif
