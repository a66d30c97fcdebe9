// Tests of date pictures, and the long picture reduced to its fields.
#include <cstring>

#include <morvl15/datetime.h>

#include "default_pictures.h"
#include "picture_parser.h"

namespace {

bool HasElement(const char* picture, bool (*isWanted)(int32_t)) {
    if (picture == nullptr) return false;
    DateElementReader reader(picture, ScanState::kPicture);
    DateElement element;
    bool found = false;
    while (reader.Read(&element)) found = found || isWanted(element.type);
    return found && reader.Accepted();
}

bool IsDayName(const DatePicElement* element) {
    return element->ElementType == DPE_WEEKDAY3 || element->ElementType == DPE_WEEKDAY;
}

bool IsPunctuation(const DatePicElement* element) {
    return element->ElementType >= DPE_TEXT && element->ElementType <= DPE_SPACE;
}

const DatePicElement* SkipPunctuation(const DatePicElement* element) {
    while (element != nullptr && IsPunctuation(element)) element = element->Next;
    return element;
}

// The next field that is no day name, or null.
const DatePicElement* SkipToField(const DatePicElement* element) {
    while (element != nullptr && (IsPunctuation(element) || IsDayName(element))) element = element->Next;
    return element;
}

// Punctuation before a day name with no other field behind it goes with the day name.
bool EndsInDayName(const DatePicElement* punctuation) {
    const DatePicElement* next = SkipPunctuation(punctuation);
    return next != nullptr && IsDayName(next) && SkipToField(next) == nullptr;
}

// A picture in the making, cut off by nothing: what doesn't fit makes it invalid.
class PictureText {
  public:
    PictureText(char* buffer, int32_t size) : buffer_(buffer), size_(static_cast<size_t>(size)) { buffer[0] = 0; }

    void Put(const char* text, size_t length) {
        fits_ = fits_ && used_ + length < size_;
        if (!fits_) return;
        std::memcpy(buffer_ + used_, text, length);
        used_ += length;
        buffer_[used_] = 0;
    }
    void Put(const char* text) { Put(text, std::strlen(text)); }

    bool Fits() const { return fits_; }

  private:
    char* buffer_;
    size_t size_;
    size_t used_ = 0;
    bool fits_ = true;
};

// The picture text of each field, by its code. A number, which only a switch of the scanner's state brings into a
// picture, is no field.
constexpr const char* kFieldTexts[] = {
    "",     "",   "",     "",   "d",    "dd", "",   "",       "M",    "MM", "MMM",
    "MMMM", "yy", "yyyy", "hh", "hhhh", "mm", "ss", "mmmmmm", "AMPM", "h",  "hhh",
};

void PutPunctuation(PictureText& out, const DatePicElement* element) {
    if (element->ElementType == DPE_SEPARATOR) {
        const char separator = static_cast<char>(element->Value.Number);
        out.Put(&separator, 1);
    } else if (element->ElementType == DPE_SPACE) {
        for (uint32_t i = 0; i < element->Value.Number; ++i) out.Put(" ");
    } else {
        // A word would need its quotes; a blank stands for it.
        const char* text = element->Value.Text;
        out.Put(text[std::strspn(text, ".-/:\\, ")] == 0 ? text : " ");
    }
}

void PutFields(PictureText& out, const DatePicElement* element) {
    while (element != nullptr) {
        if (IsDayName(element)) {
            element = SkipToField(element);
            continue;
        }
        if (!IsPunctuation(element)) {
            out.Put(kFieldTexts[element->ElementType]);
        } else if (EndsInDayName(element)) {
            return;
        } else {
            PutPunctuation(out, element);
        }
        element = element->Next;
    }
}

}  // namespace

int32_t MORVL_CALL FMTIsDatePicValid(const char* picture) {
    if (picture == nullptr) return 0;
    if (FMTDateWordOf(picture) != DateWord::kNone) return 1;
    return HasElement(picture, [](int32_t) { return true; }) ? 1 : 0;
}

int32_t MORVL_CALL FMTDatePicHasDate(const char* picture) {
    return HasElement(picture, IsDateField) ? 1 : 0;
}

int32_t MORVL_CALL FMTDatePicHasTime(const char* picture) {
    return HasElement(picture, IsTimeField) ? 1 : 0;
}

int32_t MORVL_CALL FMTGetGeeLongDatePic(char* buffer, int32_t length, int32_t withTime) {
    if (buffer == nullptr || length <= 0) return 0;
    JoinedDatePic joined;
    FMTGetDefaultLongDatePic(buffer, length);
    const char* picture = buffer;
    if (withTime != 0) {
        FMTCntlBlock block{};
        FMTInitCntlBlock(&block);
        block.Flags &= ~kFlagMicroseconds;
        block.UseProfile = 1;
        char time[kTimePicSize];
        FMTBuildTimePic(&block, time);
        picture = joined.Join(buffer, time);
    }
    const DatePicList list(picture, kModePicture);
    PictureText reduced(buffer, length);
    PutFields(reduced, list.First());
    if (list.First() != nullptr && reduced.Fits()) return 1;
    buffer[0] = 0;
    return 0;
}
