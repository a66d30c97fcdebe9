// Length, copy and concatenation. As on the platform, null is answered and not a fault.
#include <algorithm>
#include <cstring>

#include <morvl15/host.h>

INT lstrlenA(LPCSTR text) {
    return text != nullptr ? static_cast<INT>(std::strlen(text)) : 0;
}

LPSTR lstrcpyA(LPSTR destination, LPCSTR source) {
    if (destination == nullptr || source == nullptr) return nullptr;
    std::memmove(destination, source, std::strlen(source) + 1);
    return destination;
}

LPSTR lstrcpynA(LPSTR destination, LPCSTR source, INT size) {
    if (destination == nullptr || source == nullptr) return nullptr;
    if (size <= 0) return destination;
    const size_t length = strnlen(source, static_cast<size_t>(size) - 1);
    std::memmove(destination, source, length);
    destination[length] = 0;
    return destination;
}

LPSTR lstrcatA(LPSTR destination, LPCSTR source) {
    if (destination == nullptr || source == nullptr) return nullptr;
    lstrcpyA(destination + std::strlen(destination), source);
    return destination;
}
