// The inside of mask pictures: what edit-time validation shares with the operations on finished texts. Pictures here
// come without their "^" prefix.
#pragma once

#include <morvl15/mask.h>

// 1 for the eight characters that are input positions.
int32_t FMTIsMaskChar(char c);

// Tests a character, of which the low byte counts, against one position; may change it to its upper case. At a literal
// the character becomes the literal.
int32_t FMTMaskCharTest(char maskChar, uint16_t* c);

// The general form of FMTMaskText; without matchLiterals all of the text is taken for input characters. The result is
// FMTMaskText's.
int32_t FMTMaskApply(const char* text, char* out, const char* picture, int32_t matchLiterals);

// FMTUnmaskInput on a text and a picture; out may be the text's own buffer.
int32_t FMTMaskRemove(const char* text, char* out, const char* picture);

// The index in the unmasked text that belongs to a position of the masked one. On a literal, that of the input position
// before it; behind the end of an unlimited picture the positions run on one for one.
int32_t FMTMaskRawPos(const char* picture, int32_t position);

// 1 and the index of the first literal, or of the first mask character, at or after `from`; 0 if there is none.
int32_t FMTMaskNextLiteral(const char* picture, int32_t from, int32_t* index);
int32_t FMTMaskNextInput(const char* picture, int32_t from, int32_t* index);

// The largest length, in bytes, of a text masked by an unlimited picture.
int32_t FMTMaskMaxLen(const char* picture, const char* text);

// Cuts all trailing spaces, in place.
void FMTStripTrailingBlanks(char* text);

// The picture behind its "^" prefix; null for null.
const char* FMTMaskBody(const char* picture);

// Where a walk along picture and text has come to.
struct FMTMaskWalk {
    int32_t at;        // position in the picture and in the masked text
    const char* rest;  // what is left of the text
};

// Lays a text along a picture, literals in their places, until either runs out. `out` holds the picture's length.
FMTMaskWalk FMTMaskLayText(const char* text, char* out, const char* picture, int32_t matchLiterals);

// FMTMaskLayText and what follows the text: one literal of a limited picture, all literals and the untested rest of the
// text of an unlimited one. Terminates `out`, which holds the picture's length + 1, or FMTMaskMaxLen + 1.
void FMTMaskLayAll(const char* text, char* out, const char* picture, int32_t matchLiterals);
