// From the tokenized form of a number picture to the text form, in the conventions of a region.
#include "picture_walk.h"

namespace {

// Whether a token comes before the end, the section's end and any of the stops.
bool IsAhead(const char* cursor, char token, const char* stops) {
    for (; *cursor != 0; ++cursor) {
        if (*cursor == token) return true;
        if (std::strchr(stops, *cursor) != nullptr) return false;
    }
    return false;
}

constexpr char kSectionEnd[] = ";";
constexpr char kSectionEndOrPair[] = {';', kTokenPad, 0};

class UnTokenizer {
  public:
    UnTokenizer(const FMTPictureRegion& region, const char* picture, FMTPictureWriter* out)
        : region_(region), cursor_(picture), out_(out) {}

    void Run() {
        while (*cursor_ != 0) Step();
    }

  private:
    void Step() {
        switch (*cursor_) {
            case kTokenThousand: out_->PutSeparator(region_.thousand); break;
            case kTokenDecimal: out_->PutSeparator(region_.decimal); break;
            case kTokenPosPrefix:
                out_->PutText(region_.strings.posPrefix);
                sawPosPrefix_ = true;
                break;
            case kTokenPosSuffix: out_->PutText(region_.strings.posSuffix); break;
            case kTokenNegPrefix:
                out_->PutText(region_.strings.negPrefix);
                sawNegPrefix_ = true;
                break;
            case kTokenNegSuffix: out_->PutText(region_.strings.negSuffix); break;
            case kTokenRunStart: PutPrefixOfFarSymbol(); break;
            case kTokenRunEnd: PutSuffixOfFarSymbol(); break;
            case ';': NextSection(); break;
            case kTokenPad: Pair(); return;
            default: cursor_ = out_->PutCharacter(cursor_); return;
        }
        ++cursor_;
    }

    void NextSection() {
        out_->Put(';');
        ++section_;
        sawPosPrefix_ = false;
        sawNegPrefix_ = false;
    }

    // A pair comes back only where it still means one character.
    void Pair() {
        ++cursor_;
        if (*cursor_ == kTokenPosSuffix) {
            PutPairOf(region_.strings.posSuffix, region_.strings.negSuffix);
        } else if (*cursor_ == kTokenNegSuffix) {
            PutPairOf(region_.strings.negSuffix, region_.strings.posSuffix);
        } else {
            out_->Put('_');
            cursor_ = out_->PutCharacter(cursor_);
        }
    }

    void PutPairOf(const char* named, const char* other) {
        ++cursor_;
        if (std::strlen(named) != 1 || *other != 0) return;
        out_->Put('_');
        out_->Put(*named);
    }

    // The picture may come from a country that writes the symbol behind the amount, where its token expands to nothing
    // here: the symbol then goes in front.
    void PutPrefixOfFarSymbol() {
        const FMTCurrencyStrings& strings = region_.strings;
        if (ShowsPositive() && !sawPosPrefix_ && *strings.posPrefix != 0) {
            if (IsAhead(cursor_ + 1, kTokenPosSuffix, kSectionEndOrPair)) out_->PutText(strings.posPrefix);
        } else if (section_ != 0 && !sawNegPrefix_ && *strings.negPrefix != 0) {
            if (IsAhead(cursor_ + 1, kTokenNegSuffix, kSectionEndOrPair)) out_->PutText(strings.negPrefix);
        }
    }

    // The same the other way round.
    void PutSuffixOfFarSymbol() {
        const FMTCurrencyStrings& strings = region_.strings;
        if (ShowsPositive() && sawPosPrefix_ && *strings.posSuffix != 0) {
            if (!IsAhead(cursor_ + 1, kTokenPosSuffix, kSectionEndOrPair)) out_->PutText(strings.posSuffix);
        } else if (section_ != 0 && sawNegPrefix_ && *strings.negSuffix != 0) {
            if (!IsAhead(cursor_ + 1, kTokenNegSuffix, kSectionEnd)) out_->PutText(strings.negSuffix);
        }
    }

    bool ShowsPositive() const { return section_ == 0 || section_ == 2; }

    const FMTPictureRegion& region_;
    const char* cursor_;
    FMTPictureWriter* out_;
    int32_t section_ = 0;
    bool sawPosPrefix_ = false;
    bool sawNegPrefix_ = false;
};

}  // namespace

void FMTUnTokenize(const FMTPictureRegion& region, const char* picture, FMTPictureWriter* out) {
    UnTokenizer(region, picture, out).Run();
}
