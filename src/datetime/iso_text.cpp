// Dates and times in fixed columns, as "yyyy-MM-dd-hhhh.mm.ss.mmmmmm".
#include <cstring>

#include <morvl15/datetime.h>

#include "../intl/character.h"

namespace {

// The bytes of a field, if the text has at least `needs` bytes.
struct Column {
    size_t needs;
    size_t at;
    size_t count;
};

constexpr size_t kColumns = sizeof(DatDef) / sizeof(int32_t);
constexpr size_t kLongestText = 26;

// In the order of the fields of DatDef.
constexpr Column kFields[kColumns] = {
    // needs  at  count
    {7, 5, 2},    // Month
    {10, 8, 2},   // Day
    {4, 0, 4},    // Year
    {13, 11, 2},  // Hour
    {16, 14, 2},  // Minute
    {19, 17, 2},  // Second
    {26, 20, 6},  // Microsecond
};

// Length of the text as far as it matters.
size_t BoundedLength(const char* text) {
    const void* end = std::memchr(text, 0, kLongestText);
    return end == nullptr ? kLongestText : static_cast<size_t>(static_cast<const char*>(end) - text);
}

// A plain decimal number: white space and a sign pass, the first byte that is no digit ends it.
int32_t ReadNumber(const char* text, size_t count) {
    const char* const end = text + count;
    while (text < end && IntlIsSpaceByte(*text)) ++text;
    const bool negative = text < end && *text == '-';
    if (text < end && (*text == '-' || *text == '+')) ++text;
    int32_t value = 0;
    for (; text < end && *text >= '0' && *text <= '9'; ++text) value = value * 10 + (*text - '0');
    return negative ? -value : value;
}

}  // namespace

int32_t MORVL_CALL FMTIsoToDatDef(const char* text, DatDef* datDef) {
    const size_t length = text == nullptr ? 0 : BoundedLength(text);
    int32_t values[kColumns] = {};
    for (size_t field = 0; field < kColumns; ++field) {
        const Column& column = kFields[field];
        if (length >= column.needs) values[field] = ReadNumber(text + column.at, column.count);
    }
    std::memcpy(datDef, values, sizeof *datDef);
    return 1;
}
