// FMTUnformatNumberStr: text that a picture made, read back; and FMTStrToNumber.
#include <cstdlib>

#include "fast_number.h"
#include "number_parse.h"
#include "picture_scan.h"
#include "picture_tokens.h"
#include "scientific.h"

namespace {

// One text on its way back through a picture.
struct UnformatWork {
    const char* input;
    char* text;  // where a copy of the input is stripped
    FMTSeparators separators;
    Number value;
};

enum class Attempt { kAccepted, kRejected, kNoPlaces };

void CopyInput(const UnformatWork& work) {
    std::memcpy(work.text, work.input, std::strlen(work.input) + 1);
}

Attempt TrySection(UnformatWork* work, std::string_view section, bool skipSign) {
    CopyInput(*work);
    bool percent = false;
    if (FMTStripPicLiterals(work->text, section, &percent, skipSign, work->separators) == 0) return Attempt::kNoPlaces;
    if (FMTParseNumberText(work->text, {work->separators, nullptr, false}, &work->value) == 0) {
        return Attempt::kRejected;
    }
    if (percent) NumPower10(&work->value, &work->value, -2);
    return Attempt::kAccepted;
}

bool UnformatCurrency(UnformatWork* work, const FMTRegion& region) {
    const FMTNumberForm form = FMTAmountForm(region);
    return FMTParseNumberText(work->input, form, &work->value) != 0;
}

bool UnformatUnsectioned(UnformatWork* work, const char* picture) {
    if (FMTIsSciPic(picture) != 0) {
        CopyInput(*work);
        if (FMTUnformatSci(work->text, work->separators.decimal, &work->value) != 0) return true;
    }
    return TrySection(work, picture, true) == Attempt::kAccepted;
}

// The sections are tried in order; the one that accepts the text tells the sign. One without digit places ends the
// search.
bool UnformatSections(UnformatWork* work, const FMTPictureSections& sections) {
    for (int32_t index = 0; index < sections.count; ++index) {
        if (sections.section[index].empty()) continue;
        const Attempt attempt = TrySection(work, sections.section[index], false);
        if (attempt == Attempt::kNoPlaces) return false;
        if (attempt == Attempt::kRejected) continue;
        if (index == 1) NumNegate(&work->value);
        if (index == 2) NumWordToNumber(&work->value, 0);
        return true;
    }
    return false;
}

bool Unformat(UnformatWork* work, const FMTRegion& region, const char* picture) {
    if (std::strcmp(picture, "$") == 0) return UnformatCurrency(work, region);
    const FMTPictureSections sections = FMTSplitPicture(picture);
    return sections.count == 1 ? UnformatUnsectioned(work, picture) : UnformatSections(work, sections);
}

}  // namespace

int32_t plain::UnformatNumberStr(FMTCntlBlock* block) {
    if ((block->Flags & kFlagUsable) == 0) return 0;
    if (block->Input == nullptr || block->Output == nullptr || block->Picture == nullptr) return 0;
    if (block->Input[0] == 0 || block->Picture[0] == 0) return 0;

    const FMTRegion region(block);
    char buffer[kPictureSize];
    const char* picture = FMTPictureText(region, block->Picture, buffer);
    // The output stays as it is until the end: it may be the input, of which each attempt takes a copy.
    const FMTScratchText text(std::strlen(block->Input) + 1);
    UnformatWork work = {block->Input, text.Text(), FMTSeparatorsOf(region), {}};
    if (picture == nullptr || work.text == nullptr || !Unformat(&work, region, picture) ||
        !FMTWriteNumber(work.value, block->Output)) {
        block->Output[0] = 0;
        return 0;
    }
    block->Value = work.value;
    return 1;
}

int32_t MORVL_CALL FMTUnformatNumberStr(FMTCntlBlock* block) {
    if (block == nullptr) return 0;
    switch (fast::UnformatNumberStr(block)) {
        case fast::Outcome::kAccepted: return 1;
        case fast::Outcome::kRejected: return 0;
        default: return plain::UnformatNumberStr(block);
    }
}

int32_t MORVL_CALL FMTStrToNumber(FMTCntlBlock* block) {
    if (block == nullptr || block->Input == nullptr) return 0;
    if (block->Input[0] != 0) {
        block->DoubleValue = std::atof(block->Input);
        return 1;
    }
    // Null for a double, if the other six bytes are zero.
    const double before = block->DoubleValue;
    uint64_t bits = 0;
    std::memcpy(&bits, &before, sizeof bits);
    bits = (bits & 0x0000FFFFFFFFFFFFu) | 0x7FF8000000000000u;
    std::memcpy(reinterpret_cast<char*>(block) + offsetof(FMTCntlBlock, DoubleValue), &bits, sizeof bits);
    return 1;
}
