// The two forms of a number picture.
#include <gtest/gtest.h>

#include <span>
#include <string>

#include "format/picture_tokens.h"
#include "number_block.h"
#include "support/locale.h"

namespace {

// The bytes of the tokenized form, each by a letter: separators (T, D), prefix and suffix of positive amounts (P, S)
// and of negative ones (N, M), the "_" of a pair (~), start and end of a digit run (square brackets).
std::string Tokens(std::string letters) {
    constexpr char kLetters[] = "TDPSNM~[]";
    constexpr char kBytes[] = {kTokenThousand,  kTokenDecimal, kTokenPosPrefix, kTokenPosSuffix, kTokenNegPrefix,
                               kTokenNegSuffix, kTokenPad,     kTokenRunStart,  kTokenRunEnd};
    for (char& letter : letters) {
        const char* at = std::strchr(kLetters, letter);
        if (at != nullptr) letter = kBytes[at - kLetters];
    }
    return letters;
}

std::string Tokenize(const TestRegion& region, const std::string& picture) {
    return ConvertPicture(FMTTokenizeNumberPic, BlockOf(region), picture);
}
std::string UnTokenize(const TestRegion& region, const std::string& picture) {
    return ConvertPicture(FMTUnTokenizeNumberPic, BlockOf(region), picture);
}
std::string ConvertOld(const TestRegion& region, const std::string& picture) {
    return ConvertPicture(FMTCnvOldNumberPic, BlockOf(region), picture);
}

constexpr TestRegion kMinus = {',', '.', "$", 0, 5};       // -12$
constexpr TestRegion kMinusFirst = {',', '.', "$", 0, 1};  // -$12
constexpr TestRegion kBehind = {',', '.', "$", 1, 1};
constexpr TestRegion kNoSeparators = {0, 0};

struct TokenCase {
    const char* text;
    const char* tokens;
    TestRegion region = kUS;
};
const TokenCase kPlaces[] = {
    {"", ""},           {"0.00e-0;#", "0.00e-0;#"},
    {"$", "$"},         {"0.00E+00", "0.00E+00"},  // scientific: one form for all
    {"#.", "[#D]"},     {"#,##0.00", "[#T##0D00]"},
    {"#,", "[#],"},     {"0.0.0", "[0D0D0]"},
    {"0%", "[0]%"},     {"# ##0", "[#T##0]", {' ', ',', "F", 3, 8}},
    {"#_", "[#]~"},     {"#,##0.00", "[#],[##0].[00]", kNoSeparators},
    {"#x_y", "[#]x~y"},
};
const TokenCase kLiterals[] = {
    {"# 'kg' \"t\"", "[#] 'kg' \"t\""}, {"'it''s #'#", "'it''s #'[#]"}, {"'a;b'#", "'a;b'[#]"},
    {"'a\\'#'#", "'a\\'#'[#]"},         {"'open #", "'open #"},         {"\"a\\'\"\"#;\"#", "\"a\\'\"\"#;\"[#]"},
};
const TokenCase kSections[] = {
    {"#,##0_)", "[#T##0]~M"},         {"#;(#)", "[#];([#])", kMinusFirst},
    {"$#;-#$", "P[#];N[#]M", kMinus}, {"#;#-", "[#];[#]-", {',', '.', "$", 0, 3}},
    {"#;(#)", "[#];([#])"},  // the parenthesis is the picture's
    {"#;-#", "[#];-[#]", kMinus},     {"#;-$#", "[#];N[#]", kMinusFirst},
    {"#;#;$0;#", "[#];[#];P[0];[#]"}, {"$#,##0.00;($#,##0.00);'zero'", "P[#T##0D00];N[#T##0D00]M;'zero'"},
    {"#;#;($0)", "[#];[#];N[0]M"},    {"#.##0,00 DM;-#.##0,00 DM", "[#T##0D00]S;N[#T##0D00]M", kGermany},
};

// Texts that come back in another shape than they had.
const TokenCase kTokenizedOnly[] = {
    {"#_$;#_$", "[#]~$;[#]~S", kBehind},
    {"#;#;#_$", "[#];[#];[#]~S", kBehind},
    {"#;#;#_$", "[#];[#];[#]~M", {',', '.', "$", 1, 5}},
    {"#;#)", "[#];[#]M"},
    {"#;--#", "[#];N-[#]", kMinus},  // the last one comes back
};

// Separators of another country, and none; pairs that mean one character no more; a ";" that counts inside quotes too.
const TokenCase kUnTokenizedOnly[] = {
    {"#.##0,00", "[#T##0D00]", kGermany},        {"#", "[#]~M", kMinusFirst}, {"###000", "[#T##0D00]", kNoSeparators},
    {"#", "[#]~M", {',', '.', "DM", 0, 8}},      {"#_$", "[#]~S", kBehind},   {"#_x_", "[#]_x~"},
    {"#;#", "[#];[#]~S", {',', '.', "$", 1, 0}}, {"';'($#)", "';'[#]M"},
};

// A symbol that stands behind in the stored picture and in front here, or the other way round.
const TokenCase kFarSymbols[] = {
    {"$#;($#)", "[#]S;N[#]M"},        {"$#", "[#]S"},           {"# DM;-# DM", "P[#];N[#]", kGermany},
    {"#;($#)", "[#];[#]M"},           {"# 'x'", "[#] 'x'~S"},  // the pair hides it
    {"#;#;$#", "[#];[#];[#]S"},       {"#;#", "[#];[#]S"},     // a positive suffix says nothing there
    {"# DM", "P[#]~S", kGermany},     {"$#;($#)", "[#]S;[#]M"}, {"# DM;-# DM", "P[#]S;N[#]M", kGermany},
    {"#;-#", "[#];N[#]~M", kGermany},  // the token counts, though a pair
};

void ExpectTokens(std::span<const TokenCase> cases) {
    for (const TokenCase& c : cases) EXPECT_EQ(Tokenize(c.region, c.text), Tokens(c.tokens)) << c.text;
}
void ExpectTexts(std::span<const TokenCase> cases) {
    for (const TokenCase& c : cases) EXPECT_EQ(UnTokenize(c.region, Tokens(c.tokens)), c.text) << c.tokens;
}

TEST(PictureTokens, BothWays) {
    for (const std::span<const TokenCase> cases : {std::span<const TokenCase>(kPlaces), {kLiterals}, {kSections}}) {
        ExpectTokens(cases);
        ExpectTexts(cases);
    }
}

TEST(PictureTokens, OneWay) {
    ExpectTokens(kTokenizedOnly);
    ExpectTexts(kUnTokenizedOnly);
    ExpectTexts(kFarSymbols);
}

// A picture written in the layout's own strings comes back as it was.
void ExpectInverse(const TestRegion& region) {
    FMTCurrencyStrings s;
    FMTBuildCurrencyStrings(region.position, region.negative, s.posPrefix, s.posSuffix, s.negPrefix, s.negSuffix,
                            region.currency);
    const std::string run = "#,##0.0#";
    const std::string positive = s.posPrefix + run + s.posSuffix;
    const std::string negative = s.negPrefix + run + s.negSuffix;
    for (const std::string& picture :
         {positive, positive + ";" + negative, positive + ";" + negative + ";" + positive, run + ";-" + run,
          "'a' " + positive + " ;" + negative, run + ";" + run + ";'none'"}) {
        EXPECT_EQ(UnTokenize(region, Tokenize(region, picture)), picture) << region.position << ' ' << region.negative;
    }
}

TEST(PictureTokens, InverseUnderEveryLayout) {
    for (const char* symbol : {"$", "DM", "", "-"}) {
        for (int32_t position = 0; position <= 3; ++position) {
            for (int32_t layout = 0; layout <= 10; ++layout) ExpectInverse({',', '.', symbol, position, layout});
        }
    }
}

TEST(PictureTokens, TokenizedIsWhatHasADigitRun) {
    EXPECT_EQ(FMTIsNumberPicTokenized(Tokens("[#]").c_str()), 1);
    EXPECT_EQ(FMTIsNumberPicTokenized("#,##0.00"), 0);
    EXPECT_EQ(FMTIsNumberPicTokenized(""), 0);
    EXPECT_EQ(FMTIsNumberPicTokenized(nullptr), 0);
}

TEST(PictureTokens, NoPicture) {
    for (const PictureConversion conversion : {FMTTokenizeNumberPic, FMTUnTokenizeNumberPic, FMTCnvOldNumberPic}) {
        EXPECT_EQ(conversion(nullptr), 0);
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
    EXPECT_EQ(text, Tokens("P[#T##0]"));
    EXPECT_EQ(FMTUnTokenizeNumberPic(&block), 1);
    EXPECT_STREQ(text, "$#,##0");
}

// Neither form may have more than 63 bytes.
TEST(PictureTokens, TheLongestPictures) {
    const std::string literal = "'" + std::string(58, 'x') + "'";
    EXPECT_EQ(Tokenize(kUS, literal + "#"), literal + Tokens("[#]"));
    EXPECT_EQ(Tokenize(kUS, literal + "##"), "failed");  // 64 bytes with the marks of the run
    EXPECT_EQ(Tokenize(kUS, literal + "###"), "failed");
    EXPECT_EQ(Tokenize(kUS, std::string(1000, '#')), "failed");
    EXPECT_EQ(Tokenize(kUS, "0.0E+" + std::string(58, '0')), "0.0E+" + std::string(58, '0'));
    EXPECT_EQ(Tokenize(kUS, "0.0E+" + std::string(59, '0')), "failed");

    EXPECT_EQ(UnTokenize(kUS, literal + Tokens("Pxx")), literal + "$xx");
    EXPECT_EQ(UnTokenize({',', '.', "DM", 0, 0}, literal + Tokens("Pxx")), "failed");  // grows beyond
    EXPECT_EQ(UnTokenize(kUS, std::string(70, '\x0F')), "failed");

    EXPECT_EQ(ConvertOld(kUS, std::string(61, 'x')), "'" + std::string(61, 'x') + "'");
    EXPECT_EQ(ConvertOld(kUS, std::string(62, 'x')), "failed");
    EXPECT_EQ(ConvertOld(kUS, std::string(64, '#')), "failed");
}

// Prefix and suffix of a positive and of a negative amount.
std::string CurrencyStrings(int32_t position, int32_t layout, const char* symbol) {
    FMTCurrencyStrings s;
    FMTBuildCurrencyStrings(position, layout, s.posPrefix, s.posSuffix, s.negPrefix, s.negSuffix, symbol);
    return std::string(s.posPrefix) + "|" + s.posSuffix + "|" + s.negPrefix + "|" + s.negSuffix;
}

TEST(CurrencyStrings, EveryLayout) {
    const char* const kPositive[] = {"DM|", "|DM", "DM |", "| DM", "|"};
    for (int32_t position = 0; position <= 4; ++position) {
        EXPECT_EQ(CurrencyStrings(position, -1, "DM"), std::string(kPositive[position]) + "||");
    }
    const char* const kNegative[] = {"(DM|)", "-DM|", "DM-|",  "DM|-",  "(|DM)", "-|DM",
                                     "|-DM",  "|DM-", "-| DM", "-DM |", "| DM-", "|"};
    for (int32_t layout = 0; layout <= 11; ++layout) {
        EXPECT_EQ(CurrencyStrings(-1, layout, "DM"), std::string("||") + kNegative[layout]);
    }
    EXPECT_EQ(CurrencyStrings(2, 9, "12%s56789"), "12%s567 ||-12%s567 |");  // cut to 7 bytes, taken as it is
}

TEST(CurrencyStringsJapanese, ALongSymbolIsCutAtACharacter) {
    const TestLanguage language(kJapanese);
    const std::string three = "\x89\x7E\x89\x7E\x89\x7E";
    EXPECT_EQ(CurrencyStrings(0, 8, (three + "\x89\x7E").c_str()), three + "||-| " + three);
    EXPECT_EQ(CurrencyStrings(0, 8, ("x" + three + "\x89\x7E").c_str()), "x" + three + "||-| x" + three);
}

// The second byte of a double-byte character is no picture character: 0x83 0x5F ends in "_", 0x95 0x5C in "\".
TEST(PictureTokensJapanese, DoubleByteCharactersStayWhole) {
    const TestLanguage language(kJapanese);
    const TestRegion yen = {',', '.', "\x89\x7E", 1, 4};
    EXPECT_EQ(Tokenize(yen, "\x83\x5F#\x89\x7E"), Tokens("\x83\x5F[#]S"));
    EXPECT_EQ(UnTokenize(yen, Tokens("\x83\x5F[#]S")), "\x83\x5F#\x89\x7E");
    EXPECT_EQ(Tokenize(yen, "'\x95\x5C'#"), Tokens("'\x95\x5C'[#]"));
    EXPECT_EQ(Tokenize(yen, "#_\x83\x5F#"), Tokens("[#]~\x83\x5F[#]"));
    EXPECT_EQ(UnTokenize(yen, Tokens("[#]~\x83\x5F")), "#_\x83\x5F");
    EXPECT_EQ(Tokenize(yen, "#;(#\x89\x7E)"), Tokens("[#];N[#]M"));
    EXPECT_EQ(ConvertOld(yen, "\x83\x5F#\x89\x7E"), "'\x83\x5F'#\x89\x7E");
    EXPECT_EQ(Tokenize(yen, "#\x83"), Tokens("[#]\x83"));  // half a character at the end
}

struct OldCase {
    const char* old;
    const char* text;
    TestRegion region = kUS;
};
const OldCase kOld[] = {
    {"", ""},           {"$#;($#)", "$#;($#)"},   {"#%;#.%", "#%;#.%"},       {"#,##0.00 DM", "#.##0,00 DM", kGermany},
    {"$", "$"},         {"-#;-#", "'-'#;'-'#"},   {"#;-#", "#;-#", kMinus},   {"0.00E+00", "0.00E+00", kGermany},
    {"#_)%", "#_)'%'"}, {"#,%", "#%", {0, '.'}},  {"#,.0", "#.,0", kGermany}, {"'it''s'\"x'\"#", "'it''s'\"x'\"#"},
    {",#", "','#"},     {"'open #,", "'open #,"}, {"x 'y'", "'x' 'y'"},       {"x  _y", "'x ' _y"},
    {"x_", "'x'_"},     {"  x ", "  'x '"},
};

TEST(OldPictures, BecomeTexts) {
    for (const OldCase& c : kOld) EXPECT_EQ(ConvertOld(c.region, c.old), c.text) << c.old;
}

}  // namespace
