// Masking and unmasking of raw texts under raw pictures: nothing is written outside the told room, and what fits its
// mask comes back by masking again.
#include <cstdlib>
#include <cstring>
#include <string>

#include <morvl15/mask.h>

#include "mask/mask_picture.h"

namespace {

// Both parts of the input as texts; the first line is the picture.
void Split(const uint8_t* data, size_t size, std::string* picture, std::string* text) {
    const std::string all(reinterpret_cast<const char*>(data), size);
    const size_t line = all.find('\n');
    *picture = all.substr(0, line).c_str();
    *text = line == std::string::npos ? "" : all.substr(line + 1).c_str();
}

std::string Room(size_t size) {
    return std::string(size, '\x5A');
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    std::string picture;
    std::string text;
    Split(data, size, &picture, &text);
    const char* body = FMTMaskBody(picture.c_str());

    const size_t room = FMTIsPicUnlimited(picture.c_str())
                            ? text.size() + static_cast<size_t>(FMTCntNonMaskChars(picture.c_str())) + 1
                            : std::strlen(body) + 1;
    std::string masked = Room(room);  // exactly as told: the sanitizer watches the byte behind it
    if (!FMTMaskText(text.c_str(), masked.data(), picture.c_str())) return 0;

    std::string unmasked = Room(text.size() + 1);
    FMTCntlBlock block{};
    block.Input = text.c_str();
    block.Picture = picture.c_str();
    block.Output = unmasked.data();
    if (!FMTUnmaskInput(&block)) return 0;
    if (std::strlen(unmasked.c_str()) > text.size()) std::abort();

    // Without literals and with classes that unmasking tests, masking a text that fits changes nothing but its case.
    if (std::strspn(body, "9n") == std::strlen(body) && text.find(' ') == std::string::npos &&
        std::strcmp(masked.c_str(), text.c_str()) != 0) {
        std::abort();
    }
    return 0;
}
