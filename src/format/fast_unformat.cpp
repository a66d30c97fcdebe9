// FMTUnformatNumberStr in one pass: a section's literal text is looked for at both ends of the text, and what stands
// between is read. Nothing is copied.
#include "../intl/character.h"
#include "fast_parse.h"
#include "fast_picture.h"
#include "literal_walk.h"
#include "picture_tokens.h"

namespace {

using fast::Outcome;
using PadRule = FMTLiteralWalk::PadRule;

// The literal text that a section shows at one end.
class ShownText {
  public:
    ShownText(std::string_view text, bool plainText, PadRule padRule) : shown_(text) {
        if (plainText) return;
        FMTLiteralWalk walk(text, padRule);
        size_t length = 0;
        for (auto step = walk.Next(); step != FMTLiteralWalk::Step::kEnd; step = walk.Next()) {
            if (step == FMTLiteralWalk::Step::kPad) {
                hasPad_ = true;
                continue;
            }
            std::memcpy(buffer_ + length, walk.Shown().data(), walk.Shown().size());
            length += walk.Shown().size();
        }
        shown_ = {buffer_, length};
    }
    ShownText(const ShownText&) = delete;
    ShownText& operator=(const ShownText&) = delete;

    std::string_view Shown() const { return shown_; }
    bool HasPad() const { return hasPad_; }

  private:
    std::string_view shown_;
    bool hasPad_ = false;
    char buffer_[kPictureSize];
};

// Reads a text by one section. The one section of a picture may have its literal text behind a minus.
Outcome ReadBySection(std::string_view text, const fast::SectionShape& section, FMTSeparators separators,
                      bool unsectioned, fast::ParsedNumber* number) {
    const bool minus = unsectioned && text.starts_with('-');
    if (minus) text.remove_prefix(1);
    const ShownText prefix(section.shape.prefix, section.plainLiterals, PadRule::kShown);
    if (text.starts_with(prefix.Shown())) text.remove_prefix(prefix.Shown().size());

    const std::string_view tail = section.shape.suffix;
    const bool percent = tail.starts_with('%') && text.find('%') != std::string_view::npos;
    const ShownText suffix(tail, section.plainLiterals, PadRule::kPads);
    if (minus && suffix.Shown().starts_with('-')) return Outcome::kDeclined;  // it may be that minus
    if (suffix.HasPad()) {
        while (!text.empty() && IntlIsSpaceByte(text.back())) text.remove_suffix(1);
    }
    if (text.ends_with(suffix.Shown())) text.remove_suffix(suffix.Shown().size());

    if (text.empty() && !minus) return Outcome::kRejected;
    const Outcome outcome = number->Read(text, separators, minus);
    if (outcome == Outcome::kAccepted && percent) number->DivideBy100();
    return outcome;
}

Outcome ReadByPicture(std::string_view text, const fast::PictureShape& picture, FMTSeparators separators,
                      fast::ParsedNumber* number) {
    for (int32_t index = 0; index < picture.count; ++index) {
        const fast::SectionShape& section = picture.section[index];
        if (!section.shape.hasPlaces && section.shape.prefix.empty()) continue;
        if (!section.shape.hasPlaces) return Outcome::kRejected;
        const Outcome outcome = ReadBySection(text, section, separators, picture.count == 1, number);
        if (outcome == Outcome::kRejected) continue;
        if (outcome == Outcome::kDeclined) return outcome;
        if (index == 1) number->Negate();
        if (index == 2) number->SetZero();
        return outcome;
    }
    return Outcome::kRejected;
}

}  // namespace

fast::Outcome fast::UnformatNumberStr(FMTCntlBlock* block) {
    if ((block->Flags & kFlagUsable) == 0 || block->Input == nullptr) return Outcome::kDeclined;
    if (block->Output == nullptr || block->Picture == nullptr || block->Input[0] == 0) return Outcome::kDeclined;
    const FMTSeparators separators = FMTSeparatorsOf(FMTRegion(block));
    PictureShape picture;
    const std::string_view text = block->Input;
    if (IsUnusualText(text) || !ScanPicture(block->Picture, separators, &picture)) return Outcome::kDeclined;
    ParsedNumber number;
    const Outcome outcome = ReadByPicture(text, picture, separators, &number);
    if (outcome == Outcome::kDeclined) return outcome;
    if (outcome == Outcome::kRejected) {
        block->Output[0] = 0;
        return outcome;
    }
    Number value = {};
    if (!number.Store(&value) || !number.WriteText(block->Output)) return Outcome::kDeclined;
    block->Value = value;
    return outcome;
}
