// The counted protocol of the global lock.
#pragma once

#include <morvl15/frame.h>

// Enters the lock's section, then counts the level; does nothing where there is no lock (gpCRSECTMain is null).
void CRTakeMainLock();

// Uncounts the level, then leaves the section.
void CRGiveMainLock();

// Holds the global lock for a scope.
class CRMainLock {
  public:
    CRMainLock() { CRTakeMainLock(); }
    ~CRMainLock() { CRGiveMainLock(); }
    CRMainLock(const CRMainLock&) = delete;
    CRMainLock& operator=(const CRMainLock&) = delete;
};
