// What the walks over number pictures share: the region's part in a picture, reading literals, writing a bounded
// picture.
#pragma once

#include <cstring>

#include "../intl/character.h"
#include "picture_tokens.h"

inline bool FMTIsQuote(char character) {
    return character == '\'' || character == '"';
}

// The character behind a quoted literal. A quote that is doubled or stands behind a backslash doesn't close it.
// *closed tells whether any does; if none, the result is the end of the text.
const char* FMTPastLiteral(const char* openingQuote, bool* closed);

// Bytes of the non-empty text that stands at the cursor, 0 if it doesn't stand there or is empty.
inline int32_t FMTMatch(const char* cursor, const char* text) {
    int32_t length = 0;
    for (; text[length] != 0; ++length) {
        if (cursor[length] != text[length]) return 0;
    }
    return length;
}

// A picture being made. What goes beyond 63 bytes is noted and dropped.
class FMTPictureWriter {
  public:
    void Put(char byte) {
        if (length_ < kPictureSize - 1) {
            bytes_[length_++] = byte;
        } else {
            overflown_ = true;
        }
    }
    void PutText(const char* text) {
        while (*text != 0) Put(*text++);
    }
    void PutSeparator(char separator) {
        if (separator != 0) Put(separator);
    }

    // Copies the character at the cursor, none on the terminator, and gives the cursor behind it.
    const char* PutCharacter(const char* cursor) { return PutUpTo(cursor, IntlNextChar(cursor)); }
    const char* PutUpTo(const char* cursor, const char* end) {
        while (cursor < end) Put(*cursor++);
        return end;
    }

    int32_t Length() const { return length_; }
    void Replace(int32_t position, char byte) { bytes_[position] = byte; }

    // Copies the picture with its terminator to a buffer of kPictureSize bytes. False, and an empty text, if it has
    // more than 63 bytes.
    bool CopyTo(char* text) const {
        const auto length = static_cast<size_t>(overflown_ ? 0 : length_);
        std::memcpy(text, bytes_, length);
        text[length] = 0;
        return !overflown_;
    }

  private:
    char bytes_[kPictureSize];
    int32_t length_ = 0;
    bool overflown_ = false;
};

// What a region makes of a picture.
struct FMTPictureRegion {
    char thousand;
    char decimal;
    int32_t negLayout;
    FMTCurrencyStrings privateStrings;
    const FMTCurrencyStrings& strings;

    explicit FMTPictureRegion(const FMTRegion& region)
        : thousand(region.ThousandSep()),
          decimal(region.DecimalSep()),
          negLayout(region.NegCurrency()),
          strings(FMTCurrencyStringsOf(region, &privateStrings)) {}
    FMTPictureRegion(const FMTPictureRegion&) = delete;
    FMTPictureRegion& operator=(const FMTPictureRegion&) = delete;

    // What may stand where a section shows an amount: the first and third show one that is not negative.
    const char* PositiveMark(bool afterDigits) const { return afterDigits ? strings.posSuffix : strings.posPrefix; }
    const char* NegativeMark(bool afterDigits) const { return afterDigits ? strings.negSuffix : strings.negPrefix; }

    // Parentheses may stand round a negative amount.
    bool HasParens() const { return negLayout == 0 || negLayout == 4; }
};

// One section of a picture, by its number 1 to 3. *sawCurrency is shared by the sections of a picture and starts at 0.
int32_t FMTIsNumberPicSectionValid(const FMTPictureRegion& region, const char* section, int32_t sectionNumber,
                                   int32_t* sawCurrency);

// The walks behind the three conversions.
void FMTTokenize(const FMTPictureRegion& region, const char* picture, FMTPictureWriter* out);
void FMTUnTokenize(const FMTPictureRegion& region, const char* picture, FMTPictureWriter* out);
void FMTConvertOld(const FMTPictureRegion& region, const char* picture, FMTPictureWriter* out);
