#include "date_block.h"

#include <cstdio>
#include <cstring>

namespace {

constexpr uint32_t kSeenFlags = 1U << 7 | 1U << 11 | 1U << 12;

}  // namespace

FMTCntlBlock DateBlock(int32_t type, const char* input) {
    FMTCntlBlock block;
    std::memset(&block, 0, sizeof block);
    FMTInitCntlBlock(&block);
    block.Type = type;
    block.Input = input;
    block.ShortDatePic = "M/d/yyyy";
    block.LongDatePic = "dddd, MMMM dd, yyyy";
    block.TimeSep = ":";
    block.AMString = "AM";
    block.PMString = "PM";
    return block;
}

std::string DescribeValue(const FMTCntlBlock& block) {
    char text[100];
    int length = std::snprintf(text, sizeof text, "%04d-%02d-%02d", block.Year, block.Month, block.Day);
    if (block.Hour != 0 || block.Minute != 0 || block.Second != 0 || block.Microsecond != 0) {
        length +=
            std::snprintf(text + length, sizeof text - length, " %d:%02d:%02d", block.Hour, block.Minute, block.Second);
    }
    if (block.Microsecond != 0) std::snprintf(text + length, sizeof text - length, ".%06d", block.Microsecond);
    std::string all = text;
    if ((block.Flags & kSeenFlags) != 0) all += ' ';
    if ((block.Flags & 1U << 7) != 0) all += 'D';
    if ((block.Flags & 1U << 11) != 0) all += 'T';
    if ((block.Flags & 1U << 12) != 0) all += 'U';
    return all;
}

std::string ReadValue(int32_t(MORVL_CALL* operation)(FMTCntlBlock*), FMTCntlBlock block) {
    // What a failure must leave alone; and bits that a success must put right, set the wrong way round.
    block.Year = 1;
    block.Month = 2;
    block.Day = 3;
    block.Hour = 4;
    block.Flags |= kSeenFlags;
    const std::string before = DescribeValue(block);
    const int32_t result = operation(&block);
    if (result == 1) return DescribeValue(block);
    return DescribeValue(block) == before ? std::to_string(result) : "touched: " + DescribeValue(block);
}
