// Raw texts in the columns of a date. Every field is what its bytes can say at most.
#include <morvl15/datetime.h>

#include "input.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const Room text = Input(data, size).TakeText();
    DatDef date = {-1, -1, -1, -1, -1, -1, -1};
    Require(FMTIsoToDatDef(text, &date) == 1);
    Require(std::abs(date.Year) <= 9999 && std::abs(date.Microsecond) <= 999999);
    for (const int32_t field : {date.Month, date.Day, date.Hour, date.Minute, date.Second}) {
        Require(std::abs(field) <= 99);
    }
    return 0;
}
