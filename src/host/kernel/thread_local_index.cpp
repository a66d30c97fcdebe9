// Thread-local indexes, and the notification of modules at the end of a thread that has used one.
#include <pthread.h>

#include <array>
#include <atomic>
#include <memory>
#include <new>

#include <morvl15/host_native.h>

#include "modules.h"

namespace {

constexpr DWORD kIndexes = 64;

using ThreadValues = std::array<LPVOID, kIndexes>;

std::array<std::atomic<bool>, kIndexes> indexTaken;
thread_local ThreadValues* threadValues = nullptr;

// The routine of a pthread key runs while the thread's own variables still live, which a destructor of theirs would
// not promise to the modules it calls.
void EndThread(void* values) {
    HostNotifyThreadDetach();
    threadValues = nullptr;
    delete static_cast<ThreadValues*>(values);
}

pthread_key_t EndOfThreadKey() {
    static const pthread_key_t key = [] {
        pthread_key_t made{};
        pthread_key_create(&made, EndThread);
        return made;
    }();
    return key;
}

ThreadValues* ValuesOfThread() {
    if (threadValues != nullptr) return threadValues;
    std::unique_ptr<ThreadValues> values(new (std::nothrow) ThreadValues{});
    if (values == nullptr || pthread_setspecific(EndOfThreadKey(), values.get()) != 0) return nullptr;
    threadValues = values.release();
    return threadValues;
}

bool IsTaken(DWORD index) {
    return index < kIndexes && indexTaken[index].load(std::memory_order_acquire);
}

}  // namespace

DWORD TlsAlloc() {
    for (DWORD index = 0; index < kIndexes; ++index) {
        if (!indexTaken[index].exchange(true, std::memory_order_acq_rel)) return index;
    }
    return TLS_OUT_OF_INDEXES;
}

BOOL TlsFree(DWORD index) {
    if (!IsTaken(index)) return FALSE;
    if (threadValues != nullptr) (*threadValues)[index] = nullptr;
    indexTaken[index].store(false, std::memory_order_release);
    return TRUE;
}

LPVOID TlsGetValue(DWORD index) {
    if (index >= kIndexes || threadValues == nullptr) return nullptr;
    return (*threadValues)[index];
}

BOOL TlsSetValue(DWORD index, LPVOID value) {
    if (!IsTaken(index)) return FALSE;
    ThreadValues* values = ValuesOfThread();
    if (values == nullptr) {
        SetLastError(ERROR_NOT_ENOUGH_MEMORY);
        return FALSE;
    }
    (*values)[index] = value;
    return TRUE;
}
