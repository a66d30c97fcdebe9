// From the text form of a number picture to the tokenized form.
#include "picture_walk.h"

namespace {

// Sections count from 0 here: the second one shows negative values.
constexpr int32_t kNegative = 1;

class Tokenizer {
  public:
    Tokenizer(const FMTPictureRegion& region, const char* picture, FMTPictureWriter* out)
        : region_(region), cursor_(picture), out_(out) {}

    void Run() {
        while (*cursor_ != 0) Step();
        RestoreLoneMinus();
    }

  private:
    void Step() {
        if (*cursor_ == ';') {
            NextSection();
        } else if (FMTIsQuote(*cursor_)) {
            bool closed = false;
            cursor_ = out_->PutUpTo(cursor_, FMTPastLiteral(cursor_, &closed));
        } else if (FMTIsDigitPlace(*cursor_)) {
            DigitRun();
        } else if (*cursor_ == '_') {
            Pair();
        } else if (!PositiveMark() && !NegativeMark()) {
            Plain();
        }
    }

    void NextSection() {
        out_->Put(*cursor_++);
        ++section_;
        afterDigits_ = false;
    }

    void DigitRun() {
        out_->Put(kTokenRunStart);
        afterDigits_ = true;
        while (*cursor_ != 0) {
            if (FMTIsDigitPlace(*cursor_)) {
                out_->Put(*cursor_++);
            } else if (*cursor_ == region_.thousand && FMTIsDigitPlace(cursor_[1])) {
                PutToken(kTokenThousand, 1);
            } else if (*cursor_ == region_.decimal && *cursor_ != region_.thousand) {
                PutToken(kTokenDecimal, 1);
                if (!FMTIsDigitPlace(*cursor_)) break;
            } else {
                break;
            }
        }
        out_->Put(kTokenRunEnd);
    }

    // A pair keeps the room of a character that other sections show: a positive section names the negative suffix, a
    // negative one the positive suffix.
    void Pair() {
        PutToken(kTokenPad, 1);
        const int32_t negative = ShowsPositive() ? FMTMatch(cursor_, region_.strings.negSuffix) : 0;
        const int32_t positive = section_ != 0 ? FMTMatch(cursor_, region_.strings.posSuffix) : 0;
        if (negative != 0) {
            PutToken(kTokenNegSuffix, negative);
        } else if (positive != 0) {
            PutToken(kTokenPosSuffix, positive);
        } else {
            cursor_ = out_->PutCharacter(cursor_);
        }
    }

    bool PositiveMark() {
        const int32_t length = ShowsPositive() ? FMTMatch(cursor_, region_.PositiveMark(afterDigits_)) : 0;
        if (length == 0) return false;
        PutToken(afterDigits_ ? kTokenPosSuffix : kTokenPosPrefix, length);
        return true;
    }

    bool NegativeMark() {
        const int32_t length = FMTMatch(cursor_, region_.NegativeMark(afterDigits_));
        if (length == 0) return false;
        if (section_ == kNegative) {
            if (afterDigits_ && sawParen_) {  // it closes the parenthesis
                cursor_ = out_->PutCharacter(cursor_);
                return true;
            }
            if (length == 1 && *cursor_ == '-') loneMinusAt_ = out_->Length();
            (afterDigits_ ? sawNegSuffix_ : sawNegPrefix_) = true;
        }
        PutToken(afterDigits_ ? kTokenNegSuffix : kTokenNegPrefix, length);
        return true;
    }

    void Plain() {
        if (section_ == kNegative && region_.HasParens() && *cursor_ == '(') sawParen_ = true;
        cursor_ = out_->PutCharacter(cursor_);
    }

    // Only a pair of negative marks stays as tokens: a minus without a partner is a character of the picture.
    void RestoreLoneMinus() {
        if (loneMinusAt_ >= 0 && sawNegPrefix_ != sawNegSuffix_) out_->Replace(loneMinusAt_, '-');
    }

    void PutToken(char token, int32_t passed) {
        out_->Put(token);
        cursor_ += passed;
    }

    bool ShowsPositive() const { return section_ == 0 || section_ == 2; }

    const FMTPictureRegion& region_;
    const char* cursor_;
    FMTPictureWriter* out_;
    int32_t section_ = 0;
    bool afterDigits_ = false;

    // Of the second section.
    bool sawNegPrefix_ = false;
    bool sawNegSuffix_ = false;
    bool sawParen_ = false;
    int32_t loneMinusAt_ = -1;
};

}  // namespace

void FMTTokenize(const FMTPictureRegion& region, const char* picture, FMTPictureWriter* out) {
    Tokenizer(region, picture, out).Run();
}
