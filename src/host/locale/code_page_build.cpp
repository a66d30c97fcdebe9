// How a code page is built: the C library's converter tells what its codes mean, Unicode tells what they are, and the
// platform's lead bytes stand as they do there, converter or not.
#include <algorithm>

#include "code_page.h"
#include "code_page_converter.h"

namespace {

struct LeadBytes {
    UINT codePage;
    uint8_t first;
    uint8_t last;
};
constexpr LeadBytes kLeadBytes[] = {
    {932, 0x81, 0x9F}, {932, 0xE0, 0xFC}, {936, 0x81, 0xFE}, {949, 0x81, 0xFE}, {950, 0x81, 0xFE},
};

// Codes that the platform keeps for characters of the user's own, where the converter knows characters.
struct CodeRange {
    UINT codePage;
    uint16_t first;
    uint16_t last;
};
constexpr CodeRange kUserCodes[] = {{950, 0xC6A1, 0xC8FE}};

// Cased characters that a code page holds twice: the converter, coming from Unicode, gives only the first code.
struct SecondCodes {
    UINT codePage;
    uint16_t first;
    uint16_t second;
    uint16_t count;
};
constexpr SecondCodes kSecondCodes[] = {{932, 0xFA40, 0xEEEF, 10}};  // small Roman numerals

bool IsUserCode(UINT codePage, uint16_t code) {
    return std::any_of(std::begin(kUserCodes), std::end(kUserCodes), [=](const CodeRange& range) {
        return range.codePage == codePage && range.first <= code && code <= range.last;
    });
}

void MarkLeadBytes(CodePage& page) {
    for (const LeadBytes& range : kLeadBytes) {
        if (range.codePage != page.id) continue;
        std::fill(page.isLead.begin() + range.first, page.isLead.begin() + range.last + 1, true);
    }
}

// What stands before the letters in the order of texts: everything else, by its code.
constexpr uint32_t kWeightOfOthers = 0x10000;
constexpr uint32_t kWeightOfUnknown = 0x20000;
constexpr uint32_t kWeightOfDigits = 0x30000;
constexpr uint32_t kWeightOfLetters = 0x40000;

SortWeight WeightOf(const UnicodeLetter& letter) {
    const uint32_t kind = letter.kind == CharacterKind::kDigit ? kWeightOfDigits : kWeightOfLetters;
    const uint16_t mark = letter.lower != letter.sortedWith ? letter.lower : uint16_t{0};
    return {kind + letter.sortedWith, mark, letter.upper == letter.code && letter.lower != letter.code};
}

// A single byte that is a letter or a digit. Its other case must be a single byte too.
void DescribeLetter(CodePage& page, CodePageConverter& converter, uint8_t byte, const UnicodeLetter& letter) {
    const auto otherCase = [&](uint16_t character) {
        const uint16_t code = character != letter.code ? converter.FromUnicode(character) : uint16_t{0};
        return code != 0 && code < 0x100 ? static_cast<uint8_t>(code) : byte;
    };
    page.kind[byte] = letter.kind;
    page.upper[byte] = otherCase(letter.upper);
    page.lower[byte] = otherCase(letter.lower);
    page.weight[byte] = WeightOf(letter);
}

void DescribeSingleByte(CodePage& page, CodePageConverter& converter, uint8_t byte) {
    page.upper[byte] = byte;
    page.lower[byte] = byte;
    const uint32_t character = converter.ToUnicode(byte);
    const UnicodeLetter* letter = FindUnicodeLetter(character);
    if (letter != nullptr) {
        DescribeLetter(page, converter, byte, *letter);
    } else if (byte != 0) {
        page.weight[byte].letter = character < 0x10000 ? kWeightOfOthers + character : kWeightOfUnknown + byte;
    }
}

CaseRow& CaseRowOf(CodePage& page, uint8_t lead) {
    uint8_t& row = page.caseRowOf[lead];
    if (row == 0) {
        page.caseRows.emplace_back();
        row = static_cast<uint8_t>(page.caseRows.size());
    }
    return page.caseRows[row - 1u];
}

void DescribeDoubleByteCase(CodePage& page, uint16_t code, uint16_t upper, uint16_t lower) {
    CaseRow& row = CaseRowOf(page, static_cast<uint8_t>(code >> 8));
    row.upper[code & 0xFF] = upper;
    row.lower[code & 0xFF] = lower;
}

// Double-byte characters with another case, as far as both are in the code page.
void DescribeDoubleBytes(CodePage& page, CodePageConverter& converter) {
    const auto doubleByteCode = [&](uint16_t character) {
        const uint16_t code = converter.FromUnicode(character);
        return code > 0xFF && !IsUserCode(page.id, code) ? code : uint16_t{0};
    };
    const UnicodeLetters letters = AllUnicodeLetters();
    for (const UnicodeLetter* letter = letters.first; letter != letters.end; ++letter) {
        if (letter->code < 0x80 || letter->upper == letter->lower) continue;
        const uint16_t code = doubleByteCode(letter->code);
        const uint16_t other = doubleByteCode(letter->upper != letter->code ? letter->upper : letter->lower);
        if (code == 0 || other == 0) continue;
        const bool isUpper = letter->upper == letter->code;
        DescribeDoubleByteCase(page, code, isUpper ? code : other, isUpper ? other : code);
    }
}

void DescribeSecondCodes(CodePage& page) {
    for (const SecondCodes& codes : kSecondCodes) {
        if (codes.codePage != page.id) continue;
        for (uint16_t i = 0; i < codes.count; ++i) {
            const auto first = static_cast<uint16_t>(codes.first + i);
            const auto second = static_cast<uint16_t>(codes.second + i);
            DescribeDoubleByteCase(page, second, DoubleByteCase(page, first, &CaseRow::upper), second);
        }
    }
}

}  // namespace

void BuildCodePage(CodePage& page, UINT id) {
    page.id = id;
    MarkLeadBytes(page);
    CodePageConverter converter(id);
    for (unsigned byte = 0; byte < 256; ++byte) DescribeSingleByte(page, converter, static_cast<uint8_t>(byte));
    if (std::find(page.isLead.begin(), page.isLead.end(), true) == page.isLead.end()) return;
    DescribeDoubleBytes(page, converter);
    DescribeSecondCodes(page);
}
