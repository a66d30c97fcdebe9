// Which number pictures are valid. The examples of docs/number-pictures.md run too, in number_pictures_doc_native.cpp.
#include <gtest/gtest.h>

#include <string>

#include "format/picture_tokens.h"
#include "private_region.h"
#include "support/locale.h"

namespace {

constexpr TestRegion kUS = {};
constexpr TestRegion kMinusFirst = {',', '.', "$", 0, 1};
constexpr TestRegion kFar = {',', '.', "$", 0, 4};  // ($ of a negative amount stands behind: (12$)
constexpr TestRegion kGerman = {'.', ',', "DM", 3, 8};
constexpr TestRegion kFrench = {' ', ',', "F", 3, 8};
constexpr TestRegion kSwiss = {'\'', '.', "Fr", 0, 2};

struct ValidCase {
    int line;
    const char* picture;
    int32_t valid;
    TestRegion region = kUS;
};
// clang-format off
constexpr ValidCase kPictures[] = {
    {__LINE__, "",                  1},
    {__LINE__, "$",                 1},
    {__LINE__, "#",                 1},
    // sections
    {__LINE__, "#;#;#",             1},
    {__LINE__, "#;#;#;",            0},
    {__LINE__, ";;",                1},
    {__LINE__, "#;;'zero'",         1},
    // minus and parentheses, in the second section only
    {__LINE__, "-#,##0",            0},
    {__LINE__, "#;-#,##0",          1},
    {__LINE__, "#;#-",              1},
    {__LINE__, "#;#;-#",            0},
    {__LINE__, "#;(#)",             0, kMinusFirst},
    {__LINE__, "#;(#",              0},
    {__LINE__, "#;#)",              1},  // the currency string behind the amount
    {__LINE__, "#;#)",              0, kFar},
    {__LINE__, "#;(#))",            0},
    {__LINE__, "#;((#))",           0},
    {__LINE__, "#;()#",             0},
    {__LINE__, "#;#()",             0},
    {__LINE__, "#;(-#)",            0},
    {__LINE__, "#;(#)-",            0},
    {__LINE__, "#;(#",              1, kFar},  // that parenthesis is the negative prefix
    {__LINE__, "(#)",               0},
    // currency strings
    {__LINE__, "#;-$#",             0},
    {__LINE__, "#;($#)",            1},
    {__LINE__, "$#;(#)",            0},
    {__LINE__, "#;(#$)",            1, kFar},
    {__LINE__, "#$",                0},
    {__LINE__, "# DM;-# DM",        1, kGerman},
    {__LINE__, "DM #",              0, kGerman},
    {__LINE__, "#;#;$#",            1},
    {__LINE__, "#;#;($#)",          1},
    {__LINE__, "#;$#",              0},
    // digit runs
    {__LINE__, "##",                1},
    {__LINE__, "#0",                1},
    {__LINE__, "0.0#",              1},
    {__LINE__, "#.0",               1},
    {__LINE__, "0.#",               1},
    {__LINE__, "0.",                1},
    {__LINE__, "0 0",               0},
    {__LINE__, ".0",                0},
    {__LINE__, "#,##.00",           0},
    {__LINE__, "#,####.00",         0},
    {__LINE__, "#,.0",              0},
    {__LINE__, "#,x",               0},
    {__LINE__, "#.##0,00",          1, kGerman},
    {__LINE__, "#,##0.00",          0, kGerman},
    {__LINE__, "# ##0,00 F",        1, kFrench},
    {__LINE__, "# F",               1, kFrench},  // the blank ends the run, and belongs to the currency string
    {__LINE__, "# x",               0, kFrench},
    {__LINE__, "# ",                1, kFrench},
    {__LINE__, "#'##0",             1, kSwiss},
    {__LINE__, "#'x'",              1, kSwiss},
    {__LINE__, "#'x",               0, kSwiss},
    {__LINE__, "#%%",               0},
    {__LINE__, "0.0%;-0.0% ",       1},
    // pairs and literals
    {__LINE__, "#_x ",              0},
    {__LINE__, "#_",                0},
    {__LINE__, "_x",                1},
    {__LINE__, "_x#",               0},
    {__LINE__, "#;(#_x",            1},  // nothing else is looked at
    {__LINE__, "#,##0_);(#,##0)",   1},
    {__LINE__, "'kg' # \"x\"",      1},
    {__LINE__, "'it''s' #",         1},
    {__LINE__, "'a\\'b' #",         1},
    {__LINE__, "'a\\' #",           0},
    {__LINE__, "'a #",              0},
    // scientific ones are judged by themselves
    {__LINE__, "0.00E+00",          1},
    {__LINE__, "0.00E+00",          1, kGerman},
    {__LINE__, "0.##e-0",           1},
    {__LINE__, "0.0e-0",            1},
    {__LINE__, "0.00E 00",          0},
    {__LINE__, "0.0#E+#0",          0},
    {__LINE__, "0.0E+0#0",          0},
    {__LINE__, "0.0E+0;0",          0},
    {__LINE__, "0.0E+",             0},
    // tokenized
    {__LINE__, "\x0F#\x01##0\x02" "00\x10",     1, kGerman},
    {__LINE__, "\x0F#\x01#0\x02" "00\x10",      0},
    {__LINE__, "\x0F#\x10\x04;\x05\x0F#\x10",   1},
};
// clang-format on

int32_t IsValid(FMTCntlBlock block, const char* picture) {
    block.Picture = picture;
    block.Output = nullptr;  // nothing is written
    return FMTIsNumberPicValid(&block);
}

TEST(PictureValidity, Pictures) {
    for (const ValidCase& c : kPictures) {
        const testing::ScopedTrace row(__FILE__, c.line, c.picture);
        EXPECT_EQ(IsValid(BlockOf(c.region), c.picture), c.valid);
    }
}

TEST(PictureValidity, NoPictureAndTooLong) {
    EXPECT_EQ(IsValid(BlockOf(kUS), nullptr), 0);
    EXPECT_EQ(IsValid(BlockOf(kUS), std::string(63, '#').c_str()), 1);
    EXPECT_EQ(IsValid(BlockOf(kUS), std::string(64, '#').c_str()), 0);
    EXPECT_EQ(IsValid(BlockOf(kUS), ("0.0E+" + std::string(59, '0')).c_str()), 0);
    const std::string fillsUp = "'" + std::string(55, 'x') + "'\x0F#\x10\x06";
    EXPECT_EQ(IsValid(BlockOf(kUS), (";" + fillsUp).c_str()), 1);                         // "($" in front of "#"
    EXPECT_EQ(IsValid(BlockOf({',', '.', "DEM DM", 0, 0}), (";" + fillsUp).c_str()), 0);  // its text is too long
}

// 0x95 0x5C holds a backslash, 0x83 0x5F an underscore.
TEST(PictureValidityJapanese, DoubleByteCharactersStayWhole) {
    const TestLanguage language(kJapanese);
    EXPECT_EQ(IsValid(BlockOf(kUS), "'\x95\x5C'#"), 1);
    EXPECT_EQ(IsValid(BlockOf(kUS), "\x83\x5F"), 0);
    EXPECT_EQ(IsValid(BlockOf({',', '.', "\x89\x7E", 1, 8}), "#\x89\x7E;-# \x89\x7E"), 1);
    EXPECT_EQ(IsValid(BlockOf(kUS), "#_\x83\x5F"), 0);  // three bytes remain
}

}  // namespace
