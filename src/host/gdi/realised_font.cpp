#include "realised_font.h"

#include FT_ADVANCES_H

#include <algorithm>
#include <cmath>

#include "../locale/code_page.h"
#include "../locale/code_text.h"

namespace {

constexpr double kDefaultPoints = 12;
constexpr double kSmallestEm = 1;
constexpr double kLargestEm = 100000;

// Cairo's font file, locked for as long as it is looked at.
class LockedFace {
  public:
    explicit LockedFace(cairo_scaled_font_t* font) : font_(font), face_(cairo_ft_scaled_font_lock_face(font)) {}
    ~LockedFace() {
        if (face_ != nullptr) cairo_ft_scaled_font_unlock_face(font_);
    }
    LockedFace(const LockedFace&) = delete;
    LockedFace& operator=(const LockedFace&) = delete;

    FT_Face Get() const { return face_; }

  private:
    cairo_scaled_font_t* font_;
    FT_Face face_;
};

ScaledFont MakeScaledFont(cairo_font_face_t* face, double across, double down) {
    cairo_matrix_t size;
    cairo_matrix_t identity;
    cairo_matrix_init_scale(&size, across, down);
    cairo_matrix_init_identity(&identity);
    cairo_font_options_t* options = cairo_font_options_create();
    cairo_font_options_set_hint_style(options, CAIRO_HINT_STYLE_NONE);
    cairo_font_options_set_hint_metrics(options, CAIRO_HINT_METRICS_OFF);
    ScaledFont font(cairo_scaled_font_create(face, &size, &identity, options));
    cairo_font_options_destroy(options);
    if (cairo_scaled_font_status(font.get()) != CAIRO_STATUS_SUCCESS) font.reset();
    return font;
}

}  // namespace

bool RealisedFont::Realise(const std::shared_ptr<GdiFont>& font, INT height, INT width, const SIZE& dotsPerInch) {
    if (scaled_ != nullptr && font_ == font && height_ == height && width_ == width &&
        dotsPerInch_.cy == dotsPerInch.cy && dotsPerInch_.cx == dotsPerInch.cx) {
        return true;
    }
    font_ = font;
    height_ = height;
    width_ = width;
    dotsPerInch_ = dotsPerInch;
    glyphs_.clear();
    scaled_.reset();
    face_ = font->Face();
    const ScaledFont plain = MakeScaledFont(face_->face.get(), 1, 1);
    if (plain == nullptr) return false;
    {
        const LockedFace face(plain.get());
        figures_ = face.Get() != nullptr ? HostReadFaceFigures(face.Get()) : FaceFigures();
    }
    ChooseSize(height, width);
    return Scale();
}

void RealisedFont::ChooseSize(INT height, INT width) {
    const double cell = std::max(1, figures_.ascent + figures_.descent);
    pixelsPerEm_ = kDefaultPoints * dotsPerInch_.cy / 72;
    if (height < 0) pixelsPerEm_ = -static_cast<double>(height);
    if (height > 0) pixelsPerEm_ = static_cast<double>(height) * figures_.unitsPerEm / cell;
    pixelsPerEm_ = std::clamp(pixelsPerEm_, kSmallestEm, kLargestEm);
    const double average = std::max(1, figures_.averageWidth) * pixelsPerEm_ / figures_.unitsPerEm;
    stretch_ = width != 0 ? std::abs(static_cast<double>(width)) / average : 1;
    stretch_ = std::clamp(stretch_, 0.01, 100.0);
}

bool RealisedFont::Scale() {
    metric_ = HostMetricOf(figures_, pixelsPerEm_, stretch_, dotsPerInch_);
    metric_.tmUnderlined = font_->logicalFont.lfUnderline;
    metric_.tmStruckOut = font_->logicalFont.lfStrikeOut;
    scaled_ = MakeScaledFont(face_->face.get(), pixelsPerEm_ * stretch_, pixelsPerEm_);
    return scaled_ != nullptr;
}

RealisedFont::Glyph RealisedFont::GlyphOf(char32_t character) {
    const auto known = glyphs_.find(character);
    if (known != glyphs_.end()) return known->second;
    Glyph glyph = {0, metric_.tmAveCharWidth};
    const LockedFace face(scaled_.get());
    if (face.Get() != nullptr) {
        const FT_UInt index = FT_Get_Char_Index(face.Get(), character);
        FT_Fixed units = 0;
        FT_Get_Advance(face.Get(), index, FT_LOAD_NO_SCALE, &units);
        const double pixels = static_cast<double>(units) * pixelsPerEm_ * stretch_ / figures_.unitsPerEm;
        glyph = {index, static_cast<INT>(std::lround(pixels))};
    }
    glyphs_.emplace(character, glyph);
    return glyph;
}

LaidText RealisedFont::Lay(std::string_view text, const INT* advances) {
    const CodePage& page = CurrentCodePage();
    LaidText laid;
    laid.characters = UnicodeOfText(text);
    laid.glyphs.reserve(laid.characters.size());
    size_t at = 0;
    for (const char32_t character : laid.characters) {
        const Glyph glyph = GlyphOf(character);
        laid.glyphs.push_back({glyph.index, static_cast<double>(laid.width), 0});
        INT advance = glyph.advance;
        const size_t bytes = CharacterBytes(page, &text[at], text.size() - at);
        if (advances != nullptr) advance = bytes == 2 ? advances[at] + advances[at + 1] : advances[at];
        laid.width += advance;
        at += bytes;
    }
    return laid;
}
