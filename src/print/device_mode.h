// Device modes as drivers give them.
#pragma once

#include <morvl15/host.h>

// A printer's own device mode, in a movable block, unlocked. A driver that doesn't give it is replaced by the printer's
// description; where that has none either, the block is all zero.
// Result: null when there is no memory.
HGLOBAL PrintDefaultDevMode(HANDLE printer, const char* device);

// The size of the block that a printer's device mode needs.
size_t PrintDevModeSize(HANDLE printer, const char* device);

// Opens a printer by name, for reading; null on failure.
HANDLE PrintOpen(const char* device);

// A new movable block with the bytes of another, unlocked; null for null and when there is no memory.
HGLOBAL PrintCopyBlock(HGLOBAL block);

// A movable block, locked for a scope. Null gives null.
template <class Record>
class PrintLocked {
  public:
    explicit PrintLocked(HGLOBAL block) : block_(block), record_(block != nullptr ? GlobalLock(block) : nullptr) {}
    ~PrintLocked() {
        if (record_ != nullptr) GlobalUnlock(block_);
    }
    PrintLocked(const PrintLocked&) = delete;
    PrintLocked& operator=(const PrintLocked&) = delete;

    Record* get() const { return static_cast<Record*>(record_); }
    Record* operator->() const { return get(); }

  private:
    HGLOBAL block_;
    void* record_;
};
