// The lstr family: length, copy, concatenation, comparison.
#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include <morvl15/host_native.h>

#include "support/locale.h"

namespace {

TEST(TextCopy, CopiesAndJoins) {
    char buffer[8] = {};
    EXPECT_EQ(lstrcpyA(buffer, "abc"), buffer);
    EXPECT_EQ(lstrcatA(buffer, "de"), buffer);
    EXPECT_STREQ(buffer, "abcde");
    EXPECT_EQ(lstrlenA(buffer), 5);
    EXPECT_STREQ(lstrcpyA(buffer, buffer + 2), "cde");  // a text may move within its buffer
    EXPECT_EQ(lstrlenA(nullptr), 0);
    EXPECT_EQ(lstrcpyA(buffer, nullptr), nullptr);
    EXPECT_EQ(lstrcatA(nullptr, "x"), nullptr);
    EXPECT_STREQ(buffer, "cde");
}

TEST(TextCopy, CutsAtTheSize) {
    for (int size = -1; size <= 5; ++size) {
        char buffer[8] = "#######";
        EXPECT_EQ(lstrcpynA(buffer, "abc", size), buffer);
        const std::string copied = size > 0 ? std::string("abc").substr(0, static_cast<size_t>(size) - 1) + '\0' : "";
        EXPECT_EQ(std::string(buffer, 7), copied + std::string(7 - copied.size(), '#')) << size;
    }
}

TEST(TextOrder, IsThatOfWords) {
    const std::pair<LANGID, std::vector<const char*>> kRows[] = {
        {kEnglish, {"", " ", "#", "1", "2", "a", "A", "\xE4", "\xC4", "\xE6", "b", "B"}},
        {kEnglish, {"Abd", "Abde", "abe", "ABF"}},                    // the alphabet before case
        {kEnglish, {"resume", "Resume", "r\xE9sum\xE9", "resumes"}},  // ... and before marks
        {kEnglish, {"oo", "o\xF6", "\xF6o", "\xF6\xF6"}},             // of marks the first
        {kEnglish, {"coop", "co'op", "co-op", "Co-op", "coops"}},     // word sort
        {kEnglish, {"", "'", "-", "--", "a", "a-"}},
        {kGerman, {"Dezember", "Donnerstag", "Februar", "Mai", "M\xE4rz", "Mittwoch"}},
        {0x0419, {"z", "\xE0", "\xC0", "\xE1", "\xC1", "\xFF"}},        // Cyrillic behind Latin
        {kJapanese, {"Z", "\xB1", "\xA6", "\x82\xA0", "\x88\x9F"}},     // katakana, hiragana, kanji
        {kJapanese, {"\x82\x81", "\x82\x60", "\x82\x82", "\x82\x61"}},  // full width: small, capital
    };
    for (const auto& [language, texts] : kRows) {
        const TestLanguage inForce(language);
        for (const char* const& first : texts) {
            for (const char* const& second : texts) {
                const int order = (&first > &second) - (&first < &second);
                EXPECT_EQ(lstrcmpA(first, second), order) << first << " " << second;
            }
        }
    }
}

TEST(TextOrder, WithoutCase) {
    struct {
        LANGID language;
        const char* texts[2];
        int order;
    } const kRows[] = {
        {kEnglish, {"January", "jANUARY"}, 0},
        {kEnglish, {"\xC4RZ", "\xE4rz"}, 0},
        {kEnglish, {"\xE4", "a"}, 1},
        {kEnglish, {"co-op", "CO-OP"}, 0},
        {kEnglish, {"co-op", "COOP"}, 1},
        {kEnglish, {"A", "b"}, -1},
        {kEnglish, {"\x81", "\x8D"}, -1},  // bytes without a character differ
        {kJapanese, {"\x82\x81", "\x82\x60"}, 0},
        {kJapanese, {"\x82\x81", "a"}, 1},          // widths differ
        {kJapanese, {"\x83\x41", "\x83\x61"}, -1},  // trail bytes are no letters
        {kEnglish, {nullptr, ""}, -1},
        {kEnglish, {nullptr, nullptr}, 0},
    };
    for (const auto& c : kRows) {
        const TestLanguage inForce(c.language);
        EXPECT_EQ(lstrcmpiA(c.texts[0], c.texts[1]), c.order) << testing::PrintToString(c.texts);
        EXPECT_EQ(lstrcmpiA(c.texts[1], c.texts[0]), -c.order) << testing::PrintToString(c.texts);
    }
}

// Sorting and binary search need it: exactly one order, equal only where the texts are, transitive.
TEST(TextOrder, IsAnOrder) {
    std::mt19937 random(20240607);
    for (const uint16_t inForce : {kEnglish, kJapanese}) {
        TestLanguage language(inForce);
        std::vector<std::string> texts;
        for (int i = 0; i < 120; ++i) {
            static constexpr char kBytes[] = "aAbB1-' \xE4\xC4\x82\x60\x81";
            std::string text(random() % 5, 'a');
            for (char& byte : text) byte = kBytes[random() % (sizeof kBytes - 1)];
            texts.push_back(text);
        }
        std::sort(texts.begin(), texts.end(),
                  [](const std::string& a, const std::string& b) { return lstrcmpA(a.c_str(), b.c_str()) < 0; });
        for (auto first = texts.begin(); first != texts.end(); ++first) {
            for (auto second = first; second != texts.end(); ++second) {
                const int order = lstrcmpA(first->c_str(), second->c_str());
                EXPECT_EQ(order, *first == *second ? 0 : -1) << *first << " | " << *second;
                EXPECT_EQ(lstrcmpA(second->c_str(), first->c_str()), -order) << *first << " | " << *second;
                EXPECT_LE(lstrcmpiA(first->c_str(), second->c_str()) == 0 ? 0 : order, 0);
            }
        }
    }
}

}  // namespace
