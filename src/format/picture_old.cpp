// Number pictures of the old notation: separators are always "," and ".", and text needs no quotes.
#include "picture_walk.h"

namespace {

bool IsPictureMark(char character) {
    return character != 0 && std::strchr(";#0_'\"", character) != nullptr;
}

class OldPicture {
  public:
    OldPicture(const FMTPictureRegion& region, const char* picture, FMTPictureWriter* out)
        : region_(region), cursor_(picture), out_(out) {}

    void Run() {
        while (*cursor_ != 0) Step();
    }

  private:
    void Step() {
        const int32_t currency = CurrencyHere();
        if (FMTIsQuote(*cursor_)) {
            Literal();
        } else if (FMTIsDigitPlace(*cursor_)) {
            DigitRun();
        } else if (*cursor_ == ';') {
            NextSection();
        } else if (*cursor_ == '_') {
            Pair();
        } else if (currency != 0) {
            cursor_ = out_->PutUpTo(cursor_, cursor_ + currency);
        } else if (*cursor_ == ' ') {
            out_->Put(*cursor_++);
        } else {
            BareText();
        }
    }

    // The old notation knows no doubled quote.
    void Literal() {
        const char quote = *cursor_;
        out_->Put(*cursor_++);
        while (*cursor_ != 0) {
            const bool closes = *cursor_ == quote;
            cursor_ = out_->PutCharacter(cursor_);
            if (closes) return;
        }
    }

    void DigitRun() {
        afterDigits_ = true;
        for (;; ++cursor_) {
            if (FMTIsDigitPlace(*cursor_)) {
                out_->Put(*cursor_);
            } else if (*cursor_ == ',') {
                out_->PutSeparator(region_.thousand);
            } else if (*cursor_ == '.') {
                out_->PutSeparator(region_.decimal);
            } else {
                break;
            }
        }
        if (*cursor_ == '%') out_->Put(*cursor_++);
    }

    void NextSection() {
        out_->Put(*cursor_++);
        ++section_;
        afterDigits_ = false;
    }

    void Pair() {
        out_->Put(*cursor_++);
        cursor_ = out_->PutCharacter(cursor_);
    }

    // Text without quotes gets them.
    void BareText() {
        out_->Put('\'');
        do {
            cursor_ = out_->PutCharacter(cursor_);
        } while (!EndsBareText());
        out_->Put('\'');
    }

    bool EndsBareText() const {
        if (*cursor_ == 0 || IsPictureMark(*cursor_) || CurrencyHere() != 0) return true;
        return *cursor_ == ' ' && IsPictureMark(cursor_[1]);
    }

    int32_t CurrencyHere() const {
        const bool showsPositive = section_ == 0 || section_ == 2;
        return FMTMatch(cursor_,
                        showsPositive ? region_.PositiveMark(afterDigits_) : region_.NegativeMark(afterDigits_));
    }

    const FMTPictureRegion& region_;
    const char* cursor_;
    FMTPictureWriter* out_;
    int32_t section_ = 0;
    bool afterDigits_ = false;
};

}  // namespace

void FMTConvertOld(const FMTPictureRegion& region, const char* picture, FMTPictureWriter* out) {
    OldPicture(region, picture, out).Run();
}
