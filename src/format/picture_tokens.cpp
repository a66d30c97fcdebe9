// The two forms of a number picture: what the conversions have in common.
#include "picture_tokens.h"

#include <cstring>

#include "picture_walk.h"

namespace {

using PictureConversion = void (*)(const FMTPictureRegion& region, const char* picture, FMTPictureWriter* out);

bool IsTooLong(const char* picture) {
    return std::memchr(picture, 0, kPictureSize) == nullptr;
}

// Pictures that are the same in every form.
bool HasOneForm(const char* picture) {
    return *picture == 0 || std::strcmp(picture, "$") == 0 || FMTIsSciPic(picture) != 0;
}

// The result is made aside, so that Output may be the buffer that Picture stands in.
int32_t Convert(FMTCntlBlock* block, PictureConversion conversion) {
    if (block == nullptr || block->Output == nullptr) return 0;
    const char* picture = block->Picture;
    if (picture == nullptr || IsTooLong(picture)) {
        *block->Output = 0;
        return 0;
    }
    FMTPictureWriter result;
    if (HasOneForm(picture)) {
        result.PutText(picture);
    } else {
        conversion(FMTPictureRegion(FMTRegion(block)), picture, &result);
    }
    return result.CopyTo(block->Output) ? 1 : 0;
}

}  // namespace

const char* FMTPastLiteral(const char* openingQuote, bool* closed) {
    const char quote = *openingQuote;
    const char* cursor = openingQuote + 1;
    *closed = false;
    while (*cursor != 0 && !*closed) {
        if ((*cursor == quote || *cursor == '\\') && cursor[1] == quote) {
            cursor += 2;
        } else if (*cursor == quote) {
            *closed = true;
            ++cursor;
        } else {
            cursor = IntlNextChar(cursor);
        }
    }
    return cursor;
}

const char* FMTPictureText(const FMTRegion& region, const char* picture, char (&buffer)[kPictureSize]) {
    const auto* end = static_cast<const char*>(std::memchr(picture, 0, kPictureSize));
    if (end == nullptr) return nullptr;
    if (std::memchr(picture, kTokenRunStart, static_cast<size_t>(end - picture)) == nullptr) return picture;
    if (HasOneForm(picture)) return picture;
    FMTPictureWriter text;
    FMTUnTokenize(FMTPictureRegion(region), picture, &text);
    return text.CopyTo(buffer) ? buffer : nullptr;
}

int32_t MORVL_CALL FMTIsNumberPicTokenized(const char* picture) {
    return picture != nullptr && std::strchr(picture, kTokenRunStart) != nullptr ? 1 : 0;
}

int32_t MORVL_CALL FMTTokenizeNumberPic(FMTCntlBlock* block) {
    return Convert(block, FMTTokenize);
}

int32_t MORVL_CALL FMTUnTokenizeNumberPic(FMTCntlBlock* block) {
    return Convert(block, FMTUnTokenize);
}

int32_t MORVL_CALL FMTCnvOldNumberPic(FMTCntlBlock* block) {
    return Convert(block, FMTConvertOld);
}
