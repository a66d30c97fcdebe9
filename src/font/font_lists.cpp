// The three lists of fonts: each is one enumeration whose callback adds a record a font.
#include <cstring>

#include <morvl15/font.h>

#include "font_list.h"

namespace {

void FonCopyMetric(FonTextMetric* to, const TEXTMETRICA* from) {
    std::memcpy(to, from, sizeof *to);
}

INT CALLBACK FonEnumFaceMetrics(const LOGFONTA* font, const TEXTMETRICA* metric, DWORD type, LPARAM value) {
    auto* state = reinterpret_cast<FonMetricsState*>(value);
    FonMetricsRecord record;
    record.logFont = *font;
    FonCopyMetric(&record.textMetric, metric);
    record.fontType = static_cast<uint16_t>(type);
    return FonAddRecord(&state->list, state->flags, &record, sizeof record);
}

}  // namespace

INT MORVL_CALL FontEnumFaces(const LOGFONTA* font, const TEXTMETRICA* /*metric*/, DWORD /*type*/, LPARAM value) {
    auto* state = reinterpret_cast<FonEnumState*>(value);
    if (font == nullptr || state == nullptr) return 0;
    FonFaceRecord record;
    std::memcpy(record.faceName, font->lfFaceName, sizeof record.faceName);
    record.faceName[sizeof record.faceName - 1] = 0;
    return FonAddRecord(state, kFonBlockFlags, &record, sizeof record);
}

INT MORVL_CALL FontEnumSizes(const LOGFONTA* font, const TEXTMETRICA* metric, DWORD /*type*/, LPARAM value) {
    auto* state = reinterpret_cast<FonEnumState*>(value);
    if (font == nullptr || metric == nullptr || state == nullptr) return 0;
    FonSizeRecord record;
    record.logFont = *font;
    FonCopyMetric(&record.textMetric, metric);
    return FonAddRecord(state, kFonBlockFlags, &record, sizeof record);
}

HGLOBAL MORVL_CALL FonGetFontFaces(HDC dc) {
    FonEnumState state = {};
    EnumFontsA(dc, nullptr, FontEnumFaces, reinterpret_cast<LPARAM>(&state));
    return FonFinishList(&state, kFonBlockFlags, sizeof(FonFaceRecord));
}

HGLOBAL MORVL_CALL FonGetFontSizes(HDC dc, const char* face) {
    FonEnumState state = {};
    EnumFontsA(dc, face, FontEnumSizes, reinterpret_cast<LPARAM>(&state));
    return FonFinishList(&state, kFonBlockFlags, sizeof(FonSizeRecord));
}

HGLOBAL MORVL_CALL FonGetFontFaceMetrics(HDC dc) {
    FonMetricsState state = {{}, kFonBlockFlags};
    EnumFontsA(dc, nullptr, FonEnumFaceMetrics, reinterpret_cast<LPARAM>(&state));
    return FonFinishList(&state.list, state.flags, sizeof(FonMetricsRecord));
}
