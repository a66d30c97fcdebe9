// Modules for tests: one that stands beside the test program, loaded for a scope.
#pragma once

#include <string>

#include <morvl15/host.h>

class LoadedModule {
  public:
    explicit LoadedModule(const std::string& name);
    ~LoadedModule();
    LoadedModule(const LoadedModule&) = delete;
    LoadedModule& operator=(const LoadedModule&) = delete;

    HMODULE Handle() const { return handle_; }

  private:
    HMODULE handle_ = nullptr;
    void* image_ = nullptr;
};
