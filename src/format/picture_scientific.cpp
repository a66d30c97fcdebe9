// Scientific number pictures, "0.00##E+00".
#include "picture_walk.h"

namespace {

bool IsExponentLetter(char character) {
    return character == 'E' || character == 'e';
}

// Passes places, "0" first and then "#". Null if there is none or a "0" stands behind a "#".
const char* PastPlaces(const char* cursor) {
    const char* const first = cursor;
    while (*cursor == '0') ++cursor;
    while (*cursor == '#') ++cursor;
    return cursor != first && *cursor != '0' ? cursor : nullptr;
}

}  // namespace

// What IntlStrScan finds at position 0 by "0.%E_0%", where "%" is any run of characters and "_" one character.
int32_t FMTIsSciPic(const char* picture) {
    if (picture[0] != '0' || picture[1] != '.') return 0;
    for (const char* cursor = picture + 2; *cursor != 0; cursor = IntlNextChar(cursor)) {
        if (IsExponentLetter(*cursor) && *IntlNextChar(cursor + 1) == '0') return 1;
    }
    return 0;
}

int32_t FMTIsSciPicValid(const char* picture) {
    if (picture[0] != '0' || picture[1] != '.') return 0;
    const char* cursor = PastPlaces(picture + 2);
    if (cursor == nullptr || !IsExponentLetter(*cursor)) return 0;
    ++cursor;
    if (*cursor != '+' && *cursor != '-') return 0;
    cursor = PastPlaces(cursor + 1);
    return cursor != nullptr && *cursor == 0 ? 1 : 0;
}
