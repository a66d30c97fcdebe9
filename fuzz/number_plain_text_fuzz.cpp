// Any 13 bytes to plain text, in a buffer of exactly the room that a width asks for, and to the other forms.
#include <morvl15/number.h>

#include "input.h"
#include "number/pair_arithmetic.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size < sizeof(Number) + 2) return 0;
    Number num;
    std::memcpy(&num, data, sizeof num);
    const auto width = static_cast<uint16_t>((data[13] | data[14] << 8) % 1024);
    Room text(width + 1u);
    Room defined(width + 1u);
    const int32_t length = NumToAscii(&num, text, width);
    Require(length >= 0 && length <= width && std::strlen(text) == static_cast<size_t>(length));
    Require(NumToAsciiPairs(&num, defined, width) == length);
    Require(std::strcmp(text, defined) == 0);

    double value = 0;
    NumToDouble(&num, &value);
    Number back;
    NumDoubleToNumber(&back, value);
    uint32_t reply;
    NumToLongReply(&num, &reply);
    NumIsZero(&num);
    return 0;
}
