// The masked entry example, typed into through a pseudo-terminal and read off the screen.
#include <gtest/gtest.h>
#include <poll.h>
#include <pty.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <string>

namespace {

class MaskedEntry : public testing::Test {
  protected:
    void SetUp() override {
        winsize size = {24, 80, 0, 0};
        child_ = forkpty(&terminal_, nullptr, nullptr, &size);
        ASSERT_GE(child_, 0);
        if (child_ == 0) {
            execl(MASKED_ENTRY_PROGRAM, MASKED_ENTRY_PROGRAM, static_cast<char*>(nullptr));
            _exit(127);
        }
        WaitFor("Enter done");
    }

    void TearDown() override {
        close(terminal_);
        if (child_ > 0) waitpid(child_, nullptr, 0);
    }

    // Reads until the program has drawn the screen anew, which it does after every key, or has ended.
    void Type(const std::string& keys) {
        ASSERT_EQ(write(terminal_, keys.data(), keys.size()), static_cast<ssize_t>(keys.size()));
        WaitFor("\x1b[2J");
        while (!Read(200).empty()) {
        }
    }

    void WaitFor(const std::string& mark) {
        for (const size_t before = seen_.size(); seen_.find(mark, before) == std::string::npos;) {
            ASSERT_FALSE(Read(5000).empty()) << "the program fell silent after: " << seen_.substr(before);
        }
    }

    std::string Read(int milliseconds) {
        std::string all;
        pollfd ready = {terminal_, POLLIN, 0};
        char bytes[4096];
        while (poll(&ready, 1, all.empty() ? milliseconds : 0) > 0) {
            const ssize_t count = read(terminal_, bytes, sizeof bytes);
            if (count <= 0) break;
            all.append(bytes, static_cast<size_t>(count));
        }
        seen_ += all;
        return all;
    }

    // The text that was written last at the beginning of a row.
    std::string Row(int row) const {
        const std::string mark = "\x1b[" + std::to_string(row) + ";1H";
        const size_t at = seen_.rfind(mark) + mark.size();
        return seen_.substr(at, seen_.find('\x1b', at) - at);
    }
    // What has been shown since the screen was last cleared.
    std::string Shown() const { return seen_.substr(seen_.rfind("\x1b[2J") + 4); }
    auto Bells() const { return std::count(seen_.begin(), seen_.end(), '\a'); }

    std::string seen_;
    int terminal_ = -1;
    pid_t child_ = -1;
};

TEST_F(MaskedEntry, KeepsTheFieldsInShape) {
    EXPECT_EQ(Row(3).substr(0, 11), "> Telephone");
    Type("5551");
    EXPECT_EQ(Row(3).substr(0, 22), "> Telephone    (555) 1");
    EXPECT_EQ(Row(8), "unmasked: \"5551\"");
    EXPECT_TRUE(seen_.ends_with("\x1b[3;23H")) << "the caret isn't behind the digits";
    EXPECT_EQ(Bells(), 0);
    Type("x");  // refused with a beep
    EXPECT_EQ(Bells(), 1);
    Type("\x1b[D\x7f");  // left to the last digit's place, then the digit before the literals goes
    EXPECT_EQ(Row(8), "unmasked: \"551\"");
    Type("\tab1234c");
    EXPECT_EQ(Row(4).substr(0, 24), "> Part number  AB-1234-C");
    Type("\r");
    EXPECT_EQ(Shown().rfind("Telephone    551\r\nPart number  AB1234C\r\n", 0), 0u) << Shown();
}

}  // namespace
