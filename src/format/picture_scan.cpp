// Scans of number pictures: where the sections are cut, and what a section's digit places ask for.
#include "picture_scan.h"

#include "picture_tokens.h"
#include "text_step.h"

namespace {

// A walk over a section from one of its characters on.
class SectionWalk {
  public:
    SectionWalk(std::string_view section, size_t from, FMTSeparators separators)
        : section_(section), at_(from), separators_(separators) {}

    bool AtEnd() const { return at_ >= section_.size(); }
    size_t At() const { return at_; }
    bool OnPlace() const { return !AtEnd() && FMTIsDigitPlace(section_[at_]); }
    bool OnZero() const { return !AtEnd() && section_[at_] == '0'; }
    bool OnThousand() const { return IsSeparator(separators_.thousand); }
    bool OnDecimal() const { return IsSeparator(separators_.decimal); }
    bool PlaceFollows() const { return at_ + 1 < section_.size() && FMTIsDigitPlace(section_[at_ + 1]); }
    void Step() { at_ += TextStep(section_.substr(at_)); }

  private:
    // A separator that is a lead byte is meant only where it stands alone.
    bool IsSeparator(char separator) const {
        return !AtEnd() && separator != 0 && section_[at_] == separator && TextStep(section_.substr(at_)) == 1;
    }

    std::string_view section_;
    size_t at_;
    FMTSeparators separators_;
};

// A group separator with a digit place behind it, anywhere in the digit run.
bool HasGrouping(SectionWalk walk) {
    while (walk.OnPlace() || walk.OnThousand() || walk.OnDecimal()) {
        if (walk.OnThousand() && walk.PlaceFollows()) return true;
        walk.Step();
    }
    return false;
}

// The position of the decimal separator in the digit run, npos for none.
size_t FindDecimal(SectionWalk walk) {
    while (walk.OnPlace() || walk.OnThousand() || walk.OnDecimal()) {
        if (walk.OnDecimal()) return walk.At();
        walk.Step();
    }
    return std::string_view::npos;
}

void CountFraction(SectionWalk walk, std::string_view section, FMTSectionShape* shape) {
    for (walk.Step(); walk.OnPlace(); walk.Step()) {
        ++shape->fracDigits;
        if (walk.OnZero()) ++shape->fracZeros;
    }
    shape->suffix = section.substr(walk.At());
}

// Counts the zeros before the decimal separator.
int32_t CountZeros(SectionWalk walk, size_t decimalAt) {
    int32_t zeros = 0;
    for (; walk.At() < decimalAt; walk.Step()) {
        if (walk.OnZero()) ++zeros;
    }
    return zeros;
}

// Behind the last digit place of the walk, which goes on while digit places and group separators come.
size_t PlacesEnd(SectionWalk walk) {
    size_t end = walk.At();
    for (; walk.OnPlace() || walk.OnThousand(); walk.Step()) {
        if (walk.OnPlace()) end = walk.At() + 1;
    }
    return end;
}

}  // namespace

FMTPictureSections FMTSplitPicture(std::string_view picture) {
    FMTPictureSections sections = {};
    while (sections.count < 3) {
        const size_t cut = FindFirstOf(picture, ";");
        sections.section[sections.count++] = picture.substr(0, cut);
        if (cut == std::string_view::npos) break;
        picture.remove_prefix(cut + 1);
    }
    return sections;
}

FMTSectionShape FMTScanNumberPic(std::string_view section, FMTSeparators separators) {
    FMTSectionShape shape = {};
    const size_t start = FindFirstOf(section, "#0");
    shape.prefix = section.substr(0, start);
    if (start == std::string_view::npos) return shape;
    shape.hasPlaces = true;

    const SectionWalk places(section, start, separators);
    shape.grouping = HasGrouping(places);
    const size_t decimalAt = FindDecimal(places);
    const size_t zeroAt = FindFirstOf(section, "0", start);
    const SectionWalk zeros(section, zeroAt, separators);

    if (decimalAt != std::string_view::npos) {
        CountFraction(SectionWalk(section, decimalAt, separators), section, &shape);
        shape.intZeros = CountZeros(zeros, decimalAt);
    } else if (zeroAt != std::string_view::npos) {
        // Zeros in the literal text behind the digits go on counting.
        shape.intZeros = CountZeros(zeros, section.size());
        shape.suffix = section.substr(PlacesEnd(zeros));
    } else {
        shape.suffix = section.substr(PlacesEnd(places));
    }
    return shape;
}
