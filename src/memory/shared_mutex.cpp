// The mutex that serialises all work on the shared heap, machine-wide.
#include "shared_mutex.h"

#include <atomic>

#include <morvl15/memory.h>

#include "../frame/lock.h"

namespace {

constexpr char kMutexName[] = "MORVEL_SHARED_MEM_MUTEX";

// Made at the first use, under the global lock, and kept until the process ends.
std::atomic<HANDLE> gMemMutex{nullptr};

[[gnu::noinline]] HANDLE MemCreateMutex() {
    const CRMainLock lock;
    HANDLE mutex = gMemMutex.load(std::memory_order_relaxed);
    if (mutex != nullptr) return mutex;
    MemOpenSecurity security;
    mutex = CreateMutexA(security.Attributes(), FALSE, kMutexName);
    gMemMutex.store(mutex, std::memory_order_release);
    return mutex;
}

bool MemDescribeOpenSecurity(void* descriptor) {
    return InitializeSecurityDescriptor(descriptor, SECURITY_DESCRIPTOR_REVISION) != FALSE &&
           SetSecurityDescriptorDacl(descriptor, TRUE, nullptr, FALSE) != FALSE;
}

}  // namespace

MemOpenSecurity::MemOpenSecurity() : descriptor_(MemAlloc(SECURITY_DESCRIPTOR_MIN_LENGTH)) {
    if (descriptor_ == nullptr) return;
    if (!MemDescribeOpenSecurity(descriptor_)) {
        MemFree(descriptor_);
        descriptor_ = nullptr;
    }
    attributes_.nLength = sizeof attributes_;
    attributes_.lpSecurityDescriptor = descriptor_;
    attributes_.bInheritHandle = TRUE;
}

MemOpenSecurity::~MemOpenSecurity() {
    MemFree(descriptor_);
}

// The wait happens outside the global lock. A mutex whose owner died is owned all the same, and the heap is used in the
// state in which it was left.
int32_t MORVL_CALL MemAcquireMutex() {
    HANDLE mutex = gMemMutex.load(std::memory_order_acquire);
    if (mutex == nullptr) mutex = MemCreateMutex();
    if (mutex == nullptr) return 0;
    const DWORD outcome = WaitForSingleObject(mutex, INFINITE);
    return outcome == WAIT_OBJECT_0 || outcome == WAIT_ABANDONED ? 1 : 0;
}

int32_t MORVL_CALL MemReleaseMutex() {
    const HANDLE mutex = gMemMutex.load(std::memory_order_acquire);
    return mutex != nullptr && ReleaseMutex(mutex) != FALSE ? 1 : 0;
}
