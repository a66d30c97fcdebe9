// The clipboard of the process: movable blocks by format.
#include <map>
#include <mutex>

#include <morvl15/host.h>

namespace {

std::mutex clipboardLock;
thread_local bool opened = false;

std::map<UINT, HANDLE>& Contents() {
    static std::map<UINT, HANDLE> contents;
    return contents;
}

}  // namespace

BOOL OpenClipboard(HWND /*owner*/) {
    if (opened || !clipboardLock.try_lock()) return FALSE;
    opened = true;
    return TRUE;
}

BOOL CloseClipboard() {
    if (!opened) return FALSE;
    opened = false;
    clipboardLock.unlock();
    return TRUE;
}

BOOL EmptyClipboard() {
    if (!opened) return FALSE;
    for (const auto& [format, block] : Contents()) GlobalFree(block);
    Contents().clear();
    return TRUE;
}

HANDLE SetClipboardData(UINT format, HANDLE block) {
    if (!opened || block == nullptr) return nullptr;
    HANDLE& place = Contents()[format];
    if (place != nullptr) GlobalFree(place);
    place = block;
    return block;
}

HANDLE GetClipboardData(UINT format) {
    if (!opened) return nullptr;
    const auto found = Contents().find(format);
    return found == Contents().end() ? nullptr : found->second;
}
