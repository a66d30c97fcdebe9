// Masking and unmasking of raw texts under raw pictures: nothing is written outside the told room, and what fits its
// mask comes back by masking again.
#include "input.h"
#include "mask/mask_picture.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const auto [picture, text] = SplitAt('\n', data, size);
    const std::string body = FMTMaskBody(picture.c_str());
    const size_t room = FMTIsPicUnlimited(picture.c_str())
                            ? text.size() + static_cast<size_t>(FMTCntNonMaskChars(picture.c_str())) + 1
                            : body.size() + 1;
    Room masked(room);
    if (!FMTMaskText(text.c_str(), masked, picture.c_str())) return 0;

    Room unmasked(text.size() + 1);
    FMTCntlBlock block{};
    block.Input = text.c_str();
    block.Picture = picture.c_str();
    block.Output = unmasked;
    if (!FMTUnmaskInput(&block)) return 0;
    Require(std::strlen(unmasked) <= text.size());

    // Without literals and with classes that unmasking tests, masking a text that fits changes nothing but its case.
    const bool isTested = body.find_first_not_of("9n") == std::string::npos && text.find(' ') == std::string::npos;
    Require(!isTested || text == static_cast<const char*>(masked));
    return 0;
}
