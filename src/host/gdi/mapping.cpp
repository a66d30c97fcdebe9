// The mapping modes: a fixed number of units an inch, so that pixels come from the device's dots per inch, rounded with
// halves away from zero. Each call reckons from the origins alone: nothing is summed up.
#include "mapping.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "context.h"

namespace {

constexpr INT kUnitsPerInch[] = {0, 0, 254, 2540, 100, 1000, 1440};  // by mapping mode; MM_TEXT counts pixels

INT Clamped(int64_t value) {
    constexpr int64_t kMost = std::numeric_limits<INT>::max();
    return static_cast<INT>(std::clamp(value, -kMost, kMost));
}

INT Scaled(int64_t value, int64_t numerator, int64_t denominator) {
    const int64_t product = value * numerator;
    const int64_t half = product < 0 ? -denominator / 2 : denominator / 2;
    return Clamped((product + half) / denominator);
}

// One axis of a context's mapping.
struct Axis {
    INT units;  // an inch; 0 for pixels
    INT dots;   // an inch, below 0 where the axis grows the other way in pixels
    INT windowOrigin;
    INT viewportOrigin;

    INT ToDevice(INT logical) const {
        const int64_t distance = static_cast<int64_t>(logical) - windowOrigin;
        return Clamped(static_cast<int64_t>(units == 0 ? Clamped(distance) : Scaled(distance, dots, units)) +
                       viewportOrigin);
    }

    INT ToLogical(INT device) const {
        const int64_t distance = static_cast<int64_t>(device) - viewportOrigin;
        const int64_t logical =
            units == 0 ? distance : Scaled(dots < 0 ? -distance : distance, units, dots < 0 ? -dots : dots);
        return Clamped(logical + windowOrigin);
    }
};

Axis AcrossOf(const GdiContext& context) {
    const ContextState& state = context.state;
    return {kUnitsPerInch[state.mapMode], context.device->Figures().dotsPerInch.cx, state.windowOrigin.x,
            state.viewportOrigin.x};
}

Axis DownOf(const GdiContext& context) {
    const ContextState& state = context.state;
    return {kUnitsPerInch[state.mapMode], -context.device->Figures().dotsPerInch.cy, state.windowOrigin.y,
            state.viewportOrigin.y};
}

INT LengthToDevice(const GdiContext& context, INT length, INT dots) {
    const INT units = kUnitsPerInch[context.state.mapMode];
    return units == 0 ? length : Scaled(length, dots, units);
}

INT LengthToLogical(const GdiContext& context, INT pixels, INT dots) {
    const INT units = kUnitsPerInch[context.state.mapMode];
    return units == 0 ? pixels : Scaled(pixels, units, dots);
}

BOOL Convert(HDC dc, POINT* points, INT count, POINT (*convert)(const GdiContext&, POINT)) {
    const auto context = HostFindContext(dc);
    if (context == nullptr || points == nullptr || count < 0) return FALSE;
    for (INT i = 0; i < count; ++i) points[i] = convert(*context, points[i]);
    return TRUE;
}

BOOL ReadPoint(HDC dc, POINT* point, POINT ContextState::*field) {
    const auto context = HostFindContext(dc);
    if (context == nullptr || point == nullptr) return FALSE;
    *point = context->state.*field;
    return TRUE;
}

BOOL WritePoint(HDC dc, POINT point, POINT* old, POINT ContextState::*field) {
    const auto context = HostFindContext(dc);
    if (context == nullptr) return FALSE;
    if (old != nullptr) *old = context->state.*field;
    context->state.*field = point;
    return TRUE;
}

}  // namespace

POINT HostToDevice(const GdiContext& context, POINT logical) {
    return {AcrossOf(context).ToDevice(logical.x), DownOf(context).ToDevice(logical.y)};
}

POINT HostToLogical(const GdiContext& context, POINT device) {
    return {AcrossOf(context).ToLogical(device.x), DownOf(context).ToLogical(device.y)};
}

RECT HostToDevice(const GdiContext& context, const RECT& logical) {
    const POINT a = HostToDevice(context, POINT{logical.left, logical.top});
    const POINT b = HostToDevice(context, POINT{logical.right, logical.bottom});
    return {std::min(a.x, b.x), std::min(a.y, b.y), std::max(a.x, b.x), std::max(a.y, b.y)};
}

INT HostWidthToDevice(const GdiContext& context, INT width) {
    return LengthToDevice(context, width, context.device->Figures().dotsPerInch.cx);
}

INT HostHeightToDevice(const GdiContext& context, INT height) {
    return LengthToDevice(context, height, context.device->Figures().dotsPerInch.cy);
}

INT HostWidthToLogical(const GdiContext& context, INT pixels) {
    return LengthToLogical(context, pixels, context.device->Figures().dotsPerInch.cx);
}

INT HostHeightToLogical(const GdiContext& context, INT pixels) {
    return LengthToLogical(context, pixels, context.device->Figures().dotsPerInch.cy);
}

INT SetMapMode(HDC dc, INT mode) {
    const auto context = HostFindContext(dc);
    if (context == nullptr || mode < MM_TEXT || mode > MM_TWIPS) return 0;
    return std::exchange(context->state.mapMode, mode);
}

INT GetMapMode(HDC dc) {
    const auto context = HostFindContext(dc);
    return context != nullptr ? context->state.mapMode : 0;
}

BOOL SetWindowOrgEx(HDC dc, INT x, INT y, POINT* old) {
    return WritePoint(dc, {x, y}, old, &ContextState::windowOrigin);
}

BOOL GetWindowOrgEx(HDC dc, POINT* origin) {
    return ReadPoint(dc, origin, &ContextState::windowOrigin);
}

BOOL SetViewportOrgEx(HDC dc, INT x, INT y, POINT* old) {
    return WritePoint(dc, {x, y}, old, &ContextState::viewportOrigin);
}

BOOL GetViewportOrgEx(HDC dc, POINT* origin) {
    return ReadPoint(dc, origin, &ContextState::viewportOrigin);
}

BOOL LPtoDP(HDC dc, POINT* points, INT count) {
    return Convert(dc, points, count, HostToDevice);
}

BOOL DPtoLP(HDC dc, POINT* points, INT count) {
    return Convert(dc, points, count, HostToLogical);
}

// ---- the clip region: always one rectangle ----------------------------------------------------------------------

RECT HostClipOf(const GdiContext& context) {
    const SIZE size = context.device->Figures().printable;
    const RECT whole = {0, 0, size.cx, size.cy};
    if (!context.state.clip) return whole;
    RECT clip = {};
    IntersectRect(&clip, &whole, &*context.state.clip);
    return clip;
}

INT GetClipBox(HDC dc, RECT* box) {
    const auto context = HostFindContext(dc);
    if (context == nullptr || box == nullptr) return 0;
    const RECT clip = HostClipOf(*context);
    const POINT corner = HostToLogical(*context, POINT{clip.left, clip.top});
    const POINT end = HostToLogical(*context, POINT{clip.right, clip.bottom});
    *box = {corner.x, corner.y, end.x, end.y};
    return IsRectEmpty(&clip) ? NULLREGION : SIMPLEREGION;
}

INT IntersectClipRect(HDC dc, INT left, INT top, INT right, INT bottom) {
    const auto context = HostFindContext(dc);
    if (context == nullptr) return 0;
    const RECT more = HostToDevice(*context, RECT{left, top, right, bottom});
    const RECT before = HostClipOf(*context);
    RECT clip = {};
    const BOOL some = IntersectRect(&clip, &before, &more);
    context->state.clip = clip;
    return some ? SIMPLEREGION : NULLREGION;
}
