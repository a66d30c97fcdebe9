// Reading a date or time by whatever picture fits it.
#include <cstring>
#include <optional>

#include <morvl15/datetime.h>
#include <morvl15/host.h>
#include <morvl15/intl.h>

#include "date_block.h"
#include "date_freeform.h"
#include "date_match.h"
#include "default_pictures.h"
#include "era_reader.h"

namespace {

constexpr char kAnyTimePicture[] = "hhhh.mm.ss.mmmmmm";
constexpr int32_t kUnitedStates = 1;

bool IsEmpty(const char* text) {
    return text == nullptr || *text == 0;
}

// The attempts at one text. Each match that fails leaves the text's elements to the next.
class DateReading {
  public:
    DateReading(FMTCntlBlock* block, const FMTRegion& region) : block_(block), region_(region) {}

    bool Try(const char* picture) {
        if (!values_) {
            const QuickVerdict verdict = QuickMatchDatePic(block_->Input, picture, block_, region_);
            if (verdict != QuickVerdict::kDeclined) return verdict == QuickVerdict::kMatches;
        }
        const DatePicList elements(picture, kModePicture);
        return FMTMatchDatePic(Values(), elements.First(), block_, region_) != 0;
    }

    bool TryJoined(const char* date, const char* time) {
        JoinedDatePic joined;
        return Try(joined.Join(date != nullptr ? date : "", time));
    }

    bool TryFreeForm() {
        char picture[kGuessedPicSize];
        const bool allowUs = region_.Country() == kUnitedStates;
        return Values() != nullptr && FMTGuessDatePic(block_->Input, block_->Type, picture, allowUs) != 0 &&
               Try(picture);
    }

    // The text's elements, null where the text has none and every attempt fails. They are read when the first attempt
    // needs them; from then on all attempts work on them.
    DatePicElement* Values() {
        if (!values_) values_.emplace(Input(), Type());
        return values_->First();
    }

  private:
    // Copies: a packed field can't be referred to.
    const char* Input() const { return block_->Input; }
    int32_t Type() const { return block_->Type; }

    FMTCntlBlock* block_;
    const FMTRegion& region_;
    std::optional<DatePicList> values_;
};

bool ReadTimeText(DateReading& reading, const FMTCntlBlock* block, const FMTRegion& region) {
    if (HasFlag(block, kFlagTimePicture)) {
        char timePicture[kTimePicSize];
        FMTBuildTimePic(block, region, timePicture);
        if (reading.Try(timePicture)) return true;
    } else if (reading.Try(block->ShortDatePic)) {
        return true;
    }
    return !HasFlag(block, kFlagNoFreeForm) && reading.TryFreeForm();
}

// By the region's short and long picture, for a date and time with the default time picture behind them.
bool ReadByPictures(DateReading& reading, const FMTCntlBlock* block, const FMTRegion& region) {
    if (block->Type != kTypeDateTime || !HasFlag(block, kFlagTimePicture)) {
        return reading.Try(region.ShortDatePic()) || reading.Try(region.LongDatePic());
    }
    char timePicture[kTimePicSize];
    FMTBuildTimePic(block, region, timePicture);
    return reading.TryJoined(region.ShortDatePic(), timePicture) ||
           reading.TryJoined(region.LongDatePic(), timePicture);
}

bool ReadDateText(DateReading& reading, const FMTCntlBlock* block, const FMTRegion& region) {
    if (ReadByPictures(reading, block, region) || reading.TryFreeForm()) return true;
    return block->Type == kTypeDateTime && (reading.TryJoined(region.ShortDatePic(), kAnyTimePicture) ||
                                            reading.TryJoined(region.LongDatePic(), kAnyTimePicture));
}

}  // namespace

int32_t MORVL_CALL FMTValidateDateTime(FMTCntlBlock* block) {
    if (!IsDateType(block->Type) || LacksTimePicture(block) || IsEmpty(block->Input)) return 0;
    const FMTRegion region(block);
    {
        DateReading reading(block, region);
        if (block->Type == kTypeTime) return ReadTimeText(reading, block, region) ? 1 : 0;
        if (ReadDateText(reading, block, region)) return 1;
        if (reading.Values() == nullptr) return 0;
    }
    if (IntlDBCSEnabled() == 0 || IntlNextDBCInStr(block->Input) == nullptr) return 0;
    return ReadEraText(block, region, false, block->Type == kTypeDateTime);
}

int32_t MORVL_CALL FMTIsValidDateString(FMTCntlBlock* block) {
    enum : int32_t { kBadArguments = 0, kValid = 1, kUnknownShape = 2, kOtherPictureOrBadValue = 4 };
    if (IsEmpty(block->Picture) || IsEmpty(block->Input) || !IsDateType(block->Type)) return kBadArguments;
    if (LacksTimePicture(block)) return kBadArguments;
    const FMTRegion region(block);
    char picture[kGuessedPicSize];
    if (FMTGuessDatePic(block->Input, block->Type, picture, region.Country() == kUnitedStates) == 0) {
        return kUnknownShape;
    }
    if (std::strcmp(picture, block->Picture) != 0) return kOtherPictureOrBadValue;
    DateReading reading(block, region);
    return reading.Try(picture) ? kValid : kOtherPictureOrBadValue;
}
