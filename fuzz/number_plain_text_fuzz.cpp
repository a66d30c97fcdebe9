// Any 13 bytes to plain text, in a buffer of exactly the room that a width asks for, and to the other forms.
#include <cstdlib>
#include <cstring>
#include <memory>

#include <morvl15/number.h>

#include "number/pair_arithmetic.h"

namespace {

void Require(bool holds) {
    if (!holds) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size < sizeof(Number) + 2) return 0;
    Number num;
    std::memcpy(&num, data, sizeof num);
    const auto width = static_cast<uint16_t>((data[13] | data[14] << 8) % 1024);
    const std::unique_ptr<char[]> text(new char[width + 1u]);
    const std::unique_ptr<char[]> defined(new char[width + 1u]);
    const int32_t length = NumToAscii(&num, text.get(), width);
    Require(length >= 0 && length <= width && std::strlen(text.get()) == static_cast<size_t>(length));
    Require(NumToAsciiPairs(&num, defined.get(), width) == length);
    Require(std::strcmp(text.get(), defined.get()) == 0);

    double value = 0;
    NumToDouble(&num, &value);
    Number back;
    NumDoubleToNumber(&back, value);
    uint32_t reply;
    NumToLongReply(&num, &reply);
    NumIsZero(&num);
    return 0;
}
