// Handles: small numbers that find their objects in a table, so that one that was never handed out, or was closed, is
// told from a good one.
#include "handles.h"

#include <array>
#include <atomic>

namespace {

constexpr size_t kHandles = 4096;
constexpr uintptr_t kHandleStep = 4;  // as on the platform, the two low bits of a handle are 0 and no handle is 0

std::array<std::atomic<KernelObject*>, kHandles> handles;

HANDLE HandleOf(size_t index) {
    return reinterpret_cast<HANDLE>((index + 1) * kHandleStep);
}

// The table's entry of a handle, or null for what can't be one.
std::atomic<KernelObject*>* EntryOf(HANDLE handle) {
    const auto value = reinterpret_cast<uintptr_t>(handle);
    const uintptr_t index = value / kHandleStep - 1;
    return value % kHandleStep == 0 && index < kHandles ? &handles[index] : nullptr;
}

}  // namespace

HANDLE HostOpenHandle(std::unique_ptr<KernelObject> object) {
    for (size_t index = 0; index < kHandles; ++index) {
        KernelObject* expected = nullptr;
        if (!handles[index].compare_exchange_strong(expected, object.get(), std::memory_order_acq_rel)) continue;
        static_cast<void>(object.release());
        return HandleOf(index);
    }
    SetLastError(ERROR_TOO_MANY_OPEN_FILES);
    return nullptr;
}

KernelObject* HostFindObject(HANDLE handle, ObjectKind kind) {
    const std::atomic<KernelObject*>* entry = EntryOf(handle);
    KernelObject* object = entry != nullptr ? entry->load(std::memory_order_acquire) : nullptr;
    if (object != nullptr && object->Kind() == kind) return object;
    SetLastError(ERROR_INVALID_HANDLE);
    return nullptr;
}

BOOL CloseHandle(HANDLE handle) {
    std::atomic<KernelObject*>* entry = EntryOf(handle);
    const std::unique_ptr<KernelObject> object(entry != nullptr ? entry->exchange(nullptr, std::memory_order_acq_rel)
                                                                : nullptr);
    if (object != nullptr) return TRUE;
    SetLastError(ERROR_INVALID_HANDLE);
    return FALSE;
}
