// Texts of a code page as Unicode. What every code means is asked of the converter once a code page, and kept.
#include "code_text.h"

#include <map>
#include <memory>
#include <mutex>
#include <vector>

#include "code_page_converter.h"

namespace {

constexpr uint32_t kReplacement = 0xFFFD;

// The meaning of each code, single bytes first, then all with the lead bytes.
using Meanings = std::vector<uint32_t>;

uint32_t MeaningOf(CodePageConverter& converter, const CodePage& page, uint32_t code) {
    const char bytes[2] = {static_cast<char>(code >> 8), static_cast<char>(code)};
    uint32_t character = kNoCharacter;
    if (code <= 0xFF) {
        character = converter.ToUnicode(static_cast<uint8_t>(code));
    } else if (page.isLead[code >> 8]) {
        character = converter.ToUnicode(bytes, 2);
    }
    return character != kNoCharacter ? character : kReplacement;
}

std::shared_ptr<const Meanings> MakeMeanings(const CodePage& page) {
    CodePageConverter converter(page.id);
    auto meanings = std::make_shared<Meanings>(0x10000);
    for (uint32_t code = 0; code < meanings->size(); ++code) (*meanings)[code] = MeaningOf(converter, page, code);
    return meanings;
}

std::shared_ptr<const Meanings> MeaningsOf(const CodePage& page) {
    static std::mutex lock;
    static std::map<UINT, std::shared_ptr<const Meanings>> known;
    const std::lock_guard guard(lock);
    std::shared_ptr<const Meanings>& meanings = known[page.id];
    if (meanings == nullptr) meanings = MakeMeanings(page);
    return meanings;
}

// How many bytes a UTF-8 character has by its first one, and that byte's own bits; 0 for what is no first byte.
size_t Utf8Length(uint8_t first) {
    if (first < 0x80) return 1;
    if (first >= 0xC2 && first < 0xE0) return 2;
    if (first >= 0xE0 && first < 0xF0) return 3;
    return first >= 0xF0 && first < 0xF5 ? 4 : 0;
}

// Takes a character off the front of a text that isn't empty.
uint32_t TakeUtf8(std::string_view& utf8) {
    const auto first = static_cast<uint8_t>(utf8[0]);
    const size_t length = Utf8Length(first);
    uint32_t character = length <= 1 ? first : first & (0x7Fu >> length);
    if (length == 0 || length > utf8.size()) {
        utf8.remove_prefix(1);
        return kReplacement;
    }
    for (size_t i = 1; i < length; ++i) {
        const auto byte = static_cast<uint8_t>(utf8[i]);
        if ((byte & 0xC0) != 0x80) {
            utf8.remove_prefix(i);
            return kReplacement;
        }
        character = character << 6 | (byte & 0x3F);
    }
    utf8.remove_prefix(length);
    return character;
}

bool IsAscii(uint32_t character) {
    return character < 0x80;
}

}  // namespace

std::u32string UnicodeOfText(std::string_view text) {
    const CodePage& page = CurrentCodePage();
    const std::shared_ptr<const Meanings> meanings = MeaningsOf(page);
    std::u32string characters;
    characters.reserve(text.size());
    for (size_t at = 0; at < text.size();) {
        const size_t bytes = CharacterBytes(page, &text[at], text.size() - at);
        const uint32_t code = bytes == 2 ? DoubleByteCode(&text[at]) : static_cast<uint8_t>(text[at]);
        characters += static_cast<char32_t>((*meanings)[code]);
        at += bytes;
    }
    return characters;
}

std::string TextOfUnicode(std::u32string_view characters) {
    std::unique_ptr<CodePageConverter> converter;  // most texts need none
    std::string text;
    for (const char32_t character : characters) {
        uint16_t code = static_cast<uint16_t>(character);
        if (!IsAscii(character)) {
            if (converter == nullptr) converter = std::make_unique<CodePageConverter>(CurrentCodePage().id);
            code = converter->FromUnicode(character);
        }
        if (code > 0xFF) text += static_cast<char>(code >> 8);
        text += code != 0 ? static_cast<char>(code) : '?';
    }
    return text;
}

void AppendUtf8(std::string& text, char32_t character) {
    const auto tail = [&text](char32_t bits) { text += static_cast<char>(0x80 | (bits & 0x3F)); };
    if (character < 0x80) {
        text += static_cast<char>(character);
    } else if (character < 0x800) {
        text += static_cast<char>(0xC0 | character >> 6);
        tail(character);
    } else if (character < 0x10000) {
        text += static_cast<char>(0xE0 | character >> 12);
        tail(character >> 6);
        tail(character);
    } else {
        text += static_cast<char>(0xF0 | character >> 18);
        tail(character >> 12);
        tail(character >> 6);
        tail(character);
    }
}

std::string Utf8OfText(std::string_view text) {
    std::string utf8;
    for (const char32_t character : UnicodeOfText(text)) AppendUtf8(utf8, character);
    return utf8;
}

std::string TextOfUtf8(std::string_view utf8) {
    std::u32string characters;
    while (!utf8.empty()) characters += static_cast<char32_t>(TakeUtf8(utf8));
    return TextOfUnicode(characters);
}
