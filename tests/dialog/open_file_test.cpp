// The file open check.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <random>
#include <string>

#include <morvl15/dialog.h>

#include "support/locale.h"
#include "support/worker.h"

namespace {

namespace fs = std::filesystem;

constexpr uint32_t kBadFlags[] = {
    0x0004,     0x0008, 0x0080,          0x0400,          0x0800,          0x2000, 0x8000,
    0x80000000, 0x5204, 0x4000 + 0x1000, 0x4000 + 0x0200, 0x0200 + 0x1000, 0x5200, 0x4000 + 0x1000 + 0x0100};

HANDLE HandleOf(int32_t result) {
    return reinterpret_cast<HANDLE>(static_cast<intptr_t>(result));
}

class OpenFile : public testing::Test {
  protected:
    OpenFile() {
        fs::create_directories(folder_);
        std::ofstream(Path("there")) << "contents";
    }
    ~OpenFile() override { fs::remove_all(folder_); }

    std::string Path(const std::string& name) const { return (folder_ / name).string(); }

    // Opens and closes. 0 for a handle, -1 for a failure, as the call says for the rest.
    int32_t Try(const std::string& name, uint32_t flags) {
        std::fill(std::begin(path_), std::end(path_), '\x7F');
        SetLastError(0);
        const int32_t result = CBOpenFile(name.c_str(), path_, flags);
        error_ = GetLastError();
        if (result != -1 && result != 0) CloseHandle(HandleOf(result));
        return result;
    }
    bool PathIsUntouched() const { return path_[0] == '\x7F'; }
    void ExpectFailure(const std::string& name, uint32_t flags, DWORD error) {
        EXPECT_EQ(Try(name, flags), -1) << name;
        EXPECT_EQ(error_, error) << name;
    }

    fs::path folder_ = fs::temp_directory_path() / ("morvl15-open-" + std::to_string(std::random_device{}()));
    char path_[520] = {};
    DWORD error_ = 0;
};

TEST_F(OpenFile, RefusesFlagsBeforeAnythingElse) {
    for (const uint32_t flags : kBadFlags) {
        EXPECT_EQ(Try(Path("there"), flags), -1) << std::hex << flags;
        EXPECT_TRUE(PathIsUntouched());
    }
    EXPECT_EQ(fs::file_size(Path("there")), 8u);
}

TEST_F(OpenFile, ParsesOnly) {
    EXPECT_EQ(Try(Path("missing"), CBOPEN_PARSE), 0);
    EXPECT_EQ(Try(Path("there"), CBOPEN_PARSE | CBOPEN_DELETE), 0);
    EXPECT_EQ(Try(Path("new"), CBOPEN_PARSE | CBOPEN_CREATE), 0);
    EXPECT_TRUE(PathIsUntouched());
    EXPECT_TRUE(fs::exists(Path("there")));
    EXPECT_FALSE(fs::exists(Path("new")));
}

TEST_F(OpenFile, ChecksDeletesAndCreates) {
    EXPECT_EQ(Try(Path("there"), CBOPEN_EXIST), 0);
    EXPECT_EQ(path_, Path("there"));
    ExpectFailure(Path("missing"), CBOPEN_EXIST, 2);
    EXPECT_TRUE(PathIsUntouched());
    ExpectFailure(Path("missing"), 0, 2);
    EXPECT_EQ(CBOpenFile(nullptr, nullptr, CBOPEN_EXIST), -1);
    EXPECT_EQ(GetLastError(), 2u);

    EXPECT_GT(Try(Path("there"), 0), 0);
    EXPECT_EQ(path_, Path("there"));
    EXPECT_EQ(fs::file_size(Path("there")), 8u);
    EXPECT_GT(Try(Path("there"), CBOPEN_CREATE | CBOPEN_READ_WRITE), 0);
    EXPECT_EQ(fs::file_size(Path("there")), 0u);
    EXPECT_GT(Try(Path("new"), CBOPEN_CREATE | 0x0001), 0);
    EXPECT_EQ(path_, Path("new"));

    EXPECT_EQ(Try(Path("new"), CBOPEN_DELETE), 0);
    EXPECT_FALSE(fs::exists(Path("new")));
    ExpectFailure(Path("new"), CBOPEN_DELETE, 2);
    ExpectFailure(Path("no folder/file"), CBOPEN_DELETE, 3);
    ExpectFailure(folder_.string(), 0, 5);  // a folder is found, and can't be opened
    EXPECT_EQ(Try(Path(""), CBOPEN_DELETE), -1);
}

TEST_F(OpenFile, LooksInTheCurrentFolder) {
    const fs::path before = fs::current_path();
    fs::current_path(folder_);
    EXPECT_EQ(Try("there", CBOPEN_EXIST), 0);
    EXPECT_TRUE(fs::equivalent(path_, Path("there"))) << path_;
    EXPECT_GT(Try("./made", CBOPEN_CREATE), 0);
    EXPECT_TRUE(fs::path(path_).is_absolute()) << path_;
    const int32_t file = CBOpenFile("plain", nullptr, CBOPEN_CREATE);
    EXPECT_GT(file, 0);
    CloseHandle(HandleOf(file));
    fs::current_path(before);
    EXPECT_TRUE(fs::exists(Path("made")));
    EXPECT_TRUE(fs::exists(Path("plain")));
}

TEST_F(OpenFile, GivesTheAccessAskedFor) {
    for (const uint32_t flags : {0u, 1u, 2u, 3u}) {
        const int32_t result = CBOpenFile(Path("there").c_str(), nullptr, flags);
        ASSERT_GT(result, 0);
        const HANDLE file = HandleOf(result);
        char byte = 'C';
        DWORD count = 0;
        EXPECT_EQ(WriteFile(file, &byte, 1, &count, nullptr) != FALSE, flags != 0) << flags;
        EXPECT_EQ(SetFilePointer(file, 0, nullptr, FILE_BEGIN), 0u);
        EXPECT_TRUE(ReadFile(file, &byte, 1, &count, nullptr));
        EXPECT_EQ(count, 1u);
        EXPECT_EQ(GetFileSize(file, nullptr), 8u);
        CloseHandle(file);
    }
}

// ---- sharing ----------------------------------------------------------------------------------------------------

struct ShareCase {
    uint32_t first, second;
    bool goes;
};

constexpr ShareCase kShares[] = {
    {0x0003, 0x0003, true},  {0x0000, 0x0040, true},   // by default everything is shared
    {0x0010, 0x0000, false}, {0x0000, 0x0010, false},  // nothing is, nor can be while another has it
    {0x0030, 0x0020, false}, {0x0050, 0x0000, false},  // "nothing" goes before "reading"
    {0x0020, 0x0020, true},  {0x0020, 0x0000, true},
    {0x0020, 0x0003, false}, {0x0003, 0x0020, false},  // writing isn't shared, and is under way
    {0x0020, 0x1003, false},
};

TEST_F(OpenFile, SharesBetweenProcesses) {
    for (const ShareCase& c : kShares) {
        char flags[32];
        wsprintfA(flags, "open %x ", c.first);
        SCOPED_TRACE(flags + std::to_string(c.second));
        Worker worker;
        ASSERT_EQ(worker.Ask(flags + Path("there")), "opened 0");
        EXPECT_EQ(Try(Path("there"), c.second) > 0, c.goes);
        EXPECT_EQ(error_, c.goes ? 0u : 32u);
        EXPECT_EQ(Try(Path("there"), CBOPEN_EXIST), 0);
        ExpectFailure(Path("there"), CBOPEN_DELETE, 32);
        EXPECT_EQ(fs::file_size(Path("there")), 8u);
        worker.Kill();  // what it forbade goes with it
        EXPECT_GT(Try(Path("there"), 0x0013), 0);
    }
}

using OpenFileJapanese = OpenFile;

TEST_F(OpenFileJapanese, TakesNamesInTheCodePage) {
    const TestLanguage language(kJapanese);
    const std::string name = Path("n") + "\x83\x5C\x95\x5C.txt";  // trail bytes 5C
    for (const uint32_t flags : {CBOPEN_CREATE, CBOPEN_EXIST}) {
        EXPECT_GE(Try(name, flags), 0);
        EXPECT_EQ(path_, name);
    }
    EXPECT_EQ(Try(name, CBOPEN_DELETE), 0);
    ExpectFailure(name, CBOPEN_EXIST, 2);
}

}  // namespace
