#include "date_match.h"

#include <cstring>

#include <morvl15/host.h>
#include <morvl15/intl.h>

#include "calendar.h"
#include "date_block.h"
#include "match_cursors.h"

namespace {

enum Field : uint8_t { kMonth, kDay, kYear, kHour, kMinute, kSecond, kMicrosecond, kFields };

// What a match has met so far.
enum Seen : uint8_t {
    kDateSeen = 1,
    kTimeSeen = 2,
    k12HourSeen = 4,
    k24HourSeen = 8,
    kUnpaddedHour = 16,
};

// What a field of the picture does when the text has something else than a number there.
enum class Need : uint8_t {
    kNone,       // the field isn't a plain number
    kNumber,     // the match fails
    kOptional,   // a text that has ended passes
    kSkippable,  // ... and so does anything else before a 24-hour field: the picture's field is passed over
};

struct NumberField {
    Field field;
    Need need;
    uint8_t seen;
    uint32_t least;
    uint32_t most;
};

// clang-format off
constexpr NumberField kNumberFields[] = {
    // field       need              seen                                       least  most
    {kDay,         Need::kNumber,    kDateSeen,                                 1,     31},      // d
    {kDay,         Need::kNumber,    kDateSeen,                                 1,     31},      // dd
    {},                                                                                          // ddd
    {},                                                                                          // dddd
    {kMonth,       Need::kNumber,    kDateSeen,                                 1,     12},      // M
    {kMonth,       Need::kNumber,    kDateSeen,                                 1,     12},      // MM
    {},                                                                                          // MMM
    {},                                                                                          // MMMM
    {},                                                                                          // yy
    {},                                                                                          // yyyy
    {kHour,        Need::kOptional,  kTimeSeen | k12HourSeen,                   0,     12},      // hh
    {kHour,        Need::kOptional,  kTimeSeen | k24HourSeen,                   0,     24},      // hhhh
    {kMinute,      Need::kSkippable, kTimeSeen,                                 0,     59},      // mm
    {kSecond,      Need::kSkippable, kTimeSeen,                                 0,     59},      // ss
    {kMicrosecond, Need::kSkippable, kTimeSeen,                                 0,     999999},  // mmmmmm
    {},                                                                                          // AMPM
    {kHour,        Need::kOptional,  kTimeSeen | k12HourSeen | kUnpaddedHour,   0,     12},      // h
    {kHour,        Need::kOptional,  kTimeSeen | k24HourSeen | kUnpaddedHour,   0,     24},      // hhh
};
// clang-format on
static_assert(sizeof kNumberFields / sizeof kNumberFields[0] == DPE_HOUR24 - DPE_DAY + 1);

constexpr uint32_t kLastYear = 9999;
constexpr uint32_t kFullYears = 100;  // smaller years are two digits of one

// A match of a text with a picture, by a cursor on either.
template <typename Value, typename Picture>
class DateMatch {
  public:
    template <typename ValueStart, typename PictureStart>
    DateMatch(ValueStart value, const PictureStart& picture, const FMTRegion& region, int32_t type)
        : value_(value), picture_(picture), region_(region), type_(type) {}

    bool Run();
    bool Declined() const { return value_.Declined(); }  // of a scanning cursor
    void Store(FMTCntlBlock* block) const;

  private:
    // What becomes of an element of the picture. Each takes up one element of the text too, but for kPassedOver.
    enum class Step : uint8_t { kFails, kTaken, kPassedOver };

    Step MatchElement();
    Step MatchText();
    Step MatchSeparator();
    Step MatchWeekday();
    Step MatchMonthName();
    Step MatchYear2();
    Step MatchYear4();
    Step MatchAmPm();
    Step MatchNumber(const NumberField& rule);
    bool DateExists() const;

    bool ValueIs(int32_t type) const { return !value_.AtEnd() && value_.Type() == type; }
    bool HasSeen(Seen what) const { return (seen_ & what) != 0; }
    Step Take(Field field, uint32_t number, int seen);

    Value value_;
    Picture picture_;
    const FMTRegion& region_;
    int32_t type_;
    int32_t fields_[kFields] = {1, 1, 1900, 0, 0, 0, 0};
    int seen_ = 0;
    int32_t dayCode_ = 0;
    char dayName_[16] = {};
};

template <typename Value, typename Picture>
bool DateMatch<Value, Picture>::Run() {
    for (; !picture_.AtEnd(); picture_.Step()) {
        const Step step = MatchElement();
        if (step == Step::kFails) return false;
        if (step == Step::kTaken && !value_.AtEnd()) value_.Step();
    }
    return value_.AtEnd() && (type_ == kTypeTime || DateExists());
}

template <typename Value, typename Picture>
typename DateMatch<Value, Picture>::Step DateMatch<Value, Picture>::MatchElement() {
    const int32_t type = picture_.Type();
    switch (type) {
        case DPE_NUMBER: return Step::kTaken;  // pictures have none, but by a switch of the scanner's state
        case DPE_TEXT: return MatchText();
        case DPE_SEPARATOR: return MatchSeparator();
        case DPE_WEEKDAY3:
        case DPE_WEEKDAY: return MatchWeekday();
        case DPE_MONTH3:
        case DPE_MONTHNAME: return MatchMonthName();
        case DPE_YEAR2: return MatchYear2();
        case DPE_YEAR4: return MatchYear4();
        case DPE_AMPM: return MatchAmPm();
        default: return MatchNumber(kNumberFields[type - DPE_DAY]);
    }
}

template <typename Value, typename Picture>
typename DateMatch<Value, Picture>::Step DateMatch<Value, Picture>::MatchText() {
    if (!ValueIs(DPE_TEXT)) return Step::kFails;
    const char* wanted = IntlStrStripSpace(picture_.Text());
    const char* given = IntlStrStripSpace(value_.Text());
    return lstrcmpiA(wanted, given) == 0 ? Step::kTaken : Step::kFails;
}

// Any separator stands for any other. Where the text has none it may be left out, but not in a time on the 24-hour
// clock: "13 30" is no time.
template <typename Value, typename Picture>
typename DateMatch<Value, Picture>::Step DateMatch<Value, Picture>::MatchSeparator() {
    if (value_.AtEnd() || ValueIs(DPE_SEPARATOR)) return Step::kTaken;
    return type_ != kTypeDate && HasSeen(k24HourSeen) ? Step::kFails : Step::kPassedOver;
}

template <typename Value, typename Picture>
typename DateMatch<Value, Picture>::Step DateMatch<Value, Picture>::MatchWeekday() {
    if (!ValueIs(DPE_TEXT)) return Step::kFails;
    const char* name = value_.Text();
    dayCode_ = FMTFindDayName(name);
    if (dayCode_ == 0) return Step::kFails;
    lstrcpynA(dayName_, name, sizeof dayName_);
    return Step::kTaken;
}

// A month's name, or a name to which the picture's next text is glued: "4 Janta" under "d MMM'ta'".
template <typename Value, typename Picture>
typename DateMatch<Value, Picture>::Step DateMatch<Value, Picture>::MatchMonthName() {
    if (!ValueIs(DPE_TEXT)) return Step::kFails;
    const char* name = value_.Text();
    int32_t month = FMTFindMonthName(name);
    if (month == 0 && picture_.StepToText()) month = FMTFindMonthWithSuffix(name, picture_.Text());
    return month != 0 ? Take(kMonth, static_cast<uint32_t>(month), kDateSeen) : Step::kFails;
}

uint32_t WithCentury(uint32_t year) {
    return year + static_cast<uint32_t>(FMTCenturyFor(static_cast<int32_t>(year)));
}

template <typename Value, typename Picture>
typename DateMatch<Value, Picture>::Step DateMatch<Value, Picture>::MatchYear2() {
    if (!ValueIs(DPE_NUMBER)) return Step::kFails;
    const uint32_t year = value_.Number();
    if (year > kLastYear) return Step::kFails;
    return Take(kYear, year < kFullYears ? WithCentury(year) : year, kDateSeen);
}

template <typename Value, typename Picture>
typename DateMatch<Value, Picture>::Step DateMatch<Value, Picture>::MatchYear4() {
    if (!ValueIs(DPE_NUMBER)) return Step::kFails;
    const bool isWrittenOut = (value_.Number() & kFullYearMark) == kFullYearMark;
    if (isWrittenOut) value_.SetNumber(value_.Number() & ~kFullYearMark);  // a later match sees a plain number
    const uint32_t year = value_.Number();
    if (year > kLastYear) return Step::kFails;
    return Take(kYear, year < kFullYears && !isWrittenOut ? WithCentury(year) : year, kDateSeen);
}

// On the 12-hour clock the text can't leave it out.
template <typename Value, typename Picture>
typename DateMatch<Value, Picture>::Step DateMatch<Value, Picture>::MatchAmPm() {
    if (value_.AtEnd()) return HasSeen(k12HourSeen) ? Step::kFails : Step::kTaken;
    if (!ValueIs(DPE_TEXT)) return Step::kFails;
    const char* half = value_.Text();
    int32_t& hour = fields_[kHour];
    const bool isHour = hour >= 1 && hour <= 12;
    if (lstrcmpiA(half, region_.AMString()) == 0) {
        if (hour == 12) hour = 0;
    } else if (lstrcmpiA(half, region_.PMString()) == 0) {
        if (hour != 12) hour += 12;
    } else {
        return Step::kFails;
    }
    return isHour ? Step::kTaken : Step::kFails;
}

template <typename Value, typename Picture>
typename DateMatch<Value, Picture>::Step DateMatch<Value, Picture>::MatchNumber(const NumberField& rule) {
    if (value_.AtEnd()) return rule.need == Need::kNumber ? Step::kFails : Step::kTaken;
    if (!ValueIs(DPE_NUMBER)) {
        return rule.need == Need::kSkippable && !HasSeen(k24HourSeen) ? Step::kPassedOver : Step::kFails;
    }
    const uint32_t number = value_.Number();
    if (number < rule.least || number > rule.most) return Step::kFails;
    return Take(rule.field, number, rule.seen);
}

template <typename Value, typename Picture>
typename DateMatch<Value, Picture>::Step DateMatch<Value, Picture>::Take(Field field, uint32_t number, int seen) {
    fields_[field] = static_cast<int32_t>(number);
    seen_ |= seen;
    return Step::kTaken;
}

// A day name that was found under the date's own code needs no second look.
template <typename Value, typename Picture>
bool DateMatch<Value, Picture>::DateExists() const {
    const int32_t month = fields_[kMonth];
    const int32_t day = fields_[kDay];
    const int32_t year = fields_[kYear];
    const bool isItsName = dayCode_ != 0 && dayCode_ == FMTDayOfWeek(month, day, year);
    return FMTIsValidDate(month, day, year, isItsName ? nullptr : dayName_) != 0;
}

template <typename Value, typename Picture>
void DateMatch<Value, Picture>::Store(FMTCntlBlock* block) const {
    block->Month = fields_[kMonth];
    block->Day = fields_[kDay];
    block->Year = fields_[kYear];
    block->Hour = fields_[kHour];
    block->Minute = fields_[kMinute];
    block->Second = fields_[kSecond];
    block->Microsecond = fields_[kMicrosecond];
    SetFlag(block, kFlagDateSeen, HasSeen(kDateSeen));
    SetFlag(block, kFlagTimeSeen, HasSeen(kTimeSeen));
    SetFlag(block, kFlagUnpaddedHour, HasSeen(kUnpaddedHour));
}

}  // namespace

int32_t FMTMatchDatePic(DatePicElement* valueList, DatePicElement* pictureList, FMTCntlBlock* block,
                        const FMTRegion& region) {
    if (valueList == nullptr || pictureList == nullptr) return 0;
    DateMatch<ListCursor, ListCursor> match(valueList, pictureList, region, block->Type);
    if (!match.Run()) return 0;
    match.Store(block);
    return 1;
}

QuickVerdict QuickMatchDatePic(const char* text, const char* picture, FMTCntlBlock* block, const FMTRegion& region) {
    if (*text == 0 || picture == nullptr || *picture == 0) return QuickVerdict::kFails;
    const PictureElements* elements = FMTPictureElements(picture);
    if (elements == nullptr) return QuickVerdict::kDeclined;
    if (!elements->accepted) return QuickVerdict::kFails;
    DateMatch<ValueScanCursor, PictureCursor> match(text, *elements, region, block->Type);
    const bool matches = match.Run();
    if (match.Declined()) return QuickVerdict::kDeclined;
    if (!matches) return QuickVerdict::kFails;
    match.Store(block);
    return QuickVerdict::kMatches;
}

int32_t FMTFindMonthWithSuffix(const char* word, const char* suffix) {
    const size_t wordLength = std::strlen(word);
    const size_t suffixLength = std::strlen(suffix);
    if (wordLength <= suffixLength) return 0;
    const size_t nameLength = wordLength - suffixLength;
    char name[DateScanner::kMaxTokenLength + 1];  // no word of a list is longer than a token
    if (nameLength >= sizeof name) return 0;
    size_t walked = 0;
    while (walked < nameLength) walked += static_cast<size_t>(IntlBytesInNextChar(word + walked));
    if (walked != nameLength || lstrcmpA(word + nameLength, suffix) != 0) return 0;

    std::memcpy(name, word, nameLength);
    name[nameLength] = 0;
    return FMTFindMonthName(name);
}
