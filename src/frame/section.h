// Locks of the library's own, beside the global lock that it shares with the application.
#pragma once

#include <morvl15/host.h>

// A recursive lock for an object of static storage. Give it CR_EARLY, so that it stands before the library
// is attached to the process.
class CRSection {
  public:
    CRSection() { InitializeCriticalSection(&section_); }
    ~CRSection() { DeleteCriticalSection(&section_); }
    CRSection(const CRSection&) = delete;
    CRSection& operator=(const CRSection&) = delete;

    void Enter() { EnterCriticalSection(&section_); }
    void Leave() { LeaveCriticalSection(&section_); }

  private:
    CRITICAL_SECTION section_;
};

// Holds a section for a scope.
class CRSectionHold {
  public:
    explicit CRSectionHold(CRSection& section) : section_(section) { section_.Enter(); }
    ~CRSectionHold() { section_.Leave(); }
    CRSectionHold(const CRSectionHold&) = delete;
    CRSectionHold& operator=(const CRSectionHold&) = delete;

  private:
    CRSection& section_;
};

// Construction in the first round, before static objects of the usual kind.
#define CR_EARLY __attribute__((init_priority(101)))
