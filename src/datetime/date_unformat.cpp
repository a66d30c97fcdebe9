// Reading a date or time by one picture alone.
#include <morvl15/datetime.h>
#include <morvl15/intl.h>

#include "date_block.h"
#include "date_match.h"
#include "default_pictures.h"
#include "era_reader.h"

namespace {

// The kind of value that a picture reads, a Type of the block; 0 for a picture without fields and for none. One that
// starts with a time field reads a time, whatever follows.
int32_t FMTClassifyDatePic(const char* picture) {
    int32_t kind = 0;
    DateElementReader reader(picture, ScanState::kPicture);
    DateElement element;
    while (reader.Read(&element)) {
        if (IsDateField(element.type) && kind == 0) kind = kTypeDate;
        if (IsTimeField(element.type) && kind == 0) kind = kTypeTime;
        if (IsTimeField(element.type) && kind == kTypeDate) kind = kTypeDateTime;
    }
    return reader.Accepted() ? kind : 0;
}

// Matches the block's Input with a picture, by the block's Type.
int32_t MatchInput(FMTCntlBlock* block, const FMTRegion& region, const char* picture) {
    const QuickVerdict verdict = QuickMatchDatePic(block->Input, picture, block, region);
    if (verdict != QuickVerdict::kDeclined) return verdict == QuickVerdict::kMatches ? 1 : 0;
    const DatePicList values(block->Input, block->Type);
    const DatePicList elements(picture, kModePicture);
    return FMTMatchDatePic(values.First(), elements.First(), block, region);
}

int32_t ReadByPicture(FMTCntlBlock* block, const FMTRegion& region, const char* picture) {
    const int32_t kind = FMTClassifyDatePic(picture);
    if (kind == 0) return 0;
    const int32_t type = block->Type;
    block->Type = kind;
    const int32_t result = MatchInput(block, region, picture);
    block->Type = type;
    return result;
}

}  // namespace

int32_t MORVL_CALL FMTUnformatDateTimeStr(FMTCntlBlock* block) {
    const char* picture = block->Picture;
    if (block->Input == nullptr || *block->Input == 0 || picture == nullptr || LacksTimePicture(block)) return 0;
    const FMTRegion region(block);
    char timePicture[kTimePicSize];
    switch (FMTDateWordOf(picture)) {
        case DateWord::kNone: return ReadByPicture(block, region, picture);
        case DateWord::kEmpty: return ReadByPicture(block, region, FMTDefaultDatePic(FMTRegion::OfProfile()));
        case DateWord::kShort: return ReadByPicture(block, region, FMTRegion::OfProfile().ShortDatePic());
        case DateWord::kLong: return ReadByPicture(block, region, FMTRegion::OfProfile().LongDatePic());
        case DateWord::kTime:
            SetFlag(block, kFlagMicroseconds, false);
            FMTBuildTimePic(block, region, timePicture);
            return ReadByPicture(block, region, timePicture);
        case DateWord::kEra: return ReadEraText(block, region, true, true);
        case DateWord::kEraDate: return ReadEraText(block, region, true, false);
    }
    return 0;
}
