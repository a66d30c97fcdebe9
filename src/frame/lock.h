// The counted protocol of the global lock.
#pragma once

#include <morvl15/frame.h>

// Enters the lock's section, then counts the level; does nothing where there is no lock (gpCRSECTMain is null).
inline void CRTakeMainLock() {
    CRSect* lock = gpCRSECTMain;
    if (lock == nullptr) return;
    EnterCriticalSection(&lock->section);
    ++lock->lockCount;
}

// Uncounts the level, then leaves the section.
inline void CRGiveMainLock() {
    CRSect* lock = gpCRSECTMain;
    if (lock == nullptr) return;
    --lock->lockCount;
    LeaveCriticalSection(&lock->section);
}

// Holds the global lock for a scope.
class CRMainLock {
  public:
    CRMainLock() { CRTakeMainLock(); }
    ~CRMainLock() { CRGiveMainLock(); }
    CRMainLock(const CRMainLock&) = delete;
    CRMainLock& operator=(const CRMainLock&) = delete;
};
