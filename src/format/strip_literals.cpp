// Takes off a text what a section of a picture put round its digits.
#include <morvl15/intl.h>

#include "literal_walk.h"
#include "number_parse.h"
#include "picture_tokens.h"

namespace {

// The literal text of one end of a section, as the text shows it.
struct LiteralText {
    char bytes[kPictureSize];
    size_t length = 0;

    void Append(std::string_view shown) {
        std::memcpy(bytes + length, shown.data(), shown.size());
        length += shown.size();
    }
};

void TakePrefix(char* text, std::string_view prefix) {
    LiteralText literal;
    FMTLiteralWalk walk(prefix, FMTLiteralWalk::PadRule::kShown);
    while (walk.Next() != FMTLiteralWalk::Step::kEnd) literal.Append(walk.Shown());
    if (std::strncmp(text, literal.bytes, literal.length) != 0) return;
    std::memmove(text, text + literal.length, std::strlen(text + literal.length) + 1);
}

// A pad takes white space off the end of the text; it is no part of the literal text.
void TakeSuffix(char* text, std::string_view suffix) {
    LiteralText literal;
    FMTLiteralWalk walk(suffix, FMTLiteralWalk::PadRule::kPads);
    for (auto step = walk.Next(); step != FMTLiteralWalk::Step::kEnd; step = walk.Next()) {
        if (step == FMTLiteralWalk::Step::kPad) {
            IntlStripEndSpace(text, text);
        } else {
            literal.Append(walk.Shown());
        }
    }
    const size_t length = std::strlen(text);
    if (length < literal.length) return;
    char* end = text + length - literal.length;
    if (std::memcmp(end, literal.bytes, literal.length) == 0) *end = 0;
}

// The length of the digit run that a section begins with.
size_t RunLength(std::string_view section, FMTSeparators separators) {
    size_t at = 0;
    for (; at < section.size(); ++at) {
        const char c = section[at];
        const bool isDecimal = separators.decimal != 0 && c == separators.decimal;
        const bool isGroup = separators.thousand != 0 && c == separators.thousand && at + 1 < section.size() &&
                             FMTIsDigitPlace(section[at + 1]);
        if (!FMTIsDigitPlace(c) && !isDecimal && !isGroup) break;
    }
    return at;
}

}  // namespace

int32_t FMTStripPicLiterals(char* text, std::string_view section, bool* percent, bool skipSign,
                            FMTSeparators separators) {
    const size_t start = FindFirstOf(section, "#0");
    if (start == std::string_view::npos) return 0;
    TakePrefix(skipSign && *text == '-' ? text + 1 : text, section.substr(0, start));
    section.remove_prefix(start);
    section.remove_prefix(RunLength(section, separators));
    if (section.starts_with('%') && IntlStrChr(text, '%') != nullptr) *percent = true;
    TakeSuffix(text, section);
    return 1;
}
