// Raw long date pictures of the profile. What comes out fits its field and holds no half of a character.
//
// Input: a letter, J for Japanese, F for Finland; the picture.
#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>

#include <morvl15/host_native.h>
#include <morvl15/intl.h>

#include "format/settings.h"

namespace {

void UseLanguage(bool japanese) {
    static int32_t inForce = -1;
    if (inForce == static_cast<int32_t>(japanese)) return;
    inForce = static_cast<int32_t>(japanese);
    const LANGID language = japanese ? 0x0411 : 0x0409;
    HostSetLanguages(language, language);
    IntlInit();
}

// A text may end in half a character only if it came so.
bool EndsInHalf(const std::string& text) {
    const char* last = text.c_str();
    for (const char* at = last; *at != 0; at += IntlBytesInNextChar(at)) last = at;
    return IntlIsKanji(static_cast<uint8_t>(*last)) != 0 && last[1] == 0;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size == 0) return 0;
    UseLanguage(data[0] == 'J');
    const std::string raw(reinterpret_cast<const char*>(data) + 1, size - 1);
    const std::string picture = raw.substr(0, kLongDatePicSize - 1).c_str();
    const std::unique_ptr<char[]> field(new char[kLongDatePicSize]);
    std::memset(field.get(), 'x', kLongDatePicSize);
    std::memcpy(field.get(), picture.c_str(), picture.size() + 1);
    FMTFixLongDatePic(field.get(), data[0] == 'F' ? 358 : 1);
    if (std::memchr(field.get(), 0, kLongDatePicSize) == nullptr) std::abort();
    if (EndsInHalf(field.get()) && !EndsInHalf(picture)) std::abort();
    const bool plain = picture.find('\'') == std::string::npos && data[0] != 'F';
    if (plain && picture != field.get()) std::abort();
    return 0;
}
