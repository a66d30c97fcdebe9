#include "date_block.h"

#include <cstdio>
#include <cstring>
#include <map>

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

void SetMoment(FMTCntlBlock* block, const DatDef& moment) {
    block->Month = moment.Month;
    block->Day = moment.Day;
    block->Year = moment.Year;
    block->Hour = moment.Hour;
    block->Minute = moment.Minute;
    block->Second = moment.Second;
    block->Microsecond = moment.Microsecond;
}

std::string WriteValue(FMTCntlBlock* block) {
    char text[400] = "as before";
    block->Output = text;
    const int32_t result = FMTFormatDateTime(block);
    return (result == 1 ? "" : "<0>") + std::string(text);
}

std::string DescribeValue(const FMTCntlBlock& block) {
    char part[60];
    std::snprintf(part, sizeof part, "%04d-%02d-%02d", block.Year, block.Month, block.Day);
    std::string all = part;
    if (block.Hour != 0 || block.Minute != 0 || block.Second != 0 || block.Microsecond != 0) {
        std::snprintf(part, sizeof part, " %d:%02d:%02d", block.Hour, block.Minute, block.Second);
        all += part;
    }
    std::snprintf(part, sizeof part, ".%06d", block.Microsecond);
    if (block.Microsecond != 0) all += part;
    if ((block.Flags & kSeenFlags) != 0) all += ' ';
    if ((block.Flags & 1U << 7) != 0) all += 'D';
    if ((block.Flags & 1U << 11) != 0) all += 'T';
    if ((block.Flags & 1U << 12) != 0) all += 'U';
    return all;
}

std::string ReadValue(ReadOperation operation, FMTCntlBlock block) {
    // What a failure must leave alone; and bits that a success must put right, set the wrong way round.
    SetMoment(&block, {2, 3, 1, 4, 0, 0, 0});
    block.Flags |= kSeenFlags;
    const std::string before = DescribeValue(block);
    const int32_t result = operation(&block);
    if (result == 1) return DescribeValue(block);
    return DescribeValue(block) == before ? std::to_string(result) : "touched: " + DescribeValue(block);
}

std::string Japanese(const std::string& shorthand) {
    static const std::map<char, std::string> kSigns = {
        {'M', "\x96\xBE\x8E\xA1"}, {'T', "\x91\xE5\x90\xB3"}, {'S', "\x8F\xBA\x98\x61"}, {'H', "\x95\xBD\x90\xAC"},
        {'y', "\x94\x4E"},         {'m', "\x8C\x8E"},         {'d', "\x93\xFA"},         {'_', "\x81\x40"},
    };
    std::string text;
    for (const char c : shorthand) text += kSigns.count(c) != 0 ? kSigns.at(c) : std::string(1, c);
    return text;
}
