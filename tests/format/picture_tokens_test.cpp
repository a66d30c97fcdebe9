// The two forms of a number picture.
#include <gtest/gtest.h>

#include <string>

#include "format/picture_tokens.h"
#include "private_region.h"
#include "support/locale.h"

// The bytes of the tokenized form.
#define TH "\x01"   // group separator
#define DE "\x02"   // decimal separator
#define PP "\x03"   // positive prefix
#define PS "\x04"   // positive suffix
#define NP "\x05"   // negative prefix
#define NS "\x06"   // negative suffix
#define PAD "\x0E"  // the "_" of a pair
#define RUN "\x0F"  // start and end of a digit run
#define END "\x10"

namespace {

using Conversion = int32_t(MORVL_CALL*)(FMTCntlBlock*);

// Runs a conversion with guard bytes behind the longest picture. "failed" for a result of 0.
std::string Convert(Conversion conversion, FMTCntlBlock block, const std::string& picture) {
    char output[70];
    std::memset(output, 0x7E, sizeof output);
    block.Picture = picture.c_str();
    block.Output = output;
    const int32_t result = conversion(&block);
    EXPECT_EQ(std::string(output + 64, 6), "~~~~~~");
    if (result == 0) {
        EXPECT_STREQ(output, "");
    }
    return result == 1 ? output : "failed";
}

std::string Tokenize(const TestRegion& region, const std::string& picture) {
    return Convert(FMTTokenizeNumberPic, BlockOf(region), picture);
}

std::string UnTokenize(const TestRegion& region, const std::string& picture) {
    return Convert(FMTUnTokenizeNumberPic, BlockOf(region), picture);
}

constexpr TestRegion kUS = {};
constexpr TestRegion kGerman = {'.', ',', "DM", 3, 8};
constexpr TestRegion kMinus = {',', '.', "$", 0, 5};       // -12$
constexpr TestRegion kMinusFirst = {',', '.', "$", 0, 1};  // -$12

struct TokenCase {
    int line;
    const char* text;
    const char* tokens;
    TestRegion region = kUS;
};
// clang-format off
const TokenCase kBothWays[] = {
    {__LINE__, "",                              ""},
    {__LINE__, "$",                             "$"},
    {__LINE__, "0.00E+00",                      "0.00E+00"},  // scientific: one form for all
    {__LINE__, "0.00e-0;#",                     "0.00e-0;#"},
    {__LINE__, "#,##0.00",                      RUN "#" TH "##0" DE "00" END},
    {__LINE__, "#.",                            RUN "#" DE END},
    {__LINE__, "#,",                            RUN "#" END ","},
    {__LINE__, "$#,##0.00;($#,##0.00);'zero'",  PP RUN "#" TH "##0" DE "00" END ";" NP RUN "#" TH "##0" DE "00" END NS ";'zero'"},
    {__LINE__, "#,##0_)",                       RUN "#" TH "##0" END PAD NS},
    {__LINE__, "#;-#",                          RUN "#" END ";-" RUN "#" END, kMinus},
    {__LINE__, "$#;-#$",                        PP RUN "#" END ";" NP RUN "#" END NS, kMinus},
    {__LINE__, "#;#-",                          RUN "#" END ";" RUN "#" END "-", {',', '.', "$", 0, 3}},
    {__LINE__, "#;(#)",                         RUN "#" END ";(" RUN "#" END ")"},  // the parenthesis is the picture's
    {__LINE__, "#;(#)",                         RUN "#" END ";(" RUN "#" END ")", kMinusFirst},
    {__LINE__, "#;-$#",                         RUN "#" END ";" NP RUN "#" END, kMinusFirst},
    {__LINE__, "#;#;$0;#",                      RUN "#" END ";" RUN "#" END ";" PP RUN "0" END ";" RUN "#" END},
    {__LINE__, "#;#;($0)",                      RUN "#" END ";" RUN "#" END ";" NP RUN "0" END NS},
    {__LINE__, "0%",                            RUN "0" END "%"},
    {__LINE__, "# 'kg' \"t\"",                  RUN "#" END " 'kg' \"t\""},
    {__LINE__, "'it''s #'#",                    "'it''s #'" RUN "#" END},
    {__LINE__, "'a\\'#'#",                      "'a\\'#'" RUN "#" END},
    {__LINE__, "\"a\\'\"\"#;\"#",               "\"a\\'\"\"#;\"" RUN "#" END},
    {__LINE__, "'a;b'#",                        "'a;b'" RUN "#" END},
    {__LINE__, "'open #",                       "'open #"},
    {__LINE__, "#x_y",                          RUN "#" END "x" PAD "y"},
    {__LINE__, "#_",                            RUN "#" END PAD},
    {__LINE__, "#.##0,00 DM;-#.##0,00 DM",      RUN "#" TH "##0" DE "00" END PS ";" NP RUN "#" TH "##0" DE "00" END NS, kGerman},
    {__LINE__, "0.0.0",                         RUN "0" DE "0" DE "0" END},
    {__LINE__, "# ##0",                         RUN "#" TH "##0" END, {' ', ',', "F", 3, 8}},
    {__LINE__, "#,##0.00",                      RUN "#" END "," RUN "##0" END "." RUN "00" END, {0, 0, "$", 0, 0}},
};

// Texts that come back in another shape than they had.
const TokenCase kTokenizedOnly[] = {
    {__LINE__, "#_$;#_$",                       RUN "#" END PAD "$;" RUN "#" END PAD PS, {',', '.', "$", 1, 1}},
    {__LINE__, "#;#;#_$",                       RUN "#" END ";" RUN "#" END ";" RUN "#" END PAD PS, {',', '.', "$", 1, 1}},
    {__LINE__, "#;#;#_$",                       RUN "#" END ";" RUN "#" END ";" RUN "#" END PAD NS, {',', '.', "$", 1, 5}},
    {__LINE__, "#;#)",                          RUN "#" END ";" RUN "#" END NS},
    {__LINE__, "#;--#",                         RUN "#" END ";" NP "-" RUN "#" END, kMinus},  // the last one comes back
};

const TokenCase kUnTokenizedOnly[] = {
    // separators of another country, and none
    {__LINE__, "#.##0,00",      RUN "#" TH "##0" DE "00" END, {'.', ',', "DM", 3, 8}},
    {__LINE__, "###000",        RUN "#" TH "##0" DE "00" END, {0, 0, "$", 0, 0}},
    // a symbol that stands behind in the stored picture and in front here
    {__LINE__, "$#",            RUN "#" END PS},
    {__LINE__, "$#;($#)",       RUN "#" END PS ";" NP RUN "#" END NS},
    {__LINE__, "$#;($#)",       RUN "#" END PS ";" RUN "#" END NS},
    {__LINE__, "#;($#)",        RUN "#" END ";" RUN "#" END NS},
    {__LINE__, "#;#;$#",        RUN "#" END ";" RUN "#" END ";" RUN "#" END PS},
    {__LINE__, "#;#",           RUN "#" END ";" RUN "#" END PS},     // a positive suffix says nothing there
    {__LINE__, "# 'x'",         RUN "#" END " 'x'" PAD PS},           // the pair hides it
    // ... and the other way round
    {__LINE__, "# DM;-# DM",    PP RUN "#" END ";" NP RUN "#" END, {'.', ',', "DM", 3, 8}},
    {__LINE__, "# DM;-# DM",    PP RUN "#" END PS ";" NP RUN "#" END NS, {'.', ',', "DM", 3, 8}},
    {__LINE__, "# DM",          PP RUN "#" END PAD PS, {'.', ',', "DM", 3, 8}},
    {__LINE__, "#;-#",          RUN "#" END ";" NP RUN "#" END PAD NS, {'.', ',', "DM", 3, 8}},  // the token counts, though a pair
    // pairs that mean one character no more
    {__LINE__, "#",             RUN "#" END PAD NS, {',', '.', "$", 0, 1}},
    {__LINE__, "#",             RUN "#" END PAD NS, {',', '.', "DM", 0, 8}},
    {__LINE__, "#_$",           RUN "#" END PAD PS, {',', '.', "$", 1, 1}},
    {__LINE__, "#;#",           RUN "#" END ";" RUN "#" END PAD PS, {',', '.', "$", 1, 0}},
    {__LINE__, "#_x_",          RUN "#" END "_x" PAD},
    // every ";" counts, inside quotes too
    {__LINE__, "';'($#)",       "';'" RUN "#" END NS},
};
// clang-format on

TEST(PictureTokens, BothWays) {
    for (const TokenCase& c : kBothWays) {
        const testing::ScopedTrace row(__FILE__, c.line, c.text);
        EXPECT_EQ(Tokenize(c.region, c.text), c.tokens);
        EXPECT_EQ(UnTokenize(c.region, c.tokens), c.text);
    }
}

TEST(PictureTokens, Tokenize) {
    for (const TokenCase& c : kTokenizedOnly) {
        const testing::ScopedTrace row(__FILE__, c.line, c.text);
        EXPECT_EQ(Tokenize(c.region, c.text), c.tokens);
    }
}

TEST(PictureTokens, UnTokenize) {
    for (const TokenCase& c : kUnTokenizedOnly) {
        const testing::ScopedTrace row(__FILE__, c.line, c.text);
        EXPECT_EQ(UnTokenize(c.region, c.tokens), c.text);
    }
}

// Under each of the layouts, a picture written in the layout's own strings comes back as it was.
TEST(PictureTokens, InverseUnderEveryLayout) {
    for (const char* symbol : {"$", "DM", "", "-"}) {
        for (int32_t position = 0; position <= 3; ++position) {
            for (int32_t negLayout = 0; negLayout <= 10; ++negLayout) {
                const TestRegion region = {',', '.', symbol, position, negLayout};
                FMTCurrencyStrings s;
                FMTBuildCurrencyStrings(position, negLayout, s.posPrefix, s.posSuffix, s.negPrefix, s.negSuffix,
                                        symbol);
                const std::string run = "#,##0.0#";
                const std::string positive = s.posPrefix + run + s.posSuffix;
                const std::string negative = s.negPrefix + run + s.negSuffix;
                for (const std::string& picture :
                     {positive, positive + ";" + negative, positive + ";" + negative + ";" + positive, run + ";-" + run,
                      "'a' " + positive + " ;" + negative, run + ";" + run + ";'none'"}) {
                    SCOPED_TRACE(picture + " in position " + std::to_string(position) + ", layout " +
                                 std::to_string(negLayout));
                    EXPECT_EQ(UnTokenize(region, Tokenize(region, picture)), picture);
                }
            }
        }
    }
}

TEST(PictureTokens, TokenizedIsWhatHasADigitRun) {
    EXPECT_EQ(FMTIsNumberPicTokenized(Tokenize(kUS, "#").c_str()), 1);
    EXPECT_EQ(FMTIsNumberPicTokenized(Tokenize(kUS, "$;'x'").c_str()), 0);
    EXPECT_EQ(FMTIsNumberPicTokenized("#,##0.00"), 0);
    EXPECT_EQ(FMTIsNumberPicTokenized(""), 0);
    EXPECT_EQ(FMTIsNumberPicTokenized(nullptr), 0);
}

TEST(PictureTokens, NoPicture) {
    for (const Conversion conversion : {FMTTokenizeNumberPic, FMTUnTokenizeNumberPic, FMTCnvOldNumberPic}) {
        FMTCntlBlock block = BlockOf(kUS);
        char output[] = "full";
        block.Output = output;
        EXPECT_EQ(conversion(&block), 0);
        EXPECT_STREQ(output, "");
        block.Output = nullptr;
        EXPECT_EQ(conversion(&block), 0);
        block.Picture = "#";
        EXPECT_EQ(conversion(&block), 0);
    }
}

TEST(PictureTokens, OutputMayBeThePictureItself) {
    char text[64] = "$#,##0";
    FMTCntlBlock block = BlockOf(kUS);
    block.Picture = text;
    block.Output = text;
    EXPECT_EQ(FMTTokenizeNumberPic(&block), 1);
    EXPECT_STREQ(text, PP RUN "#" TH "##0" END);
    EXPECT_EQ(FMTUnTokenizeNumberPic(&block), 1);
    EXPECT_STREQ(text, "$#,##0");
}

// Neither form may have more than 63 bytes.
TEST(PictureTokens, TheLongestPictures) {
    const std::string literal = "'" + std::string(58, 'x') + "'";
    EXPECT_EQ(Tokenize(kUS, literal + "#"), literal + RUN "#" END);
    EXPECT_EQ(Tokenize(kUS, literal + "##"), "failed");  // 64 bytes with the marks of the run
    EXPECT_EQ(Tokenize(kUS, literal + "###"), "failed");
    EXPECT_EQ(Tokenize(kUS, std::string(1000, '#')), "failed");
    EXPECT_EQ(Tokenize(kUS, "0.0E+" + std::string(58, '0')), "0.0E+" + std::string(58, '0'));
    EXPECT_EQ(Tokenize(kUS, "0.0E+" + std::string(59, '0')), "failed");

    EXPECT_EQ(UnTokenize(kUS, literal + PP "xx"), literal + "$xx");
    EXPECT_EQ(UnTokenize({',', '.', "DM", 0, 0}, literal + PP "xx"), "failed");  // grows beyond
    EXPECT_EQ(UnTokenize(kUS, std::string(70, '\x0F')), "failed");

    EXPECT_EQ(Convert(FMTCnvOldNumberPic, BlockOf(kUS), std::string(61, 'x')), "'" + std::string(61, 'x') + "'");
    EXPECT_EQ(Convert(FMTCnvOldNumberPic, BlockOf(kUS), std::string(62, 'x')), "failed");
    EXPECT_EQ(Convert(FMTCnvOldNumberPic, BlockOf(kUS), std::string(64, '#')), "failed");
}

struct CurrencyCase {
    int32_t position, negLayout;
    const char* posPrefix;
    const char* posSuffix;
    const char* negPrefix;
    const char* negSuffix;
};
// clang-format off
constexpr CurrencyCase kCurrencyStrings[] = {
    // position, layout, prefix and suffix of a positive, of a negative amount
    {0, 0,    "DM",   "",     "(DM",  ")"},
    {1, 1,    "",     "DM",   "-DM",  ""},
    {2, 2,    "DM ",  "",     "DM-",  ""},
    {3, 3,    "",     " DM",  "DM",   "-"},
    {4, 4,    "",     "",     "(",    "DM)"},
    {-1, 5,   "",     "",     "-",    "DM"},
    {0, 6,    "DM",   "",     "",     "-DM"},
    {0, 7,    "DM",   "",     "",     "DM-"},
    {0, 8,    "DM",   "",     "-",    " DM"},
    {0, 9,    "DM",   "",     "-DM ", ""},
    {0, 10,   "DM",   "",     "",     " DM-"},
    {0, 11,   "DM",   "",     "",     ""},
    {0, -1,   "DM",   "",     "",     ""},
};
// clang-format on

void ExpectCurrencyStrings(const CurrencyCase& want, const char* symbol) {
    FMTCurrencyStrings s;
    FMTBuildCurrencyStrings(want.position, want.negLayout, s.posPrefix, s.posSuffix, s.negPrefix, s.negSuffix, symbol);
    EXPECT_STREQ(s.posPrefix, want.posPrefix);
    EXPECT_STREQ(s.posSuffix, want.posSuffix);
    EXPECT_STREQ(s.negPrefix, want.negPrefix);
    EXPECT_STREQ(s.negSuffix, want.negSuffix);
}

TEST(CurrencyStrings, EveryLayout) {
    for (const CurrencyCase& c : kCurrencyStrings) {
        SCOPED_TRACE(std::to_string(c.position) + ", " + std::to_string(c.negLayout));
        ExpectCurrencyStrings(c, "DM");
    }
    ExpectCurrencyStrings({2, 9, "12%s567 ", "", "-12%s567 ", ""}, "12%s56789");  // cut to 7 bytes, taken as it is
}

TEST(CurrencyStringsJapanese, ALongSymbolIsCutAtACharacter) {
    const TestLanguage language(kJapanese);
    ExpectCurrencyStrings({0, 8, "\x89\x7E\x89\x7E\x89\x7E", "", "-", " \x89\x7E\x89\x7E\x89\x7E"},
                          "\x89\x7E\x89\x7E\x89\x7E\x89\x7E");
    ExpectCurrencyStrings({0, 8, "x\x89\x7E\x89\x7E\x89\x7E", "", "-", " x\x89\x7E\x89\x7E\x89\x7E"},
                          "x\x89\x7E\x89\x7E\x89\x7E\x89\x7E");
}

// The second byte of a double-byte character is no picture character: 0x83 0x5F ends in "_", 0x95 0x5C in "\".
TEST(PictureTokensJapanese, DoubleByteCharactersStayWhole) {
    const TestLanguage language(kJapanese);
    const TestRegion yen = {',', '.', "\x89\x7E", 1, 4};
    EXPECT_EQ(Tokenize(yen, "\x83\x5F#\x89\x7E"), "\x83\x5F" RUN "#" END PS);
    EXPECT_EQ(UnTokenize(yen, "\x83\x5F" RUN "#" END PS), "\x83\x5F#\x89\x7E");
    EXPECT_EQ(Tokenize(yen, "'\x95\x5C'#"), "'\x95\x5C'" RUN "#" END);
    EXPECT_EQ(Tokenize(yen, "#_\x83\x5F#"), RUN "#" END PAD "\x83\x5F" RUN "#" END);
    EXPECT_EQ(UnTokenize(yen, RUN "#" END PAD "\x83\x5F"), "#_\x83\x5F");
    EXPECT_EQ(Tokenize(yen, "#;(#\x89\x7E)"), RUN "#" END ";" NP RUN "#" END NS);
    EXPECT_EQ(Convert(FMTCnvOldNumberPic, BlockOf(yen), "\x83\x5F#\x89\x7E"), "'\x83\x5F'#\x89\x7E");
    EXPECT_EQ(Tokenize(yen, "#\x83"), RUN "#" END "\x83");  // half a character at the end
}

struct OldCase {
    int line;
    const char* old;
    const char* text;
    TestRegion region = kUS;
};
// clang-format off
const OldCase kOld[] = {
    {__LINE__, "",                    ""},
    {__LINE__, "$",                   "$"},
    {__LINE__, "0.00E+00",            "0.00E+00",         kGerman},
    {__LINE__, "#,##0.00 DM",         "#.##0,00 DM",      kGerman},
    {__LINE__, "$#;($#)",             "$#;($#)"},
    {__LINE__, "-#;-#",               "'-'#;'-'#"},
    {__LINE__, "#;-#",                "#;-#",             kMinus},
    {__LINE__, "#%;#.%",              "#%;#.%"},
    {__LINE__, "#,%",                 "#%",               {0, '.', "$", 0, 0}},
    {__LINE__, "#_)%",                "#_)'%'"},
    {__LINE__, "#,.0",                "#.,0",             kGerman},
    {__LINE__, ",#",                  "','#"},
    {__LINE__, "'it''s'\"x'\"#",      "'it''s'\"x'\"#"},
    {__LINE__, "'open #,",            "'open #,"},
    {__LINE__, "x 'y'",               "'x' 'y'"},
    {__LINE__, "x  _y",               "'x ' _y"},
    {__LINE__, "x_",                  "'x'_"},
    {__LINE__, "  x ",                "  'x '"},
};
// clang-format on

TEST(OldPictures, BecomeTexts) {
    for (const OldCase& c : kOld) {
        const testing::ScopedTrace row(__FILE__, c.line, c.old);
        EXPECT_EQ(Convert(FMTCnvOldNumberPic, BlockOf(c.region), c.old), c.text);
    }
}

}  // namespace
