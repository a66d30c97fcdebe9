// The pictures that stand in where a block names none: the words that a picture may be, the default time picture, and a
// date and a time picture joined.
#pragma once

#include "../format/region.h"

// Bits of FMTCntlBlock.Flags on the date side.
constexpr uint32_t kFlagTimePicture = FMT_DEFAULT_TIME;    // the default time picture is in force
constexpr uint32_t kFlagMicroseconds = FMT_MICROSECONDS;   // ... and carries microseconds
constexpr uint32_t kFlagEra = FMT_ERA_TIME;                // a microsecond field of 0 is left out
constexpr uint32_t kFlagLongForm = FMT_LONG_FORM;          // under UseProfile, the long form whatever the settings say
constexpr uint32_t kFlagUnpaddedHour = FMT_UNPADDED_HOUR;  // the last match met an hour field without padding

// The words that stand in the place of a picture.
enum class DateWord { kNone, kEmpty, kShort, kLong, kTime, kEra, kEraDate };
DateWord FMTDateWordOf(const char* picture);

// Writes the default time picture: hours, minutes, seconds, microseconds by Flags bit 2, AMPM on the 12-hour clock.
constexpr int32_t kTimePicSize = 64;
void FMTBuildTimePic(const FMTCntlBlock* block, const FMTRegion& region, char* buffer);
void FMTBuildTimePic(const FMTCntlBlock* block, char* buffer);

// Date, one blank, time, in a new block of MemAlloc, which is the caller's. Null when there is no memory.
char* FMTJoinDatePic(const char* date, const char* time);

// FMTJoinDatePic for a scope: in the object as long as the picture is of a common size, in a block beyond that.
class JoinedDatePic {
  public:
    JoinedDatePic() = default;
    ~JoinedDatePic();
    JoinedDatePic(const JoinedDatePic&) = delete;
    JoinedDatePic& operator=(const JoinedDatePic&) = delete;

    // Called once. Null when there is no memory.
    const char* Join(const char* date, const char* time);

  private:
    static constexpr size_t kRoom = 128;

    char* block_ = nullptr;
    char room_[kRoom];
};

// The pictures of a block as FMTFormatDateTime and FMTGetMaxFormattedDTLen choose them.
struct DatePicChoice {
    int32_t form;             // DateForm, or the settings' under UseProfile
    const char* picture;      // null for none
    char time[kTimePicSize];  // empty unless the default time picture is in force
};

// Settles form, time picture and picture. The forms 2 and 3, which have no picture, leave the picture as the time
// settled it.
void FMTChooseDatePic(const FMTCntlBlock* block, const FMTRegion& region, DatePicChoice* choice);

// The settings' pictures, which words and the empty picture stand for.
const char* FMTDefaultDatePic(const FMTRegion& profile);
