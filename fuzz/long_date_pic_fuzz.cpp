// Raw long date pictures of the profile. What comes out fits its field and holds no half of a character.
//
// Input: the language; F for Finland; the picture.
#include <string>

#include "format/settings.h"
#include "input.h"

namespace {

bool EndsInHalf(const std::string& text) {
    const char* last = text.c_str();
    for (const char* at = last; *at != 0; at += IntlBytesInNextChar(at)) last = at;
    return IntlIsKanji(static_cast<uint8_t>(*last)) != 0 && last[1] == 0;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    Input input(data, size);
    input.TakeLanguage();
    const int32_t country = input.TakeByte() == 'F' ? 358 : 1;
    const std::string picture = std::string(input.TakeText()).substr(0, kLongDatePicSize - 1);
    Room field(kLongDatePicSize);
    std::memcpy(field, picture.c_str(), picture.size() + 1);
    FMTFixLongDatePic(field, country);
    Require(std::memchr(field, 0, kLongDatePicSize) != nullptr);
    const std::string fixed(field);
    Require(!EndsInHalf(fixed) || EndsInHalf(picture));
    Require(picture.find('\'') != std::string::npos || country == 358 || fixed == picture);
    return 0;
}
