// A device context: the device that it draws on, and how.
#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "device.h"
#include "font.h"
#include "objects.h"
#include "realised_font.h"

// What SaveDC keeps.
struct ContextState {
    INT mapMode = MM_TEXT;
    POINT windowOrigin = {};
    POINT viewportOrigin = {};
    POINT position = {};       // logical
    std::optional<RECT> clip;  // in pixels; none is the whole printable part
    COLORREF textColor = RGB(0, 0, 0);
    COLORREF backColor = RGB(255, 255, 255);
    INT backMode = OPAQUE;
    UINT textAlign = TA_LEFT | TA_TOP;
    std::shared_ptr<GdiPen> pen = HostStockObject<GdiPen>(BLACK_PEN);
    std::shared_ptr<GdiBrush> brush = HostStockObject<GdiBrush>(WHITE_BRUSH);
    std::shared_ptr<GdiFont> font = HostStockObject<GdiFont>(SYSTEM_FONT);
};

class PageDevice;
class MemoryDevice;

struct GdiContext : GdiObject {
    static constexpr GdiKind kKind = GdiKind::kContext;
    explicit GdiContext(std::unique_ptr<Device> contextDevice) : GdiObject(kKind), device(std::move(contextDevice)) {}

    // Where to draw; null for an information context, and between a printer's pages.
    cairo_t* Drawing() const { return isInformation ? nullptr : device->Drawing(); }

    const std::unique_ptr<Device> device;
    bool isInformation = false;
    PageDevice* page = nullptr;  // the device where it is one, here and below
    MemoryDevice* memory = nullptr;
    HWND window = nullptr;  // of GetDC
    bool isOfGetDC = false;
    ContextState state;
    std::vector<ContextState> saved;
    RealisedFont realised;  // the state's font at the device's resolution, as it was last needed
};

// The context of a handle; null, with the last error set, for none.
std::shared_ptr<GdiContext> HostFindContext(HDC dc);

// The device rectangle that is drawn in.
RECT HostClipOf(const GdiContext& context);
