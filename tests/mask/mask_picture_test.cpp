// Mask pictures: masking, unmasking, counts and tests.
#include <gtest/gtest.h>

#include <cstring>
#include <span>
#include <string>
#include <tuple>

#include <morvl15/mask.h>

#include "mask/mask_picture.h"

namespace {

constexpr char kGuard = '\x5A';

// The masked text, or "<0>" when the picture is refused, with a look at the byte behind the buffer.
std::string Mask(const std::string& text, const char* picture) {
    const auto literals = static_cast<size_t>(FMTCntNonMaskChars(picture));
    const auto body = literals + static_cast<size_t>(FMTCntMaskChars(picture));
    const size_t room = (FMTIsPicUnlimited(picture) ? text.size() + literals : body) + 1;
    std::string out(room + 1, kGuard);
    if (!FMTMaskText(text.c_str(), out.data(), picture)) return out[0] == kGuard ? "<0>" : "<0, written>";
    EXPECT_EQ(out[room], kGuard) << text << " under " << picture;
    return out.c_str();
}

std::string Unmask(const std::string& text, const char* picture) {
    std::string out(text.size() + 2, kGuard);
    FMTCntlBlock block{};
    FMTInitCntlBlock(&block);
    block.Input = text.c_str();
    block.Picture = picture;
    block.Output = out.data();
    const int32_t result = FMTUnmaskInput(&block);
    EXPECT_EQ(out[text.size() + 1], kGuard);
    if (result) return out.c_str();
    return out[0] == kGuard ? "<0, as it was>" : "<0>" + std::string(out.c_str());
}

struct MaskCase {
    const char *text, *picture, *masked, *unmasked;
};

void ExpectMasked(std::span<const MaskCase> rows) {
    for (const MaskCase& c : rows) {
        EXPECT_EQ(Mask(c.text, c.picture), c.masked) << c.text << " under " << c.picture;
        EXPECT_EQ(Unmask(c.text, c.picture), c.unmasked) << c.text << " under " << c.picture;
    }
}

TEST(MaskText, MasksAndUnmasks) {
    static constexpr MaskCase kRows[] = {
        {"5551234", "999-9999", "555-1234", "<0>"},
        {"555-1234", "999-9999", "555-1234", "5551234"},
        {"555", "999-9999", "555-", "555"},  // one literal follows the text
        {"5551", "999-9999", "555-1", "<0>"},
        {"   -    ", "999-9999", "", "       "},  // blanks hold their positions, once masked
        {"1", "(99)", "(1", "<0>"},
        {"(12)", "(99)", "(12)", "12"},
        {"(12", "(99)", "(12)", "12"},
        {"12", "^(99)", "(12)", "<0>"},
        {"12", "^^99", "^12", "<0>"},  // one prefix, then a literal
        {"", "999", "", ""},
        {"", "(99)", "(", ""},
        {"abc", "AAA", "ABC", "abc"},  // no change of case in the other direction,
        {"a1b", "aaa", "ab", "a1b"},   // and "a" isn't tested
        {"a-b", "NNN", "AB", "<0>"},
        {"a1-b2", "A9-A9", "A1-B2", "a1b2"},
        {"a\nb", "XXX", "ab", "a\nb"},              // a line feed is dropped one way
        {"hello", "!!!", "HEL", "<0, as it was>"},  // too long
        {"abc", "9*9", "<0>", "<0>"},
        {"1", "", "<0>", "<0, as it was>"},
    };
    ExpectMasked(kRows);
    static constexpr MaskCase kUnlimited[] = {
        {"hello", "!!!*", "HELlo", "hello"}, {"abcd", "AA-*", "AB-cd", "<0>"},
        {"ab", "AA-*", "AB-", "ab"},         {"", "((*", "((", ""},
        {"a\nb", "*", "a\nb", "a\nb"},       {"1", "^^9*", "^1", "<0>"},
    };
    ExpectMasked(kUnlimited);
}

TEST(MaskText, WorksInTheTextsOwnBuffer) {
    char text[16] = "5551234";
    EXPECT_EQ(FMTMaskText(text, text, "999-9999"), 1);
    EXPECT_STREQ(text, "555-1234");
    FMTCntlBlock block{};
    block.Input = text;
    block.Output = text;
    block.Picture = "999-9999";
    EXPECT_EQ(FMTUnmaskInput(&block), 1);
    EXPECT_STREQ(text, "5551234");
}

TEST(MaskText, NullArguments) {
    char out[4] = "x";
    EXPECT_EQ(FMTMaskText(nullptr, out, "9"), 0);
    EXPECT_EQ(FMTMaskText("1", nullptr, "9"), 0);
    EXPECT_EQ(FMTMaskText("1", out, nullptr), 0);
    FMTCntlBlock block{};
    EXPECT_EQ(FMTUnmaskInput(&block), 0);
    EXPECT_EQ(FMTUnmaskInput(nullptr), 0);
    EXPECT_EQ(FMTIsValidMaskFormat(nullptr), 0);
    EXPECT_EQ(FMTCntMaskChars(nullptr), 0);
    EXPECT_EQ(FMTCntNonMaskChars(nullptr), 0);
    EXPECT_EQ(FMTIsPicNoUnmaskOnGets(nullptr), 0);
    EXPECT_EQ(FMTIsPicUnlimited(nullptr), 0);
    EXPECT_STREQ(out, "x");
}

TEST(MaskPicture, CountsAndTests) {
    static constexpr std::tuple<const char*, int32_t, int32_t, int32_t, int32_t> kRows[] = {
        {"999-9999", 1, 7, 1, 0}, {"XXX*", 1, 4, 0, 1}, {"*", 1, 1, 0, 1},  {"9*9", 0, 3, 0, 0}, {"---", 0, 0, 3, 0},
        {"", 0, 0, 0, 0},         {"^999", 1, 3, 0, 0}, {"**", 0, 2, 0, 1}, {"x9!", 1, 2, 1, 0},
    };
    for (const auto& [picture, valid, maskChars, literals, unlimited] : kRows) {
        const testing::ScopedTrace row(__FILE__, __LINE__, picture);
        EXPECT_EQ(FMTIsValidMaskFormat(picture), valid);
        EXPECT_EQ(FMTCntMaskChars(picture), maskChars);
        EXPECT_EQ(FMTCntNonMaskChars(picture), literals);
        EXPECT_EQ(FMTIsPicUnlimited(picture), unlimited);
        EXPECT_EQ(FMTIsPicNoUnmaskOnGets(picture), *picture == '^');
    }
}

TEST(MaskPicture, RawPositions) {
    static constexpr char kPhone[] = "(999) 999-9999";
    static constexpr std::tuple<const char*, int32_t, int32_t> rows[] = {
        {kPhone, 0, 0},  {kPhone, 1, 0}, {kPhone, 3, 2}, {kPhone, 5, 2}, {kPhone, 6, 3},
        {kPhone, 13, 9}, {"(99)", 9, 1}, {"AA-*", 3, 2}, {"AA-*", 4, 3}, {"AA-*", 7, 6},
    };
    for (const auto& [picture, position, raw] : rows)
        EXPECT_EQ(FMTMaskRawPos(picture, position), raw) << picture << position;
}

TEST(MaskPicture, CharacterClassesFollowTheCodePage) {
    EXPECT_EQ(Mask("\xE9", "A"), "\xC9");  // e acute to its capital
    EXPECT_EQ(Mask("\xE9", "9"), "");
    EXPECT_EQ(Mask("\xD7", "N"), "");  // the multiplication sign is no letter
    EXPECT_EQ(Mask("\xD7", "X"), "\xD7");
}

}  // namespace
