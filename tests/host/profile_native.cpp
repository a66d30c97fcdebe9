// The user profile: what a file says, how it is changed, who may change it at the same time.
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <atomic>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <thread>

#include <morvl15/host_native.h>

#include "support/locale.h"
#include "support/profile_native.h"

namespace {

namespace fs = std::filesystem;

// A folder of its own for each test, and the profile in it.
class Profile : public testing::Test {
  protected:
    void SetUp() override {
        std::string name = fs::temp_directory_path() / "morvl15-profile-XXXXXX";
        ASSERT_NE(mkdtemp(name.data()), nullptr);
        folder_ = name;
        file_ = folder_ / "profile.ini";
        HostSetProfilePath(file_.c_str());
    }
    void TearDown() override {
        HostSetProfilePath(TestProfilePath());
        fs::remove_all(folder_);
    }

    void PutFile(const std::string& text) const { std::ofstream(file_, std::ios::binary) << text; }
    std::string FileText() const {
        std::ostringstream text;
        text << std::ifstream(file_, std::ios::binary).rdbuf();
        return text.str();
    }
    size_t FilesInFolder() const {
        return static_cast<size_t>(std::distance(fs::directory_iterator(folder_), fs::directory_iterator()));
    }

    fs::path folder_;
    fs::path file_;
};

std::string Value(const char* section, const char* key, const char* defaultText = "(default)") {
    char buffer[256];
    const DWORD length = GetProfileStringA(section, key, defaultText, buffer, sizeof buffer);
    EXPECT_EQ(buffer[length], 0);
    return std::string(buffer, length);
}

TEST_F(Profile, ValuesAsTheFileGivesThem) {
    PutFile(
        "lost=before any section\n"
        "; comment=1\n"
        "[intl]\n"
        "sCurrency=DM\n"
        "  sThousand \t=  .  \r\n"
        "sDate='  / '\n"
        "sTime=\":\"\n"
        "mixed=\"x'\n"
        "quote=\"\n"
        "empty=\n"
        "two=\"\"\n"
        "equals=a=b;c\n"
        "scurrency=second\n"
        "no equals sign\n"
        ";hidden=1\n"
        "\n"
        "[ Other Section ] trailing\n"
        "a[b]=c\n"
        "[INTL]\n"
        "late=1\n"
        "[unclosed\n"
        "last=no line end");
    struct {
        int line;
        const char* section;
        const char* key;
        const char* want;
    } const kRows[] = {
        {__LINE__, "intl", "sCurrency", "DM"},  // the first of two
        {__LINE__, "INTL", "SCURRENCY", "DM"},
        {__LINE__, " intl ", "\tsCurrency ", "DM"},
        {__LINE__, "intl", "sThousand", "."},
        {__LINE__, "intl", "sDate", "  / "},
        {__LINE__, "intl", "sTime", ":"},
        {__LINE__, "intl", "mixed", "\"x'"},
        {__LINE__, "intl", "quote", "\""},
        {__LINE__, "intl", "empty", ""},
        {__LINE__, "intl", "two", ""},
        {__LINE__, "intl", "equals", "a=b;c"},
        {__LINE__, "intl", "no equals sign", "(default)"},
        {__LINE__, "intl", ";hidden", "(default)"},
        {__LINE__, "intl", "late", "(default)"},  // the first section of a name counts
        {__LINE__, "other section", "A[B]", "c"},
        {__LINE__, "unclosed", "last", "(default)"},
        {__LINE__, "", "lost", "(default)"},
        {__LINE__, "nowhere", "sCurrency", "(default)"},
    };
    for (const auto& c : kRows) {
        testing::ScopedTrace row(__FILE__, c.line, c.key);
        EXPECT_EQ(Value(c.section, c.key), c.want);
    }
}

TEST_F(Profile, TextIsCutToTheBuffer) {
    PutFile("[s]\nk=\"abc\"\n");
    for (DWORD size = 0; size <= 6; ++size) {
        char buffer[8] = "#######";
        const std::string want = std::string("abc").substr(0, size > 0 ? size - 1 : 0);
        EXPECT_EQ(GetProfileStringA("s", "k", "", buffer, size), want.size());
        if (size > 0) {
            EXPECT_EQ(buffer, want);
        }
        EXPECT_EQ(buffer[size], '#') << size;
    }
    EXPECT_EQ(GetProfileStringA("s", "k", "", nullptr, 8), 0u);
}

TEST_F(Profile, TheDefaultStandsForWhatIsNotThere) {
    PutFile("[s]\n");
    EXPECT_EQ(Value("s", "k", " a b  "), " a b");
    EXPECT_EQ(Value("s", "k", "'q'"), "'q'");
    EXPECT_EQ(Value("s", "k", nullptr), "");
    EXPECT_EQ(Value("s", nullptr, "none"), "none");
    EXPECT_EQ(Value("t", nullptr, "none"), "none");
}

TEST_F(Profile, ListsSectionsAndKeys) {
    PutFile("[one]\nA=1\n;c=2\njunk\nB=\n[]\nx=1\n[two]\n[three]\n");
    EXPECT_EQ(Value(nullptr, nullptr), std::string("one\0two\0three\0", 14));
    EXPECT_EQ(Value(nullptr, "A"), std::string("one\0two\0three\0", 14));
    EXPECT_EQ(Value("ONE", nullptr), std::string("A\0B\0", 4));
    struct {
        DWORD size;
        DWORD length;
        std::string bytes;
    } const kRows[] = {
        {16, 14, std::string("one\0two\0three\0\0#", 16)}, {15, 14, std::string("one\0two\0three\0\0#", 16)},
        {14, 12, std::string("one\0two\0thre\0\0##", 16)},  // cut: two terminators all the same
        {5, 3, std::string("one\0\0###########", 16)},     {2, 0, std::string("\0\0##############", 16)},
        {1, 0, std::string("\0###############", 16)},
    };
    for (const auto& c : kRows) {
        char buffer[] = "################";
        EXPECT_EQ(GetProfileStringA(nullptr, nullptr, "", buffer, c.size), c.length);
        EXPECT_EQ(std::string(buffer, 16), c.bytes) << c.size;
    }
}

TEST_F(Profile, WholeNumbers) {
    struct {
        int line;
        const char* text;
        INT want;
    } const kRows[] = {
        {__LINE__, "0", 0},           {__LINE__, "49", 49},        {__LINE__, "-7", -7},    {__LINE__, "+7", 7},
        {__LINE__, "'12'", 12},       {__LINE__, "' \t12'", 12},   {__LINE__, "12abc", 12}, {__LINE__, "1 2", 1},
        {__LINE__, "abc", 0},         {__LINE__, "-", 0},          {__LINE__, "- 1", 0},    {__LINE__, "0x1fG", 0x1F},
        {__LINE__, "-0x10", -16},     {__LINE__, "0o17", 15},      {__LINE__, "0b1012", 5}, {__LINE__, "017", 17},
        {__LINE__, "4294967295", -1}, {__LINE__, "4294967297", 1}, {__LINE__, "", 99},  // an empty value counts as none
        {__LINE__, "''", 99},
    };
    for (const auto& c : kRows) {
        testing::ScopedTrace row(__FILE__, c.line, c.text);
        PutFile(std::string("[s]\nk=") + c.text + "\n");
        EXPECT_EQ(static_cast<INT>(GetProfileIntA("S", "K", 99)), c.want);
    }
    EXPECT_EQ(static_cast<INT>(GetProfileIntA("s", "other", -3)), -3);
    EXPECT_EQ(static_cast<INT>(GetProfileIntA("s", nullptr, -3)), -3);
}

struct ChangeCase {
    int line;
    const char* before;
    const char* section;
    const char* key;
    const char* text;
    const char* after;
};
constexpr ChangeCase kChanges[] = {
    {__LINE__, "", "s", "k", "v", "[s]\nk=v\n"},
    {__LINE__, "[s]\nk=1\n", "S", "K", "2", "[s]\nk=2\n"},  // the names stay as they stand
    {__LINE__, "[s]\nk=1\nk=2", "s", "k", " 3 ", "[s]\nk=3\nk=2"},
    {__LINE__, "[s]\nk=1", "s", "k", "2", "[s]\nk=2\n"},
    {__LINE__, "[s]\na=1\n\n; c\n\n[t]\nb=2\n", "s", "k", "v", "[s]\na=1\n\n; c\nk=v\n\n[t]\nb=2\n"},
    {__LINE__, "[s]\n[t]", "t", "k", "v", "[s]\n[t]\nk=v\n"},
    {__LINE__, "x", "t", "k", "", "x\n[t]\nk=\n"},
    {__LINE__, "[s]\r\na=1\r\n", "t", "k", "v", "[s]\r\na=1\r\n[t]\r\nk=v\r\n"},  // the file's own line ends
    {__LINE__, "\xEF\xBB\xBF[s]\nk=1\n", "s", "k", "2", "\xEF\xBB\xBF[s]\nk=2\n"},
    {__LINE__, "\xEF\xBB\xBF", "s", "k", "2", "\xEF\xBB\xBF[s]\nk=2\n"},
    {__LINE__, "[s]\nk=1\nl=2\nK=3\n[t]\nk=4\n", "s", "k", nullptr, "[s]\nl=2\n[t]\nk=4\n"},
    {__LINE__, "[s]\nl=2\n", "s", "k", nullptr, "[s]\nl=2\n"},
    {__LINE__, "a\n[s]\nk=1\n[t]\nk=2\n[S]\nl=3\n", "s", nullptr, "ignored", "a\n[t]\nk=2\n"},
    {__LINE__, "[t]\nk=2\n", "s", nullptr, nullptr, "[t]\nk=2\n"},
};

TEST_F(Profile, ChangesTouchNothingElse) {
    for (const ChangeCase& c : kChanges) {
        testing::ScopedTrace row(__FILE__, c.line, c.before);
        PutFile(c.before);
        EXPECT_TRUE(WriteProfileStringA(c.section, c.key, c.text));
        EXPECT_EQ(FileText(), c.after);
        EXPECT_EQ(FilesInFolder(), 1u);
    }
}

TEST_F(Profile, NamesAndTextsThatOneLineCannotHoldAreRefused) {
    PutFile("[s]\nk=1\n");
    struct {
        int line;
        const char* section;
        const char* key;
        const char* text;
    } const kRows[] = {
        {__LINE__, nullptr, "k", "v"},    {__LINE__, "", "k", "v"},        {__LINE__, " ", "k", "v"},
        {__LINE__, "s\n[t]", "k", "v"},   {__LINE__, "s", "", "v"},        {__LINE__, "s", ";k", "v"},
        {__LINE__, "s", "[k", "v"},       {__LINE__, "s", "k=1", "v"},     {__LINE__, "s", "k\rl", "v"},
        {__LINE__, "s", "k", "v\n[t]\n"}, {__LINE__, "s\n", nullptr, "v"}, {__LINE__, "s", "=", nullptr},
    };
    for (const auto& c : kRows) {
        testing::ScopedTrace row(__FILE__, c.line, "");
        SetLastError(ERROR_SUCCESS);
        EXPECT_FALSE(WriteProfileStringA(c.section, c.key, c.text));
        EXPECT_EQ(GetLastError(), ERROR_INVALID_PARAMETER);
        EXPECT_EQ(FileText(), "[s]\nk=1\n");
    }
}

TEST_F(Profile, NamesInTheCodePageMatchWithoutCase) {
    TestLanguage language(kJapanese);
    // trail bytes that are "]", "\\" and letters; full-width letters have case
    PutFile("[\x83\x5D]\n\x83\x5C\x82\x60=1\n\x83\x61=2\n");
    EXPECT_EQ(Value("\x83\x5D", "\x83\x5C\x82\x81"), "1");
    EXPECT_EQ(Value("\x83\x5D", "\x83\x61"), "2");
    EXPECT_EQ(Value("\x83\x5D", "\x83\x41"), "(default)");
}

TEST_F(Profile, AFileThatIsNoneGivesDefaultsAndIsLeftAlone) {
    const auto givesDefaults = [] {
        EXPECT_EQ(Value("s", "k"), "(default)");
        EXPECT_EQ(Value(nullptr, nullptr), "(default)");
        EXPECT_EQ(GetProfileIntA("s", "k", 5), 5u);
    };
    givesDefaults();  // not there
    EXPECT_FALSE(fs::exists(file_));

    fs::create_directory(file_);
    givesDefaults();
    EXPECT_FALSE(WriteProfileStringA("s", "k", "v"));
    EXPECT_EQ(GetLastError(), ERROR_ACCESS_DENIED);
    EXPECT_EQ(FilesInFolder(), 1u);
    fs::remove(file_);

    ASSERT_EQ(mkfifo(file_.c_str(), 0600), 0);  // nobody writes: reading it must not wait
    givesDefaults();
    EXPECT_FALSE(WriteProfileStringA("s", "k", "v"));
    EXPECT_TRUE(fs::is_fifo(file_));
    fs::remove(file_);

    PutFile(std::string("\0\x01[s\0]\nk\0=v\n=[\n[[[\xFF]]]\n\x1A", 25));
    EXPECT_EQ(Value("s", "k"), "(default)");
    EXPECT_TRUE(WriteProfileStringA("s", "k", "v"));
    EXPECT_EQ(Value("s", "k"), "v");
    EXPECT_EQ(FileText().substr(0, 25), std::string("\0\x01[s\0]\nk\0=v\n=[\n[[[\xFF]]]\n\x1A", 25));

    HostSetProfilePath((file_ / "below-a-file.ini").c_str());
    givesDefaults();
    EXPECT_FALSE(WriteProfileStringA("s", "k", "v"));
    EXPECT_EQ(GetLastError(), ERROR_PATH_NOT_FOUND);
}

// Nothing is unreadable to the superuser, so the check runs in a process that isn't one. Tells whether all holds there.
template <typename Check>
bool HoldsForAnOrdinaryUser(Check check) {
    constexpr uid_t kNobody = 65534;
    const pid_t process = fork();
    if (process == 0) _exit((geteuid() != 0 || setuid(kNobody) == 0) && check() ? 0 : 1);
    int status = -1;
    return process > 0 && waitpid(process, &status, 0) == process && status == 0;
}

TEST_F(Profile, AnUnreadableFileGivesDefaults) {
    PutFile("[s]\nk=v\n");
    fs::permissions(folder_, fs::perms(0755));
    fs::permissions(file_, fs::perms::none);
    EXPECT_TRUE(HoldsForAnOrdinaryUser([] {
        return Value("s", "k") == "(default)" && WriteProfileStringA("s", "k", "w") == FALSE &&
               GetLastError() == ERROR_ACCESS_DENIED;
    }));
    fs::permissions(file_, fs::perms(0444));
    EXPECT_TRUE(HoldsForAnOrdinaryUser([] {
        return Value("s", "k") == "v" && WriteProfileStringA("s", "k", "w") == FALSE && Value("s", "k") == "v";
    }));
    EXPECT_EQ(FileText(), "[s]\nk=v\n");
}

TEST_F(Profile, ModeAndLinksStay) {
    const fs::path target = folder_ / "real.ini";
    fs::create_symlink("real.ini", file_);
    std::ofstream(target) << "[s]\nk=1\n";
    fs::permissions(target, fs::perms(0640));
    EXPECT_TRUE(WriteProfileStringA("s", "k", "2"));
    EXPECT_TRUE(fs::is_symlink(file_));
    EXPECT_EQ(FileText(), "[s]\nk=2\n");
    EXPECT_EQ(fs::status(target).permissions(), fs::perms(0640));
    EXPECT_FALSE(WriteProfileStringA(nullptr, nullptr, nullptr));  // onto the disk; FALSE as on the platform
    EXPECT_EQ(FileText(), "[s]\nk=2\n");
}

TEST_F(Profile, StandsBelowTheConfigurationFolder) {
    const char* configHome = getenv("XDG_CONFIG_HOME");
    const char* home = getenv("HOME");
    const std::string savedConfigHome = configHome != nullptr ? configHome : "";
    const std::string savedHome = home != nullptr ? home : "";
    HostSetProfilePath(nullptr);
    setenv("XDG_CONFIG_HOME", (folder_ / "config").c_str(), 1);
    setenv("HOME", (folder_ / "home").c_str(), 1);
    EXPECT_TRUE(WriteProfileStringA("s", "k", "1"));
    EXPECT_TRUE(fs::is_regular_file(folder_ / "config/morvl15/profile.ini"));
    setenv("XDG_CONFIG_HOME", "relative", 1);  // counts as not set
    EXPECT_EQ(Value("s", "k"), "(default)");
    EXPECT_TRUE(WriteProfileStringA("s", "k", "2"));
    EXPECT_TRUE(fs::is_regular_file(folder_ / "home/.config/morvl15/profile.ini"));
    configHome != nullptr ? setenv("XDG_CONFIG_HOME", savedConfigHome.c_str(), 1) : unsetenv("XDG_CONFIG_HOME");
    home != nullptr ? setenv("HOME", savedHome.c_str(), 1) : unsetenv("HOME");
}

TEST_F(Profile, WritersWaitForEachOther) {
    constexpr int kKeys = 60;
    const auto writeKeys = [](char writer) {
        for (int i = 0; i < kKeys; ++i) {
            const std::string key = writer + std::to_string(i);
            if (!WriteProfileStringA("s", key.c_str(), key.c_str())) return 1;
        }
        return 0;
    };
    const pid_t process = fork();
    ASSERT_GE(process, 0);
    if (process == 0) _exit(writeKeys('p'));
    std::thread other([&] { EXPECT_EQ(writeKeys('t'), 0); });
    EXPECT_EQ(writeKeys('m'), 0);
    other.join();
    int status = 0;
    ASSERT_EQ(waitpid(process, &status, 0), process);
    EXPECT_EQ(status, 0);
    for (const char writer : {'p', 't', 'm'}) {
        for (int i = 0; i < kKeys; ++i) {
            const std::string key = writer + std::to_string(i);
            EXPECT_EQ(Value("s", key.c_str()), key);
        }
    }
    EXPECT_EQ(FilesInFolder(), 1u);
}

TEST_F(Profile, AReaderNeverSeesHalfAChange) {
    const std::string values[] = {std::string(200, 'a'), std::string(150, 'b')};
    WriteProfileStringA("s", "k", values[0].c_str());
    std::atomic<bool> done{false};
    std::thread writer([&] {
        for (int i = 0; i < 200; ++i) WriteProfileStringA("s", "k", values[i % 2].c_str());
        done = true;
    });
    int others = 0;
    while (!done) {
        const std::string seen = Value("s", "k");
        others += seen != values[0] && seen != values[1] ? 1 : 0;
    }
    writer.join();
    EXPECT_EQ(others, 0);
}

}  // namespace
