// The named mutex of the shared heap, and the rights of the named objects.
#pragma once

#include <morvl15/host.h>

// Security attributes that let every user of the machine in, for as long as the object lives. When they can't be had,
// the objects are made without.
class MemOpenSecurity {
  public:
    MemOpenSecurity();
    ~MemOpenSecurity();
    MemOpenSecurity(const MemOpenSecurity&) = delete;
    MemOpenSecurity& operator=(const MemOpenSecurity&) = delete;

    LPSECURITY_ATTRIBUTES Attributes() { return descriptor_ != nullptr ? &attributes_ : nullptr; }

  private:
    void* descriptor_;
    SECURITY_ATTRIBUTES attributes_ = {};
};
