// The walks over blocks give what the walks by definition give, and these step as the host does.
#include "intl/walk.h"

#include <gtest/gtest.h>

#include <cstring>
#include <random>
#include <string>

#include <morvl15/host.h>

#include "intl/locale_values.h"
#include "support/locale.h"
#include "walks.h"

namespace {

// Mostly bytes that mean something: leads at the ends of their ranges, trails, kana, delimiters.
std::string RandomText(std::mt19937& random, size_t bytes) {
    constexpr char kBytes[] = "ab,;\"() 0\x40\x5C\x81\x82\x9F\xA0\xA1\xB1\xDF\xE0\xFC\xFD\xFE\xFF\x7F\x80";
    std::string text;
    const size_t kinds = 1 + random() % (sizeof kBytes - 1);  // fewer kinds make longer rows of leads
    const size_t first = random() % (sizeof kBytes - 1);
    while (text.size() < bytes) text += kBytes[(first + random() % kinds) % (sizeof kBytes - 1)];
    return text;
}

void ExpectHostSteps(const char* text) {
    size_t chars = 0;
    for (const char* at = text; *at != '\0'; at = CharNextA(at)) {
        EXPECT_EQ(plain::WalkChars(text, chars).bytes, static_cast<size_t>(at - text));
        ++chars;
    }
    EXPECT_EQ(plain::WalkChars(text, kWholeText).chars, chars);
}

// At every offset to the blocks, between bytes that would be misread if they counted.
void ExpectAllWalksAgree() {
    std::mt19937 random(20261122);
    for (int round = 0; round < 400; ++round) {
        const std::string text = RandomText(random, random() % (round % 8 == 0 ? 300 : 80));
        const size_t offset = static_cast<size_t>(round) % 64;
        alignas(64) char buffer[512];
        std::memset(buffer, round % 2 == 0 ? '\x82' : 'a', sizeof buffer);
        std::memcpy(buffer + offset, text.c_str(), text.size() + 1);
        ExpectSameWalks(buffer + offset);
        ExpectHostSteps(buffer + offset);
        if (testing::Test::HasFailure()) return;
    }
}

TEST(Walk, AllAgree) {
    ExpectAllWalksAgree();
}

TEST(WalkJapanese, AllAgree) {
    const TestLanguage language(kJapanese);
    EXPECT_TRUE(gIntlLeadInterval.isKnown);
    ExpectAllWalksAgree();
}

TEST(WalkChinese, AllAgree) {
    const TestLanguage language(kChinese);
    EXPECT_TRUE(gIntlLeadInterval.isKnown);
    ExpectAllWalksAgree();
}

TEST(WalkKorean, AllAgree) {
    const TestLanguage language(kKorean);
    EXPECT_TRUE(gIntlLeadInterval.isKnown);
    ExpectAllWalksAgree();
}

// ---- lead bytes as an interval ------------------------------------------------------------------------------------

struct LeadRange {
    int first;
    int last;
};

bool IsInInterval(const IntlLeadInterval& interval, int byte) {
    const auto moved = static_cast<int8_t>((byte ^ interval.flip[0]) + interval.shift[0]);
    return moved > static_cast<int8_t>(interval.below[0]);
}

void ExpectInterval(std::initializer_list<LeadRange> ranges, bool isKnown) {
    uint8_t leads[256] = {};
    for (const LeadRange& range : ranges) std::memset(leads + range.first, 1, range.last - range.first + 1);
    const IntlLeadInterval interval = IntlFindLeadInterval(leads);
    EXPECT_EQ(interval.isKnown, isKnown);
    for (int byte = 0; byte < 256 && isKnown; ++byte) {
        EXPECT_EQ(IsInInterval(interval, byte), leads[byte] != 0) << byte;
    }
}

TEST(Walk, LeadBytesAreOneInterval) {
    ExpectInterval({{0x81, 0xFE}}, true);
    ExpectInterval({{0x81, 0x9F}, {0xE0, 0xFC}}, true);
    ExpectInterval({{0x80, 0xFF}}, true);
    ExpectInterval({{0x90, 0x90}}, true);
    ExpectInterval({}, false);
    ExpectInterval({{0x84, 0xD3}, {0xD8, 0xDE}, {0xE0, 0xF9}}, false);
}

TEST(WalkJapanese, WithoutAnIntervalTheDefinitionServes) {
    const TestLanguage language(kJapanese);
    gIntlLeadInterval.isKnown = false;  // until the next IntlInit
    ExpectAllWalksAgree();
}

}  // namespace
