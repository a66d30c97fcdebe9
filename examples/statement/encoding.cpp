#include "encoding.h"

#include <algorithm>

Converter::Converter(const char* from, const char* to) : converter_(iconv_open(to, from)) {}

Converter::~Converter() {
    iconv_close(converter_);
}

std::optional<std::string> Converter::Convert(const std::string& text) {
    const auto isAscii = [](char c) { return static_cast<unsigned char>(c) < 0x80; };
    if (std::ranges::all_of(text, isAscii)) return text;
    std::string source = text;
    std::string converted(4 * text.size(), '\0');
    char* in = source.data();
    char* out = converted.data();
    size_t inLeft = source.size();
    size_t outLeft = converted.size();
    iconv(converter_, nullptr, nullptr, nullptr, nullptr);
    if (iconv(converter_, &in, &inLeft, &out, &outLeft) != 0) return std::nullopt;
    converted.resize(converted.size() - outLeft);
    return converted;
}
