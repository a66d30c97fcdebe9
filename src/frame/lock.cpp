// The global lock: its construction, the counted protocol, and the operations by which the application gives it up
// round a blocking call.
#include "lock.h"

#include <cstdint>

CRSect gCRMainSect;
CRSect* gpCRSECTMain = reinterpret_cast<CRSect*>(UINTPTR_MAX);

namespace {

// Made before every other static object and before the notification of process attach; deleted after them.
struct MainLockLife {
    MainLockLife() {
        InitializeCriticalSection(&gCRMainSect.section);
        gCRMainSect.lockCount = 0;
        gpCRSECTMain = &gCRMainSect;
    }
    ~MainLockLife() { DeleteCriticalSection(&gCRMainSect.section); }
    MainLockLife(const MainLockLife&) = delete;
    MainLockLife& operator=(const MainLockLife&) = delete;
};

__attribute__((init_priority(101))) const MainLockLife mainLockLife;

bool IsNoLock(const CRSect* lock) {
    return lock == nullptr || reinterpret_cast<uintptr_t>(lock) == UINTPTR_MAX;
}

}  // namespace

int32_t MORVL_CALL CR_LockCount(CRSect* lock) {
    EnterCriticalSection(&lock->section);
    const int32_t count = lock->lockCount;
    LeaveCriticalSection(&lock->section);
    return count;
}

int32_t MORVL_CALL CR_Unwind(CRSect* lock) {
    if (IsNoLock(lock)) return 0;
    EnterCriticalSection(&lock->section);
    const int32_t count = lock->lockCount;
    lock->lockCount = 0;
    for (int32_t level = 0; level < count + 1; ++level) LeaveCriticalSection(&lock->section);
    return count;
}

void MORVL_CALL CR_Rewind(CRSect* lock, int32_t count) {
    for (int32_t level = 0; level < count; ++level) {
        EnterCriticalSection(&lock->section);
        ++lock->lockCount;
    }
}
