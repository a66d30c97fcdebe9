// Version texts on the native host: the library's own, without memory, and from files that aren't what they seem.
#include <dlfcn.h>
#include <gtest/gtest.h>
#include <link.h>
#include <sys/mman.h>
#include <unistd.h>

#include <cstring>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <vector>

#include <morvl15/frame.h>
#include <morvl15/host_native.h>

#include "support/modules.h"
#include "support/worker.h"

namespace {

TEST(VersionNative, OfASharedLibraryThatTheProgramHoldsAsWell) {
    // The test program holds the library's objects; the library itself is a module of its own.
    void* library = dlopen((BesideTestProgram("../lib/") + "libmorvl15.so").c_str(), RTLD_NOW | RTLD_LOCAL);
    ASSERT_NE(library, nullptr) << dlerror();
    void* const address = dlsym(library, "VERGetVersionString");  // any address in a module names it
    const auto call = reinterpret_cast<int32_t (*)(HMODULE, char*)>(address);
    char text[64] = "";
    char program[64] = "";
    EXPECT_EQ(call(static_cast<HMODULE>(address), text), 1);
    EXPECT_EQ(call(nullptr, program), 1);
    EXPECT_STREQ(text, program);
}

TEST(VersionNative, EveryFailedAllocationGives0AndLeavesNothingBehind) {
    const LoadedModule module("version_latin.module");
    for (uint32_t n = 1;; ++n) {
        char text[64] = "untouched";
        HostFailAllocation(n);
        const int32_t result = VERGetBuildString(module.Handle(), text);
        const bool failed = HostAllocationFailed() != FALSE;
        HostFailAllocation(0);
        EXPECT_EQ(result, failed ? 0 : 1);
        EXPECT_STREQ(text, failed ? "untouched" : "2.0.1");
        if (!failed) break;
    }
}

class DamagedModule : public testing::Test {
  protected:
    DamagedModule() : file_(memfd_create("module", MFD_CLOEXEC)), path_("/proc/self/fd/" + std::to_string(file_)) {
        std::ifstream file(BesideTestProgram("version_unicode.module"), std::ios::binary);
        module_.assign(std::istreambuf_iterator<char>(file), {});
    }
    ~DamagedModule() override { close(file_); }

    // Reads the texts of a file of these bytes as the library does. Whatever comes out lies in the record.
    void Read(const std::string& bytes) {
        ASSERT_EQ(ftruncate(file_, static_cast<off_t>(bytes.size())), 0);
        ASSERT_EQ(pwrite(file_, bytes.data(), bytes.size(), 0), static_cast<ssize_t>(bytes.size()));
        DWORD handle = 1;
        std::vector<char> record(GetFileVersionInfoSizeA(path_.c_str(), &handle));
        if (record.empty()) return;
        ASSERT_TRUE(GetFileVersionInfoA(path_.c_str(), handle, static_cast<DWORD>(record.size()), record.data()));
        for (const char* key : {"\\StringFileInfo\\040904b0\\FileVersion", "\\stringfileinfo\\040904B0\\none", "\\"}) {
            void* text = nullptr;
            UINT length = 0;
            if (VerQueryValueA(record.data(), key, &text, &length) == FALSE) continue;
            const auto* begin = static_cast<const char*>(text);
            EXPECT_TRUE(begin >= record.data() && begin + length <= record.data() + record.size());
            EXPECT_EQ(std::strlen(begin) + 1, length);
        }
    }

    int file_;
    std::string path_;
    std::string module_;
};

TEST_F(DamagedModule, CutAtAnyLengthOrWithWrongBytesIsReadWithinItsBounds) {
    ASSERT_GT(module_.size(), 1000u);
    for (size_t size = 0; size < module_.size(); size += 1 + size / 8) Read(module_.substr(0, size));
    std::mt19937 random(20);
    ElfW(Ehdr) header = {};
    std::memcpy(&header, module_.data(), sizeof header);
    const size_t headers = header.e_shnum * sizeof(ElfW(Shdr));
    for (int round = 0; round < 2000; ++round) {
        std::string damaged = module_;
        if (round % 2 == 0) damaged[random() % sizeof header] = static_cast<char>(random());
        for (int i = 0; i < 3; ++i) damaged[header.e_shoff + random() % headers] = static_cast<char>(random());
        Read(damaged);
    }
}

TEST_F(DamagedModule, TextsWithoutTerminatorsEndInsideTheRecord) {
    const size_t at = module_.find(std::string("FileVersion") + '\0' + "1.2.3");
    ASSERT_NE(at, std::string::npos);
    for (size_t i = at; i < at + 40; ++i) {
        module_[i] = 'x';
        Read(module_);
    }
}

}  // namespace
