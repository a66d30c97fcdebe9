// A dialog in the middle of the window that it belongs to.
#include <morvl15/dialog.h>

namespace {

// The window that a dialog is centred on.
HWND ReferenceOf(HWND dialog) {
    HWND reference = GetParent(dialog);
    if (reference == nullptr) reference = GetWindow(dialog, GW_OWNER);
    return reference != nullptr ? reference : GetDesktopWindow();
}

POINT ScreenSizeAt(HWND window) {
    const HDC dc = GetDC(window);
    const POINT size = {GetDeviceCaps(dc, HORZRES), GetDeviceCaps(dc, VERTRES)};
    ReleaseDC(window, dc);
    return size;
}

// The centre, in one direction, of something that has to stay on the screen.
LONG KeepOnScreen(LONG centre, LONG size, LONG screen) {
    const LONG half = size / 2;
    if (centre + half > screen) return screen - half;
    return centre - half < 0 ? half : centre;
}

POINT CentreOf(HWND reference, POINT size) {
    const POINT screen = ScreenSizeAt(reference);
    if (IsIconic(reference)) return {screen.x / 2, screen.y / 2};
    RECT rect = {};
    GetWindowRect(reference, &rect);
    return {KeepOnScreen((rect.left + rect.right) / 2, size.x, screen.x),
            KeepOnScreen((rect.top + rect.bottom) / 2, size.y, screen.y)};
}

}  // namespace

int32_t MORVL_CALL DlgCenterDialog(HWND dialog) {
    RECT rect = {};
    GetWindowRect(dialog, &rect);
    const POINT size = {rect.right - rect.left, rect.bottom - rect.top};
    const HWND reference = ReferenceOf(dialog);
    const POINT centre = CentreOf(reference, size);
    POINT corner = {centre.x - size.x / 2, centre.y - size.y / 2};
    const auto style = static_cast<DWORD>(GetWindowLongPtrA(dialog, GWL_STYLE));
    if ((style & WS_CHILD) != 0) ScreenToClient(reference, &corner);
    return MoveWindow(dialog, corner.x, corner.y, size.x, size.y, TRUE);
}
