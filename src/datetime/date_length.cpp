// How long a formatted date can get.
#include <algorithm>
#include <cstring>

#include <morvl15/datetime.h>

#include "calendar.h"
#include "default_pictures.h"
#include "japan_dates.h"
#include "picture_parser.h"

namespace {

int32_t LengthOf(const char* text) {
    return static_cast<int32_t>(std::strlen(text));
}

int32_t LengthOfElement(const DateElement& element, const FMTRegion& region) {
    switch (element.type) {
        case DPE_NUMBER: return 0;
        case DPE_TEXT: return static_cast<int32_t>(element.length);
        case DPE_SEPARATOR: return 1;
        case DPE_SPACE: return static_cast<int32_t>(element.number);
        case DPE_WEEKDAY3:
        case DPE_MONTH3: return 3;
        case DPE_WEEKDAY: return FMTMaxDayNameLen();
        case DPE_MONTHNAME: return FMTMaxMonthNameLen();
        case DPE_YEAR4: return 4;
        case DPE_MICROSECOND: return 6;
        case DPE_AMPM: return std::max(LengthOf(region.AMString()), LengthOf(region.PMString()));
        default: return 2;
    }
}

// -1 for a picture that is rejected.
int32_t LengthOfPicture(const char* picture, const FMTRegion& region) {
    DateElementReader reader(picture, ScanState::kPicture);
    DateElement element;
    int32_t length = 0;
    while (reader.Read(&element)) length += LengthOfElement(element, region);
    return reader.Accepted() ? length : -1;
}

// Puts the picture that a word stands for into the choice. The result is what the word itself writes; -1 when that is
// all of the text.
int32_t ResolveWord(FMTCntlBlock* block, const FMTRegion& region, DatePicChoice* choice, char* timePicture) {
    const FMTRegion profile = FMTRegion::OfProfile();
    const DateWord word = FMTDateWordOf(choice->picture);
    switch (word) {
        case DateWord::kNone: return 0;
        case DateWord::kEmpty: choice->picture = FMTDefaultDatePic(profile); return 0;
        case DateWord::kShort: choice->picture = profile.ShortDatePic(); return 0;
        case DateWord::kLong: choice->picture = profile.LongDatePic(); return 0;
        case DateWord::kEraDate: return -1;
        default: break;
    }
    block->Flags &= ~kFlagMicroseconds;
    FMTBuildTimePic(block, region, timePicture);
    choice->picture = timePicture;
    return word == DateWord::kEra ? kEraDateLength : 0;
}

}  // namespace

int32_t MORVL_CALL FMTGetMaxFormattedDTLen(FMTCntlBlock* block, int32_t minimum) {
    if (block->Type < 1 || block->Type > 3) return -1;
    const bool hasTimePicture = (block->Flags & kFlagTimePicture) != 0;
    if (block->UseProfile != 0 && !hasTimePicture) return -1;

    const FMTRegion region(block);
    DatePicChoice choice;
    FMTChooseDatePic(block, region, &choice);
    char timePicture[kTimePicSize];
    int32_t count = 0;
    if (!region.UsesProfile() && choice.picture != nullptr) {
        count = ResolveWord(block, region, &choice, timePicture);
        if (count < 0) return kEraDateLength;
    }

    JoinedDatePic joined;
    if (choice.picture != nullptr && choice.time[0] != 0 && block->Type == 3 && hasTimePicture) {
        count = LengthOf(choice.time) + LengthOf(choice.picture) + 2;
        choice.picture = joined.Join(choice.picture, choice.time);
    }
    const int32_t length = choice.picture == nullptr ? -1 : LengthOfPicture(choice.picture, region);
    return std::max(length < 0 ? -1 : count + length, minimum);
}
