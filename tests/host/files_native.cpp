// Files: what openers let each other do, reasons of failures, paths.
#include <gtest/gtest.h>

#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <climits>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include <morvl15/dialog.h>
#include <morvl15/host_native.h>

#include "variable.h"

namespace {

namespace fs = std::filesystem;

class Files : public testing::Test {
  protected:
    Files() {
        std::string name = fs::temp_directory_path() / "morvl15-files-XXXXXX";
        folder_ = fs::canonical(mkdtemp(name.data()));
        std::ofstream(Path("there")) << "contents";
    }
    ~Files() override { fs::remove_all(folder_); }

    std::string Path(const std::string& name) const { return folder_ + "/" + name; }
    static HANDLE Open(const std::string& path, DWORD access, DWORD share, DWORD disposition = OPEN_EXISTING) {
        return CreateFileA(path.c_str(), access, share, nullptr, disposition, FILE_ATTRIBUTE_NORMAL, nullptr);
    }

    std::string folder_;
};

// Whether a second opener may come in, by the rules that the platform tells.
bool MayComeIn(DWORD access, DWORD share, DWORD otherAccess, DWORD otherShare) {
    const auto allows = [](DWORD shared, DWORD used) {
        return ((used & GENERIC_READ) == 0 || (shared & FILE_SHARE_READ) != 0) &&
               ((used & GENERIC_WRITE) == 0 || (shared & FILE_SHARE_WRITE) != 0);
    };
    return access == 0 || otherAccess == 0 || (allows(otherShare, access) && allows(share, otherAccess));
}

TEST_F(Files, EveryPairOfOpeners) {
    constexpr DWORD kAccess[] = {0, GENERIC_READ, GENERIC_WRITE, GENERIC_READ | GENERIC_WRITE};
    for (const DWORD first : kAccess) {
        for (const DWORD second : kAccess) {
            for (DWORD share = 0; share < 16; ++share) {
                const HANDLE one = Open(Path("there"), first, share & 3);
                ASSERT_NE(one, INVALID_HANDLE_VALUE);
                const HANDLE two = Open(Path("there"), second, share >> 2);
                const bool comesIn = MayComeIn(second, share >> 2, first, share & 3);
                EXPECT_EQ(GetLastError(), comesIn ? ERROR_SUCCESS : ERROR_SHARING_VIOLATION);
                EXPECT_EQ(CloseHandle(two) != FALSE, comesIn) << first << " " << second << " " << share;
                CloseHandle(one);
                // What a refused opener noted is gone.
                EXPECT_TRUE(CloseHandle(Open(Path("there"), GENERIC_READ | GENERIC_WRITE, 0)));
            }
        }
    }
}

TEST_F(Files, Dispositions) {
    struct {
        DWORD disposition;
        DWORD errors[2];  // where there is no such file, and where there is one
        int sizes[2];     // in the end; below 0 for no file
    } const kRows[] = {
        {CREATE_NEW, {0, 80}, {0, 8}},   {CREATE_ALWAYS, {0, 183}, {0, 0}},    {OPEN_EXISTING, {2, 0}, {-1, 8}},
        {OPEN_ALWAYS, {0, 183}, {0, 8}}, {TRUNCATE_EXISTING, {2, 0}, {-1, 0}}, {9, {87, 87}, {-1, 8}},
    };
    for (const auto& c : kRows) {
        for (const bool exists : {false, true}) {
            SCOPED_TRACE(testing::Message() << c.disposition << " " << exists);
            fs::remove(Path("file"));
            if (exists) fs::copy_file(Path("there"), Path("file"));
            const HANDLE file = Open(Path("file"), GENERIC_READ, 3, c.disposition);
            EXPECT_EQ(GetLastError(), c.errors[exists]);
            EXPECT_EQ(CloseHandle(file) != FALSE, c.errors[exists] == 0 || c.errors[exists] == 183);
            EXPECT_EQ(fs::exists(Path("file")) ? static_cast<int>(fs::file_size(Path("file"))) : -1, c.sizes[exists]);
        }
    }
    // Emptying is writing: not while an opener forbids it; nor is the file deleted then.
    const HANDLE reader = Open(Path("there"), GENERIC_READ, FILE_SHARE_READ);
    EXPECT_EQ(Open(Path("there"), GENERIC_READ, 3, CREATE_ALWAYS), INVALID_HANDLE_VALUE);
    EXPECT_EQ(GetLastError(), ERROR_SHARING_VIOLATION);
    EXPECT_FALSE(DeleteFileA(Path("there").c_str()));
    EXPECT_EQ(GetLastError(), ERROR_SHARING_VIOLATION);
    EXPECT_EQ(GetFileSize(reader, nullptr), 8u);
    CloseHandle(reader);
}

TEST_F(Files, ReasonsOfFailures) {
    fs::create_directory(Path("folder"));
    fs::create_directory(Path("closed"));
    std::ofstream(Path("closed/file")) << "x";
    std::ofstream(Path("closed/secret")) << "x";
    chmod(Path("closed/secret").c_str(), 0);
    chmod(Path("closed").c_str(), 0500);
    chmod(folder_.c_str(), 0755);
    struct {
        std::string name;
        DWORD error;
        DWORD deleteError;
    } const kRows[] = {
        {"missing", 2, 2},
        {"missing/file", 3, 3},
        {"there/file", 3, 3},
        {"folder", 5, 5},
        {"closed/file", 0, 5},
        {"closed/secret", 5, 5},
        {std::string(300, 'n'), 206, 206},
    };
    // Rights don't hold for root: look as nobody does.
    const bool isRoot = geteuid() == 0;
    EXPECT_EQ(isRoot ? chown(Path("closed").c_str(), 65534, 65534) + seteuid(65534) : 0, 0);
    for (const auto& c : kRows) {
        SCOPED_TRACE(c.name);
        SetLastError(0);
        const HANDLE file = Open(Path(c.name), GENERIC_READ, 3);
        EXPECT_EQ(GetLastError(), c.error);
        EXPECT_EQ(CloseHandle(file) != FALSE, c.error == 0);
        EXPECT_FALSE(DeleteFileA(Path(c.name).c_str()));
        EXPECT_EQ(GetLastError(), c.deleteError);
    }
    EXPECT_EQ(isRoot ? seteuid(0) : 0, 0);
    chmod(Path("closed").c_str(), 0700);
    EXPECT_EQ(Open("", GENERIC_READ, 3), INVALID_HANDLE_VALUE);
    EXPECT_EQ(GetLastError(), ERROR_PATH_NOT_FOUND);
    EXPECT_FALSE(DeleteFileA(nullptr));
    EXPECT_EQ(GetLastError(), ERROR_PATH_NOT_FOUND);
    EXPECT_FALSE(CloseHandle(INVALID_HANDLE_VALUE));
    DWORD count = 0;
    EXPECT_FALSE(ReadFile(nullptr, folder_.data(), 1, &count, nullptr));
}

TEST_F(Files, DeletionIsShared) {
    const HANDLE file = Open(Path("there"), GENERIC_READ, 3 | FILE_SHARE_DELETE);
    EXPECT_TRUE(DeleteFileA(Path("there").c_str()));
    EXPECT_EQ(GetFileSize(file, nullptr), 8u);
    CloseHandle(file);
}

// ---- paths ------------------------------------------------------------------------------------------------------

class CurrentFolder {
  public:
    explicit CurrentFolder(const std::string& path) : before_(fs::current_path()) { fs::current_path(path); }
    ~CurrentFolder() { fs::current_path(before_); }
    CurrentFolder(const CurrentFolder&) = delete;
    CurrentFolder& operator=(const CurrentFolder&) = delete;

  private:
    fs::path before_;
};

TEST_F(Files, FullPaths) {
    fs::create_directories(Path("a/b"));
    fs::create_directory_symlink(Path("a/b"), Path("link"));
    const CurrentFolder here(folder_);
    const std::string cases[][2] = {
        {"file", Path("file")},
        {"./a//b/./c", Path("a/b/c")},
        {"a/../x", Path("x")},
        {"../../../../../../x", "/x"},
        {"/", "/"},
        {"", folder_},
        {"/x/y/../../../z", "/z"},
        {"missing/../x", Path("x")},
        {"link/../x", Path("link/../x")},
        {"link/../../x", Path("link/../../x")},
    };
    for (const auto& [path, full] : cases) {
        char buffer[PATH_MAX];
        ASSERT_NE(_fullpath(buffer, path.c_str(), sizeof buffer), nullptr);
        EXPECT_EQ(buffer, full);
        EXPECT_EQ(_fullpath(buffer, path.c_str(), full.size()), nullptr);  // no room for the terminator
        EXPECT_NE(_fullpath(buffer, path.c_str(), full.size() + 1), nullptr);
    }
}

TEST_F(Files, AreSearchedInOrder) {
    for (const char* name : {"first", "second", "current"}) fs::create_directory(Path(name));
    for (const char* name : {"second/tool", "second/both", "first/both", "current/both.txt", "current/here"}) {
        std::ofstream(Path(name)) << name;
    }
    const CurrentFolder here(Path("current"));
    const TestVariable folders("PATH", (Path("first") + ":" + Path("second")).c_str());
    const auto search = [](const char* path, const char* name, const char* extension) {
        char found[PATH_MAX] = {};
        char* part = nullptr;
        const DWORD length = SearchPathA(path, name, extension, sizeof found, found, &part);
        EXPECT_EQ(length, static_cast<DWORD>(lstrlenA(found)));
        EXPECT_EQ(length != 0 ? std::string(part) : "", fs::path(found).filename());
        return std::string(found);
    };
    EXPECT_EQ(search(nullptr, "tool", nullptr), Path("second/tool"));
    EXPECT_EQ(search(nullptr, "both", nullptr), Path("first/both"));
    EXPECT_EQ(search(nullptr, "both", ".txt"), Path("current/both.txt"));
    EXPECT_EQ(search(nullptr, "here", nullptr), Path("current/here"));
    EXPECT_EQ(search(Path("second").c_str(), "both", nullptr), Path("second/both"));
    EXPECT_EQ(search(nullptr, "./both", nullptr), "");
    EXPECT_EQ(GetLastError(), ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(search(nullptr, "../first/both", nullptr), Path("first/both"));
    EXPECT_EQ(search(nullptr, "host_tests", nullptr), fs::read_symlink("/proc/self/exe").string());
    EXPECT_EQ(search(nullptr, "", nullptr), "");
    EXPECT_EQ(GetLastError(), ERROR_INVALID_PARAMETER);
    char small[4] = "abc";
    EXPECT_EQ(SearchPathA(nullptr, "here", nullptr, 4, small, nullptr), Path("current/here").size() + 1);
    EXPECT_STREQ(small, "abc");
}

// Names that just fit the library's 520 bytes, and those that don't.
TEST_F(Files, LongPaths) {
    std::string folder = folder_;
    while (folder.size() < 400) {
        folder += "/" + std::string(std::min<size_t>(100, 410 - folder.size()), 'd');
    }
    fs::create_directories(folder);
    for (const size_t length : {size_t{519}, size_t{520}}) {
        const std::string name = folder + "/" + std::string(length - folder.size() - 1, 'n');
        const bool fits = length == 519;
        std::vector<char> path(520 + 1, '\x7F');
        const auto creates = [&](char* fullPath) {
            const int32_t file = CBOpenFile(name.c_str(), fullPath, CBOPEN_CREATE);
            return CloseHandle(reinterpret_cast<HANDLE>(static_cast<intptr_t>(file))) != FALSE;
        };
        EXPECT_TRUE(creates(nullptr));  // the name itself has no limit here
        EXPECT_EQ(creates(path.data()) ? path.data() : "", fits ? name : "");
        SetLastError(ERROR_SUCCESS);
        EXPECT_EQ(CBOpenFile(name.c_str(), path.data(), CBOPEN_EXIST), fits ? 0 : -1);
        EXPECT_EQ(GetLastError(), fits ? ERROR_SUCCESS : ERROR_FILENAME_EXCED_RANGE);
        EXPECT_EQ(path[520], '\x7F');
    }
}

}  // namespace
