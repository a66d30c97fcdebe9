// Device contexts: opening and closing, what they have selected, what they tell of their devices.
#include <algorithm>
#include <string>
#include <string_view>
#include <utility>

#include "context.h"
#include "picture_device.h"
#include "printer_context.h"

namespace {

constexpr SIZE kScreen = {1024, 768};

HDC Open(const std::shared_ptr<GdiContext>& context) {
    return static_cast<HDC>(HostOpenGdiObject(context));
}

bool EqualsIgnoringCase(const char* text, std::string_view other) {
    return text != nullptr && lstrcmpiA(text, std::string(other).c_str()) == 0;
}

std::shared_ptr<GdiContext> MakeContext(LPCSTR driver, LPCSTR device, LPCSTR port, const DEVMODEA* mode) {
    if (EqualsIgnoringCase(driver, "DISPLAY"))
        return std::make_shared<GdiContext>(std::make_unique<ScreenDevice>(kScreen));
    return HostMakePrinterContext(device, port, mode);
}

HDC OpenWindowContext(HWND window) {
    RECT area = {0, 0, kScreen.cx, kScreen.cy};
    if (window != nullptr && !GetClientRect(window, &area)) return nullptr;
    const SIZE size = {std::max(1, area.right), std::max(1, area.bottom)};
    const auto context = std::make_shared<GdiContext>(std::make_unique<ScreenDevice>(size));
    context->window = window;
    context->isOfGetDC = true;
    return Open(context);
}

INT Millimetres(INT pixels, INT dotsPerInch) {
    return MulDiv(pixels, 254, dotsPerInch * 10);
}

// Takes an object into the state; the answer is the one that it replaces.
template <class Object>
HGDIOBJ Select(std::shared_ptr<Object>& selected, const std::shared_ptr<GdiObject>& object) {
    return std::exchange(selected, std::static_pointer_cast<Object>(object))->handle;
}

HGDIOBJ SelectBitmap(GdiContext& context, const std::shared_ptr<GdiObject>& bitmap) {
    if (context.memory == nullptr) return nullptr;
    return context.memory->Select(std::static_pointer_cast<GdiBitmap>(bitmap))->handle;
}

}  // namespace

std::shared_ptr<GdiContext> HostFindContext(HDC dc) {
    return HostFindGdi<GdiContext>(dc);
}

HDC CreateDCA(LPCSTR driver, LPCSTR device, LPCSTR port, const DEVMODEA* mode) {
    const auto context = MakeContext(driver, device, port, mode);
    return context != nullptr ? Open(context) : nullptr;
}

HDC CreateICA(LPCSTR driver, LPCSTR device, LPCSTR port, const DEVMODEA* mode) {
    const auto context = MakeContext(driver, device, port, mode);
    if (context == nullptr) return nullptr;
    context->isInformation = true;
    return Open(context);
}

HDC CreateCompatibleDC(HDC dc) {
    const auto other = dc != nullptr ? HostFindContext(dc) : nullptr;
    if (dc != nullptr && other == nullptr) return nullptr;
    auto device = std::make_unique<MemoryDevice>(other != nullptr ? other->device->Figures() : DeviceFigures());
    MemoryDevice* memory = device.get();
    const auto context = std::make_shared<GdiContext>(std::move(device));
    context->memory = memory;
    return Open(context);
}

BOOL DeleteDC(HDC dc) {
    const auto context = HostFindContext(dc);
    if (context == nullptr || context->isOfGetDC) return FALSE;
    return HostCloseGdiObject(dc) ? TRUE : FALSE;
}

HDC GetDC(HWND window) {
    return OpenWindowContext(window);
}

HDC GetWindowDC(HWND window) {
    return OpenWindowContext(window);
}

INT ReleaseDC(HWND window, HDC dc) {
    const auto context = HostFindContext(dc);
    if (context == nullptr || !context->isOfGetDC || context->window != window) return 0;
    return HostCloseGdiObject(dc) ? 1 : 0;
}

INT SaveDC(HDC dc) {
    const auto context = HostFindContext(dc);
    if (context == nullptr) return 0;
    context->saved.push_back(context->state);
    return static_cast<INT>(context->saved.size());
}

BOOL RestoreDC(HDC dc, INT state) {
    const auto context = HostFindContext(dc);
    if (context == nullptr) return FALSE;
    const auto saved = static_cast<INT>(context->saved.size());
    const INT wanted = state < 0 ? saved + 1 + state : state;
    if (wanted < 1 || wanted > saved) return FALSE;
    context->state = context->saved[static_cast<size_t>(wanted) - 1];
    context->saved.resize(static_cast<size_t>(wanted) - 1);
    return TRUE;
}

INT GetDeviceCaps(HDC dc, INT index) {
    const auto context = HostFindContext(dc);
    if (context == nullptr) return 0;
    const DeviceFigures& figures = context->device->Figures();
    const SIZE size = context->isOfGetDC ? kScreen : figures.printable;  // a window's context tells of the screen
    switch (index) {
        case TECHNOLOGY: return figures.technology;
        case HORZSIZE: return Millimetres(size.cx, figures.dotsPerInch.cx);
        case VERTSIZE: return Millimetres(size.cy, figures.dotsPerInch.cy);
        case HORZRES: return size.cx;
        case VERTRES: return size.cy;
        case BITSPIXEL: return figures.bitsPerPixel;
        case PLANES: return 1;
        case NUMCOLORS: return -1;  // more than 256
        case LOGPIXELSX: return figures.dotsPerInch.cx;
        case LOGPIXELSY: return figures.dotsPerInch.cy;
        case PHYSICALWIDTH: return figures.paper.cx;
        case PHYSICALHEIGHT: return figures.paper.cy;
        case PHYSICALOFFSETX: return figures.offset.x;
        case PHYSICALOFFSETY: return figures.offset.y;
        default: return 0;
    }
}

HGDIOBJ SelectObject(HDC dc, HGDIOBJ handle) {
    const auto context = HostFindContext(dc);
    const auto object = HostFindGdiObject(handle);
    if (context == nullptr || object == nullptr) return nullptr;
    switch (object->kind) {
        case GdiKind::kPen: return Select(context->state.pen, object);
        case GdiKind::kBrush: return Select(context->state.brush, object);
        case GdiKind::kFont: return Select(context->state.font, object);
        case GdiKind::kBitmap: return SelectBitmap(*context, object);
        case GdiKind::kContext: break;
    }
    return nullptr;
}

HBITMAP CreateCompatibleBitmap(HDC dc, INT width, INT height) {
    if (HostFindContext(dc) == nullptr || width <= 0 || height <= 0) return nullptr;
    Surface surface = HostMakePicture(width, height);
    if (surface == nullptr) {
        SetLastError(ERROR_NOT_ENOUGH_MEMORY);
        return nullptr;
    }
    return static_cast<HBITMAP>(HostOpenGdiObject(std::make_shared<GdiBitmap>(std::move(surface))));
}
