#include "face_figures.h"

#include FT_TRUETYPE_TABLES_H
#include FT_ADVANCES_H

#include <algorithm>
#include <cmath>

#include "../locale/code_page.h"

namespace {

// ---- family ---------------------------------------------------------------------------------------------------------

// PANOSE: the first number is the kind of the face, the second the serif style, the fourth the proportion.
constexpr FT_Byte kPanoseText = 2;
constexpr FT_Byte kPanoseScript = 3;
constexpr FT_Byte kPanoseDecorative = 4;
constexpr FT_Byte kPanoseFirstSerif = 2;
constexpr FT_Byte kPanoseFirstSans = 11;
constexpr FT_Byte kPanoseLastSans = 15;

BYTE FamilyByPanose(const FT_Byte* panose) {
    switch (panose[0]) {
        case kPanoseText:
            if (panose[1] >= kPanoseFirstSans && panose[1] <= kPanoseLastSans) return FF_SWISS;
            return panose[1] >= kPanoseFirstSerif ? FF_ROMAN : FF_DONTCARE;
        case kPanoseScript: return FF_SCRIPT;
        case kPanoseDecorative: return FF_DECORATIVE;
        default: return FF_DONTCARE;
    }
}

// The class of the file's own, for faces without PANOSE numbers.
BYTE FamilyByClass(FT_Short familyClass) {
    switch (familyClass >> 8) {
        case 1:
        case 2:
        case 3:
        case 4:
        case 5:
        case 7: return FF_ROMAN;
        case 8: return FF_SWISS;
        case 9:
        case 12: return FF_DECORATIVE;
        case 10: return FF_SCRIPT;
        default: return FF_DONTCARE;
    }
}

// ---- reading ------------------------------------------------------------------------------------------------------

INT AdvanceOf(FT_Face face, FT_ULong character) {
    FT_Fixed advance = 0;
    const FT_UInt glyph = FT_Get_Char_Index(face, character);
    if (glyph == 0 || FT_Get_Advance(face, glyph, FT_LOAD_NO_SCALE, &advance) != 0) return 0;
    return static_cast<INT>(advance);
}

void ReadCharacters(FT_Face face, FaceFigures& figures) {
    FT_UInt glyph = 0;
    const FT_ULong first = FT_Get_First_Char(face, &glyph);
    if (glyph != 0) figures.firstCharacter = static_cast<uint32_t>(first);
}

void ReadWindowsTable(const TT_OS2& table, FaceFigures& figures) {
    if (table.usWinAscent != 0 || table.usWinDescent != 0) {
        figures.ascent = table.usWinAscent;
        figures.descent = table.usWinDescent;
    }
    if (table.xAvgCharWidth > 0) figures.averageWidth = table.xAvgCharWidth;
    if (table.usWeightClass >= 1 && table.usWeightClass <= 1000) figures.weight = table.usWeightClass;
    figures.firstCharacter = table.usFirstCharIndex;
    figures.lastCharacter = table.usLastCharIndex;
    figures.codePages = {static_cast<uint32_t>(table.ulCodePageRange1), static_cast<uint32_t>(table.ulCodePageRange2)};
    figures.family = FamilyByPanose(table.panose);
    if (figures.family == FF_DONTCARE) figures.family = FamilyByClass(table.sFamilyClass);
}

// What a line has between cells: the designer's gap, less what the cell has taken of it already.
INT LeadingOf(const TT_HoriHeader& header, const FaceFigures& figures) {
    const INT cell = figures.ascent + figures.descent;
    return std::max(0, header.Line_Gap - (cell - (header.Ascender - header.Descender)));
}

// ---- character sets -----------------------------------------------------------------------------------------------

struct CharSet {
    uint32_t bit;  // of the file's code pages
    UINT codePage;
    BYTE charSet;
};
constexpr CharSet kCharSets[] = {
    {0, 1252, ANSI_CHARSET},   {1, 1250, EASTEUROPE_CHARSET},  {2, 1251, RUSSIAN_CHARSET},
    {3, 1253, GREEK_CHARSET},  {4, 1254, TURKISH_CHARSET},     {5, 1255, HEBREW_CHARSET},
    {6, 1256, ARABIC_CHARSET}, {7, 1257, BALTIC_CHARSET},      {8, 1258, VIETNAMESE_CHARSET},
    {16, 874, THAI_CHARSET},   {17, 932, SHIFTJIS_CHARSET},    {18, 936, GB2312_CHARSET},
    {19, 949, HANGUL_CHARSET}, {20, 950, CHINESEBIG5_CHARSET}, {31, 0, SYMBOL_CHARSET},
};

bool Covers(const FaceFigures& figures, const CharSet& set) {
    return (figures.codePages[0] >> set.bit & 1) != 0;
}

LONG Pixels(double units, double scale) {
    return static_cast<LONG>(std::lround(units * scale));
}

BYTE AsByte(uint32_t character) {
    return static_cast<BYTE>(std::clamp<uint32_t>(character, ' ', 0xFF));
}

}  // namespace

FaceFigures HostReadFaceFigures(FT_Face face) {
    FaceFigures figures;
    figures.unitsPerEm = face->units_per_EM != 0 ? face->units_per_EM : 1000;
    figures.ascent = face->ascender;
    figures.descent = -face->descender;
    figures.maxWidth = face->max_advance_width;
    figures.isItalic = (face->style_flags & FT_STYLE_FLAG_ITALIC) != 0;
    figures.isFixedPitch = FT_IS_FIXED_WIDTH(face);
    figures.isTrueType = FT_IS_SFNT(face);
    figures.weight = (face->style_flags & FT_STYLE_FLAG_BOLD) != 0 ? FW_BOLD : FW_NORMAL;
    if (const INT width = AdvanceOf(face, 'x')) figures.averageWidth = width;
    const auto* table = static_cast<const TT_OS2*>(FT_Get_Sfnt_Table(face, FT_SFNT_OS2));
    if (table != nullptr && table->version != 0xFFFF) {
        ReadWindowsTable(*table, figures);
    } else {
        ReadCharacters(face, figures);
    }
    if (const auto* header = static_cast<const TT_HoriHeader*>(FT_Get_Sfnt_Table(face, FT_SFNT_HHEA))) {
        figures.externalLeading = LeadingOf(*header, figures);
    }
    if (figures.isFixedPitch) figures.family = FF_MODERN;
    return figures;
}

BYTE HostCharSetOf(const FaceFigures& figures) {
    const UINT current = CurrentCodePage().id;
    BYTE first = DEFAULT_CHARSET;
    for (const CharSet& set : kCharSets) {
        if (!Covers(figures, set)) continue;
        if (set.codePage == current) return set.charSet;
        if (first == DEFAULT_CHARSET) first = set.charSet;
    }
    return first == DEFAULT_CHARSET ? BYTE{ANSI_CHARSET} : first;
}

BYTE HostPitchAndFamilyOf(const FaceFigures& figures) {
    return static_cast<BYTE>((figures.isFixedPitch ? FIXED_PITCH : VARIABLE_PITCH) | figures.family);
}

TEXTMETRICA HostMetricOf(const FaceFigures& figures, double pixelsPerEm, double stretch, const SIZE& dotsPerInch) {
    const double scale = pixelsPerEm / figures.unitsPerEm;
    TEXTMETRICA metric = {};
    metric.tmAscent = Pixels(figures.ascent, scale);
    metric.tmDescent = Pixels(figures.descent, scale);
    metric.tmHeight = metric.tmAscent + metric.tmDescent;
    metric.tmInternalLeading = std::max<LONG>(0, metric.tmHeight - static_cast<LONG>(std::lround(pixelsPerEm)));
    metric.tmExternalLeading = Pixels(figures.externalLeading, scale);
    metric.tmAveCharWidth = Pixels(figures.averageWidth, scale * stretch);
    metric.tmMaxCharWidth = Pixels(figures.maxWidth, scale * stretch);
    metric.tmWeight = figures.weight;
    metric.tmDigitizedAspectX = dotsPerInch.cx;
    metric.tmDigitizedAspectY = dotsPerInch.cy;
    metric.tmFirstChar = AsByte(figures.firstCharacter);
    metric.tmLastChar = AsByte(figures.lastCharacter);
    metric.tmDefaultChar = metric.tmFirstChar;
    metric.tmBreakChar = ' ';
    metric.tmItalic = figures.isItalic ? 1 : 0;
    metric.tmPitchAndFamily = static_cast<BYTE>((figures.isFixedPitch ? 0 : TMPF_FIXED_PITCH) | TMPF_VECTOR |
                                                (figures.isTrueType ? TMPF_TRUETYPE : 0) | figures.family);
    metric.tmCharSet = HostCharSetOf(figures);
    return metric;
}
