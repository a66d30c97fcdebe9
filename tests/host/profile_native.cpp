// The user profile: what a file says, how it is changed, who may change it at the same time.
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <atomic>
#include <filesystem>
#include <fstream>
#include <functional>
#include <sstream>
#include <string>
#include <thread>
#include <utility>

#include <morvl15/host_native.h>

#include "objects.h"
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
        "lost=before any section\n; comment=1\n"
        "[intl]\nsCurrency=DM\n  sThousand \t=  .  \r\nsDate='  / '\nsTime=\":\"\nmixed=\"x'\nquote=\"\nempty=\n"
        "double=\"\"\nequals=a=b;c\nscurrency=second\nno equals sign\n;hidden=1\n\n"
        "[ Other Section ] trailing\na[b]=c\n"
        "[INTL]\nlate=1\n"
        "[unclosed\nlast=no line end");
    constexpr std::pair<const char*, const char*> kIntl[] = {
        {"sCurrency", "DM"}, {"\tSCURRENCY ", "DM"}, {"sThousand", "."}, {"sDate", "  / "}, {"sTime", ":"},
        {"mixed", "\"x'"},   {"quote", "\""},        {"empty", ""},      {"double", ""},    {"equals", "a=b;c"},
    };
    for (const auto& [key, want] : kIntl) EXPECT_EQ(Value("intl", key), want) << key;  // the first of two keys counts
    EXPECT_EQ(Value(" INTL ", "sCurrency"), "DM");
    EXPECT_EQ(Value("other section", "A[B]"), "c");
    constexpr std::pair<const char*, const char*> kNowhere[] = {
        {"intl", "no equals sign"}, {"intl", ";hidden"}, {"intl", "late"},  // the first section of a name counts
        {"unclosed", "last"},       {"", "lost"},        {"nowhere", "sCurrency"},
    };
    for (const auto& [section, key] : kNowhere) EXPECT_EQ(Value(section, key), "(default)") << key;
}

TEST_F(Profile, AZeroByteEndsWhatALineSays) {
    PutFile({"[s]\nk\0x=1\nk=2\0 \n[t\0]\n", 21});
    EXPECT_EQ(Value("s", nullptr), std::string("k\0", 2));
    EXPECT_EQ(Value("s", "k"), "2");
    EXPECT_EQ(Value(nullptr, nullptr), std::string("s\0", 2));
    EXPECT_TRUE(WriteProfileStringA("s", "k", nullptr));
    EXPECT_EQ(Value("s", nullptr), "(default)");
}

TEST_F(Profile, TextIsCutToTheBuffer) {
    PutFile("[s]\nk=\"abc\"\n");
    for (DWORD size = 0; size <= 6; ++size) {
        char buffer[8] = "#######";
        const std::string want = std::string("abc").substr(0, size > 0 ? size - 1 : 0);
        EXPECT_EQ(GetProfileStringA("s", "k", "", buffer, size), want.size());
        const std::string written = size > 0 ? want + '\0' : "";
        EXPECT_EQ(std::string(buffer, 7), written + std::string(7 - written.size(), '#')) << size;
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
        std::string written;
    } const kRows[] = {
        {16, 14, {"one\0two\0three\0\0", 15}},
        {15, 14, {"one\0two\0three\0\0", 15}},
        {14, 12, {"one\0two\0thre\0\0", 14}},  // cut: two terminators all the same
        {5, 3, {"one\0\0", 5}},
        {2, 0, {"\0\0", 2}},
        {1, 0, {"\0", 1}},
    };
    for (const auto& [size, length, written] : kRows) {
        char buffer[] = "################";
        EXPECT_EQ(GetProfileStringA(nullptr, nullptr, "", buffer, size), length);
        EXPECT_EQ(std::string(buffer, 16), written + std::string(16 - written.size(), '#')) << size;
    }
}

TEST_F(Profile, WholeNumbers) {
    constexpr std::pair<const char*, INT> kRows[] = {
        {"0", 0},      {"49", 49}, {"-7", -7},     {"+7", 7},          {"'12'", 12},
        {"abc", 0},    {"-", 0},   {"- 1", 0},     {"0x1fG", 0x1F},    {"' \t12'", 12},
        {"12abc", 12}, {"1 2", 1}, {"-0x10", -16}, {"0o17", 15},       {"0b1012", 5},
        {"017", 17},   {"", 99},   {"''", 99},     {"4294967295", -1}, {"4294967297", 1}};
    for (const auto& [text, want] : kRows) {
        PutFile(std::string("[s]\nk=") + text + "\n");
        EXPECT_EQ(static_cast<INT>(GetProfileIntA("S", "K", 99)), want) << text;  // an empty value counts as none
    }
    EXPECT_EQ(static_cast<INT>(GetProfileIntA("s", "other", -3)), -3);
    EXPECT_EQ(static_cast<INT>(GetProfileIntA("s", nullptr, -3)), -3);
}

TEST_F(Profile, ChangesTouchNothingElse) {
    constexpr const char* kRows[][5] = {
        // before, section, key and text, after
        {"", "s", "k", "v", "[s]\nk=v\n"},
        {"[s]\nk=1\n", "S", "K", "2", "[s]\nk=2\n"},  // the names stay as they stand
        {"[s]\nk=1\nk=2", "s", "k", " 3 ", "[s]\nk=3\nk=2"},
        {"[s]\nk=1", "s", "k", "2", "[s]\nk=2\n"},
        {"[s]\na=1\n\n; c\n\n[t]\nb=2\n", "s", "k", "v", "[s]\na=1\n\n; c\nk=v\n\n[t]\nb=2\n"},
        {"[s]\n[t]", "t", "k", "v", "[s]\n[t]\nk=v\n"},
        {"x", "t", "k", "", "x\n[t]\nk=\n"},
        {"[s]\r\na=1\r\n", "t", "k", "v", "[s]\r\na=1\r\n[t]\r\nk=v\r\n"},  // the file's own line ends
        {"\xEF\xBB\xBF[s]\nk=1\n", "s", "k", "2", "\xEF\xBB\xBF[s]\nk=2\n"},
        {"\xEF\xBB\xBF", "s", "k", "2", "\xEF\xBB\xBF[s]\nk=2\n"},
        {"[s]\nk=1\nl=2\nK=3\n[t]\nk=4\n", "s", "k", nullptr, "[s]\nl=2\n[t]\nk=4\n"},
        {"[s]\nl=2\n", "s", "k", nullptr, "[s]\nl=2\n"},
        {"a\n[s]\nk=1\n[t]\nk=2\n[S]\nl=3\n", "s", nullptr, "ignored", "a\n[t]\nk=2\n"},
        {"[t]\nk=2\n", "s", nullptr, nullptr, "[t]\nk=2\n"},
    };
    for (const auto& [before, section, key, text, after] : kRows) {
        PutFile(before);
        EXPECT_TRUE(WriteProfileStringA(section, key, text)) << before;
        EXPECT_EQ(FileText(), after);
        EXPECT_EQ(FilesInFolder(), 1u) << before;
    }
}

TEST_F(Profile, NamesAndTextsThatOneLineCannotHoldAreRefused) {
    PutFile("[s]\nk=1\n");
    constexpr const char* kRows[][3] = {
        {nullptr, "k", "v"}, {"", "k", "v"},       {" ", "k", "v"},       {"s", "", "v"},
        {"s", ";k", "v"},    {"s", "[k", "v"},     {"s", "k=1", "v"},     {"s", "=", nullptr},
        {"s", "k\rl", "v"},  {"s\n[t]", "k", "v"}, {"s\n", nullptr, "v"}, {"s", "k", "v\n[]"},
    };
    for (const auto& [section, key, text] : kRows) {
        SetLastError(ERROR_SUCCESS);
        EXPECT_FALSE(WriteProfileStringA(section, key, text));
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
        EXPECT_EQ(GetProfileIntA("s", "k", 5), 5u);
    };
    givesDefaults();  // not there
    EXPECT_EQ(Value(nullptr, nullptr), "(default)");
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

    const std::string rubbish("\0\x01[s\0]\nk\0=v\n=[\n[[[\xFF]]]\n\x1A", 25);
    PutFile(rubbish);
    givesDefaults();
    EXPECT_TRUE(WriteProfileStringA("s", "k", "v"));
    EXPECT_EQ(Value("s", "k"), "v");
    EXPECT_TRUE(FileText().starts_with(rubbish));

    HostSetProfilePath((file_ / "below-a-file.ini").c_str());
    givesDefaults();
    EXPECT_FALSE(WriteProfileStringA("s", "k", "v"));
    EXPECT_EQ(GetLastError(), ERROR_PATH_NOT_FOUND);
}

// Nothing is unreadable to the superuser, so the check runs in a process that isn't one. Tells whether all holds there.
bool HoldsForAnOrdinaryUser(const std::function<bool()>& check) {
    constexpr uid_t kNobody = 65534;
    const Child process([&] { return (geteuid() != 0 || setuid(kNobody) == 0) && check() ? 1 : 0; });
    return process.Result() == 1;
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
    EXPECT_EQ(fs::status(target).permissions(), fs::perms(0640));
    EXPECT_FALSE(WriteProfileStringA(nullptr, nullptr, nullptr));  // onto the disk; FALSE as on the platform
    EXPECT_EQ(FileText(), "[s]\nk=2\n");
}

TEST_F(Profile, StandsBelowTheConfigurationFolder) {
    const TestVariable home("HOME", (folder_ / "home").c_str());
    TestVariable config("XDG_CONFIG_HOME", (folder_ / "config").c_str());
    HostSetProfilePath(nullptr);
    EXPECT_TRUE(WriteProfileStringA("s", "k", "1"));
    EXPECT_TRUE(fs::is_regular_file(folder_ / "config/morvl15/profile.ini"));
    config.Put("relative");  // counts as not set
    EXPECT_EQ(Value("s", "k"), "(default)");
    EXPECT_TRUE(WriteProfileStringA("s", "k", "2"));
    EXPECT_TRUE(fs::is_regular_file(folder_ / "home/.config/morvl15/profile.ini"));
}

TEST_F(Profile, WritersWaitForEachOther) {
    constexpr int kKeys = 60;
    const auto keyOf = [](char writer, int i) { return writer + std::to_string(i); };
    const auto writeKeys = [&keyOf](char writer) {
        int failures = 0;
        for (int i = 0; i < kKeys; ++i) {
            const std::string key = keyOf(writer, i);
            failures += WriteProfileStringA("s", key.c_str(), key.c_str()) ? 0 : 1;
        }
        return failures;
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
        for (int i = 0; i < kKeys; ++i) EXPECT_EQ(Value("s", keyOf(writer, i).c_str()), keyOf(writer, i));
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
