// Single characters, and texts in upper and lower case.
#include <cstring>

#include "code_page.h"

namespace {

// A text pointer with no bits above these is a character code.
constexpr uintptr_t kGreatestCharacterCode = 0xFFFF;

using ByteCase = std::array<uint8_t, 256> CodePage::*;
using RowCase = std::array<uint16_t, 256> CaseRow::*;

void ChangeCase(char* text, size_t length, ByteCase bytes, RowCase rows) {
    const CodePage& page = CurrentCodePage();
    for (size_t i = 0; i < length;) {
        char* at = text + i;
        const size_t width = CharacterBytes(page, at, length - i);
        if (width == 1) {
            *at = static_cast<char>((page.*bytes)[static_cast<uint8_t>(*at)]);
        } else {
            const uint16_t code = DoubleByteCase(page, DoubleByteCode(at), rows);
            at[0] = static_cast<char>(code >> 8);
            at[1] = static_cast<char>(code & 0xFF);
        }
        i += width;
    }
}

// The text in place, or the character code that stands in its place.
LPSTR ChangeCaseOfTextOrCode(LPSTR text, ByteCase bytes, RowCase rows) {
    const auto code = reinterpret_cast<uintptr_t>(text);
    if (code <= kGreatestCharacterCode) {
        const uint8_t changed = (CurrentCodePage().*bytes)[code & 0xFF];
        return reinterpret_cast<LPSTR>(static_cast<uintptr_t>(changed));
    }
    ChangeCase(text, std::strlen(text), bytes, rows);
    return text;
}

CharacterKind KindOf(char character) {
    return CurrentCodePage().kind[static_cast<uint8_t>(character)];
}

}  // namespace

BOOL IsDBCSLeadByte(BYTE byte) {
    return CurrentCodePage().isLead[byte] ? TRUE : FALSE;
}

LPSTR CharNextA(LPCSTR text) {
    auto* at = const_cast<LPSTR>(text);
    if (*at == 0) return at;
    return at + CharacterBytes(CurrentCodePage(), at, 2);
}

BOOL IsCharAlphaA(char character) {
    return KindOf(character) == CharacterKind::kLetter ? TRUE : FALSE;
}

BOOL IsCharAlphaNumericA(char character) {
    return KindOf(character) != CharacterKind::kOther ? TRUE : FALSE;
}

LPSTR CharUpperA(LPSTR text) {
    return ChangeCaseOfTextOrCode(text, &CodePage::upper, &CaseRow::upper);
}

LPSTR CharLowerA(LPSTR text) {
    return ChangeCaseOfTextOrCode(text, &CodePage::lower, &CaseRow::lower);
}

DWORD CharUpperBuffA(LPSTR text, DWORD length) {
    if (text == nullptr) return 0;
    ChangeCase(text, length, &CodePage::upper, &CaseRow::upper);
    return length;
}

DWORD CharLowerBuffA(LPSTR text, DWORD length) {
    if (text == nullptr) return 0;
    ChangeCase(text, length, &CodePage::lower, &CaseRow::lower);
    return length;
}
