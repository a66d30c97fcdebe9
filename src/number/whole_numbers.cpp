// Null, zero, and conversions from and to whole numbers.
#include <cstring>

#include "number_codec.h"

namespace {

constexpr uint64_t kExponentBits = 0x7FF0000000000000;  // of a double: all set in NaN and infinity
constexpr uint64_t kNullDouble = 0x7FF8000000000000;

// Packs a magnitude of up to five pairs, found by repeated division, the last one first.
int32_t PackMagnitude(Number* num, uint32_t magnitude, bool negative) {
    constexpr int32_t kRoom = 5;
    uint8_t digits[kRoom];
    int32_t first = kRoom;
    for (; magnitude != 0; magnitude /= 100) digits[--first] = static_cast<uint8_t>(magnitude % 100);
    const int32_t count = kRoom - first;
    return NumPack(num, digits + first, count, negative, kNumExponentBias + count);
}

// The integer part of a value, modulo 2 to the 32nd.
uint32_t IntegerPart(const NumParts& parts) {
    const int32_t integerPairs = parts.exponent - kNumExponentBias;
    uint32_t value = 0;
    for (int32_t i = 0; i < integerPairs; ++i) value = value * 100 + (i < parts.count ? parts.digits[i] : 0);
    return parts.negative ? 0 - value : value;
}

thread_local Number gNumScratch;  // what NumGet hands out

}  // namespace

void MORVL_CALL NumWordToNumber(Number* num, uint16_t value) {
    PackMagnitude(num, value, false);
}

int32_t MORVL_CALL NumDWordToNumber(Number* num, uint32_t value) {
    return PackMagnitude(num, value, false);
}

int32_t MORVL_CALL NumLongToNumber(Number* num, int32_t value) {
    const auto bits = static_cast<uint32_t>(value);
    return PackMagnitude(num, value < 0 ? 0 - bits : bits, value < 0);
}

Number* MORVL_CALL NumGet(uint16_t value) {
    NumWordToNumber(&gNumScratch, value);
    return &gNumScratch;
}

uint32_t MORVL_CALL NumToLong(const Number* num) {
    uint32_t reply;
    return NumToLongReply(num, &reply);
}

uint32_t MORVL_CALL NumToWord(const Number* num) {
    return NumToLong(num);
}

uint32_t MORVL_CALL NumToDWord(const Number* num) {
    return NumToLong(num);
}

uint32_t MORVL_CALL NumToLongReply(const Number* num, uint32_t* reply) {
    *reply = 0;
    return IsInvalid(num) ? 0 : IntegerPart(NumTakeApart(num));
}

uint32_t MORVL_CALL NumToWordReply(const Number* num, uint32_t* reply) {
    return NumToLongReply(num, reply);
}

uint32_t MORVL_CALL NumToDWordReply(const Number* num, uint32_t* reply) {
    return NumToLongReply(num, reply);
}

int32_t MORVL_CALL NumIsNull(const Number* num) {
    return NumLength(num) == 0;
}

void MORVL_CALL NumMakeNull(Number* num) {
    num->bytes[0] = 0;
}

Number* MORVL_CALL NumNullToZero(Number* num) {
    if (NumIsNull(num)) NumPackZero(num);
    return num;
}

int32_t MORVL_CALL NumIsZero(const Number* num) {
    return !NumIsNull(num) && !IsInvalid(num) && NumTakeApart(num).count == 0;
}

double* MORVL_CALL NumNullDouble(double* value) {
    std::memcpy(value, &kNullDouble, sizeof kNullDouble);
    return value;
}

int32_t MORVL_CALL NumIsNullDouble(const double* value) {
    uint64_t bits;
    std::memcpy(&bits, value, sizeof bits);
    return (bits & kExponentBits) == kExponentBits;
}
