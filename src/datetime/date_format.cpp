// Dates and times through pictures.
#include <cstring>

#include <morvl15/datetime.h>

#include "calendar.h"
#include "default_pictures.h"
#include "digits.h"
#include "japan_dates.h"
#include "picture_elements.h"
#include "picture_parser.h"

namespace {

enum Kind : int32_t { kDate = 1, kTime = 2, kDateTime = 3 };

enum Form : int32_t { kJapanForm = 2, kEraForm = 3 };

// ---- elements ------------------------------------------------------------------------------------------------------

// Writes the elements of a picture for a date.
class DateWriter {
  public:
    DateWriter(const FMTCntlBlock& block, const FMTRegion& region, char* out)
        : block_(block), region_(region), start_(out), out_(out) {
        padsHours_ = region.TimeLZero() != 0 && (region.UsesProfile() || (block.Flags & kFlagUnpaddedHour) == 0);
    }

    void Write(const DateElement& element);

    char* End() const { return out_; }

  private:
    void Put(const char* text) { Put(text, std::strlen(text)); }
    void Put(const char* text, size_t length) {
        std::memcpy(out_, text, length);
        out_ += length;
    }
    void PutName(const char* name);
    void PutBlanks(size_t count) {
        *out_++ = ' ';
        if (count == 1) return;  // as it mostly is
        std::memset(out_, ' ', count - 1);
        out_ += count - 1;
    }
    void PutHour(int32_t hour, bool padded) {
        out_ = padded && padsHours_ ? FMTPutPadded(out_, hour) : FMTPutNumber(out_, hour);
    }
    void PutMicroseconds();
    int32_t DayCode() const { return FMTDayOfWeek(block_.Month, block_.Day, block_.Year); }

    int32_t Hour12() const {
        const int32_t hour = block_.Hour % 12;
        return hour == 0 ? 12 : hour;
    }

    const FMTCntlBlock& block_;
    const FMTRegion& region_;
    char* start_;
    char* out_;
    bool padsHours_;
};

void DateWriter::Write(const DateElement& element) {
    switch (element.type) {
        case DPE_TEXT: Put(element.text, element.length); break;
        case DPE_SEPARATOR: *out_++ = static_cast<char>(element.number); break;
        case DPE_SPACE: PutBlanks(element.number); break;
        case DPE_DAY: out_ = FMTPutNumber(out_, block_.Day); break;
        case DPE_DAY2: out_ = FMTPutPadded(out_, block_.Day); break;
        case DPE_WEEKDAY3: PutName(FMTDayAbbrev(DayCode())); break;
        case DPE_WEEKDAY: PutName(FMTDayFull(DayCode())); break;
        case DPE_MONTH: out_ = FMTPutNumber(out_, block_.Month); break;
        case DPE_MONTH2: out_ = FMTPutPadded(out_, block_.Month); break;
        case DPE_MONTH3: PutName(FMTMonthAbbrev(block_.Month)); break;
        case DPE_MONTHNAME: PutName(FMTMonthFull(block_.Month)); break;
        case DPE_YEAR2: out_ = FMTPutLastTwo(out_, block_.Year); break;
        case DPE_YEAR4: out_ = FMTPutFilled(out_, block_.Year, 4); break;
        case DPE_HOUR12_2: PutHour(Hour12(), true); break;
        case DPE_HOUR12: PutHour(Hour12(), false); break;
        case DPE_HOUR24_2: PutHour(block_.Hour, true); break;
        case DPE_HOUR24: PutHour(block_.Hour, false); break;
        case DPE_MINUTE: out_ = FMTPutPadded(out_, block_.Minute); break;
        case DPE_SECOND: out_ = FMTPutPadded(out_, block_.Second); break;
        case DPE_MICROSECOND: PutMicroseconds(); break;
        case DPE_AMPM: Put(block_.Hour < 12 ? region_.AMString() : region_.PMString()); break;
        default: break;
    }
}

// A name of eight letters and more as two words of eight, which overlap; a shorter one letter by letter.
void DateWriter::PutName(const char* name) {
    const size_t length = FMTNameLength(name);
    if (length < 8) {
        for (size_t i = 0; i < length; ++i) out_[i] = name[i];
    } else {
        std::memcpy(out_, name, 8);
        std::memcpy(out_ + length - 8, name + length - 8, 8);
    }
    out_ += length;
}

// A fraction that isn't to be shown takes the separator before it along.
void DateWriter::PutMicroseconds() {
    constexpr int32_t kMillion = 1000000;
    const bool isHidden = block_.Microsecond < 0 || (block_.Microsecond == 0 && (block_.Flags & kFlagEra) != 0);
    if (!isHidden) {
        out_ = FMTPutFilled(out_, block_.Microsecond % kMillion, 6);
    } else if (out_ != start_) {
        --out_;
    }
}

// Writes a picture of unusual size, which is read twice: it writes nothing when it is rejected at its end.
bool WriteLongPicture(const FMTCntlBlock& block, const FMTRegion& region, const char* picture, char* out) {
    DateElement element;
    DateElementReader reader(picture, ScanState::kPicture);
    while (reader.Read(&element)) {
    }
    if (!reader.Accepted()) return false;

    DateWriter writer(block, region, out);
    DateElementReader again(picture, ScanState::kPicture);
    while (again.Read(&element)) writer.Write(element);
    *writer.End() = 0;
    return true;
}

// Writes a picture behind `out`. A picture that is rejected writes nothing.
bool WritePicture(const FMTCntlBlock& block, const FMTRegion& region, const char* picture, char* out) {
    const PictureElements* read = FMTPictureElements(picture);
    if (read == nullptr) return WriteLongPicture(block, region, picture, out);
    if (!read->accepted) return false;
    DateWriter writer(block, region, out);
    for (int32_t i = 0; i < read->count; ++i) writer.Write(read->elements[i]);
    *writer.End() = 0;
    return true;
}

// ---- the choice of the picture -------------------------------------------------------------------------------------

// What a formatting call has come to.
struct Formatting {
    FMTCntlBlock* block;
    const FMTRegion& region;
    DatePicChoice choice;
    int32_t kind;
    bool isDone;     // the text stands in Output already, or failed
    int32_t result;  // when it is done
};

void Finish(Formatting& formatting, int32_t result) {
    formatting.isDone = true;
    formatting.result = result;
}

void UseTime(Formatting& formatting) {
    FMTBuildTimePic(formatting.block, formatting.region, formatting.choice.time);
    formatting.choice.picture = formatting.choice.time;
}

// The Japanese forms write the date at once; a time follows it directly.
void WriteJapaneseForm(Formatting& formatting) {
    int32_t written = 1;
    if (formatting.choice.form == kJapanForm) {
        FMTFormatJapanDate(formatting.block);
    } else {
        written = FMTFormatEraDate(formatting.block);
    }
    const bool hasTime = formatting.kind == kDateTime && formatting.choice.picture != nullptr;
    if (!written || !hasTime) Finish(formatting, written);
    formatting.kind = kTime;
}

void ResolveWord(Formatting& formatting) {
    DatePicChoice& choice = formatting.choice;
    const DateWord word = FMTDateWordOf(choice.picture);
    if (word == DateWord::kNone) return;
    // The words mean the settings' pictures in a block of its own values too.
    const FMTRegion profile = formatting.region.UsesProfile() ? formatting.region : FMTRegion::OfProfile();
    switch (word) {
        case DateWord::kEmpty: choice.picture = FMTDefaultDatePic(profile); break;
        case DateWord::kShort: choice.picture = profile.ShortDatePic(); break;
        case DateWord::kLong: choice.picture = profile.LongDatePic(); break;
        case DateWord::kTime:
            formatting.block->Flags &= ~kFlagMicroseconds;
            UseTime(formatting);
            formatting.kind = kTime;  // the time stands once
            break;
        default:
            if (!FMTFormatEraDate(formatting.block)) return Finish(formatting, 0);
            if (word == DateWord::kEraDate) return Finish(formatting, 1);
            UseTime(formatting);
            formatting.block->Flags |= kFlagEra;
            formatting.kind = kTime;
            break;
    }
}

void ChooseDate(Formatting& formatting) {
    const int32_t form = formatting.choice.form;
    if (form == kJapanForm || form == kEraForm) {
        WriteJapaneseForm(formatting);
    } else if (formatting.choice.picture != nullptr) {
        ResolveWord(formatting);
    }
}

}  // namespace

int32_t MORVL_CALL FMTFormatDateTime(FMTCntlBlock* block) {
    if (block->Type < kDate || block->Type > kDateTime) return 0;
    block->Output[0] = 0;
    if (block->UseProfile != 0 && (block->Flags & kFlagTimePicture) == 0) return 0;

    const FMTRegion region(block);
    Formatting formatting{block, region, {}, block->Type, false, 0};
    DatePicChoice& choice = formatting.choice;
    FMTChooseDatePic(block, region, &choice);
    if (block->Type != kTime) ChooseDate(formatting);
    if (formatting.isDone) return formatting.result;
    if (choice.picture == nullptr || *choice.picture == 0) return 0;

    JoinedDatePic joined;
    if (choice.time[0] != 0 && formatting.kind == kDateTime && (block->Flags & kFlagTimePicture) != 0) {
        choice.picture = joined.Join(choice.picture, choice.time);
        if (choice.picture == nullptr) return 0;
    }
    char* end = block->Output + std::strlen(block->Output);
    return WritePicture(*block, region, choice.picture, end) ? 1 : 0;
}
