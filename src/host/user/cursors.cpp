// Cursors: the system's own shapes, and the one that a thread shows.
#include <morvl15/host.h>

namespace {

constexpr uintptr_t kFirstShape = 32512;
constexpr uintptr_t kLastShape = 32651;

thread_local HCURSOR shown = nullptr;

}  // namespace

HCURSOR LoadCursorA(HINSTANCE instance, LPCSTR name) {
    const auto shape = reinterpret_cast<uintptr_t>(name);
    if (instance == nullptr && shape >= kFirstShape && shape <= kLastShape) return reinterpret_cast<HCURSOR>(shape);
    SetLastError(ERROR_RESOURCE_NAME_NOT_FOUND);
    return nullptr;
}

HCURSOR SetCursor(HCURSOR cursor) {
    const HCURSOR before = shown;
    shown = cursor;
    return before;
}

HCURSOR GetCursor() {
    return shown;
}
