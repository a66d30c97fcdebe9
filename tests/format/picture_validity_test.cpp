// Which number pictures are valid. The examples of docs/number-pictures.md run too, in number_pictures_doc_native.cpp.
#include <gtest/gtest.h>

#include <random>
#include <string>

#include <morvl15/intl.h>

#include "format/picture_tokens.h"
#include "number_block.h"
#include "support/locale.h"

namespace {

constexpr TestRegion kMinusFirst = {',', '.', "$", 0, 1};
constexpr TestRegion kFar = {',', '.', "$", 0, 4};  // ($ of a negative amount stands behind: (12$)
constexpr TestRegion kFrench = {' ', ',', "F", 3, 8};
constexpr TestRegion kSwiss = {'\'', '.', "Fr", 0, 2};

int32_t IsValid(const TestRegion& region, const std::string& picture) {
    FMTCntlBlock block = BlockOf(region);
    block.Picture = picture.c_str();
    block.Output = nullptr;  // nothing is written
    return FMTIsNumberPicValid(&block);
}

using Pictures = std::initializer_list<const char*>;

void ExpectValid(const TestRegion& region, Pictures valid, Pictures invalid) {
    for (const char* picture : valid) EXPECT_EQ(IsValid(region, picture), 1) << picture;
    for (const char* picture : invalid) EXPECT_EQ(IsValid(region, picture), 0) << picture;
}

TEST(PictureValidity, Sections) {
    ExpectValid(kUS, {"", "$", "#", "#;#;#", ";;", "#;;'zero'"}, {"#;#;#;"});
}

// Minus and parentheses stand in the second section only. There a parenthesis may be part of the currency strings.
TEST(PictureValidity, MinusAndParentheses) {
    ExpectValid(kUS, {"#;-#,##0", "#;#-", "#;#)"},
                {"-#,##0", "#;#;-#", "#;(#", "#;(#))", "#;((#))", "#;()#", "#;#()", "#;(-#)", "#;(#)-", "(#)"});
    ExpectValid(kMinusFirst, {}, {"#;(#)"});
    ExpectValid(kFar, {"#;(#"}, {"#;#)"});
}

TEST(PictureValidity, CurrencyStrings) {
    ExpectValid(kUS, {"#;($#)", "#;#;$#", "#;#;($#)"}, {"#;-$#", "$#;(#)", "#$", "#;$#"});
    ExpectValid(kFar, {"#;(#$)"}, {});
    ExpectValid(kGermany, {"# DM;-# DM"}, {"DM #"});
}

TEST(PictureValidity, DigitRuns) {
    ExpectValid(kUS, {"##", "#0", "0.0#", "#.0", "0.#", "0.", "0.0%;-0.0% "},
                {"0 0", ".0", "#,##.00", "#,####.00", "#,.0", "#,x", "#%%"});
    ExpectValid(kGermany, {"#.##0,00"}, {"#,##0.00"});
    ExpectValid(kFrench, {"# ##0,00 F", "# F", "# "}, {"# x"});  // the blank ends the run
    ExpectValid(kSwiss, {"#'##0", "#'x'"}, {"#'x"});
}

// Nothing is looked at behind a pair that ends its section.
TEST(PictureValidity, PairsAndLiterals) {
    ExpectValid(kUS, {"_x", "#;(#_x", "#,##0_);(#,##0)", "'kg' # \"x\"", "'it''s' #", "'a\\'b' #"},
                {"#_x ", "#_", "_x#", "'a\\' #", "'a #"});
}

TEST(PictureValidity, ScientificOnesAreJudgedByThemselves) {
    ExpectValid(kUS, {"0.00E+00", "0.##e-0", "0.0e-0"}, {"0.00E 00", "0.0#E+#0", "0.0E+0#0", "0.0E+0;0", "0.0E+"});
    ExpectValid(kGermany, {"0.00E+00"}, {});
}

// What counts as scientific is what two patterns of the wild-card scan find at the very start.
void ExpectSciPicsAsScanned(const std::string& letters) {
    std::mt19937 random(20260503);
    for (int32_t round = 0; round < 20000; ++round) {
        std::string picture = round % 4 == 0 ? "" : "0.";
        for (size_t length = random() % 10; length > 0; --length) picture += letters[random() % letters.size()];
        const bool isFound =
            IntlStrScan(picture.c_str(), "0.%E_0%") == 0 || IntlStrScan(picture.c_str(), "0.%e_0%") == 0;
        ASSERT_EQ(FMTIsSciPic(picture.c_str()), isFound && picture[0] == '0') << picture;
    }
}

TEST(PictureValidity, ScientificOnesAreFoundAsTheScanDoes) {
    ExpectSciPicsAsScanned("0Ee+#.x");
}

TEST(PictureValidity, Tokenized) {
    ExpectValid(kGermany, {"\x0F#\x01##0\x02\x30\x30\x10"}, {});
    ExpectValid(kUS, {"\x0F#\x10\x04;\x05\x0F#\x10"}, {"\x0F#\x01#0\x02\x30\x30\x10"});
}

TEST(PictureValidity, NoPictureAndTooLong) {
    FMTCntlBlock noPicture = BlockOf(kUS);
    EXPECT_EQ(FMTIsNumberPicValid(&noPicture), 0);
    EXPECT_EQ(FMTIsNumberPicValid(nullptr), 0);
    EXPECT_EQ(IsValid(kUS, std::string(63, '#')), 1);
    EXPECT_EQ(IsValid(kUS, std::string(64, '#')), 0);
    EXPECT_EQ(IsValid(kUS, "0.0E+" + std::string(59, '0')), 0);
    const std::string fillsUp = "'" + std::string(55, 'x') + "'\x0F#\x10\x06";
    EXPECT_EQ(IsValid(kUS, ";" + fillsUp), 1);                         // "($" in front of "#"
    EXPECT_EQ(IsValid({',', '.', "DEM DM", 0, 0}, ";" + fillsUp), 0);  // its text is too long
}

// 0x95 0x5C holds a backslash, 0x83 0x5F an underscore.
TEST(PictureValidityJapanese, DoubleByteCharactersStayWhole) {
    const TestLanguage language(kJapanese);
    EXPECT_EQ(IsValid(kUS, "'\x95\x5C'#"), 1);
    EXPECT_EQ(IsValid(kUS, "\x83\x5F"), 0);
    EXPECT_EQ(IsValid({',', '.', "\x89\x7E", 1, 8}, "#\x89\x7E;-# \x89\x7E"), 1);
    EXPECT_EQ(IsValid(kUS, "#_\x83\x5F"), 0);  // three bytes remain
    ExpectSciPicsAsScanned("0Ee+.\x83");       // a lead byte makes any letter behind it a trail
}

}  // namespace
