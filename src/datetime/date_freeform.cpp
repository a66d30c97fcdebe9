#include "date_freeform.h"

#include <cstring>

#include <morvl15/host.h>
#include <morvl15/intl.h>
#include <morvl15/memory.h>

#include "date_block.h"

namespace {

constexpr const char* kDatePictures[] = {
    "MMM d, yyyy",  "MMM dd, yyyy", "MMMM d, yyyy",  "MMMM dd, yyyy", "yyyy-MM-dd", "d MMM, yyyy",
    "dd MMM, yyyy", "d MMMM, yyyy", "dd MMMM, yyyy", "M/d/yyyy",      "d-MMM-yyyy",
};

constexpr int32_t kMonthFirst = 0;  // the first of four: by the length of the month's name and the digits of the day
constexpr int32_t kIso = 4;
constexpr int32_t kDayFirst = 5;  // the first of four
constexpr int32_t kUs = 9;
constexpr int32_t kDashed = 10;
constexpr int32_t kNoShape = -1;

constexpr const char* kTimePictures[] = {"hh.mm.ss.mmmmmm AMPM", "hhhh.mm.ss.mmmmmm"};

constexpr int32_t k12Hour = 0;
constexpr int32_t k24Hour = 1;

// ---- the lengths of a date's words and numbers ---------------------------------------------------------------------

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}
bool IsLetter(char c) {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}
bool IsBlank(char c) {
    return c == ' ';
}
bool IsComma(char c) {
    return c == ',';
}

// A walk over the bytes of a token.
class TokenWalk {
  public:
    explicit TokenWalk(const DateToken& token) : cursor_(token.start), end_(token.start + token.length) {}

    template <typename Test>
    int32_t Count(Test test) {
        const char* from = cursor_;
        while (cursor_ < end_ && test(*cursor_)) ++cursor_;
        return static_cast<int32_t>(cursor_ - from);
    }

    void SkipBlanks() { Count(IsBlank); }
    void SkipBlanksAndCommas() {
        Count([](char c) { return IsBlank(c) || IsComma(c); });
    }
    void SkipTo(bool (*test)(char)) {
        Count([test](char c) { return !test(c); });
    }
    int32_t CountDigits() { return Count(IsDigit); }
    bool At(char c) const { return cursor_ < end_ && *cursor_ == c; }

  private:
    const char* cursor_;
    const char* end_;
};

bool IsOneOrTwo(int32_t count) {
    return count == 1 || count == 2;
}

// 1/2/2003 or 2003-01-02
int32_t CheckNumericDate(TokenWalk walk) {
    walk.SkipBlanks();
    const int32_t first = walk.CountDigits();
    const bool dashFollowsFirst = walk.At('-');
    walk.SkipTo(IsDigit);
    const int32_t second = walk.CountDigits();
    const bool dashFollowsSecond = walk.At('-');
    walk.SkipTo(IsDigit);
    const int32_t third = walk.CountDigits();
    if (!IsOneOrTwo(second)) return kNoShape;
    if (first == 4) return dashFollowsFirst && dashFollowsSecond && IsOneOrTwo(third) ? kIso : kNoShape;
    return IsOneOrTwo(first) && third == 4 ? kUs : kNoShape;
}

// Of four pictures the one for the length of the month's name and of the day; kNoShape for impossible lengths.
int32_t ChooseNamed(int32_t base, int32_t nameLength, int32_t dayDigits, int32_t yearDigits) {
    if (nameLength < 3 || !IsOneOrTwo(dayDigits) || yearDigits != 4) return kNoShape;
    return base + (nameLength > 3 ? 2 : 0) + dayDigits - 1;
}

// Jan 2, 2003
int32_t CheckMonthFirstDate(TokenWalk walk) {
    walk.SkipBlanks();
    const int32_t name = walk.Count([](char c) { return !IsBlank(c); });
    walk.SkipBlanks();
    const int32_t day = walk.CountDigits();
    walk.SkipBlanksAndCommas();
    return ChooseNamed(kMonthFirst, name, day, walk.CountDigits());
}

// 2 Jan, 2003
int32_t CheckDayFirstDate(TokenWalk walk) {
    walk.SkipBlanks();
    const int32_t day = walk.CountDigits();
    walk.SkipBlanks();
    const int32_t name = walk.Count([](char c) { return !IsBlank(c) && !IsComma(c); });
    walk.SkipBlanksAndCommas();
    return ChooseNamed(kDayFirst, name, day, walk.CountDigits());
}

// 2-Jan-2003 or 2-Jan-03
int32_t CheckDashedDate(TokenWalk walk) {
    walk.SkipBlanks();
    const int32_t day = walk.CountDigits();
    walk.SkipTo(IsLetter);
    const int32_t name = walk.Count(IsLetter);
    walk.SkipTo(IsDigit);
    const int32_t year = walk.CountDigits();
    return IsOneOrTwo(day) && name == 3 && (year == 4 || year == 2) ? kDashed : kNoShape;
}

// ---- the shape of a text -------------------------------------------------------------------------------------------

struct Shape {
    int32_t date = 0;
    int32_t time = k12Hour;
};

ScanState ShapeState(int32_t kind) {
    switch (kind) {
        case kTypeDate: return ScanState::kDateShape;
        case kTypeTime: return ScanState::kTimeShape;
        default: return ScanState::kDateTimeShape;
    }
}

// Whether the text is exactly one shape of a state, or a date's and a time's. Where both may stand, a date alone has to
// be `wholeLength` bytes long, otherwise a time must follow it.
bool RecogniseShape(const char* text, ScanState state, size_t wholeLength, Shape* shape) {
    DateScanner scanner(text, state);
    bool recognised = false;
    for (;;) {
        const DateToken token = scanner.Next();
        if (token.kind == ScanToken::kEnd) return recognised;
        if (token.kind == ScanToken::kTime) {
            shape->time = IsCharAlphaA(token.start[token.length - 1]) != 0 ? k12Hour : k24Hour;
        } else {
            shape->date = FMTCheckDateShape(token);
            if (shape->date == kNoShape) return false;
            if (scanner.State() == ScanState::kDateTimeShape && token.length < wholeLength) {
                scanner.Enter(ScanState::kTimeShape);
                continue;
            }
        }
        if (recognised) return false;
        recognised = true;
    }
}

// A copy of a text without white space at its ends, in the object itself or, for a long text, in a block.
class StrippedText {
  public:
    explicit StrippedText(const char* text) : text_(room_) {
        const char* start = IntlStripStartSpace(text);
        const size_t size = std::strlen(start) + 1;
        if (size > sizeof room_) text_ = static_cast<char*>(MemAlloc(static_cast<uint32_t>(size)));
        if (text_ != nullptr) IntlStripEndSpace(text_, start);
    }
    ~StrippedText() {
        if (text_ != room_) MemFree(text_);
    }
    StrippedText(const StrippedText&) = delete;
    StrippedText& operator=(const StrippedText&) = delete;

    // Null when there was no memory.
    const char* Text() const { return text_; }

  private:
    char* text_;
    char room_[256];
};

void WritePicture(char* pictureText, int32_t kind, const Shape& shape) {
    *pictureText = 0;
    if (kind != kTypeTime) std::strcat(pictureText, kDatePictures[shape.date]);
    if (kind == kTypeDateTime) std::strcat(pictureText, shape.date == kIso ? "-" : " ");
    if (kind != kTypeDate) std::strcat(pictureText, kTimePictures[shape.time]);
}

}  // namespace

int32_t FMTCheckDateShape(const DateToken& token) {
    switch (token.kind) {
        case ScanToken::kNumericDate: return CheckNumericDate(TokenWalk(token));
        case ScanToken::kMonthFirstDate: return CheckMonthFirstDate(TokenWalk(token));
        case ScanToken::kDayFirstDate: return CheckDayFirstDate(TokenWalk(token));
        case ScanToken::kDashedDate: return CheckDashedDate(TokenWalk(token));
        default: return kNoShape;
    }
}

int32_t FMTGuessDatePic(const char* text, int32_t kind, char* pictureText, bool allowUs) {
    *pictureText = 0;
    const StrippedText stripped(text);
    if (stripped.Text() == nullptr) return 0;
    Shape shape;
    if (!RecogniseShape(stripped.Text(), ShapeState(kind), std::strlen(text), &shape)) return 0;
    if (shape.date == kUs && !allowUs) return 0;
    WritePicture(pictureText, kind, shape);
    return 1;
}
