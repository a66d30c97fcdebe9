// Which number pictures are valid. Stricter than what the conversions and the formatting make do with.
#include <cstring>

#include "picture_walk.h"

namespace {

// The digit run of a section: the places that its rules look back to.
class DigitRun {
  public:
    explicit DigitRun(const FMTPictureRegion& region) : region_(region) {}

    // Passes the run at the cursor. Null if it breaks a rule.
    const char* Pass(const char* cursor) {
        for (; *cursor != 0; ++cursor) {
            if (FMTIsDigitPlace(*cursor)) {
                if (!AllowsPlace(*cursor)) return nullptr;
                Note(*cursor);
            } else if (*cursor == region_.decimal) {
                if (decimal_ != nullptr || !IsGroupComplete(cursor)) return nullptr;
                decimal_ = cursor;
            } else if (*cursor == region_.thousand) {
                if (!FMTIsDigitPlace(cursor[1])) return MayEndRun(*cursor) ? cursor : nullptr;
                if (!IsGroupComplete(cursor)) return nullptr;
                group_ = cursor;
            } else {
                return *cursor == '%' ? cursor + 1 : cursor;
            }
        }
        return cursor;
    }

  private:
    // Outwards from the decimal separator "0" comes first, then "#".
    bool AllowsPlace(char place) const {
        if (decimal_ == nullptr) return place == '0' || !sawZero_;
        return place == '#' || !sawHashBehindDecimal_;
    }

    void Note(char place) {
        if (place == '0') {
            sawZero_ = true;
        } else if (decimal_ != nullptr) {
            sawHashBehindDecimal_ = true;
        }
    }

    // A separator stands three places behind the group separator before it.
    bool IsGroupComplete(const char* separator) const { return group_ == nullptr || separator - group_ == 4; }

    // A group separator that is a picture character too.
    static bool MayEndRun(char thousand) { return thousand == ' ' || thousand == '\''; }

    const FMTPictureRegion& region_;
    bool sawZero_ = false;
    bool sawHashBehindDecimal_ = false;
    const char* group_ = nullptr;
    const char* decimal_ = nullptr;
};

enum class Verdict { kGoOn, kValid, kInvalid };

class SectionCheck {
  public:
    SectionCheck(const FMTPictureRegion& region, const char* section, int32_t number, int32_t* sawCurrency)
        : region_(region), cursor_(section), number_(number), sawCurrency_(sawCurrency) {}

    bool IsValid() {
        while (*cursor_ != 0) {
            const Verdict verdict = Step();
            if (verdict != Verdict::kGoOn) return verdict == Verdict::kValid;
        }
        return !openParen_ || closeParen_;
    }

  private:
    Verdict Step() {
        if (FMTIsQuote(*cursor_)) return Literal();
        if (FMTIsDigitPlace(*cursor_)) return Digits();
        if (*cursor_ == '_') return cursor_[1] != 0 && cursor_[2] == 0 ? Verdict::kValid : Verdict::kInvalid;
        if (*cursor_ == ')' && TakesParens() && sawDigits_ && openParen_) return Once(&closeParen_, true);
        const int32_t currency = CurrencyHere();
        if (currency != 0) return Currency(currency);
        if (*cursor_ == '(' && TakesParens()) return Once(&openParen_, *sawCurrency_ == 0 && !sawDigits_ && !sawMinus_);
        if (*cursor_ == '-' && number_ == 2) {
            return Once(&sawMinus_, *sawCurrency_ == 0 && !openParen_ && !closeParen_);
        }
        return *cursor_ == ' ' ? Pass(1) : Verdict::kInvalid;
    }

    Verdict Literal() {
        bool closed = false;
        cursor_ = FMTPastLiteral(cursor_, &closed);
        return closed ? Verdict::kGoOn : Verdict::kInvalid;
    }

    Verdict Digits() {
        if (sawDigits_) return Verdict::kInvalid;
        sawDigits_ = true;
        cursor_ = DigitRun(region_).Pass(cursor_);
        return cursor_ != nullptr ? Verdict::kGoOn : Verdict::kInvalid;
    }

    Verdict Currency(int32_t length) {
        if (sawMinus_ || openParen_) return Verdict::kInvalid;
        *sawCurrency_ = 1;
        return Pass(length);
    }

    // A mark of one byte that a section has at most once.
    Verdict Once(bool* seen, bool allowed) {
        if (*seen || !allowed) return Verdict::kInvalid;
        *seen = true;
        return Pass(1);
    }

    Verdict Pass(int32_t bytes) {
        cursor_ += bytes;
        return Verdict::kGoOn;
    }

    // The third section may show either kind of currency string.
    int32_t CurrencyHere() const {
        const int32_t positive = number_ != 2 ? FMTMatch(cursor_, region_.PositiveMark(sawDigits_)) : 0;
        if (positive != 0 || number_ == 1) return positive;
        return FMTMatch(cursor_, region_.NegativeMark(sawDigits_));
    }

    bool TakesParens() const { return number_ == 2 && region_.HasParens(); }

    const FMTPictureRegion& region_;
    const char* cursor_;
    int32_t number_;
    int32_t* sawCurrency_;
    bool sawDigits_ = false;
    bool openParen_ = false;
    bool closeParen_ = false;
    bool sawMinus_ = false;
};

// Cuts a text at its first ";". The text behind it, or null if there is none.
char* CutSection(char* text) {
    char* separator = std::strchr(text, ';');
    if (separator == nullptr) return nullptr;
    *separator = 0;
    return separator + 1;
}

int32_t AreSectionsValid(const FMTPictureRegion& region, char* text) {
    int32_t sawCurrency = 0;
    for (int32_t number = 1; text != nullptr; ++number) {
        if (number > 3) return 0;
        char* const rest = CutSection(text);
        if (*text != 0 && FMTIsNumberPicSectionValid(region, text, number, &sawCurrency) == 0) return 0;
        text = rest;
    }
    return 1;
}

}  // namespace

int32_t FMTIsNumberPicSectionValid(const FMTPictureRegion& region, const char* section, int32_t sectionNumber,
                                   int32_t* sawCurrency) {
    return SectionCheck(region, section, sectionNumber, sawCurrency).IsValid() ? 1 : 0;
}

int32_t MORVL_CALL FMTIsNumberPicValid(FMTCntlBlock* block) {
    if (block == nullptr || block->Picture == nullptr) return 0;
    const char* picture = block->Picture;
    const FMTRegion region(block);
    char buffer[kPictureSize];
    const char* text = FMTPictureText(region, picture, buffer);
    if (text == nullptr) return 0;
    if (std::strcmp(picture, "$") == 0) return 1;
    if (FMTIsSciPic(picture) != 0) return FMTIsSciPicValid(picture);
    if (text == picture) std::strcpy(buffer, picture);
    return AreSectionsValid(FMTPictureRegion(region), buffer);
}
