// Mask pictures: masking, unmasking, counts and tests.
#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include <morvl15/mask.h>

#include "mask/mask_picture.h"
#include "support/locale.h"

namespace {

constexpr char kGuard = '\x5A';

// The masked text, or "<0>" when the picture is refused, with a look at the byte behind the buffer.
std::string Mask(const std::string& text, const char* picture) {
    std::string out(text.size() + std::strlen(picture) + 2, kGuard);
    const size_t body = std::strlen(picture) - (*picture == '^');
    const size_t room =
        FMTIsPicUnlimited(picture) ? text.size() + static_cast<size_t>(FMTCntNonMaskChars(picture)) + 1 : body + 1;
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
    int line;
    const char* text;
    const char* picture;
    const char* masked;
    const char* unmasked;
};

constexpr char kRefused[] = "<0>";
constexpr char kUntouched[] = "<0, as it was>";

// clang-format off
constexpr MaskCase kMaskCases[] = {
    //         text        picture     masked      unmasked
    {__LINE__, "5551234",  "999-9999", "555-1234", kRefused   },
    {__LINE__, "555-1234", "999-9999", "555-1234", "5551234"  },
    {__LINE__, "555",      "999-9999", "555-",     "555"      },  // one literal follows the text
    {__LINE__, "1",        "(99)",     "(1",       kRefused   },
    {__LINE__, "5551",     "999-9999", "555-1",    kRefused   },
    {__LINE__, "abc",      "AAA",      "ABC",      "abc"      },  // no change of case in this direction
    {__LINE__, "a1b",      "aaa",      "ab",       "a1b"      },  // "a" isn't tested
    {__LINE__, "a-b",      "NNN",      "AB",       kRefused   },
    {__LINE__, "hello",    "!!!",      "HEL",      kUntouched },  // too long
    {__LINE__, "hello",    "!!!*",     "HELlo",    "hello"    },
    {__LINE__, "12",       "^(99)",    "(12)",     kRefused   },
    {__LINE__, "(12)",     "(99)",     "(12)",     "12"       },
    {__LINE__, "(12",      "(99)",     "(12)",     "12"       },
    {__LINE__, "abcd",     "AA-*",     "AB-cd",    kRefused   },
    {__LINE__, "ab",       "AA-*",     "AB-",      "ab"       },
    {__LINE__, "a1-b2",    "A9-A9",    "A1-B2",    "a1b2"     },
    {__LINE__, "",         "999",      "",         ""         },
    {__LINE__, "",         "(99)",     "(",        ""         },
    {__LINE__, "",         "((*",      "((",       ""         },
    {__LINE__, "abc",      "9*9",      kRefused,   kRefused   },
    {__LINE__, "   -    ", "999-9999", "",         "       "  },  // blanks hold their positions, once masked
    {__LINE__, "a\nb",     "XXX",      "ab",       "a\nb"     },  // a line feed is dropped one way
    {__LINE__, "a\nb",     "*",        "a\nb",     "a\nb"     },
    {__LINE__, "12",       "^^99",     "^12",      kRefused   },  // one prefix, then a literal
    {__LINE__, "1",        "^^9*",     "^1",       kRefused   },
    {__LINE__, "1",        "",         kRefused,   kUntouched },
};
// clang-format on

TEST(MaskText, MasksAndUnmasks) {
    for (const MaskCase& c : kMaskCases) {
        const testing::ScopedTrace row(__FILE__, c.line, c.picture);
        EXPECT_EQ(Mask(c.text, c.picture), c.masked);
        EXPECT_EQ(Unmask(c.text, c.picture), c.unmasked);
    }
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
    EXPECT_EQ(FMTIsValidMaskFormat(nullptr), 0);
    EXPECT_EQ(FMTCntMaskChars(nullptr), 0);
    EXPECT_EQ(FMTCntNonMaskChars(nullptr), 0);
    EXPECT_EQ(FMTIsPicNoUnmaskOnGets(nullptr), 0);
    EXPECT_EQ(FMTIsPicUnlimited(nullptr), 0);
    EXPECT_STREQ(out, "x");
}

struct PictureCase {
    int line;
    const char* picture;
    int32_t valid, maskChars, literals, unlimited;
};

// clang-format off
constexpr PictureCase kPictureCases[] = {
    //         picture     valid mask literals unlimited
    {__LINE__, "999-9999", 1,    7,   1,       0},
    {__LINE__, "XXX*",     1,    4,   0,       1},
    {__LINE__, "*",        1,    1,   0,       1},
    {__LINE__, "9*9",      0,    3,   0,       0},
    {__LINE__, "---",      0,    0,   3,       0},
    {__LINE__, "",         0,    0,   0,       0},
    {__LINE__, "^999",     1,    3,   0,       0},
    {__LINE__, "**",       0,    2,   0,       1},
    {__LINE__, "x9!",      1,    2,   1,       0},
};
// clang-format on

TEST(MaskPicture, CountsAndTests) {
    for (const PictureCase& c : kPictureCases) {
        const testing::ScopedTrace row(__FILE__, c.line, c.picture);
        EXPECT_EQ(FMTIsValidMaskFormat(c.picture), c.valid);
        EXPECT_EQ(FMTCntMaskChars(c.picture), c.maskChars);
        EXPECT_EQ(FMTCntNonMaskChars(c.picture), c.literals);
        EXPECT_EQ(FMTIsPicUnlimited(c.picture), c.unlimited);
        EXPECT_EQ(FMTIsPicNoUnmaskOnGets(c.picture), *c.picture == '^');
    }
}

TEST(MaskPicture, RawPositions) {
    struct {
        int line;
        const char* picture;
        int32_t position, raw;
    } const cases[] = {
        {__LINE__, "(999) 999-9999", 0, 0}, {__LINE__, "(999) 999-9999", 1, 0}, {__LINE__, "(999) 999-9999", 3, 2},
        {__LINE__, "(999) 999-9999", 5, 2}, {__LINE__, "(999) 999-9999", 6, 3}, {__LINE__, "(999) 999-9999", 13, 9},
        {__LINE__, "(99)", 9, 1},           {__LINE__, "AA-*", 3, 2},           {__LINE__, "AA-*", 4, 3},
        {__LINE__, "AA-*", 7, 6},
    };
    for (const auto& c : cases) {
        const testing::ScopedTrace row(__FILE__, c.line, c.picture);
        EXPECT_EQ(FMTMaskRawPos(c.picture, c.position), c.raw);
    }
}

TEST(MaskPicture, CharacterClassesFollowTheCodePage) {
    EXPECT_EQ(Mask("\xE9", "A"), "\xC9");  // e acute to its capital
    EXPECT_EQ(Mask("\xE9", "9"), "");
    EXPECT_EQ(Mask("\xD7", "N"), "");  // the multiplication sign is no letter
    EXPECT_EQ(Mask("\xD7", "X"), "\xD7");
}

}  // namespace
