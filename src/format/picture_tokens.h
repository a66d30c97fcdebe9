// Number pictures: their two forms, and the currency strings of the region.
#pragma once

#include <atomic>

#include <morvl15/format.h>

#include "region.h"

// A picture has at most 63 bytes, in either form.
constexpr int32_t kPictureSize = 64;

// The bytes of the tokenized form that stand for something regional or mark a digit run.
constexpr char kTokenThousand = 0x01;
constexpr char kTokenDecimal = 0x02;
constexpr char kTokenPosPrefix = 0x03;
constexpr char kTokenPosSuffix = 0x04;
constexpr char kTokenNegPrefix = 0x05;
constexpr char kTokenNegSuffix = 0x06;
constexpr char kTokenPad = 0x0E;  // the "_" of a pair
constexpr char kTokenRunStart = 0x0F;
constexpr char kTokenRunEnd = 0x10;

inline bool FMTIsDigitPlace(char character) {
    return character == '#' || character == '0';
}

// ---- the currency strings ---------------------------------------------------------------------------------------

struct FMTCurrencyStrings {
    char posPrefix[16];
    char posSuffix[16];
    char negPrefix[16];
    char negSuffix[16];
};

// Expands the currency layout into four texts, each of at most 9 bytes: a symbol of more than 7 bytes is cut at a
// character. A position outside 0 to 3 or a layout outside 0 to 10 leaves its two texts empty.
void FMTBuildCurrencyStrings(int32_t position, int32_t negLayout, char* posPrefix, char* posSuffix, char* negPrefix,
                             char* negSuffix, const char* symbol);

// The strings of a region. Those of the profile are built once per process, whatever becomes of the settings later;
// private ones are built in the caller's record at each call.
const FMTCurrencyStrings& FMTCurrencyStringsOf(const FMTRegion& region, FMTCurrencyStrings* privateStrings);

// Whether those of the profile have been built. Never lowered but by tests.
extern std::atomic<bool> gFMTCurrencyBuilt;

// ---- what other rooms need of a picture -------------------------------------------------------------------------

// The text form of a picture: the picture itself if it is text, or the text written to buffer if it is tokenized.
// Null for a picture, or a text made of it, of more than 63 bytes.
const char* FMTPictureText(const FMTRegion& region, const char* picture, char (&buffer)[kPictureSize]);

// 1 if the picture is taken to be scientific: it begins with "0.", and an E in either case stands before a zero with
// one character between. Whether it is a valid one is another question, which FMTIsSciPicValid answers.
int32_t FMTIsSciPic(const char* picture);
int32_t FMTIsSciPicValid(const char* picture);
