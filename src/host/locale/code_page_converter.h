// The C library's converter for a code page.
#pragma once

#include <iconv.h>

#include <cstdio>

#include "code_page.h"

constexpr uint32_t kNoCharacter = 0xFFFFFFFF;

// A converter between a code page and UTF-32, one character at a time. ASCII is itself in every code page.
class CodePageConverter {
  public:
    explicit CodePageConverter(UINT codePage) {
        char name[16];
        std::snprintf(name, sizeof name, "CP%u", codePage);
        toUnicode_ = iconv_open(kUnicode, name);
        fromUnicode_ = iconv_open(name, kUnicode);
    }
    ~CodePageConverter() {
        if (IsOpen(toUnicode_)) iconv_close(toUnicode_);
        if (IsOpen(fromUnicode_)) iconv_close(fromUnicode_);
    }
    CodePageConverter(const CodePageConverter&) = delete;
    CodePageConverter& operator=(const CodePageConverter&) = delete;

    // The character of a single byte, or kNoCharacter.
    uint32_t ToUnicode(uint8_t byte) {
        if (byte < kAsciiEnd) return byte;
        const char text = static_cast<char>(byte);
        return ToUnicode(&text, 1);
    }

    // The same for a character of that many bytes.
    uint32_t ToUnicode(const char* text, size_t bytes) {
        uint32_t character[2] = {};
        char in[2] = {text[0], bytes > 1 ? text[1] : '\0'};
        return Convert(toUnicode_, in, bytes, character, sizeof character) == 4 ? character[0] : kNoCharacter;
    }

    // The code of a character: a single byte, or lead and trail byte; 0 where the code page doesn't have it.
    uint16_t FromUnicode(uint32_t character) {
        if (character < kAsciiEnd) return static_cast<uint16_t>(character);
        char code[8] = {};
        const size_t bytes = Convert(fromUnicode_, &character, sizeof character, code, sizeof code);
        if (bytes == 1) return static_cast<uint8_t>(code[0]);
        return bytes == 2 ? DoubleByteCode(code) : 0;
    }

  private:
    static constexpr const char* kUnicode = "UTF-32LE";
    static constexpr uint32_t kAsciiEnd = 0x80;

    static bool IsOpen(iconv_t converter) { return converter != reinterpret_cast<iconv_t>(-1); }

    // Bytes given, 0 where there is no conversion. Some converters hold a letter back, waiting for its mark: asking for
    // the rest brings it out.
    static size_t Convert(iconv_t converter, void* in, size_t inBytes, void* out, size_t outBytes) {
        if (!IsOpen(converter)) return 0;
        iconv(converter, nullptr, nullptr, nullptr, nullptr);
        char* from = static_cast<char*>(in);
        char* to = static_cast<char*>(out);
        size_t room = outBytes;
        const bool converted =
            iconv(converter, &from, &inBytes, &to, &room) == 0 && iconv(converter, nullptr, nullptr, &to, &room) == 0;
        return converted ? outBytes - room : 0;
    }

    iconv_t toUnicode_;
    iconv_t fromUnicode_;
};
