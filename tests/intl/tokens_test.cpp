// The tokenizers.
#include <gtest/gtest.h>

#include <span>
#include <string>
#include <vector>

#include <morvl15/intl.h>

#include "destination.h"
#include "support/locale.h"

namespace {

enum Kind { kPlain, kNested, kQuoted };

struct TokenCase {
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

void ExpectTokens(Kind kind, std::span<const TokenCase> cases) {
    for (const TokenCase& c : cases) {
        const testing::ScopedTrace row(__FILE__, __LINE__, c.source);
        Destination destination;
        EXPECT_EQ(GetToken(kind, destination, c.source, c.skip, c.delimiters, c.lead, c.size), c.result);
        if (c.want == nullptr) {
            EXPECT_TRUE(destination.UntouchedFrom(0));
        } else {
            EXPECT_EQ(destination.Written(), c.want);
        }
    }
}

// What all three have in common.
constexpr TokenCase kCommon[] = {
    {",def", "", ",", ',', 0, "def", 4},  {"   abc,def", " ", ",", 0, 0, "abc", 6},    {",def", "", ",", 0, 0, "", 0},
    {"abc", " ", "", 0, 0, "abc", 3},  // without a delimiter up to the end
    {" ,def", " ", ",", 0, 0, "", 1},     {" \t;abc;", "\t ", ",;", ';', 0, "abc", 6}, {"", " ", ",", 0, 0, "", 0},
    {"  ", " ", ",", 0, 0, "", 2},        {"a;b,c", "", ",;", 0, 0, "a", 1},  // the nearest, not the first of the set
    {"abc,", "", ",", 0, 4, "abc", 3},    {"abcd", "", ",", 0, 4, nullptr, 0},         {"abc", "", ",", 0, 4, "abc", 3},
    {"abcd,", "", ",", 0, 4, nullptr, 0}, {"abcd,", "", ",", 0, -1, "abcd", 4},        {",x", "", ",", 0, 1, "", 0},
    {"abc", "", ",", 'x', 0, nullptr, 0}, {"abc", "", ",", 0x8200 | 'a', 0, "bc", 3},  // its low byte counts
    {"", "", ",", 'x', 0, nullptr, 0},    {"abc", "", ",", 0x6100, 0, nullptr, 0},     // and never is 0
    {"", "", ",", 0x6100, 0, nullptr, 0},
};

constexpr TokenCase kNestedCases[] = {
    {"f(a,b),c", "", ",", 0, 0, "f(a,b)", 6},     {"f((a,b),c),d", "", ",", 0, 0, "f((a,b),c)", 10},
    {"f(a,b", "", ",", 0, 0, "f(a,b", 5},         {"a(b", "", "(", 0, 0, "a(b", 3},  // a "(" is never found
    {")a(b", "", "(", 0, 0, ")a(b", 4},                                              // below depth 0 neither
    {"a)(b,c),d", "", ",", 0, 0, "a)(b", 4},  // depth 0 between these parentheses
    {"a)((b,c),d", "", ",", 0, 0, "a)((b,c)", 8}, {"(a)b)c", "", ")", 0, 0, "(a)b", 4},  // only a ")" without a partner
};
constexpr TokenCase kQuotedCases[] = {
    {"a\"b,c\",d", "", ",", 0, 0, "a\"b,c\"", 6},
    {"a\"b,c", "", ",", 0, 0, "a\"b", 3},  // one quote protects nothing
    {"\"a,\"\"b,\",c", "", ",", 0, 0, "\"a,\"\"b,\"", 8},
    {"a,\"b,c\"", "", ",", 0, 0, "a", 1},
    {"\"a,b\"", "", ",", 0, 0, "\"a,b\"", 5},
    {"\"a,b\"c,\"", "", ",", 0, 0, "\"a,b\"c", 6},
    {"\"a,b\"c\"d", "", ",\"", 0, 0, "\"a,b\"c", 6},  // a quote that is a delimiter too
    {"a\"b", "", ",\"", 0, 0, "a", 1},
};

void ExpectAsciiTokens() {
    for (const Kind kind : {kPlain, kNested, kQuoted}) ExpectTokens(kind, kCommon);
    ExpectTokens(kNested, kNestedCases);
    ExpectTokens(kQuoted, kQuotedCases);
}

TEST(Tokens, Table) {
    ExpectAsciiTokens();
    constexpr TokenCase kCases[] = {{"\x83,b", "", ",", 0, 0, "\x83", 1}, {"a\x82z", "", "\x82", 0, 0, "a", 1}};
    ExpectTokens(kPlain, kCases);
}

TEST(TokensJapanese, Table) {
    const TestLanguage language(kJapanese);
    ExpectAsciiTokens();
    constexpr TokenCase kCases[] = {
        {"\x83\x5C\\b", "", "\\", 0, 0, "\x83\x5C", 2},  // a trail byte is no delimiter
        {"\x83,b,c", "", ",", 0, 0, "\x83,b", 3},
        {"\x82\xA0\x82", "", "\x82", 0, 0, "\x82\xA0", 2},  // a lead byte matches at the end alone
        {"\x82\xA0z", "\x82", "z", 0, 0, "\xA0", 2},        // the skip set is of bytes
        {"\x82\xA0z", "", "z", 0x82, 0, "\xA0", 2},         // and so is the lead character
        {"\x82\xA0\xB1z", "", "\xB1\xA0", 0, 0, "\x82\xA0", 2},
    };
    ExpectTokens(kPlain, kCases);
    constexpr TokenCase kParens[] = {
        {"(\x83),a),b", "", ",", 0, 0, "(\x83),a)", 6},
        {"\x83(,b", "", ",", 0, 0, "\x83(", 2},
    };
    ExpectTokens(kNested, kParens);
    constexpr TokenCase kQuote[] = {{"\x83\",b\",c", "", ",", 0, 0, "\x83\"", 2}};
    ExpectTokens(kQuoted, kQuote);
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
