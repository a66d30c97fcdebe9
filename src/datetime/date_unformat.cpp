// Reading a date or time by one picture alone.
#include <morvl15/datetime.h>
#include <morvl15/intl.h>

#include "date_block.h"
#include "date_match.h"
#include "default_pictures.h"
#include "era_reader.h"

namespace {

// The kind of value that a picture reads, a Type of the block; 0 for a picture without fields. One that starts with a
// time field reads a time, whatever follows.
int32_t FMTClassifyDatePic(const DatePicElement* pictureList) {
    int32_t kind = 0;
    for (const DatePicElement* element = pictureList; element != nullptr; element = element->Next) {
        if (IsDateField(element->ElementType) && kind == 0) kind = kTypeDate;
        if (IsTimeField(element->ElementType) && kind == 0) kind = kTypeTime;
        if (IsTimeField(element->ElementType) && kind == kTypeDate) kind = kTypeDateTime;
    }
    return kind;
}

int32_t ReadByPicture(FMTCntlBlock* block, const FMTRegion& region, const char* picture) {
    const DatePicList elements(picture, kModePicture);
    const int32_t kind = FMTClassifyDatePic(elements.First());
    if (kind == 0) return 0;
    const int32_t type = block->Type;
    block->Type = kind;
    const DatePicList values(block->Input, kind);
    const int32_t result = FMTMatchDatePic(values.First(), elements.First(), block, region);
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
