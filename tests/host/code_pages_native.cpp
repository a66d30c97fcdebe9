// Code pages: lead bytes, letters, digits and case, over every code of each of them.
#include <gtest/gtest.h>

#include <cstdlib>
#include <map>
#include <string>
#include <utility>

#include <morvl15/host_native.h>

#include "support/locale.h"

namespace {

// What a code page holds above ASCII. Codes are hexadecimal, "A-B" is a run; "A-B>C" are small letters whose capitals
// are C and those that follow it.
struct CodePageCase {
    LANGID language;
    UINT codePage;
    const char* leads;
    const char* letters;
    const char* digits;
    const char* upper;
    const char* onlyLower;  // pairs that hold from the capital to the small letter alone are missing here
};
// clang-format off
constexpr CodePageCase kCodePages[] = {
    {0x041E, 874, "", "A1-D0 D2-D3 E0-E6", "F0-F9", "", ""},
    {0x0411, 932, "81-9F E0-FC", "A6-DF", "",
     "8281-829A>8260 83BF-83D6>839F 8470-847E>8440 8480-8491>844F FA40-FA49>8754", "EEEF-EEF8>8754"},
    {0x0804, 936, "81-FE", "", "", "A2A1-A2AA>A2F1 A3E1-A3FA>A3C1 A6C1-A6D8>A6A1 A7D1-A7F1>A7A1", ""},
    {0x0412, 949, "81-FE", "", "",
     "A3E1-A3FA>A3C1 A5A1-A5AA>A5B0 A5E1-A5F8>A5C1 A9A1>A8A1 A9A3>A8A2 A9A4>A8A4 A9A6>A8A6 A9A8-A9AB>A8A8 "
     "A9AD-A9AF>A8AD ACD1-ACF1>ACA1", ""},
    {0x0404, 950, "81-FE", "", "", "A2E9-A2FE>A2CF A340-A343>A2E5 A35C-A373>A344", ""},
    {0x0405, 1250, "", "8A 8C-8F 9A 9C-9F A1 A3 A5 AA AF B3 B5 B9-BA BC BE-D6 D8-F6 F8-FE", "",
     "9A>8A 9C-9F>8C B3>A3 B9>A5 BA>AA BE>BC BF>AF E0-F6>C0 F8-FE>D8", ""},
    {0x0419, 1251, "", "80-81 83 8A 8C-90 9A 9C-9F A1-A3 A5 A8 AA AF B2-B5 B8 BA BC-FF", "",
     "83>81 90>80 9A>8A 9C-9F>8C A2>A1 B3>B2 B4>A5 B8>A8 BA>AA BC>A3 BE>BD BF>AF E0-FF>C0", ""},
    {0x0409, 1252, "", "83 88 8A 8C 8E 9A 9C 9E-9F AA B5 BA C0-D6 D8-F6 F8-FF", "B2-B3 B9",
     "9A>8A 9C>8C 9E>8E E0-F6>C0 F8-FE>D8 FF>9F", ""},
    {0x0408, 1253, "", "83 A2 B5 B8-BA BC BE-D1 D3-FE", "B2-B3",
     "DC>A2 DD-DF>B8 E1-F1>C1 F3-FB>D3 FC>BC FD-FE>BE", "F2>D3"},  // the final sigma has no capital of its own
    {0x041F, 1254, "", "83 88 8A 8C 9A 9C 9F AA B5 BA C0-D6 D8-F6 F8-FF", "B2-B3 B9",
     "9A>8A 9C>8C E0-F6>C0 F8-FC>D8 FE>DE FF>9F", ""},  // i and I belong together here too
    {0x040D, 1255, "", "83 88 B5 D4-D6 E0-FA", "B2-B3 B9", "", ""},
    {0x0401, 1256, "", "81 83 88 8A 8C-90 98 9A 9C 9F AA B5 C0-D6 D8-EF F4 F9 FB-FC FF", "B2-B3 B9",
     "9C>8C", ""},
    {0x0427, 1257, "", "8E A8 AA AF B5 B8 BA BF-D6 D8-F6 F8-FE", "B2-B3 B9",
     "B8>A8 BA>AA BF>AF E0-F6>C0 F8-FE>D8", ""},
    {0x042A, 1258, "", "83 88 8C 9C 9F AA B5 BA C0-CB CD-D1 D3-D6 D8-DD DF-EB ED-F1 F3-F6 F8-FD FF",
     "B2-B3 B9", "9C>8C E0-EB>C0 ED-F1>CD F3-F6>D3 F8-FD>D8 FF>9F", ""},
};
// clang-format on

// Reads runs and pairs: what each code is mapped to, itself in a run without ">".
std::map<unsigned, unsigned> Codes(std::string text) {
    std::map<unsigned, unsigned> codes;
    for (char* at = text.data(); *at != 0;) {
        const auto first = static_cast<unsigned>(std::strtoul(at, &at, 16));
        const auto last = *at == '-' ? static_cast<unsigned>(std::strtoul(at + 1, &at, 16)) : first;
        const auto to = *at == '>' ? static_cast<unsigned>(std::strtoul(at + 1, &at, 16)) : first;
        for (unsigned code = first; code <= last; ++code) codes[code] = to + (code - first);
    }
    return codes;
}

unsigned ChangedByte(LPSTR (*change)(LPSTR), unsigned code) {
    return static_cast<unsigned>(reinterpret_cast<uintptr_t>(change(reinterpret_cast<LPSTR>(uintptr_t{code}))));
}

unsigned ChangedPair(DWORD (*change)(LPSTR, DWORD), unsigned code) {
    char text[3] = {static_cast<char>(code >> 8), static_cast<char>(code & 0xFF), 0};
    EXPECT_EQ(change(text, 2), 2u);
    return static_cast<unsigned char>(text[0]) << 8 | static_cast<unsigned char>(text[1]);
}

TEST(CodePages, EveryByteIsWhatItsCodePageSays) {
    for (const CodePageCase& c : kCodePages) {
        SCOPED_TRACE(c.codePage);
        TestLanguage language(c.language);
        EXPECT_EQ(GetACP(), c.codePage);
        const auto leads = Codes(c.leads);
        const auto letters = Codes(c.letters + std::string(" 41-5A 61-7A"));
        const auto digits = Codes(c.digits + std::string(" 30-39"));
        for (unsigned byte = 0; byte < 256; ++byte) {
            SCOPED_TRACE(byte);
            EXPECT_EQ(IsDBCSLeadByte(static_cast<BYTE>(byte)), leads.contains(byte));
            EXPECT_EQ(IsCharAlphaA(static_cast<char>(byte)), letters.contains(byte));
            EXPECT_EQ(IsCharAlphaNumericA(static_cast<char>(byte)), letters.contains(byte) || digits.contains(byte));
        }
    }
}

TEST(CodePages, CaseChangesWhereBothCasesAreInTheCodePage) {
    for (const CodePageCase& c : kCodePages) {
        SCOPED_TRACE(c.codePage);
        TestLanguage language(c.language);
        std::map<unsigned, unsigned> upper = Codes(c.upper + std::string(" 61-7A>41"));
        std::map<unsigned, unsigned> lower;
        for (const auto& [small, capital] : upper) lower[capital] = small;
        for (const auto& [small, capital] : Codes(c.onlyLower)) upper[small] = capital;
        const auto expected = [](const std::map<unsigned, unsigned>& cases, unsigned code) {
            const auto found = cases.find(code);
            return found != cases.end() ? found->second : code;
        };
        for (unsigned byte = 0; byte < 256; ++byte) {
            EXPECT_EQ(ChangedByte(CharUpperA, byte), expected(upper, byte)) << byte;
            EXPECT_EQ(ChangedByte(CharLowerA, byte), expected(lower, byte)) << byte;
        }
        for (const auto& lead : Codes(c.leads)) {
            for (unsigned code = lead.first << 8 | 0x40; code <= (lead.first << 8 | 0xFE); ++code) {
                EXPECT_EQ(ChangedPair(CharUpperBuffA, code), expected(upper, code)) << code;
                EXPECT_EQ(ChangedPair(CharLowerBuffA, code), expected(lower, code)) << code;
            }
        }
    }
}

TEST(CodePages, BelongToTheSystemLanguage) {
    constexpr std::pair<LANGID, UINT> kRows[] = {
        {0x0407, 1252}, {0x0C0A, 1252}, {0x1004, 936},  {0x0C04, 950},  {0x0004, 936},  {0x0429, 1256},
        {0x0425, 1257}, {0x0426, 1257}, {0x040E, 1250}, {0x041A, 1250}, {0x241A, 1250}, {0x281A, 1251},
        {0x0422, 1251}, {0x0811, 932},  {0x0439, 1252}, {0xFFFF, 1252},
    };
    for (const auto& [language, codePage] : kRows) {
        HostSetLanguages(language, kEnglish);
        EXPECT_EQ(GetSystemDefaultLangID(), language);
        EXPECT_EQ(GetUserDefaultLCID(), kEnglish);
        EXPECT_EQ(GetACP(), codePage) << language;
    }
    HostSetLanguages(kEnglish, kEnglish);
}

TEST(TextCase, ChangesWholeCharactersInPlace) {
    TestLanguage language(kJapanese);
    // trail bytes that are letters elsewhere, full-width letters, katakana without case, a lead byte at the end
    char text[] = "a\x83\x61Z\x81\x7A\x82\x81\x82\x61\xB1z\xDF\x82";
    EXPECT_EQ(CharUpperA(text), text);
    EXPECT_STREQ(text, "A\x83\x61Z\x81\x7A\x82\x60\x82\x61\xB1Z\xDF\x82");
    EXPECT_EQ(CharLowerA(text), text);
    EXPECT_STREQ(text, "a\x83\x61z\x81\x7A\x82\x81\x82\x82\xB1z\xDF\x82");
    EXPECT_EQ(CharNextA(text + 1), text + 3);
    EXPECT_EQ(CharNextA(text + 13), text + 14);  // only the end behind the lead byte
    EXPECT_EQ(CharNextA(text + 14), text + 14);

    char zeros[] = "ab\0cd\x82\x81";
    EXPECT_EQ(CharUpperBuffA(zeros, 6), 6u);  // goes past zeros; the lead byte is the last one
    EXPECT_EQ(std::string(zeros, 7), std::string("AB\0CD\x82\x81", 7));
    EXPECT_EQ(CharUpperBuffA(zeros, 0), 0u);
    EXPECT_EQ(CharLowerBuffA(nullptr, 4), 0u);
    EXPECT_EQ(CharUpperA(nullptr), nullptr);
}

}  // namespace
