// The fast paths of scanner and matcher give what their definitions give.
#include <gtest/gtest.h>

#include <random>
#include <string>

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
        ASSERT_EQ(Tokens(text, state, &DateScanner::Next), Tokens(text, state, &DateScanner::NextByRules)) << text;
    }
}

TEST(FastPaths, ShortPicturesHaveTheSameTokens) {
    ExpectSameTokens("ym'A /\x81\xFF", 5, ScanState::kPicture);
    ExpectSameTokens("dM", 7, ScanState::kPicture);
    ExpectSameTokens("sy", 8, ScanState::kPicture);
    ExpectSameTokens("mh", 9, ScanState::kPicture);
}

TEST(FastPaths, ShortTextsHaveTheSameTokens) {
    ExpectSameTokens("0a' /\x81\xA0\xFF", 5, ScanState::kValue);
    ExpectSameTokens("01", 6, ScanState::kValue);
}

TEST(FastPaths, RunsOfEachLengthHaveTheSameTokens) {
    for (size_t length = 1; length < 120; ++length) {
        for (const char c : std::string("yMdhms 0ax'")) {
            for (const char* behind : {"", "/", "\xFF", "\x81", "'"}) {
                const std::string text = std::string(length, c) + behind;
                for (const ScanState state : {ScanState::kPicture, ScanState::kValue}) {
                    ASSERT_EQ(Tokens(text, state, &DateScanner::Next), Tokens(text, state, &DateScanner::NextByRules))
                        << text;
                }
            }
        }
    }
}

// ---- the matcher
// ------------------------------------------------------------------------------------------------------

template <size_t kCount>
const char* AnyOf(const char* const (&choices)[kCount], std::mt19937& random) {
    return choices[random() % kCount];
}

constexpr const char* kPictureParts[] = {"d",    "dd", "ddd", "dddd", "M",    "MM", "MMM",  "MMMM",   "yy",
                                         "yyyy", "h",  "hh",  "hhh",  "hhhh", "mm", "ss",   "mmmmmm", "AMPM",
                                         " ",    " ",  "/",   "-",    ":",    ", ", "'of'", "' '",    "''"};
constexpr const char* kTextParts[] = {
    "1",        "2",     "12", "13", "31", "03", "0003", "2003", "1999", "60", "Mon", "Thursday", "Jan",     "FEB",
    "december", "Janof", "of", "am", "PM", "x",  " ",    " ",    "/",    "-",  ":",   ", ",       "' Jan '", "''"};

// A text for a picture, more or less: mostly the part that its element wants.
std::string RandomText(std::mt19937& random, int parts) {
    std::string text;
    for (int i = 0; i < parts; ++i) text += AnyOf(kTextParts, random);
    return text;
}

std::string RandomPicture(std::mt19937& random, int parts) {
    std::string picture;
    for (int i = 0; i < parts; ++i) picture += AnyOf(kPictureParts, random);
    return picture;
}

// The text that the block's picture makes of a random date, with errors now and then.
std::string WrittenText(std::mt19937& random, const std::string& picture) {
    FMTCntlBlock block = DateBlock(1, "");
    block.Month = static_cast<int32_t>(random() % 12 + 1);
    block.Day = static_cast<int32_t>(random() % 31 + 1);
    block.Year = static_cast<int32_t>(random() % 10000);
    block.Hour = static_cast<int32_t>(random() % 25);
    block.Minute = static_cast<int32_t>(random() % 60);
    block.Second = static_cast<int32_t>(random() % 60);
    block.LongDatePic = picture.c_str();
    char output[400] = "";
    block.Output = output;
    FMTFormatDateTime(&block);
    std::string text = output;
    if (!text.empty() && random() % 4 == 0) text[random() % text.size()] = "0129x/ :"[random() % 8];
    return text;
}

struct Verdicts {
    int declined = 0;
    int failed = 0;
    int matched = 0;
};

void ExpectSameMatch(const std::string& text, const std::string& picture, int32_t type, Verdicts* verdicts) {
    FMTCntlBlock quick = DateBlock(type, text.c_str());
    FMTCntlBlock defined = quick;
    const FMTRegion region(&quick);
    const QuickVerdict verdict = QuickMatchDatePic(text.c_str(), picture.c_str(), &quick, region);
    if (verdict == QuickVerdict::kDeclined) {
        ++verdicts->declined;
        return;
    }
    const DatePicList values(text.c_str(), type);
    const DatePicList elements(picture.c_str(), kModePicture);
    const std::string before = DescribeList(values.First());
    const int32_t matches = FMTMatchDatePic(values.First(), elements.First(), &defined, region);
    ASSERT_EQ(matches, verdict == QuickVerdict::kMatches ? 1 : 0) << text << " by " << picture << ", type " << type;
    ASSERT_EQ(DescribeValue(quick), DescribeValue(defined)) << text << " by " << picture << ", type " << type;
    ASSERT_EQ(DescribeList(values.First()), before) << "the fast path keeps nothing for later matches";
    ++(matches != 0 ? verdicts->matched : verdicts->failed);
}

TEST(FastPaths, TextsMatchAlike) {
    std::mt19937 random(20031);
    Verdicts verdicts;
    for (int i = 0; i < 20000; ++i) {
        const std::string picture = RandomPicture(random, static_cast<int>(random() % 8));
        const int32_t type = static_cast<int32_t>(random() % 3 + 1);
        ExpectSameMatch(RandomText(random, static_cast<int>(random() % 8)), picture, type, &verdicts);
        ExpectSameMatch(WrittenText(random, picture), picture, type, &verdicts);
        if (HasFatalFailure()) return;
    }
    EXPECT_GT(verdicts.declined, 1000);
    EXPECT_GT(verdicts.failed, 1000);
    EXPECT_GT(verdicts.matched, 1000);
}

}  // namespace
