// The tokenizers and the numbers of a text, over raw bytes.
#include "input.h"

namespace {

using GetToken = int32_t (*)(char* destination, const char* source, const char* skipSet, const char* delimiterSet,
                             uint16_t lead, int32_t size);

int32_t GetQuoted(char* destination, const char* source, const char* skipSet, const char* delimiterSet, uint16_t lead,
                  int32_t size) {
    return IntlStrGetTokenQuoted(destination, source, skipSet, delimiterSet, lead, '"', size);
}

// A token that comes back stands before its offset, and fits the size.
void TakeTokens(GetToken getToken, const char* source, const char* skip, const char* delimiters, uint16_t lead,
                int32_t size) {
    const size_t length = std::strlen(source);
    const size_t room = size > 0 ? std::min(static_cast<size_t>(size), length + 1) : length + 1;
    Room token(room);
    *token = 'x';
    const int32_t offset = getToken(token, source, skip, delimiters, lead, size);
    Require(offset >= 0 && static_cast<size_t>(offset) <= length);
    if (offset == 0) return;
    const size_t tokenLength = std::strlen(token);
    Require(tokenLength < room && tokenLength <= static_cast<size_t>(offset));
    Require(std::memcmp(token, source + offset - tokenLength, tokenLength) == 0);
    Require(source[offset] == '\0' || std::strchr(delimiters, source[offset]) != nullptr);
}

void FetchNumbers(const char* text) {
    int32_t whole = 0;
    double real = 0.0;
    const auto length = static_cast<int32_t>(std::strlen(text));
    const int32_t wholeUsed = IntlFetchNextNumLong(&whole, text);
    const int32_t realUsed = IntlFetchNextNumDouble(&real, text);
    Require(wholeUsed >= 0 && wholeUsed <= length);
    Require(realUsed >= -1 && realUsed <= std::min(length, 99));
    if (wholeUsed > 0 && realUsed == wholeUsed) Require(static_cast<double>(whole) == real);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    Input input(data, std::min(size, size_t{1024}));
    input.TakeLanguage();
    const uint16_t lead = input.TakeByte();
    const int32_t limit = input.TakeNumber();
    const Room skip = input.TakeText();
    const Room delimiters = input.TakeText();
    const Room source = input.TakeText();
    for (const GetToken getToken :
         {GetToken{IntlStrGetToken}, GetToken{IntlStrGetTokenNestedParens}, GetToken{GetQuoted}}) {
        TakeTokens(getToken, source, skip, delimiters, lead, limit);
        TakeTokens(getToken, source, skip, delimiters, 0, 0);
    }
    FetchNumbers(source);
    return 0;
}
