#include "default_pictures.h"

#include <algorithm>
#include <cstring>

#include <morvl15/datetime.h>
#include <morvl15/intl.h>
#include <morvl15/memory.h>

namespace {

constexpr int32_t kTypeDate = FMT_TYPE_DATE;
constexpr int32_t kTypeTime = FMT_TYPE_TIME;

// A longer separator is cut.
constexpr size_t kTimeSepLength = 15;
static_assert(sizeof "hhmmssmmmmmm AMPM" + 3 * kTimeSepLength <= kTimePicSize);

char* Append(char* out, const char* text) {
    out = std::copy_n(text, std::strlen(text), out);
    *out = 0;
    return out;
}

// The bytes of as much of a text as fits, never half a character.
size_t BytesThatFit(const char* text, size_t room) {
    size_t bytes = 0;
    while (text[bytes] != 0) {
        const auto step = static_cast<size_t>(IntlBytesInNextChar(text + bytes));
        if (bytes + step > room) break;
        bytes += step;
    }
    return bytes;
}

char* AppendSeparator(char* out, const char* separator) {
    const size_t length = std::strlen(separator);
    return std::copy_n(separator, length <= kTimeSepLength ? length : BytesThatFit(separator, kTimeSepLength), out);
}

void CopyPicture(char* buffer, int32_t length, const char* picture) {
    if (buffer == nullptr || length <= 0) return;
    const size_t copied = BytesThatFit(picture, static_cast<size_t>(length) - 1);
    std::memcpy(buffer, picture, copied);
    buffer[copied] = 0;
}

void WriteJoined(char* out, const char* date, const char* time) {
    out = Append(out, date);
    *out++ = ' ';
    Append(out, time);
}

size_t JoinedSize(const char* date, const char* time) {
    return std::strlen(date) + std::strlen(time) + 2;
}

const char* EmptyForNull(const char* text) {
    return text != nullptr ? text : "";
}

}  // namespace

DateWord FMTDateWordOf(const char* picture) {
    static constexpr struct {
        const char* text;
        DateWord word;
    } kWords[] = {
        {"", DateWord::kEmpty}, {"S", DateWord::kShort}, {"L", DateWord::kLong},
        {"T", DateWord::kTime}, {"E", DateWord::kEra},   {"ED", DateWord::kEraDate},
    };
    const bool isLonger = picture[0] != 0 && picture[1] != 0 && picture[2] != 0;
    if (isLonger) return DateWord::kNone;
    for (const auto& row : kWords) {
        if (std::strcmp(picture, row.text) == 0) return row.word;
    }
    return DateWord::kNone;
}

void FMTBuildTimePic(const FMTCntlBlock* block, const FMTRegion& region, char* buffer) {
    const bool is24Hour = region.TimeIs24Hour() != 0;
    const char* separator = region.TimeSep();
    char* out = Append(buffer, is24Hour ? "hhhh" : "hh");
    out = Append(AppendSeparator(out, separator), "mm");
    out = Append(AppendSeparator(out, separator), "ss");
    if ((block->Flags & kFlagMicroseconds) != 0) out = Append(AppendSeparator(out, separator), "mmmmmm");
    if (!is24Hour) Append(out, " AMPM");
}

void FMTBuildTimePic(const FMTCntlBlock* block, char* buffer) {
    FMTBuildTimePic(block, FMTRegion(block), buffer);
}

char* FMTJoinDatePic(const char* date, const char* time) {
    auto* joined = static_cast<char*>(MemAlloc(static_cast<uint32_t>(JoinedSize(date, time))));
    if (joined != nullptr) WriteJoined(joined, date, time);
    return joined;
}

JoinedDatePic::~JoinedDatePic() {
    MemFree(block_);
}

const char* JoinedDatePic::Join(const char* date, const char* time) {
    if (JoinedSize(date, time) > kRoom) {
        block_ = FMTJoinDatePic(date, time);
        return block_;
    }
    WriteJoined(room_, date, time);
    return room_;
}

void FMTChooseDatePic(const FMTCntlBlock* block, const FMTRegion& region, DatePicChoice* choice) {
    choice->form = block->DateForm;
    choice->picture = nullptr;
    choice->time[0] = 0;
    if (block->Type != kTypeDate) {
        if ((block->Flags & kFlagTimePicture) != 0) {
            FMTBuildTimePic(block, region, choice->time);
            choice->picture = choice->time;
        } else if (block->Type == kTypeTime && choice->form == 0) {
            choice->picture = EmptyForNull(block->LongDatePic);
        } else if (block->Type == kTypeTime && choice->form == 1) {
            choice->picture = EmptyForNull(block->ShortDatePic);
        }
    }
    if (region.UsesProfile()) choice->form = (block->Flags & kFlagLongForm) != 0 ? 0 : region.DateForm();
    if (block->Type == kTypeTime) return;
    if (choice->form == 0) choice->picture = EmptyForNull(region.LongDatePic());
    if (choice->form == 1) choice->picture = EmptyForNull(region.ShortDatePic());
}

const char* FMTDefaultDatePic(const FMTRegion& profile) {
    return profile.DateForm() == 0 ? profile.LongDatePic() : profile.ShortDatePic();
}

int32_t MORVL_CALL FMTGetDefaultShortDatePic(char* buffer, int32_t length) {
    CopyPicture(buffer, length, FMTRegion::OfProfile().ShortDatePic());
    return 1;
}

int32_t MORVL_CALL FMTGetDefaultLongDatePic(char* buffer, int32_t length) {
    CopyPicture(buffer, length, FMTRegion::OfProfile().LongDatePic());
    return 1;
}

int32_t MORVL_CALL FMTGetDefaultDatePic(char* buffer, int32_t length) {
    CopyPicture(buffer, length, FMTDefaultDatePic(FMTRegion::OfProfile()));
    return 1;
}
