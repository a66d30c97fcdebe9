// The lstr family: length, copy, concatenation, comparison.
#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
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
        const std::string copied = size > 0 ? std::string("abc").substr(0, static_cast<size_t>(size) - 1) : "";
        const std::string expected = size > 0 ? copied + '\0' + "#######" : "#######";
        EXPECT_EQ(std::string(buffer, 7), expected.substr(0, 7)) << size;
    }
}

struct OrderCase {
    int line;
    uint16_t language;
    std::vector<const char*> texts;  // each before the next
};
const OrderCase kOrders[] = {
    {__LINE__, kEnglish, {"", " ", "#", "1", "2", "a", "A", "\xE4", "\xC4", "\xE6", "b", "B"}},
    {__LINE__, kEnglish, {"Abd", "Abde", "abe", "ABF"}},                    // the alphabet before case
    {__LINE__, kEnglish, {"resume", "Resume", "r\xE9sum\xE9", "resumes"}},  // ... and before marks
    {__LINE__, kEnglish, {"coop", "co'op", "co-op", "Co-op", "coops"}},     // word sort
    {__LINE__, kEnglish, {"", "'", "-", "--", "a", "a-"}},
    {__LINE__, kGerman, {"Dezember", "Donnerstag", "Februar", "Mai", "M\xE4rz", "Mittwoch"}},
    {__LINE__, 0x0419, {"z", "\xE0", "\xC0", "\xE1", "\xC1", "\xFF"}},        // Cyrillic behind Latin
    {__LINE__, kJapanese, {"Z", "\xB1", "\xA6", "\x82\xA0", "\x88\x9F"}},     // katakana, hiragana, kanji
    {__LINE__, kJapanese, {"\x82\x81", "\x82\x60", "\x82\x82", "\x82\x61"}},  // full width: small, capital
};

int Sign(int order) {
    return (order > 0) - (order < 0);
}

TEST(TextOrder, IsThatOfWords) {
    for (const OrderCase& c : kOrders) {
        TestLanguage language(c.language);
        for (size_t i = 0; i < c.texts.size(); ++i) {
            for (size_t j = 0; j < c.texts.size(); ++j) {
                testing::ScopedTrace row(__FILE__, c.line, std::string(c.texts[i]) + " " + c.texts[j]);
                EXPECT_EQ(lstrcmpA(c.texts[i], c.texts[j]), (i > j) - (i < j));
            }
        }
    }
}

TEST(TextOrder, WithoutCase) {
    struct {
        int line;
        uint16_t language;
        const char* first;
        const char* second;
        int order;
    } const kRows[] = {
        {__LINE__, kEnglish, "January", "jANUARY", 0},
        {__LINE__, kEnglish, "\xC4RZ", "\xE4rz", 0},
        {__LINE__, kEnglish, "\xE4", "a", 1},
        {__LINE__, kEnglish, "co-op", "CO-OP", 0},
        {__LINE__, kEnglish, "co-op", "COOP", 1},
        {__LINE__, kEnglish, "A", "b", -1},
        {__LINE__, kEnglish, "\x81", "\x8D", -1},  // bytes without a character differ
        {__LINE__, kJapanese, "\x82\x81", "\x82\x60", 0},
        {__LINE__, kJapanese, "\x82\x81", "a", 1},          // widths differ
        {__LINE__, kJapanese, "\x83\x41", "\x83\x61", -1},  // trail bytes are no letters
        {__LINE__, kEnglish, nullptr, "", -1},
        {__LINE__, kEnglish, nullptr, nullptr, 0},
    };
    for (const auto& c : kRows) {
        testing::ScopedTrace row(__FILE__, c.line, "");
        TestLanguage language(c.language);
        EXPECT_EQ(lstrcmpiA(c.first, c.second), c.order);
        EXPECT_EQ(lstrcmpiA(c.second, c.first), -c.order);
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
        const auto before = [](const std::string& a, const std::string& b) {
            return lstrcmpA(a.c_str(), b.c_str()) < 0;
        };
        std::sort(texts.begin(), texts.end(), before);
        for (size_t i = 0; i < texts.size(); ++i) {
            for (size_t j = i; j < texts.size(); ++j) {
                const int order = lstrcmpA(texts[i].c_str(), texts[j].c_str());
                EXPECT_LE(order, 0) << texts[i] << " | " << texts[j];
                EXPECT_EQ(order == 0, texts[i] == texts[j]) << texts[i] << " | " << texts[j];
                EXPECT_EQ(Sign(lstrcmpA(texts[j].c_str(), texts[i].c_str())), -order);
                EXPECT_LE(lstrcmpiA(texts[i].c_str(), texts[j].c_str()) == 0 ? 0 : order, 0);
            }
        }
    }
}

}  // namespace
