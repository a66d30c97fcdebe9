// The main program of every test on Windows. It does for the library's objects what the loader does for the DLL, and
// looks after each test whether the user profile is as it was.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <iterator>
#include <set>
#include <string>
#include <vector>

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

class ProfileCheck : public testing::EmptyTestEventListener {
    void OnTestStart(const testing::TestInfo& /*info*/) override { before_ = Contents(); }
    void OnTestEnd(const testing::TestInfo& info) override {
        const std::set<std::string> after = Contents();
        std::vector<std::string> changed;
        std::set_symmetric_difference(before_.begin(), before_.end(), after.begin(), after.end(),
                                      std::back_inserter(changed));
        EXPECT_EQ(changed, std::vector<std::string>()) << info.name() << " leaves the user profile changed";
    }

    // What the sections that tests write to hold. Each value is asked for by its name: Wine's whole sections have scraps of
    // memory between the lines of some languages. The names have no case, and an older spelling may come back as a newer
    // one.
    static std::set<std::string> Contents() {
        std::set<std::string> lines;
        for (const std::string section : {"intl", "MORVANEL", "windows"}) {
            char names[16384];
            const char* const end = names + GetProfileStringA(section.c_str(), nullptr, "", names, sizeof names);
            for (char* name = names; name < end; name += std::strlen(name) + 1) {
                char value[1024];
                GetProfileStringA(section.c_str(), name, "", value, sizeof value);
                CharLowerA(name);
                lines.insert(section + ": " + name + "=" + value);
            }
        }
        return lines;
    }

    std::set<std::string> before_;
};

}  // namespace

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    testing::UnitTest::GetInstance()->listeners().Append(new ProfileCheck);
    DllMain(GetModuleHandleA(nullptr), DLL_PROCESS_ATTACH, nullptr);
    const int result = RUN_ALL_TESTS();
    DllMain(GetModuleHandleA(nullptr), DLL_PROCESS_DETACH, nullptr);
    return result;
}
