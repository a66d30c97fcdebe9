// String resources.
#include <algorithm>
#include <cstring>

#include <morvl15/host.h>

#include "../kernel/modules.h"

INT LoadStringA(HINSTANCE instance, UINT id, LPSTR buffer, INT size) {
    const char* text = HostFindString(instance, id);
    if (buffer == nullptr || size <= 0) return 0;
    const size_t length = text == nullptr ? 0 : std::min(std::strlen(text), static_cast<size_t>(size) - 1);
    if (length > 0) std::memcpy(buffer, text, length);
    buffer[length] = 0;
    return static_cast<INT>(length);
}
