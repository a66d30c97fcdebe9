// The main program of every test on Windows. It does for the library's objects what the loader does for the DLL, and
// looks at the end whether the user profile is as it was.
#include <gtest/gtest.h>

#include <string>

#include "frame/entry.h"

namespace {

// The loader calls this of a program as it calls DllMain of a library, on the thread concerned. Process attach it tells
// before static construction, which is too early: main passes that on.
void WINAPI NotifyThread(PVOID /*module*/, DWORD reason, PVOID reserved) {
    if (reason == DLL_THREAD_ATTACH || reason == DLL_THREAD_DETACH) {
        DllMain(GetModuleHandleA(nullptr), reason, reserved);
    }
}
extern "C" __attribute__((section(".CRT$XLY"), used)) const PIMAGE_TLS_CALLBACK notifyThread = NotifyThread;

class ProfileCheck : public testing::Environment {
    void SetUp() override { before_ = Contents(); }
    void TearDown() override { EXPECT_EQ(Contents(), before_) << "the user profile is not as it was"; }

    static std::string Contents() {
        std::string all;
        for (const char* section : {"intl", "MORVANEL", "windows"}) {
            char keys[16384];
            all.append(keys, GetProfileSectionA(section, keys, sizeof keys)).append("\n");
        }
        return all;
    }

    std::string before_;
};

}  // namespace

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    testing::AddGlobalTestEnvironment(new ProfileCheck);
    DllMain(GetModuleHandleA(nullptr), DLL_PROCESS_ATTACH, nullptr);
    const int result = RUN_ALL_TESTS();
    DllMain(GetModuleHandleA(nullptr), DLL_PROCESS_DETACH, nullptr);
    return result;
}
