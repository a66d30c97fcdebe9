// Single facts of a face, as the first font of its enumeration has them.
#include <cstring>

#include <morvl15/font.h>

namespace {

struct FonFirstFont {
    bool found;
    BYTE charSet;
    BYTE pitchAndFamily;
};

INT CALLBACK FonTakeFirst(const LOGFONTA* font, const TEXTMETRICA* /*metric*/, DWORD /*type*/, LPARAM value) {
    *reinterpret_cast<FonFirstFont*>(value) = {true, font->lfCharSet, font->lfPitchAndFamily};
    return 0;
}

FonFirstFont FonFirstFontOf(HDC dc, const char* face) {
    FonFirstFont first = {};
    EnumFontsA(dc, face, FonTakeFirst, reinterpret_cast<LPARAM>(&first));
    return first;
}

}  // namespace

int32_t MORVL_CALL FonGetFontCharSet(HDC dc, const char* face, uint8_t* charSet) {
    if (dc == nullptr) return 0;
    const FonFirstFont first = FonFirstFontOf(dc, face);
    if (first.found && charSet != nullptr) *charSet = first.charSet;
    return 1;
}

int32_t MORVL_CALL FonGetFontPitchAndFamily(HDC dc, const char* face, uint8_t* pitchAndFamily) {
    if (dc == nullptr) return 0;
    const FonFirstFont first = FonFirstFontOf(dc, face);
    if (first.found && pitchAndFamily != nullptr) *pitchAndFamily = first.pitchAndFamily;
    return 1;
}

int32_t MORVL_CALL FonFixLogfont(HDC dc, LOGFONTA* logfont) {
    if (dc == nullptr) return 0;
    if (logfont == nullptr) return 1;
    char face[LF_FACESIZE];
    std::memcpy(face, logfont->lfFaceName, sizeof face);
    face[sizeof face - 1] = 0;
    const FonFirstFont first = FonFirstFontOf(dc, face);
    if (!first.found) return 1;
    logfont->lfPitchAndFamily = first.pitchAndFamily;
    logfont->lfCharSet = first.charSet;
    return 1;
}
