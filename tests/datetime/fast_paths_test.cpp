// The fast paths of scanner and matcher give what their definitions give.
#include <gtest/gtest.h>

#include <map>
#include <random>
#include <string>
#include <vector>

#include "date_block.h"
#include "datetime/date_match.h"
#include "elements.h"

namespace {

std::string Tokens(const std::string& text, ScanState state, DateToken (DateScanner::*next)()) {
    DateScanner scanner(text.c_str(), state);
    std::string all;
    for (DateToken token = (scanner.*next)(); token.kind != ScanToken::kEnd; token = (scanner.*next)()) {
        all += std::to_string(static_cast<int>(token.kind)) + ":" + std::to_string(token.start - text.c_str()) + "+" +
               std::to_string(token.length) + " ";
    }
    return all;
}

void ExpectSameTokens(const std::string& text, ScanState state) {
    ASSERT_EQ(Tokens(text, state, &DateScanner::Next), Tokens(text, state, &DateScanner::NextByRules)) << text;
}

// All texts of up to `longest` bytes of an alphabet.
void ExpectSameTokens(const std::string& alphabet, size_t longest, ScanState state) {
    std::string text;
    for (;;) {
        size_t at = 0;
        while (at < text.size() && text[at] == alphabet.back()) text[at++] = alphabet.front();
        if (at < text.size()) {
            text[at] = alphabet[alphabet.find(text[at]) + 1];
        } else {
            if (text.size() == longest) break;
            text.push_back(alphabet.front());
        }
        ExpectSameTokens(text, state);
    }
}

TEST(FastPaths, ShortTextsHaveTheSameTokens) {
    ExpectSameTokens("ym'A /\x81\xFF", 5, ScanState::kPicture);
    ExpectSameTokens("dM", 7, ScanState::kPicture);
    ExpectSameTokens("sy", 8, ScanState::kPicture);
    ExpectSameTokens("mh", 9, ScanState::kPicture);
    ExpectSameTokens("0a' /\x81\xA0\xFF", 5, ScanState::kValue);
    ExpectSameTokens("01", 6, ScanState::kValue);
}

TEST(FastPaths, RunsOfEachLengthHaveTheSameTokens) {
    for (size_t length = 1; length < 120; ++length) {
        for (const char c : std::string("yMdhms 0ax'")) {
            for (const char* behind : {"", "/", "\xFF", "\x81", "'"}) {
                ExpectSameTokens(std::string(length, c) + behind, ScanState::kPicture);
                ExpectSameTokens(std::string(length, c) + behind, ScanState::kValue);
            }
        }
    }
}

// ---- kept pictures, and the matcher -------------------------------------------------------------------------------

using Parts = std::vector<const char*>;

const Parts kPictureParts = {"d",    "dd", "ddd", "dddd", "M",    "MM", "MMM",  "MMMM",   "yy",
                             "yyyy", "h",  "hh",  "hhh",  "hhhh", "mm", "ss",   "mmmmmm", "AMPM",
                             " ",    " ",  "/",   "-",    ":",    ", ", "'of'", "' '",    "''"};
const Parts kTextParts = {"1",   "2",        "12",  "13",  "31",       "03",    "0003",    "2003", "1999", "60",
                          "Mon", "Thursday", "Jan", "FEB", "december", "Janof", "of",      "am",   "PM",   "x",
                          " ",   " ",        "/",   "-",   ":",        ", ",    "' Jan '", "''"};

std::string AnyOf(const Parts& parts, size_t count, std::mt19937& random) {
    std::string text;
    for (size_t i = 0; i < count; ++i) text += parts[random() % parts.size()];
    return text;
}

// The text that a picture makes of a random date, with errors now and then.
std::string WrittenText(std::mt19937& random, const std::string& picture) {
    const auto upTo = [&random](int32_t sides) {
        return static_cast<int32_t>(random() % static_cast<uint32_t>(sides));
    };
    FMTCntlBlock block = DateBlock(FMT_TYPE_DATE, "");
    SetMoment(&block, {upTo(12) + 1, upTo(31) + 1, upTo(10000), upTo(25), upTo(60), upTo(60), 0});
    block.LongDatePic = picture.c_str();
    std::string text = WriteValue(&block);
    if (!text.empty() && random() % 4 == 0) text[random() % text.size()] = "0129x/ :"[random() % 8];
    return text;
}

// The fast path's verdict, held against the definition's; it keeps nothing for later matches.
QuickVerdict ComparedVerdict(const std::string& text, const std::string& picture, int32_t type) {
    FMTCntlBlock quick = DateBlock(type, text.c_str());
    FMTCntlBlock defined = quick;
    const FMTRegion region(&quick);
    const QuickVerdict verdict = QuickMatchDatePic(text.c_str(), picture.c_str(), &quick, region);
    if (verdict == QuickVerdict::kDeclined) return verdict;
    const DatePicList values(text.c_str(), type);
    const DatePicList elements(picture.c_str(), kModePicture);
    const std::string before = DescribeList(values.First());
    const bool matches = FMTMatchDatePic(values.First(), elements.First(), &defined, region) == 1;
    const testing::ScopedTrace trace(__FILE__, __LINE__, text + " by " + picture + ", type " + std::to_string(type));
    EXPECT_EQ(matches, verdict == QuickVerdict::kMatches);
    EXPECT_EQ(DescribeValue(quick), DescribeValue(defined));
    EXPECT_EQ(DescribeList(values.First()), before);
    return verdict;
}

// A run of 100 blanks ends the text.
TEST(FastPaths, BlanksOfEachLengthMatchAlike) {
    std::map<QuickVerdict, int> verdicts;
    for (size_t length = 1; length < 120; ++length) {
        const std::string blanks(length, ' ');
        for (const std::string& text : {blanks + "1/2/2003", "1/" + blanks + "2/2003", "1/2/2003" + blanks + "x",
                                        "1/2/" + blanks + "\t2003", "1/2/2003\t" + blanks}) {
            ++verdicts[ComparedVerdict(text, "M/d/yyyy", FMT_TYPE_DATE)];
        }
    }
    EXPECT_GT(verdicts[QuickVerdict::kMatches], 100);
    EXPECT_GT(verdicts[QuickVerdict::kDeclined], 100);
}

// More pictures than there are places for, with bad ones among them. DescribeText compares each with its list.
TEST(FastPaths, KeptPicturesHaveTheElementsOfTheirLists) {
    std::mt19937 random(20032);
    int rejected = 0;
    for (int i = 0; i < 5000; ++i) {
        std::string picture = AnyOf(kPictureParts, random() % 20, random);
        if (random() % 4 == 0) picture += "x!\xFF"[random() % 3];
        for (int again = 0; again < 2; ++again) rejected += DescribeText(picture, kModePicture) == "none" ? 1 : 0;
    }
    EXPECT_GT(rejected, 1000);
    EXPECT_LT(rejected, 9000);
}

TEST(FastPaths, TextsMatchAlike) {
    std::mt19937 random(20031);
    std::map<QuickVerdict, int> verdicts;
    for (int i = 0; i < 20000; ++i) {
        const std::string picture = AnyOf(kPictureParts, random() % 8, random);
        const auto type = static_cast<int32_t>(random() % 3 + 1);
        ++verdicts[ComparedVerdict(AnyOf(kTextParts, random() % 8, random), picture, type)];
        ++verdicts[ComparedVerdict(WrittenText(random, picture), picture, type)];
        if (HasFailure()) return;
    }
    for (const auto& [verdict, count] : verdicts) EXPECT_GT(count, 1000) << static_cast<int>(verdict);
    EXPECT_EQ(verdicts.size(), 3u);
}

}  // namespace
