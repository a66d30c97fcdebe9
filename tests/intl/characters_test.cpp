// The characters of a text.
#include <gtest/gtest.h>

#include <string>
#include <tuple>

#include <morvl15/host.h>
#include <morvl15/intl.h>

#include "intl/characters.h"
#include "support/locale.h"

namespace {

TEST(CharactersJapanese, LeadAndKatakanaBytes) {
    const TestLanguage language(kJapanese);
    // A byte, whether it is a lead, whether it is katakana.
    constexpr std::tuple<uint8_t, bool, bool> kCases[] = {
        {0x00, false, false}, {0x41, false, false}, {0x80, false, false}, {0x81, true, false},
        {0x9F, true, false},  {0xA0, false, true},  {0xA1, false, true},  {0xDF, false, true},
        {0xE0, true, false},  {0xFC, true, false},  {0xFD, false, false}, {0xFF, false, false},
    };
    for (const auto& [byte, kanji, katakana] : kCases) {
        EXPECT_EQ(IntlIsKanji(byte) != 0, kanji) << int{byte};
        EXPECT_EQ(IntlIsKatakana(byte), katakana) << int{byte};
    }
}

void ExpectHostLeadBytesAndNoKatakana() {
    for (int byte = 0; byte < 256; ++byte) {
        EXPECT_EQ(IntlIsKanji(static_cast<uint8_t>(byte)) != 0, IsDBCSLeadByte(static_cast<BYTE>(byte)) != 0) << byte;
        EXPECT_EQ(IntlIsKatakana(static_cast<uint8_t>(byte)), 0) << byte;
    }
}

TEST(CharactersChinese, LeadBytesAreTheHosts) {
    const TestLanguage language(kChinese);
    ExpectHostLeadBytesAndNoKatakana();
}

TEST(CharactersKorean, LeadBytesAreTheHosts) {
    const TestLanguage language(kKorean);
    ExpectHostLeadBytesAndNoKatakana();
}

struct CharacterCase {
    const char* text;
    int32_t bytes;
    uint16_t code;
    int16_t signedValue;
};
constexpr CharacterCase kJapaneseCharacters[] = {
    {"\x82\xA0", 2, 0x82A0, static_cast<int16_t>(0x82A0)}, {"a", 1, 'a', 'a'},
    {"\xB1", 1, 0xB1, static_cast<int16_t>(0xFFB1)},       {"", 0, 0, 0},
    {"\x82", 1, 0x82, static_cast<int16_t>(0xFF82)},  // half a character at the end
    {"\x82\x01", 2, 0x8201, static_cast<int16_t>(0x8201)},
};

TEST(CharactersJapanese, TheFirstCharacterIsWhatOneStepPasses) {
    const TestLanguage language(kJapanese);
    for (const CharacterCase& c : kJapaneseCharacters) {
        const testing::ScopedTrace row(__FILE__, __LINE__, c.text);
        EXPECT_EQ(IntlBytesInNextChar(c.text), c.bytes);
        EXPECT_EQ(IntlIsDBChar(c.text), c.bytes == 2);
        EXPECT_EQ(CharNextA(c.text) - c.text, c.bytes);
        EXPECT_EQ(IntlDBCSChar(c.text), c.code);
        EXPECT_EQ(IntlStrFirstChar(c.text), c.signedValue);
        EXPECT_EQ(IntlStrLastChar(c.text), c.signedValue);
    }
}

TEST(Characters, InASingleByteLocaleEveryByteIsOne) {
    const char* text = "\x82\xA0";
    EXPECT_EQ(IntlBytesInNextChar(text), 1);
    EXPECT_EQ(IntlIsDBChar(text), 0);
    EXPECT_EQ(IntlDBCSChar(text), 0x82);
    EXPECT_EQ(IntlStrFirstChar(text), static_cast<int16_t>(0xFF82));
    EXPECT_EQ(IntlStrLastChar(text), static_cast<int16_t>(0xFFA0));
    EXPECT_EQ(IntlStrLen(text), 2);
    EXPECT_EQ(IntlStrLenB(text), 2);
    EXPECT_EQ(IntlNextDBCInStr(text), nullptr);
    EXPECT_EQ(IntlIsKanji(0x82), 0);
    EXPECT_EQ(IntlIsKatakana(0xB1), 0);
    EXPECT_EQ(IntlStrNthChar(text, 2), text + 2);
    EXPECT_EQ(IntlStrNthChar(text, 3), nullptr);
    for (int32_t n = -1; n < 4; ++n) {
        EXPECT_EQ(IntlIsNthCharDB(text, n), 0);
        EXPECT_EQ(IntlIsNthByteDB(text, n), 0);
    }
}

TEST(Characters, NullIsEmpty) {
    EXPECT_EQ(IntlStrLen(nullptr), 0);
    EXPECT_EQ(IntlCharCount(nullptr), 0u);
    EXPECT_EQ(IntlDBCSChar(nullptr), 0);
    EXPECT_EQ(IntlStrFirstChar(nullptr), 0);
    EXPECT_EQ(IntlStrLastChar(nullptr), 0);
    EXPECT_EQ(IntlNextDBCInStr(nullptr), nullptr);
    EXPECT_EQ(IntlStrNthChar(nullptr, 0), nullptr);
    EXPECT_EQ(IntlIsNthCharDB(nullptr, 0), 0);
    EXPECT_EQ(IntlIsNthByteDB(nullptr, 0), 0);
}

TEST(CharactersJapanese, NthCharacterAndByte) {
    const TestLanguage language(kJapanese);
    const char* text = "a\x82\xA0z";
    // Whether character n is double, what byte n is, and where character n stands (-1: nowhere).
    constexpr std::tuple<int32_t, int32_t, int32_t, int32_t> kCases[] = {
        {INT32_MIN, 0, 0, -1}, {-1, 0, 0, -1}, {0, 0, 0, 0},  {1, 1, 1, 1},          {2, 0, 2, 3},
        {3, 0, 0, 4},          {4, 0, 0, -1},  {5, 0, 0, -1}, {INT32_MAX, 0, 0, -1},
    };
    for (const auto& [n, charIsDouble, byteIs, charAt] : kCases) {
        EXPECT_EQ(IntlIsNthCharDB(text, n), charIsDouble) << n;
        EXPECT_EQ(IntlIsNthByteDB(text, n), byteIs) << n;
        EXPECT_EQ(IntlStrNthChar(text, n), charAt >= 0 ? text + charAt : nullptr) << n;
    }
    EXPECT_EQ(IntlStrLen(text), 3);
    EXPECT_EQ(IntlStrLenB(text), 4);
    EXPECT_EQ(IntlStrLen(nullptr), 0);
    EXPECT_EQ(IntlNextDBCInStr(text), text + 1);
    EXPECT_EQ(IntlNextDBCInStr("AB\xB1"), nullptr);
    EXPECT_EQ(IntlNextDBCInStr("A\x82"), nullptr);
    EXPECT_EQ(IntlStrLastChar("a\x82\xA0"), static_cast<int16_t>(0x82A0));
    EXPECT_EQ(IntlStrLastChar("\x82\xA0\x82"), static_cast<int16_t>(0xFF82));
    EXPECT_EQ(IntlCharsToBytes(text, 2), 3u);
    EXPECT_EQ(IntlCharsToBytes(text, -1), 0u);
}

TEST(CharactersJapanese, TextsOfMoreThan65535CharactersWork) {
    const TestLanguage language(kJapanese);
    std::string text;
    for (int i = 0; i < 70000; ++i) text += i % 3 == 0 ? "x" : "\x83\x5C";
    EXPECT_EQ(IntlStrLen(text.c_str()), 70000);
    EXPECT_EQ(IntlStrNthChar(text.c_str(), 69999) - text.c_str(), static_cast<ptrdiff_t>(text.size()) - 1);
    EXPECT_EQ(IntlIsNthByteDB(text.c_str(), 69998 / 3 * 5 + 2), 2);
}

struct FindCase {
    const char* text;
    uint16_t code;
    int32_t at;  // -1: not there
};

void ExpectFound(const FindCase& c) {
    const testing::ScopedTrace row(__FILE__, __LINE__, c.text);
    EXPECT_EQ(IntlStrChr(c.text, c.code), c.at >= 0 ? c.text + c.at : nullptr);
}

TEST(Characters, FindABySingleByte) {
    constexpr FindCase kCases[] = {
        {"abcb", 'b', 1}, {"abc", 'x', -1},   {"abc", 0, 3},
        {"", 0, 0},       {"a\x82", 0x82, 1}, {"abc", 0x8200 | 'c', 2},  // only the low byte counts
    };
    for (const FindCase& c : kCases) ExpectFound(c);
}

TEST(CharactersJapanese, FindACharacterAndNoHalf) {
    const TestLanguage language(kJapanese);
    constexpr FindCase kCases[] = {
        {"\x95\x5C\x5C", 0x5C, 2},           {"a\x95\x5C", 0x955C, 1}, {"\x95\x5C", 0x5C, -1},  // a trail byte
        {"\x82\x95\x5C\x95\x5C", 0x955C, 3},  // the first such bytes are a trail and a single character
        {"\x82\x82\x82\x82", 0x82, -1},      {"a\x82\xA0", 0, 3},      {"", 0, 0},
        {"a\x82\xA0\x82", 0x82, 3},  // half a character is one of its own at the end
        {"\x82\x82\x82", 0x82, 2},           {"a\x82", 0x8200, -1},    {"\x82\xB1\xB1", 0xB1, 2},
    };
    for (const FindCase& c : kCases) ExpectFound(c);
}

TEST(Characters, HexDigits) {
    const std::string digits = "0123456789ABCDEFabcdef";
    for (uint32_t code = 0; code < 0x10000; ++code) {
        const bool isDigit = code != 0 && code < 0x80 && digits.find(static_cast<char>(code)) != std::string::npos;
        ASSERT_EQ(IntlCharIsHexDigit(static_cast<uint16_t>(code)), isDigit) << code;
    }
}

}  // namespace
