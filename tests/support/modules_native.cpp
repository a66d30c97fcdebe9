#include "support/modules.h"

#include <dlfcn.h>

#include <gtest/gtest.h>

#include "support/worker.h"

LoadedModule::LoadedModule(const std::string& name) {
    image_ = dlopen(BesideTestProgram(name).c_str(), RTLD_NOW | RTLD_LOCAL);
    EXPECT_NE(image_, nullptr) << dlerror();
    if (image_ != nullptr) handle_ = static_cast<HMODULE>(dlsym(image_, "testModule"));
}

LoadedModule::~LoadedModule() {
    if (image_ != nullptr) dlclose(image_);
}
