// Lines and shapes.
#include "drawing.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

#include <morvl15/host_native.h>

#include "mapping.h"

namespace {

constexpr double kHalf = 0.5;  // from a pixel's corner to its centre

// Dashes in pen widths, as the platform draws them with a pen of one pixel.
struct Dashes {
    INT style;
    int count;
    double lengths[6];
};
constexpr Dashes kDashes[] = {
    {PS_DASH, 2, {18, 6}},
    {PS_DOT, 2, {3, 3}},
    {PS_DASHDOT, 4, {9, 6, 3, 6}},
    {PS_DASHDOTDOT, 6, {9, 3, 3, 3, 3, 3}},
};

void SetDashes(cairo_t* cairo, INT style) {
    for (const Dashes& dashes : kDashes) {
        if (dashes.style == style) cairo_set_dash(cairo, dashes.lengths, dashes.count, 0);
    }
}

// A rectangle that a shape is drawn in, without the right column and the lower row, which the platform leaves out.
struct Frame {
    double left;
    double top;
    double right;
    double bottom;

    bool IsEmpty() const { return right <= left || bottom <= top; }
};

// The centre line of a pen that runs inside a rectangle's pixels.
Frame FrameOf(const GdiContext& context, const RECT& logical) {
    const RECT device = HostToDevice(context, logical);
    const GdiPen& pen = *context.state.pen;
    double inset = kHalf;
    if (pen.style == PS_INSIDEFRAME) inset = std::max(1, HostWidthToDevice(context, pen.width)) * kHalf;
    if (pen.style == PS_NULL) inset = 0;
    return {device.left + inset, device.top + inset, device.right - inset, device.bottom - inset};
}

void AddLines(const GdiContext& context, cairo_t* cairo, const POINT* points, INT count) {
    for (INT i = 0; i < count; ++i) {
        const POINT point = HostToDevice(context, points[i]);
        cairo_line_to(cairo, point.x + kHalf, point.y + kHalf);
    }
}

void AddEllipse(cairo_t* cairo, const Frame& frame) {
    const CairoState state(cairo);
    cairo_translate(cairo, (frame.left + frame.right) / 2, (frame.top + frame.bottom) / 2);
    cairo_scale(cairo, (frame.right - frame.left) / 2, (frame.bottom - frame.top) / 2);
    cairo_arc(cairo, 0, 0, 1, 0, 2 * std::numbers::pi);
}

BOOL DrawShape(HDC dc, const RECT& logical, void (*add)(cairo_t*, const Frame&)) {
    const auto context = HostFindContext(dc);
    if (context == nullptr) return FALSE;
    const Frame frame = FrameOf(*context, logical);
    Drawing drawing(*context);
    if (!drawing || frame.IsEmpty()) return TRUE;
    add(drawing.Get(), frame);
    drawing.FillPath();
    drawing.StrokePath();
    return TRUE;
}

}  // namespace

void HostSetColor(cairo_t* cairo, COLORREF color) {
    cairo_set_source_rgb(cairo, (color & 0xFF) / 255.0, (color >> 8 & 0xFF) / 255.0, (color >> 16 & 0xFF) / 255.0);
}

cairo_t* HostGetCairo(HDC dc) {
    const auto context = HostFindContext(dc);
    return context != nullptr ? context->Drawing() : nullptr;
}

// ---- one call's drawing -------------------------------------------------------------------------------------------

Drawing::Drawing(const GdiContext& context) : context_(context), cairo_(context.Drawing()) {
    if (cairo_ == nullptr) return;
    kept_.emplace(cairo_);
    cairo_new_path(cairo_);
    if (context.device->IsPicture()) cairo_set_antialias(cairo_, CAIRO_ANTIALIAS_NONE);
    if (!context.state.clip) return;
    const RECT clip = HostClipOf(context);
    cairo_rectangle(cairo_, clip.left, clip.top, clip.right - clip.left, clip.bottom - clip.top);
    cairo_clip(cairo_);
}

void Drawing::Fill(const RECT& device, COLORREF color) {
    HostSetColor(cairo_, color);
    cairo_rectangle(cairo_, device.left, device.top, device.right - device.left, device.bottom - device.top);
    cairo_fill(cairo_);
}

void Drawing::FillPath() {
    if (context_.state.brush->isNull) return;
    HostSetColor(cairo_, context_.state.brush->color);
    cairo_fill_preserve(cairo_);
}

void Drawing::StrokePath() {
    const GdiPen& pen = *context_.state.pen;
    if (pen.style == PS_NULL) {
        cairo_new_path(cairo_);
        return;
    }
    const INT width = std::max(1, HostWidthToDevice(context_, pen.width));
    HostSetColor(cairo_, pen.color);
    cairo_set_line_width(cairo_, width);
    cairo_set_line_join(cairo_, width > 1 ? CAIRO_LINE_JOIN_ROUND : CAIRO_LINE_JOIN_MITER);
    cairo_set_line_cap(cairo_, width > 1 ? CAIRO_LINE_CAP_ROUND : CAIRO_LINE_CAP_BUTT);
    if (pen.width <= 1) SetDashes(cairo_, pen.style);
    cairo_stroke(cairo_);
}

// ---- lines --------------------------------------------------------------------------------------------------------

BOOL MoveToEx(HDC dc, INT x, INT y, POINT* old) {
    const auto context = HostFindContext(dc);
    if (context == nullptr) return FALSE;
    const POINT before = std::exchange(context->state.position, POINT{x, y});
    if (old != nullptr) *old = before;
    return TRUE;
}

BOOL LineTo(HDC dc, INT x, INT y) {
    const auto context = HostFindContext(dc);
    if (context == nullptr) return FALSE;
    const POINT points[] = {std::exchange(context->state.position, POINT{x, y}), {x, y}};
    return Polyline(dc, points, 2);
}

BOOL Polyline(HDC dc, const POINT* points, INT count) {
    const auto context = HostFindContext(dc);
    if (context == nullptr || points == nullptr || count < 2) return FALSE;
    Drawing drawing(*context);
    if (!drawing) return TRUE;
    AddLines(*context, drawing.Get(), points, count);
    drawing.StrokePath();
    return TRUE;
}

// ---- shapes -------------------------------------------------------------------------------------------------------

BOOL Polygon(HDC dc, const POINT* points, INT count) {
    const auto context = HostFindContext(dc);
    if (context == nullptr || points == nullptr || count < 2) return FALSE;
    Drawing drawing(*context);
    if (!drawing) return TRUE;
    AddLines(*context, drawing.Get(), points, count);
    cairo_close_path(drawing.Get());
    cairo_set_fill_rule(drawing.Get(), CAIRO_FILL_RULE_EVEN_ODD);
    drawing.FillPath();
    drawing.StrokePath();
    return TRUE;
}

BOOL Rectangle(HDC dc, INT left, INT top, INT right, INT bottom) {
    return DrawShape(dc, {left, top, right, bottom}, [](cairo_t* cairo, const Frame& frame) {
        cairo_rectangle(cairo, frame.left, frame.top, frame.right - frame.left, frame.bottom - frame.top);
    });
}

BOOL Ellipse(HDC dc, INT left, INT top, INT right, INT bottom) {
    return DrawShape(dc, {left, top, right, bottom}, AddEllipse);
}

INT FillRect(HDC dc, const RECT* rect, HBRUSH handle) {
    const auto context = HostFindContext(dc);
    const auto brush = HostFindGdi<GdiBrush>(handle);
    if (context == nullptr || brush == nullptr || rect == nullptr) return 0;
    Drawing drawing(*context);
    if (drawing && !brush->isNull) drawing.Fill(HostToDevice(*context, *rect), brush->color);
    return 1;
}

INT FrameRect(HDC dc, const RECT* rect, HBRUSH handle) {
    const auto context = HostFindContext(dc);
    const auto brush = HostFindGdi<GdiBrush>(handle);
    if (context == nullptr || brush == nullptr || rect == nullptr) return 0;
    Drawing drawing(*context);
    if (!drawing || brush->isNull) return 1;
    const RECT outer = HostToDevice(*context, *rect);
    drawing.Fill({outer.left, outer.top, outer.right, outer.top + 1}, brush->color);
    drawing.Fill({outer.left, outer.bottom - 1, outer.right, outer.bottom}, brush->color);
    drawing.Fill({outer.left, outer.top, outer.left + 1, outer.bottom}, brush->color);
    drawing.Fill({outer.right - 1, outer.top, outer.right, outer.bottom}, brush->color);
    return 1;
}

BOOL BitBlt(HDC dc, INT x, INT y, INT width, INT height, HDC source, INT sourceX, INT sourceY, DWORD operation) {
    const auto context = HostFindContext(dc);
    const auto from = HostFindContext(source);
    if (context == nullptr || from == nullptr || operation != SRCCOPY || !from->device->IsPicture()) return FALSE;
    cairo_t* picture = from->Drawing();
    Drawing drawing(*context);
    if (!drawing || picture == nullptr) return TRUE;
    const RECT to = HostToDevice(*context, RECT{x, y, x + width, y + height});
    const POINT corner = HostToDevice(*from, POINT{sourceX, sourceY});
    cairo_surface_t* surface = cairo_get_target(picture);
    cairo_surface_flush(surface);
    cairo_set_source_surface(drawing.Get(), surface, to.left - corner.x, to.top - corner.y);
    cairo_rectangle(drawing.Get(), to.left, to.top, to.right - to.left, to.bottom - to.top);
    cairo_fill(drawing.Get());
    return TRUE;
}
