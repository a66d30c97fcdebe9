// What a font file says of its face, in the units of its design.
#pragma once

#include <ft2build.h>
#include FT_FREETYPE_H

#include <array>

#include <morvl15/host.h>

struct FaceFigures {
    INT unitsPerEm = 1000;
    INT ascent = 800;  // of the cell
    INT descent = 200;
    INT externalLeading = 0;
    INT averageWidth = 500;
    INT maxWidth = 1000;
    LONG weight = FW_NORMAL;
    uint32_t firstCharacter = ' ';
    uint32_t lastCharacter = 0xFF;
    std::array<uint32_t, 2> codePages{};  // bits of the font file's own numbering; both 0 where it tells nothing
    BYTE family = FF_DONTCARE;
    bool isItalic = false;
    bool isFixedPitch = false;
    bool isTrueType = false;  // or another font in that kind of file
};

FaceFigures HostReadFaceFigures(FT_Face face);

// The character set to report: that of the code page in force if the face covers it, else the first that it covers.
BYTE HostCharSetOf(const FaceFigures& figures);

BYTE HostPitchAndFamilyOf(const FaceFigures& figures);  // as in LOGFONTA

// The metric of a face at a size, in pixels; `stretch` is its width beside its own proportion.
TEXTMETRICA HostMetricOf(const FaceFigures& figures, double pixelsPerEm, double stretch, const SIZE& dotsPerInch);
