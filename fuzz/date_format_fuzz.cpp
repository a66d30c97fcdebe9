// Raw date fields through raw pictures, by every form and word: the text is never longer than the bound that the
// library gives for it, as long as the fields are in range.
#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <string>

#include <morvl15/datetime.h>

namespace {

int32_t InRange(uint8_t byte, int32_t first, int32_t last) {
    return first + byte % (last - first + 1);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    constexpr size_t kHead = 12;
    if (size < kHead || size > 600) return 0;
    const std::string picture(reinterpret_cast<const char*>(data) + kHead, size - kHead);

    FMTCntlBlock block{};
    FMTInitCntlBlock(&block);
    block.Type = data[0] % 5;
    block.DateForm = data[1] % 5;
    block.Flags = data[2] | (static_cast<uint32_t>(data[3]) << 8);
    block.Month = InRange(data[4], 1, 12);
    block.Day = InRange(data[5], 1, 31);
    block.Year = InRange(data[6], 0, 255) * 39;
    block.Hour = InRange(data[7], 0, 24);
    block.Minute = InRange(data[8], 0, 59);
    block.Second = InRange(data[9], 0, 59);
    block.Microsecond = InRange(data[10], -1, 254) * 3921;
    block.TimeIs24Hour = data[11] & 1;
    block.TimeLZero = data[11] & 2;
    block.TimeSep = (data[11] & 4) != 0 ? "::" : nullptr;
    block.AMString = "vorm.";
    block.PMString = (data[11] & 8) != 0 ? "nachm." : nullptr;
    block.LongDatePic = picture.c_str();
    block.ShortDatePic = picture.c_str();

    const uint32_t flags = block.Flags;
    const int32_t bound = std::max(FMTGetMaxFormattedDTLen(&block, 0), 0);
    // What the bound leaves out: the date that the Japanese forms and the era words write.
    constexpr int32_t kJapaneseDate = 16;
    std::string output(static_cast<size_t>(bound + kJapaneseDate + 1), '\x5A');
    block.Flags = flags;
    block.Output = output.data();
    if (FMTFormatDateTime(&block) && std::strlen(output.c_str()) >= output.size()) std::abort();

    FMTIsDatePicValid(picture.c_str());
    FMTDatePicHasDate(picture.c_str());
    FMTDatePicHasTime(picture.c_str());
    return 0;
}
