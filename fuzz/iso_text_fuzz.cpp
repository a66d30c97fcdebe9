// Raw texts in the columns of a date. Every field is what its bytes can say at most.
#include <cstdlib>
#include <string>

#include <morvl15/datetime.h>

namespace {

void RequireWithin(int32_t value, int32_t limit) {
    if (value < -limit || value > limit) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    const std::string exact(text.c_str());  // a block that ends with the terminator
    DatDef date = {-1, -1, -1, -1, -1, -1, -1};
    if (FMTIsoToDatDef(exact.c_str(), &date) != 1) std::abort();
    RequireWithin(date.Year, 9999);
    for (const int32_t field : {date.Month, date.Day, date.Hour, date.Minute, date.Second}) RequireWithin(field, 99);
    RequireWithin(date.Microsecond, 999999);
    return 0;
}
