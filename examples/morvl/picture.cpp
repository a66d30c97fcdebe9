#include "picture.h"

#include <algorithm>
#include <cstdio>

#include <morvl15/datetime.h>
#include <morvl15/format.h>
#include <morvl15/host.h>
#include <morvl15/mask.h>

#include "encoding.h"

namespace {

constexpr size_t kLongestNumberPicture = 63;

bool IsNumberPicture(const std::string& picture) {
    FMTCntlBlock block{};
    FMTInitCntlBlock(&block);
    block.UseProfile = 1;
    block.Picture = picture.c_str();
    return FMTIsNumberPicValid(&block) != 0;
}

bool IsDatePicture(const std::string& picture) {
    return FMTIsDatePicValid(picture.c_str()) != 0;
}

bool IsMaskPicture(const std::string& picture) {
    const char* body = picture.c_str();
    return FMTIsValidMaskFormat(FMTIsPicNoUnmaskOnGets(body) != 0 ? body + 1 : body) != 0;
}

std::string NumberHint() {
    FMTIntlSettings settings;
    FMTGetProfileIntl(&settings);
    const char group[] = {settings.sThousand, 0};
    const char decimal[] = {settings.sDecimal, 0};
    return "Under the settings in force (morvl profile) \"" + Readable(group) + "\" groups and \"" + Readable(decimal) +
           "\" divides; a picture has at most 63 bytes.";
}

std::string DateHint() {
    return "Letters count in their case (M months, mm minutes); words stand in '...'.";
}

std::string MaskHint() {
    return "A mask has at least one of 9 a A n N X ! *, and the * only at its end.";
}

// What a beginning may still need: the end of a quote or a pair, of a digit run, of an exponent, of a run of letters.
constexpr const char* kNumberContinuations[] = {"",   "'", "\"", "0",    "#",   "##0", "'0",    "\"0", ")",
                                                "0)", "x", "0'", "0E+0", "E+0", "+0",  ".0E+0", ";"};
constexpr const char* kDateContinuations[] = {"", "'", "y", "yy", "yyy", "m", "mm", "mmmm", "s", "MPM", "PM", "M"};
constexpr const char* kMaskContinuations[] = {"", "9"};

// The end of the longest beginning that can become a whole picture. What stands there can't stand there; at the end of
// the text something is missing.
size_t FaultIn(const PictureKind& kind, const std::string& picture) {
    for (size_t end = picture.size(); end > 0; --end) {
        const std::string beginning = picture.substr(0, end);
        const auto completes = [&](const char* continuation) { return kind.isValid(beginning + continuation); };
        if (std::ranges::any_of(kind.continuations, completes)) return end;
    }
    return 0;
}

}  // namespace

const PictureKind kNumberPicture = {"number picture", "docs/number-pictures.md", IsNumberPicture, kNumberContinuations,
                                    NumberHint};
const PictureKind kDatePicture = {"date picture", "docs/date-pictures.md", IsDatePicture, kDateContinuations, DateHint};
const PictureKind kMaskPicture = {"mask", "docs/masks.md", IsMaskPicture, kMaskContinuations, MaskHint};

std::optional<std::string> TakePicture(const Command& command, const PictureKind& kind, const std::string& utf8) {
    std::string picture;
    size_t at = 0;
    const char* what = "no UTF-8, or no character of the code page, which goes by LANG";
    if (ToCodePage().Convert(utf8, &picture, &at)) {
        if (kind.isValid(picture)) return picture;
        const size_t fault = FaultIn(kind, picture);
        at = Readable(picture.substr(0, fault)).size();
        what = fault < picture.size() ? "can't stand here" : "something is missing";
        if (&kind == &kNumberPicture && picture.size() > kLongestNumberPicture) what = "the picture is too long";
    }
    const size_t blanks = CharactersIn(std::string_view(utf8).substr(0, at));
    std::fprintf(stderr, "morvl %s: this is no %s:\n    %s\n    %*s^ %s\n%s See %s.\n", command.name, kind.name,
                 utf8.c_str(), static_cast<int>(blanks), "", what, kind.hint().c_str(), kind.page);
    return std::nullopt;
}
