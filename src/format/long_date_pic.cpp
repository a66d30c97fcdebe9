// The long date picture of the profile. A profile may quote the separators of a date; the picture language takes them
// as plain punctuation, so they have to stand outside quotes.
#include <cstring>

#include <morvl15/intl.h>

#include "../intl/character.h"
#include "settings.h"

namespace {

constexpr uint16_t kApostrophe = '\'';
constexpr int32_t kFinland = 358;

bool IsSeparator(char character) {
    return character != 0 && std::strchr(".-/:\\,", character) != nullptr;
}

// The picture being made, bounded. A character that doesn't fit whole ends it.
class WorkText {
  public:
    void Put(const char* character, size_t size) {
        full_ = full_ || length_ + size > kRoom;
        if (full_) return;
        std::memcpy(text_ + length_, character, size);
        length_ += size;
    }
    void Put(char character) { Put(&character, 1); }
    void PutRange(const char* from, const char* to) {
        while (from < to) {
            const size_t size = IntlCharWidth(from);
            Put(from, size);
            from += size;
        }
    }
    const char* Text() const { return text_; }
    const char* End() const { return text_ + length_; }

  private:
    static constexpr size_t kRoom = 47;
    char text_[kRoom + 1] = {};
    size_t length_ = 0;
    bool full_ = false;
};

// What stands between two apostrophes.
struct QuotedRun {
    const char* begin;
    const char* end;
    bool hasSeparators = false;
    bool hasOtherText = false;  // blanks are neither

    QuotedRun(const char* from, const char* to) : begin(from), end(to) {
        for (const char* at = begin; at < end; at += IntlCharWidth(at)) {
            if (IsSeparator(*at)) {
                hasSeparators = true;
            } else if (*at != ' ') {
                hasOtherText = true;
            }
        }
    }
};

// Quotes stand round each stretch without separators.
void PutRequoted(const QuotedRun& run, WorkText* out) {
    bool quoted = false;
    for (const char* at = run.begin; at < run.end;) {
        if (IsSeparator(*at) == quoted) {
            out->Put('\'');
            quoted = !quoted;
        }
        const size_t size = IntlCharWidth(at);
        out->Put(at, size);
        at += size;
    }
    if (quoted) out->Put('\'');
}

void PutRun(const QuotedRun& run, WorkText* out) {
    if (!run.hasOtherText) {
        out->PutRange(run.begin, run.end);
    } else if (!run.hasSeparators) {
        out->PutRange(run.begin - 1, run.end + 1);
    } else {
        PutRequoted(run, out);
    }
}

void FreeSeparators(const char* picture, WorkText* out) {
    for (;;) {
        const char* open = IntlStrChr(picture, kApostrophe);
        const char* close = open == nullptr ? nullptr : IntlStrChr(open + 1, kApostrophe);
        if (close == nullptr) break;
        out->PutRange(picture, open);
        PutRun(QuotedRun(open + 1, close), out);
        picture = close + 1;
    }
    out->PutRange(picture, picture + std::strlen(picture));
}

// Finnish months carry an ending, "ta", that would be read as picture letters: it goes in quotes.
void QuoteMonthEnding(const WorkText& picture, WorkText* out) {
    const char* ending = IntlStrChr(picture.Text(), 'M');
    while (ending != nullptr && *ending == 'M') ++ending;
    if (ending == nullptr || *ending != 't') {
        *out = picture;
        return;
    }
    const char* const behind = IntlNextChar(ending + 1);
    out->PutRange(picture.Text(), ending);
    out->Put('\'');
    out->PutRange(ending, behind);
    out->Put('\'');
    out->PutRange(behind, picture.End());
}

void CopyCut(const WorkText& text, char* picture) {
    size_t length = 0;
    while (text.Text()[length] != 0) {
        const size_t size = IntlCharWidth(text.Text() + length);
        if (length + size >= kLongDatePicSize) break;
        length += size;
    }
    std::memcpy(picture, text.Text(), length);
    picture[length] = 0;
}

}  // namespace

void FMTFixLongDatePic(char* picture, int32_t country) {
    WorkText fixed;
    FreeSeparators(picture, &fixed);
    if (country == kFinland) {
        const WorkText unquoted = fixed;
        fixed = WorkText();
        QuoteMonthEnding(unquoted, &fixed);
    }
    CopyCut(fixed, picture);
}
