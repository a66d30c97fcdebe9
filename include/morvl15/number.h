// Decimal numbers: an exact, packed decimal value of up to 22 digits with a null state, its arithmetic, rounding and
// conversions.
//
// Every Number travels by pointer, in 13 bytes of the caller's; pointers are never null unless an entry says so. The
// result of an operation may be the same Number as any operand. Nothing here takes a lock, allocates or reports an
// error: values out of range saturate, digits that don't fit round away, and only a division by zero (or a NumPower10
// out of range) gives a distinct result, a null Number. All operations may run in any number of threads on different
// Numbers.
#ifndef MORVL15_NUMBER_H
#define MORVL15_NUMBER_H

#include <morvl15/base.h>

MORVL_BEGIN_C

// A decimal value, the same bytes in memory and in files.
//
// Byte 0 holds L, the number of bytes that follow, in its low 4 bits: 0 for null (which is not zero), 1 to 12 for a
// value, 13 to 15 are invalid. Readers ignore the high 4 bits, writers store 0 there. Bytes behind L mean nothing; only
// operations that read text may change them.
//
// A value is 0.d1 d2 .. dn in base 100, times 100 to the power (E - 64); d1 to dn are pairs of decimal digits, 0 to 99.
//   positive  80h + E, d1, .., dn                            L = n + 1, at most 11 pairs
//   negative  7Fh - E, 100 - d1, .., 100 - dn, 65h           L = n + 2, at most 10 pairs
//   zero      C0h                                            L = 1
// What the operations write has no zero pair in front or behind, and E from 14 to 114: magnitudes from 1E-102 to just
// under 1E+100. A result of more pairs is rounded half up on its magnitude, at the first pair that doesn't fit; a
// result outside the exponents keeps its digits under the nearest exponent, so that its value changes.
//
// Values with zero pairs behind are read as what they denote. A pair byte outside its range reads as 99.
#pragma pack(push, 1)
typedef struct Number {
    uint8_t bytes[13];
} Number;
#pragma pack(pop)

// ---- null and zero ----------------------------------------------------------------------------------------------

// NumIsNull: whether a Number is null.
// Result: 1 or 0.
MORVL_API int32_t MORVL_CALL NumIsNull(const Number* num);

// NumMakeNull: makes a Number null. Only byte 0 changes.
MORVL_API void MORVL_CALL NumMakeNull(Number* num);

// NumNullToZero: makes a null Number zero; any other stands as before.
// Result: `num`.
MORVL_API Number* MORVL_CALL NumNullToZero(Number* num);

// NumIsZero: whether a Number is zero.
// Result: 1 or 0; 0 for null and invalid.
MORVL_API int32_t MORVL_CALL NumIsZero(const Number* num);

// NumNullDouble: stores the double that stands for a null Number: the quiet NaN 7FF8000000000000h.
// Result: `value`.
MORVL_API double* MORVL_CALL NumNullDouble(double* value);

// NumIsNullDouble: whether a double reads as null: any NaN and either infinity.
// Result: 1 or 0.
MORVL_API int32_t MORVL_CALL NumIsNullDouble(const double* value);

// ---- whole numbers ----------------------------------------------------------------------------------------------

// NumWordToNumber, NumDWordToNumber, NumLongToNumber: store a whole number.
//   num     out: the value
// Result: L; NumWordToNumber has none.
MORVL_API void MORVL_CALL NumWordToNumber(Number* num, uint16_t value);
MORVL_API int32_t MORVL_CALL NumDWordToNumber(Number* num, uint32_t value);
MORVL_API int32_t MORVL_CALL NumLongToNumber(Number* num, int32_t value);

// NumGet: a whole number as a Number of the library's.
// Result: the calling thread's scratch Number; the thread's next NumGet overwrites it.
MORVL_API Number* MORVL_CALL NumGet(uint16_t value);

// NumToLong, NumToWord, NumToDWord: the integer part of a value, its fraction cut off toward zero. One operation under
// three names: none of them narrows its result.
// Result: the integer part modulo 2 to the 32nd, a negative one in two's complement; 0 for null and invalid.
MORVL_API uint32_t MORVL_CALL NumToLong(const Number* num);
MORVL_API uint32_t MORVL_CALL NumToWord(const Number* num);
MORVL_API uint32_t MORVL_CALL NumToDWord(const Number* num);

// NumToLongReply, NumToWordReply, NumToDWordReply: the same, with a reply.
//   reply   out: always 0; an overflow isn't told
MORVL_API uint32_t MORVL_CALL NumToLongReply(const Number* num, uint32_t* reply);
MORVL_API uint32_t MORVL_CALL NumToWordReply(const Number* num, uint32_t* reply);
MORVL_API uint32_t MORVL_CALL NumToDWordReply(const Number* num, uint32_t* reply);

// ---- arithmetic -------------------------------------------------------------------------------------------------

// NumAddition, NumSubtract: a + b, a - b. Exact as long as 12 pair positions (11 where magnitudes are added) reach from
// the first pair of the greater magnitude to the last pair of the other operand; what the other operand has behind them
// is cut off before.
//   result  out: may be a, b or both
//   a, b    in:  null counts as zero, also twice; with an invalid one the result is zero. NumAddition of null or zero
//                gives the bytes of the other operand, zero pairs at its end included
// Result: L.
MORVL_API int32_t MORVL_CALL NumAddition(Number* result, const Number* a, const Number* b);
MORVL_API int32_t MORVL_CALL NumSubtract(Number* result, const Number* a, const Number* b);

// NumMultiply: a * b, exact but for the rounding of the result.
//   result  out: may be a, b or both
//   a, b    in:  with a null or invalid one the result is zero
// Result: L.
MORVL_API int32_t MORVL_CALL NumMultiply(Number* result, const Number* a, const Number* b);

// NumDivide: a / b, by a long division (Knuth's algorithm D, in base 100) that is cut at 12 pair positions, counted
// from that of a1 / b1, also where the first quotient pair is 0: 2 / 3 ends in 66, not in 67.
//   result  out: may be a, b or both
//   a       in:  null counts as zero; with an invalid one the result is zero
//   b       in:  by null or zero the result is null, whatever a is; with an invalid one the result is zero
// Result: L; 0 when the result is null.
MORVL_API int32_t MORVL_CALL NumDivide(Number* result, const Number* a, const Number* b);

// NumNegate: changes the sign, in place. Zero stays zero. A positive value of 11 pairs is rounded to 10.
// Result: L; 0 for null and invalid, which stand as before.
MORVL_API int32_t MORVL_CALL NumNegate(Number* num);

// NumCompare: the order of two values. Null equals null and sorts below every value.
// Result: -1, 0 or 1 as a is smaller, equal or greater; 0 with an invalid operand, whatever the other is.
MORVL_API int32_t MORVL_CALL NumCompare(const Number* a, const Number* b);

// NumTruncate: keeps at most `scale` decimal places and `precision` - `scale` integer digits, in place. Both ends are
// cut off: 12345 with 3, 0 becomes 345. Either may be negative; they are taken as they are, without wrapping.
// Result: L; 0 for null and invalid, which stand as before.
MORVL_API int32_t MORVL_CALL NumTruncate(Number* num, int32_t precision, int32_t scale);

// NumRound: rounds half away from zero to a number of decimal places.
//   result  out: may be the source; zero has no sign; null for a null or invalid source
//   decimals in: below 0 rounds to tens, hundreds and so on
// Result: L; 0 when the result is null.
MORVL_API int32_t MORVL_CALL NumRound(Number* result, const Number* source, int32_t decimals);

// NumPower10: source * 10 to the power.
//   result  out: may be the source; null for a power below -50 or above 50, whatever the source is; zero for a null or
//                invalid source
// Result: L; 0 when the result is null.
MORVL_API int32_t MORVL_CALL NumPower10(Number* result, const Number* source, int32_t power);

// ---- text -------------------------------------------------------------------------------------------------------
//
// The library's own plain form: "." as the point and no grouping, whatever the regional settings are.

// NumAsciiToNumber: reads [white space] [+ or -] digits [. digits] [e [+ or -] [digits]]; a digit in front of or behind
// the point is enough. "0x" behind the sign starts a hexadecimal number (NumHexAsciiToNumber). Reading stops, without
// an error, at the first byte that doesn't fit. 23 digits are kept, counted from the first one that isn't 0; integer
// digits behind them keep their place.
//   num     out: the value; null when the result isn't above 0
//   text    in:  zero-terminated; null gives 0
// Result: bytes read, white space included; 0: no number; -1: a value of 1E+100 or more, or an exponent of 10000 or
// more under either sign; -2: a value below 1E-129 or so. Zero with a smaller exponent is zero; a value below 1E-102
// that is read at all has its exponent raised.
MORVL_API int32_t MORVL_CALL NumAsciiToNumber(Number* num, const char* text);

// NumHexAsciiToNumber: reads [blanks and tabs] [+ or -] [0x] hexadecimal digits, up to the first other byte. A value of
// more than 11 pairs is rounded each time that it grows beyond them; the exponent stops at 114. A rounding that carries
// through all 11 pairs misplaces its 1: 43C33C19375647FFFF0, which is 2E+22 - 16, reads as 1.01E+24.
//   num     out: the value; may end in a zero pair, which readers ignore; zero when there is no digit
//   text    in:  zero-terminated; null counts as empty
// Result: bytes read, blanks, sign and prefix included, also when no digit follows.
MORVL_API int32_t MORVL_CALL NumHexAsciiToNumber(Number* num, const char* text);

// NumToAscii: writes the shortest plain form that fits ("-.5", "123.45"), cutting fraction digits with rounding where
// it has to, or else an exponent form that fills the width exactly ("1.23E-05"). An exponent beyond 99 gives all nines.
//   buffer  out: room for width + 1 bytes; the text and its terminator; empty when the result is 0
//   width   in:  characters, the sign included
// Result: the length of the text; 0 for null and invalid, and when the width has no room for the form.
MORVL_API int32_t MORVL_CALL NumToAscii(const Number* num, char* buffer, uint16_t width);

// ---- double -----------------------------------------------------------------------------------------------------

// NumToDouble: one double multiplication and addition for each pair, one multiplication by 100.0 or 0.01 for each
// power; not the nearest double in all cases, but the same one everywhere.
//   value   out: the null double for null and invalid
MORVL_API void MORVL_CALL NumToDouble(const Number* num, double* value);

// NumToDoubleNotNull: the same, but 0.0 for null. Invalid gives the null double here too.
MORVL_API void MORVL_CALL NumToDoubleNotNull(const Number* num, double* value);

// NumDoubleToNumber: the value of a double to 15 significant digits, by FMTgcvt.
//   num     out: null for a null double, and when the result is 0
// Result: 1; 0 for a magnitude of 1E+100 or more, and for one that is too small to be read (below 1E-129 or so).
MORVL_API int32_t MORVL_CALL NumDoubleToNumber(Number* num, double value);

// FMTgcvt: writes a double with 15 significant digits, "." as the point, and an exponent ("1e+30") where it is below -4
// or above 14. Zero and NaN give "0". Sets the process's numeric locale to "C" if it is another one, and leaves it
// there.
//   text    out: room for 32 bytes
// Result: `text`.
MORVL_API char* MORVL_CALL FMTgcvt(double value, char* text);

MORVL_END_C

#endif
