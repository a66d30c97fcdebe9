#include "encoding.h"

#include <algorithm>
#include <cstdint>

#include <morvl15/host.h>

namespace {

constexpr size_t kMostBytesOfCharacter = 4;

bool IsContinuation(char byte) {
    return (static_cast<uint8_t>(byte) & 0xC0) == 0x80;
}

}  // namespace

Charset::~Charset() {
    if (IsOpen()) iconv_close(converter_);
}

bool Charset::IsOpen() const {
    return converter_ != reinterpret_cast<iconv_t>(-1);
}

bool Charset::Convert(std::string_view text, std::string* converted, size_t* badAt) {
    *badAt = 0;
    if (IsAscii(text)) {
        converted->assign(text);
        return true;
    }
    if (!IsOpen()) return false;
    iconv(converter_, nullptr, nullptr, nullptr, nullptr);
    converted->resize(kMostBytesOfCharacter * text.size());
    char* in = const_cast<char*>(text.data());  // which iconv doesn't write to
    size_t inLeft = text.size();
    char* out = converted->data();
    size_t outLeft = converted->size();
    const bool isWhole = iconv(converter_, &in, &inLeft, &out, &outLeft) != static_cast<size_t>(-1);
    *badAt = text.size() - inLeft;
    converted->resize(converted->size() - outLeft);
    return isWhole;
}

std::string CodePageName() {
    return "CP" + std::to_string(GetACP());
}

bool IsAscii(std::string_view text) {
    uint8_t bits = 0;
    for (const char byte : text) bits |= static_cast<uint8_t>(byte);
    return bits < 0x80;
}

size_t CharactersIn(std::string_view utf8) {
    return utf8.size() - static_cast<size_t>(std::ranges::count_if(utf8, IsContinuation));
}

std::string_view CharacterAt(std::string_view utf8, size_t at) {
    size_t end = std::min(at + 1, utf8.size());
    while (end < utf8.size() && IsContinuation(utf8[end])) ++end;
    return utf8.substr(at, end - at);
}

Charset& ToCodePage() {
    static Charset charset(CodePageName().c_str(), "UTF-8");
    return charset;
}

Charset& ToUtf8() {
    static Charset charset("UTF-8", CodePageName().c_str());
    return charset;
}

std::string Readable(std::string_view text) {
    std::string utf8;
    size_t badAt = 0;
    if (ToUtf8().Convert(text, &utf8, &badAt)) return utf8;
    std::string plain(text);
    std::ranges::replace_if(
        plain, [](char byte) { return static_cast<uint8_t>(byte) >= 0x80; }, '?');
    return plain;
}
