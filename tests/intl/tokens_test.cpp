// The tokenizers.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include <morvl15/intl.h>

#include "destination.h"
#include "support/locale.h"

namespace {

enum Kind { kPlain, kNested, kQuoted };

struct TokenCase {
    int line;
    Kind kind;
    const char* source;
    const char* skip;
    const char* delimiters;
    uint16_t lead;
    int32_t size;
    const char* want;  // null: nothing is written
    int32_t result;
};

int32_t GetToken(Kind kind, char* destination, const char* source, const char* skip, const char* delimiters,
                 uint16_t lead, int32_t size) {
    switch (kind) {
        case kPlain: return IntlStrGetToken(destination, source, skip, delimiters, lead, size);
        case kNested: return IntlStrGetTokenNestedParens(destination, source, skip, delimiters, lead, size);
        default: return IntlStrGetTokenQuoted(destination, source, skip, delimiters, lead, '"', size);
    }
}

void ExpectToken(const TokenCase& c) {
    const testing::ScopedTrace row(__FILE__, c.line, c.source);
    Destination destination;
    EXPECT_EQ(GetToken(c.kind, destination, c.source, c.skip, c.delimiters, c.lead, c.size), c.result);
    if (c.want == nullptr) {
        EXPECT_TRUE(destination.UntouchedFrom(0));
    } else {
        EXPECT_EQ(destination.Text(), c.want);
        EXPECT_TRUE(destination.UntouchedBehindText());
    }
}

// What all three have in common.
constexpr TokenCase kCommon[] = {
    {__LINE__, kPlain, "   abc,def", " ", ",", 0, 0, "abc", 6},
    {__LINE__, kPlain, ",def", "", ",", ',', 0, "def", 4},
    {__LINE__, kPlain, ",def", "", ",", 0, 0, "", 0},
    {__LINE__, kPlain, " ,def", " ", ",", 0, 0, "", 1},
    {__LINE__, kPlain, "abc", " ", "", 0, 0, "abc", 3},  // without a delimiter up to the end
    {__LINE__, kPlain, "", " ", ",", 0, 0, "", 0},
    {__LINE__, kPlain, "  ", " ", ",", 0, 0, "", 2},
    {__LINE__, kPlain, " \t;abc;", "\t ", ",;", ';', 0, "abc", 6},
    {__LINE__, kPlain, "a;b,c", "", ",;", 0, 0, "a", 1},  // the nearest, not the first of the set
    {__LINE__, kPlain, "abc,", "", ",", 0, 4, "abc", 3},
    {__LINE__, kPlain, "abc", "", ",", 0, 4, "abc", 3},
    {__LINE__, kPlain, "abcd,", "", ",", 0, 4, nullptr, 0},
    {__LINE__, kPlain, "abcd", "", ",", 0, 4, nullptr, 0},
    {__LINE__, kPlain, ",x", "", ",", 0, 1, "", 0},
    {__LINE__, kPlain, "abcd,", "", ",", 0, -1, "abcd", 4},
    {__LINE__, kPlain, "abc", "", ",", 'x', 0, nullptr, 0},
    {__LINE__, kPlain, "", "", ",", 'x', 0, nullptr, 0},
    {__LINE__, kPlain, "abc", "", ",", 0x8200 | 'a', 0, "bc", 3},  // its low byte counts
    {__LINE__, kPlain, "abc", "", ",", 0x6100, 0, nullptr, 0},     // and never is 0
    {__LINE__, kPlain, "", "", ",", 0x6100, 0, nullptr, 0},
};

constexpr TokenCase kSpecial[] = {
    {__LINE__, kNested, "f(a,b),c", "", ",", 0, 0, "f(a,b)", 6},
    {__LINE__, kNested, "f((a,b),c),d", "", ",", 0, 0, "f((a,b),c)", 10},
    {__LINE__, kNested, "f(a,b", "", ",", 0, 0, "f(a,b", 5},
    {__LINE__, kNested, "a(b", "", "(", 0, 0, "a(b", 3},         // a "(" is never found
    {__LINE__, kNested, ")a(b", "", "(", 0, 0, ")a(b", 4},       // below depth 0 neither
    {__LINE__, kNested, "(a)b)c", "", ")", 0, 0, "(a)b", 4},     // only a ")" without a partner
    {__LINE__, kNested, "a)(b,c),d", "", ",", 0, 0, "a)(b", 4},  // depth 0 between these parentheses
    {__LINE__, kNested, "a)((b,c),d", "", ",", 0, 0, "a)((b,c)", 8},
    {__LINE__, kQuoted, "a\"b,c\",d", "", ",", 0, 0, "a\"b,c\"", 6},
    {__LINE__, kQuoted, "a\"b,c", "", ",", 0, 0, "a\"b", 3},  // one quote protects nothing
    {__LINE__, kQuoted, "\"a,\"\"b,\",c", "", ",", 0, 0, "\"a,\"\"b,\"", 8},
    {__LINE__, kQuoted, "a,\"b,c\"", "", ",", 0, 0, "a", 1},
    {__LINE__, kQuoted, "\"a,b\"", "", ",", 0, 0, "\"a,b\"", 5},
    {__LINE__, kQuoted, "\"a,b\"c,\"", "", ",", 0, 0, "\"a,b\"c", 6},
    {__LINE__, kQuoted, "\"a,b\"c\"d", "", ",\"", 0, 0, "\"a,b\"c", 6},  // a quote that is a delimiter too
    {__LINE__, kQuoted, "a\"b", "", ",\"", 0, 0, "a", 1},
};

void ExpectCommonAndSpecial() {
    for (TokenCase c : kCommon) {
        for (const Kind kind : {kPlain, kNested, kQuoted}) {
            c.kind = kind;
            ExpectToken(c);
        }
    }
    for (const TokenCase& c : kSpecial) ExpectToken(c);
}

TEST(Tokens, Table) {
    ExpectCommonAndSpecial();
    ExpectToken({__LINE__, kPlain, "\x83,b", "", ",", 0, 0, "\x83", 1});
    ExpectToken({__LINE__, kPlain,
                 "a\x82"
                 "b",
                 "", "\x82", 0, 0, "a", 1});
}

TEST(TokensJapanese, Table) {
    const TestLanguage language(kJapanese);
    ExpectCommonAndSpecial();
    constexpr TokenCase kCases[] = {
        {__LINE__, kPlain, "\x83\x5C\\b", "", "\\", 0, 0, "\x83\x5C", 2},  // a trail byte is no delimiter
        {__LINE__, kPlain, "\x83,b,c", "", ",", 0, 0, "\x83,b", 3},
        {__LINE__, kNested, "(\x83),a),b", "", ",", 0, 0, "(\x83),a)", 6},
        {__LINE__, kNested, "\x83(,b", "", ",", 0, 0, "\x83(", 2},
        {__LINE__, kQuoted, "\x83\",b\",c", "", ",", 0, 0, "\x83\"", 2},
        {__LINE__, kPlain, "\x82\xA0\x82", "", "\x82", 0, 0, "\x82\xA0", 2},  // a lead byte matches at the end alone
        {__LINE__, kPlain,
         "\x82\xA0"
         "b",
         "\x82", "b", 0, 0, "\xA0", 2},  // the skip set is of bytes
        {__LINE__, kPlain,
         "\x82\xA0"
         "b",
         "", "b", 0x82, 0, "\xA0", 2},  // and so is the lead character
        {__LINE__, kPlain,
         "\x82\xA0\xB1"
         "b",
         "", "\xB1\xA0", 0, 0, "\x82\xA0", 2},
    };
    for (const TokenCase& c : kCases) ExpectToken(c);
}

TEST(Tokens, NullsGiveNothing) {
    Destination destination;
    for (const Kind kind : {kPlain, kNested, kQuoted}) {
        EXPECT_EQ(GetToken(kind, nullptr, "a", "", ",", 0, 0), 0);
        EXPECT_EQ(GetToken(kind, destination, nullptr, "", ",", 0, 0), 0);
        EXPECT_EQ(GetToken(kind, destination, "a", nullptr, ",", 0, 0), 0);
        EXPECT_EQ(GetToken(kind, destination, "a", "", nullptr, 0, 0), 0);
    }
    EXPECT_TRUE(destination.UntouchedFrom(0));
}

TEST(Tokens, NoQuoteByteProtectsNothing) {
    Destination destination;
    EXPECT_EQ(IntlStrGetTokenQuoted(destination, "ab,c", "", ",", 0, 0, 0), 2);
    EXPECT_EQ(destination.Text(), "ab");
}

TEST(Tokens, GoOnAtTheOffset) {
    const std::string line = " alpha, beta ,,gamma";
    const char* at = line.c_str();
    std::vector<std::string> tokens;
    Destination destination;
    for (uint16_t lead = 0; lead == 0 || *at != '\0'; lead = ',') {
        at += IntlStrGetToken(destination, at, " ", ",", lead, 0);
        tokens.push_back(destination.Text());
    }
    EXPECT_EQ(tokens, (std::vector<std::string>{"alpha", " beta ", "", "gamma"}));
}

TEST(Tokens, OverTheSourceItself) {
    char text[] = "  abc,def";
    EXPECT_EQ(IntlStrGetToken(text, text, " ", ",", 0, 0), 5);
    EXPECT_STREQ(text, "abc");
}

}  // namespace
