// Scans and searches of raw texts for raw patterns and sets.
#include "input.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    Input input(data, std::min(size, size_t{512}));
    input.TakeLanguage();
    const Room pattern = input.TakeText();
    const Room text = input.TakeText();
    const int32_t at = IntlStrScan(text, pattern);
    Require(at >= -1 && at <= IntlStrLen(text));

    // A pattern that is all literals and found once more where it was found; one behind a "%" is found at the start.
    if (at >= 0 && std::strpbrk(pattern, "%_\\") == nullptr && *pattern != '\0') {
        const char* found = IntlStrNthChar(text, at);
        Require(IntlStrScan(found, pattern) == 0);
        Room anywhere(std::strlen(pattern) + 2);
        anywhere[0] = '%';
        std::strcpy(anywhere + 1, pattern);
        Require(IntlStrScan(text, anywhere) == 0);
    }

    const char* member = IntlStrSearch(text, pattern);
    const bool isMember = member != nullptr && IntlStrChr(pattern, IntlDBCSChar(member)) != nullptr;
    Require(member == nullptr || isMember);
    for (const char* before = text; *before != '\0' && member != nullptr && before < member;
         before += IntlBytesInNextChar(before)) {
        Require(IntlStrChr(pattern, IntlDBCSChar(before)) == nullptr);
    }
    return 0;
}
