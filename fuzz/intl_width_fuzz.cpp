// Width conversion of raw bytes, there and back.
#include "input.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    Input input(data, std::min(size, size_t{1024}));
    input.TakeLanguage();
    const Room text = input.TakeText();
    const size_t bytes = std::strlen(text);
    Room full(2 * bytes + 1);
    Room half(bytes + 1);
    Require(IntlStrJapanFull(full, text) == IntlStrLen(full));
    Require(IntlStrJapanHalf(half, text) == IntlStrLen(half));

    // Over itself the same; and a half-width text doesn't get any narrower, but where its bytes are leads.
    Room same(bytes + 1);
    std::memcpy(same, text, bytes + 1);
    IntlStrJapanHalf(same, same);
    Require(std::strcmp(same, half) == 0);
    if (IntlIsKatakana(0xB1)) {
        IntlStrJapanHalf(same, half);
        Require(std::strcmp(same, half) == 0);
    }
    return 0;
}
