// A font at the size that a device's pixels give it: its metric, and glyphs with their places. Glyphs stand on whole
// pixels, as on the platform, so that a text is as wide as it was measured.
#pragma once

#include <cairo-ft.h>

#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "face_figures.h"
#include "font.h"

struct LaidText {
    std::u32string characters;
    std::vector<cairo_glyph_t> glyphs;  // one a character, from (0, 0) on the base line
    INT width = 0;                      // pixels
};

class RealisedFont {
  public:
    // Makes it the font at that size, as LOGFONTA's lfHeight and lfWidth have it but in pixels. Cheap where it is that
    // already. False when there is no memory for it.
    bool Realise(const std::shared_ptr<GdiFont>& font, INT height, INT width, const SIZE& dotsPerInch);

    const TEXTMETRICA& Metric() const { return metric_; }  // in pixels
    const MatchedFace& Face() const { return *face_; }
    cairo_scaled_font_t* Scaled() const { return scaled_.get(); }
    double PixelsPerEm() const { return pixelsPerEm_; }
    double Stretch() const { return stretch_; }

    // A text of the code page in force. Advances are pixels, one for each byte; null for the font's own.
    LaidText Lay(std::string_view text, const INT* advances);

  private:
    struct Glyph {
        unsigned long index;
        INT advance;
    };

    void ChooseSize(INT height, INT width);
    bool Scale();
    Glyph GlyphOf(char32_t character);

    std::shared_ptr<GdiFont> font_;
    INT height_ = 0;
    INT width_ = 0;
    SIZE dotsPerInch_ = {};
    std::shared_ptr<const MatchedFace> face_;
    FaceFigures figures_;
    double pixelsPerEm_ = 0;
    double stretch_ = 1;
    TEXTMETRICA metric_ = {};
    ScaledFont scaled_;
    std::unordered_map<char32_t, Glyph> glyphs_;
};
