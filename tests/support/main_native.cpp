// The main program of every test on the native host: English, a profile file and names of kernel objects of its own,
// and after each test a look whether a block was left behind.
#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <string>

#include <morvl15/host_native.h>
#include <morvl15/intl.h>

#include "support/profile_native.h"

namespace {

std::string profilePath;

class BlockCheck : public testing::EmptyTestEventListener {
    void OnTestStart(const testing::TestInfo& /*info*/) override { blocksBefore_ = HostLiveBlocks(); }
    void OnTestEnd(const testing::TestInfo& info) override {
        EXPECT_EQ(HostLiveBlocks(), blocksBefore_) << info.name() << " leaves blocks behind";
    }

    int64_t blocksBefore_ = 0;
};

}  // namespace

const char* TestProfilePath() {
    return profilePath.c_str();
}

// Tests give back mutexes that they don't own, and look at the answer; the thread sanitizer would take that for a
// mistake.
extern "C" const char* __tsan_default_suppressions() {
    return "mutex:ReleaseMutex";
}

// Fontconfig loses a few bytes while it reads its configuration, once a process.
extern "C" const char* __lsan_default_suppressions() {
    return "leak:libfontconfig";
}

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    std::string folder = "/tmp/morvl15-test-XXXXXX";
    if (mkdtemp(folder.data()) == nullptr) {
        std::perror("a folder for the profile");
        return 1;
    }
    profilePath = folder + "/profile.ini";
    HostSetProfilePath(TestProfilePath());
    setenv("MORVL15_SESSION", folder.c_str(), 1);
    HostSetLanguages(0x0409, 0x0409);
    IntlInit();
    HostCountBlocks(TRUE);
    testing::UnitTest::GetInstance()->listeners().Append(new BlockCheck);
    const int result = RUN_ALL_TESTS();
    HostCountBlocks(FALSE);
    std::remove(TestProfilePath());
    std::remove(folder.c_str());
    return result;
}
