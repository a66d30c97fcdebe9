// Raw date fields through raw pictures, by every form and word: the text is never longer than the bound that the
// library gives for it, as long as the fields are in range.
#include "../tests/datetime/date_block.h"
#include "input.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    constexpr size_t kHead = 12;
    if (size < kHead || size > 600) return 0;
    const std::string picture(reinterpret_cast<const char*>(data) + kHead, size - kHead);

    FMTCntlBlock block = DateBlock(data[0] % 5, "");
    SetMoment(&block, {data[4] % 12 + 1, data[5] % 31 + 1, data[6] * 39, data[7] % 25, data[8] % 60, data[9] % 60,
                       (data[10] - 1) * 3921});
    block.DateForm = data[1] % 5;
    block.Flags = data[2] | (static_cast<uint32_t>(data[3]) << 8);
    block.TimeIs24Hour = data[11] & 1;
    block.TimeLZero = data[11] & 2;
    block.TimeSep = (data[11] & 4) != 0 ? "::" : nullptr;
    block.AMString = "vorm.";
    block.PMString = (data[11] & 8) != 0 ? "nachm." : nullptr;
    block.LongDatePic = block.ShortDatePic = picture.c_str();

    const uint32_t flags = block.Flags;
    const int32_t bound = std::max(FMTGetMaxFormattedDTLen(&block, 0), 0);
    // What the bound leaves out: the date that the Japanese forms and the era words write.
    constexpr int32_t kJapaneseDate = 16;
    Room output(static_cast<size_t>(bound + kJapaneseDate + 1));
    block.Flags = flags;
    block.Output = output;
    FMTFormatDateTime(&block);

    FMTIsDatePicValid(picture.c_str());
    FMTDatePicHasDate(picture.c_str());
    FMTDatePicHasTime(picture.c_str());
    return 0;
}
