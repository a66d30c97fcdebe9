// What stands behind the handles of the drawing calls: pens, brushes, fonts, bitmaps, contexts.
#pragma once

#include <memory>

#include <morvl15/host.h>

#include "surfaces.h"

enum class GdiKind : uint8_t { kPen, kBrush, kFont, kBitmap, kContext };

struct GdiObject {
    explicit GdiObject(GdiKind objectKind) : kind(objectKind) {}
    virtual ~GdiObject() = default;
    GdiObject(const GdiObject&) = delete;
    GdiObject& operator=(const GdiObject&) = delete;

    const GdiKind kind;
    bool isStock = false;
    HGDIOBJ handle = nullptr;
};

struct GdiPen : GdiObject {
    static constexpr GdiKind kKind = GdiKind::kPen;
    GdiPen(INT penStyle, INT penWidth, COLORREF penColor)
        : GdiObject(kKind), style(penStyle), width(penWidth), color(penColor) {}

    const INT style;
    const INT width;
    const COLORREF color;
};

struct GdiBrush : GdiObject {
    static constexpr GdiKind kKind = GdiKind::kBrush;
    GdiBrush(bool brushIsNull, COLORREF brushColor) : GdiObject(kKind), isNull(brushIsNull), color(brushColor) {}

    const bool isNull;
    const COLORREF color;
};

struct GdiBitmap : GdiObject {
    static constexpr GdiKind kKind = GdiKind::kBitmap;
    explicit GdiBitmap(Surface bitmapSurface) : GdiObject(kKind), surface(std::move(bitmapSurface)) {}

    const Surface surface;
};

// Gives an object its handle. The table holds the object until its handle is closed.
HGDIOBJ HostOpenGdiObject(std::shared_ptr<GdiObject> object);

// The object of a handle; null, with the last error set, for what is none, or is of another kind.
std::shared_ptr<GdiObject> HostFindGdiObject(HGDIOBJ handle);
std::shared_ptr<GdiObject> HostFindGdiObject(HGDIOBJ handle, GdiKind kind);

// Takes an object's handle away; the object goes with its last user. False for what has none.
bool HostCloseGdiObject(HGDIOBJ handle);

template <class Object>
std::shared_ptr<Object> HostFindGdi(HGDIOBJ handle) {
    return std::static_pointer_cast<Object>(HostFindGdiObject(handle, Object::kKind));
}

// A stock object of the kind that its number means.
template <class Object>
std::shared_ptr<Object> HostStockObject(INT object) {
    return HostFindGdi<Object>(GetStockObject(object));
}
