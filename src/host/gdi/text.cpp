// Text: measuring and drawing a line.
#include "text.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <numbers>
#include <string>
#include <utility>
#include <vector>

#include "../locale/code_text.h"
#include "drawing.h"
#include "mapping.h"

namespace {

constexpr UINT kAlignAcross = 6;  // TA_RIGHT, TA_CENTER
constexpr UINT kAlignDown = 24;   // TA_BOTTOM, TA_BASELINE

// A line of text about to be drawn: its glyphs, and where it goes, in pixels from its reference point.
struct Line {
    LaidText laid;
    double left = 0;
    double base = 0;
};

Line LineOf(const RealisedFont& font, LaidText laid, UINT align) {
    Line line;
    if ((align & kAlignAcross) == TA_RIGHT) line.left = -laid.width;
    const INT half = laid.width / 2;  // whole pixels
    if ((align & kAlignAcross) == TA_CENTER) line.left = -half;
    const TEXTMETRICA& metric = font.Metric();
    if ((align & kAlignDown) == TA_TOP) line.base = metric.tmAscent;
    if ((align & kAlignDown) == TA_BOTTOM) line.base = -metric.tmDescent;
    line.laid = std::move(laid);
    return line;
}

void FillBehind(cairo_t* cairo, const RealisedFont& font, const Line& line, COLORREF color) {
    HostSetColor(cairo, color);
    cairo_rectangle(cairo, line.left, line.base - font.Metric().tmAscent, line.laid.width, font.Metric().tmHeight);
    cairo_fill(cairo);
}

// Lines under a text and through it, as thick as the font's strokes.
void DrawRules(cairo_t* cairo, const RealisedFont& font, const Line& line) {
    const TEXTMETRICA& metric = font.Metric();
    const double thickness = std::max(1.0, std::round(font.PixelsPerEm() / 16));
    if (metric.tmUnderlined != 0) {
        cairo_rectangle(cairo, line.left, line.base + thickness, line.laid.width, thickness);
    }
    if (metric.tmStruckOut != 0) {
        cairo_rectangle(cairo, line.left, line.base - std::round(font.PixelsPerEm() / 4), line.laid.width, thickness);
    }
    cairo_fill(cairo);
}

void SetFont(cairo_t* cairo, const RealisedFont& font) {
    cairo_matrix_t size;
    cairo_font_options_t* options = cairo_font_options_create();
    cairo_scaled_font_get_font_matrix(font.Scaled(), &size);
    cairo_scaled_font_get_font_options(font.Scaled(), options);
    cairo_set_font_face(cairo, font.Face().face.get());
    cairo_set_font_matrix(cairo, &size);
    cairo_set_font_options(cairo, options);
    cairo_font_options_destroy(options);
}

bool IsControl(char32_t character) {
    return character < ' ';
}

// Draws the glyphs. A PDF file gets the characters too, so that its text can be found and copied: a glyph alone doesn't
// tell, where several characters look the same.
void ShowGlyphs(cairo_t* cairo, const LaidText& laid) {
    const int count = static_cast<int>(laid.glyphs.size());
    const bool isText = std::ranges::none_of(laid.characters, IsControl);
    if (!isText || !cairo_surface_has_show_text_glyphs(cairo_get_target(cairo))) {
        cairo_show_glyphs(cairo, laid.glyphs.data(), count);
        return;
    }
    std::string utf8;
    std::vector<cairo_text_cluster_t> clusters;
    clusters.reserve(laid.characters.size());
    for (const char32_t character : laid.characters) {
        const size_t before = utf8.size();
        AppendUtf8(utf8, character);
        clusters.push_back({static_cast<int>(utf8.size() - before), 1});
    }
    cairo_show_text_glyphs(cairo, utf8.data(), static_cast<int>(utf8.size()), laid.glyphs.data(), count,
                           clusters.data(), count, cairo_text_cluster_flags_t{});
}

// Draws a line at its reference point.
void DrawLine(Drawing& drawing, const GdiContext& context, const RealisedFont& font, POINT at, Line& line) {
    cairo_t* cairo = drawing.Get();
    const LONG tenths = context.state.font->logicalFont.lfEscapement;
    cairo_translate(cairo, at.x, at.y);
    if (tenths != 0) cairo_rotate(cairo, -tenths * std::numbers::pi / 1800);
    if (context.state.backMode == OPAQUE) FillBehind(cairo, font, line, context.state.backColor);
    for (cairo_glyph_t& glyph : line.laid.glyphs) {
        glyph.x += line.left;
        glyph.y += line.base;
    }
    cairo_set_antialias(cairo, CAIRO_ANTIALIAS_DEFAULT);
    HostSetColor(cairo, context.state.textColor);
    SetFont(cairo, font);
    ShowGlyphs(cairo, line.laid);
    DrawRules(cairo, font, line);
}

std::vector<INT> PixelsOf(const GdiContext& context, const INT* advances, UINT bytes) {
    std::vector<INT> pixels(advances, advances + bytes);
    for (INT& advance : pixels) advance = HostWidthToDevice(context, advance);
    return pixels;
}

// Takes the reference point along, past a text that starts or ends there.
void MovePosition(GdiContext& context, INT width) {
    const UINT across = context.state.textAlign & kAlignAcross;
    if (across == TA_CENTER) return;
    const INT along = HostWidthToLogical(context, width);
    context.state.position.x += across == TA_RIGHT ? -along : along;
}

void FillOptionalRect(Drawing& drawing, const GdiContext& context, UINT options, const RECT* rect) {
    if (rect == nullptr) return;
    const RECT device = HostToDevice(context, *rect);
    if ((options & ETO_OPAQUE) != 0) drawing.Fill(device, context.state.backColor);
    if ((options & ETO_CLIPPED) == 0) return;
    cairo_rectangle(drawing.Get(), device.left, device.top, device.right - device.left, device.bottom - device.top);
    cairo_clip(drawing.Get());
}

}  // namespace

std::string_view HostTextOf(const char* text, INT bytes) {
    return {text, bytes < 0 ? std::strlen(text) : static_cast<size_t>(bytes)};
}

RealisedFont* HostRealiseFont(GdiContext& context) {
    const LOGFONTA& font = context.state.font->logicalFont;
    const bool realised =
        context.realised.Realise(context.state.font, HostHeightToDevice(context, font.lfHeight),
                                 HostWidthToDevice(context, font.lfWidth), context.device->Figures().dotsPerInch);
    return realised ? &context.realised : nullptr;
}

TEXTMETRICA HostLogicalMetric(const GdiContext& context, const TEXTMETRICA& pixels) {
    TEXTMETRICA metric = pixels;
    for (LONG TEXTMETRICA::*height : {&TEXTMETRICA::tmHeight, &TEXTMETRICA::tmAscent, &TEXTMETRICA::tmDescent,
                                      &TEXTMETRICA::tmInternalLeading, &TEXTMETRICA::tmExternalLeading}) {
        metric.*height = HostHeightToLogical(context, pixels.*height);
    }
    metric.tmAveCharWidth = HostWidthToLogical(context, pixels.tmAveCharWidth);
    metric.tmMaxCharWidth = HostWidthToLogical(context, pixels.tmMaxCharWidth);
    return metric;
}

BOOL ExtTextOutA(HDC dc, INT x, INT y, UINT options, const RECT* rect, LPCSTR text, UINT bytes, const INT* advances) {
    const auto context = HostFindContext(dc);
    if (context == nullptr || (text == nullptr && bytes > 0)) return FALSE;
    RealisedFont* font = HostRealiseFont(*context);
    if (font == nullptr) return FALSE;
    const UINT align = context->state.textAlign;
    const POINT at = (align & TA_UPDATECP) != 0 ? context->state.position : POINT{x, y};
    std::vector<INT> pixels;
    if (advances != nullptr) pixels = PixelsOf(*context, advances, bytes);
    Line line = LineOf(*font, font->Lay({text, bytes}, advances != nullptr ? pixels.data() : nullptr), align);
    if ((align & TA_UPDATECP) != 0) MovePosition(*context, line.laid.width);
    Drawing drawing(*context);
    if (!drawing) return TRUE;
    FillOptionalRect(drawing, *context, options, rect);
    DrawLine(drawing, *context, *font, HostToDevice(*context, at), line);
    return TRUE;
}

BOOL TextOutA(HDC dc, INT x, INT y, LPCSTR text, INT bytes) {
    return bytes >= 0 ? ExtTextOutA(dc, x, y, 0, nullptr, text, static_cast<UINT>(bytes), nullptr) : FALSE;
}

BOOL GetTextExtentPoint32A(HDC dc, LPCSTR text, INT bytes, SIZE* size) {
    const auto context = HostFindContext(dc);
    if (context == nullptr || text == nullptr || bytes < 0 || size == nullptr) return FALSE;
    RealisedFont* font = HostRealiseFont(*context);
    if (font == nullptr) return FALSE;
    const INT width = font->Lay(HostTextOf(text, bytes), nullptr).width;
    *size = {HostWidthToLogical(*context, width), HostHeightToLogical(*context, font->Metric().tmHeight)};
    return TRUE;
}

BOOL GetTextMetricsA(HDC dc, TEXTMETRICA* metric) {
    const auto context = HostFindContext(dc);
    if (context == nullptr || metric == nullptr) return FALSE;
    const RealisedFont* font = HostRealiseFont(*context);
    if (font == nullptr) return FALSE;
    *metric = HostLogicalMetric(*context, font->Metric());
    return TRUE;
}

INT GetTextFaceA(HDC dc, INT bytes, LPSTR name) {
    const auto context = HostFindContext(dc);
    if (context == nullptr) return 0;
    const std::string& face = context->state.font->Face()->name;
    if (name == nullptr) return static_cast<INT>(face.size()) + 1;
    if (bytes <= 0) return 0;
    const size_t copied = std::min(face.size(), static_cast<size_t>(bytes) - 1);
    std::memcpy(name, face.data(), copied);
    name[copied] = 0;
    return static_cast<INT>(copied);
}

// ---- settings -------------------------------------------------------------------------------------------------------

namespace {

template <class Value>
Value Exchange(HDC dc, Value ContextState::*field, Value value, Value failure) {
    const auto context = HostFindContext(dc);
    if (context == nullptr) return failure;
    ContextState& state = context->state;
    return std::exchange(state.*field, value);
}

template <class Value>
Value Read(HDC dc, Value ContextState::*field, Value failure) {
    const auto context = HostFindContext(dc);
    if (context == nullptr) return failure;
    const ContextState& state = context->state;
    return state.*field;
}

}  // namespace

COLORREF SetTextColor(HDC dc, COLORREF color) {
    return Exchange<COLORREF>(dc, &ContextState::textColor, color, CLR_INVALID);
}

COLORREF GetTextColor(HDC dc) {
    return Read<COLORREF>(dc, &ContextState::textColor, CLR_INVALID);
}

COLORREF SetBkColor(HDC dc, COLORREF color) {
    return Exchange<COLORREF>(dc, &ContextState::backColor, color, CLR_INVALID);
}

COLORREF GetBkColor(HDC dc) {
    return Read<COLORREF>(dc, &ContextState::backColor, CLR_INVALID);
}

INT SetBkMode(HDC dc, INT mode) {
    if (mode != TRANSPARENT && mode != OPAQUE) return 0;
    return Exchange<INT>(dc, &ContextState::backMode, mode, 0);
}

INT GetBkMode(HDC dc) {
    return Read<INT>(dc, &ContextState::backMode, 0);
}

UINT SetTextAlign(HDC dc, UINT align) {
    return Exchange<UINT>(dc, &ContextState::textAlign, align, 0xFFFFFFFFu);
}

UINT GetTextAlign(HDC dc) {
    return Read<UINT>(dc, &ContextState::textAlign, 0xFFFFFFFFu);
}
