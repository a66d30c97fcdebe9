// Decimal and hexadecimal text to Number. What was read is inside the text, and reads back from its plain form.
#include <morvl15/number.h>

#include "input.h"

namespace {

void RequireReadsBack(const Number& num) {
    char text[256];
    const int32_t length = NumToAscii(&num, text, 250);
    Require(length > 0 && std::strlen(text) == static_cast<size_t>(length));
    Number again;
    Require(NumAsciiToNumber(&again, text) == length);
    Require(NumCompare(&again, &num) == 0);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const Room text = Input(data, size).TakeText();
    const auto length = static_cast<int32_t>(std::strlen(text));
    Number num;
    const int32_t read = NumAsciiToNumber(&num, text);
    Require(read >= -2 && read <= length);
    Require((read > 0) == (NumIsNull(&num) == 0));
    if (read > 0) RequireReadsBack(num);
    const int32_t readHex = NumHexAsciiToNumber(&num, text);
    Require(readHex >= 0 && readHex <= length && num.bytes[0] <= 12);
    RequireReadsBack(num);
    return 0;
}
