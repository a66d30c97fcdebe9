#include "support/modules.h"

#include <gtest/gtest.h>

#include "support/worker.h"

LoadedModule::LoadedModule(const std::string& name) {
    handle_ = LoadLibraryA(BesideTestProgram(name).c_str());
    EXPECT_NE(handle_, nullptr) << name;
}

LoadedModule::~LoadedModule() {
    if (handle_ != nullptr) FreeLibrary(handle_);
}
