// The masked entry example, typed into through a pseudo-terminal and read off the screen.
#include <gtest/gtest.h>
#include <poll.h>
#include <pty.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cstdlib>
#include <string>

namespace {

constexpr int kRows = 24;
constexpr int kColumns = 80;

// As much of a terminal as the example uses: text, new lines, positioning, clearing the screen, the bell.
class Screen {
  public:
    Screen() { Clear(); }

    void Take(const std::string& bytes) {
        for (const char c : bytes) TakeByte(c);
    }
    std::string Row(int row) const {
        const std::string& line = lines_[static_cast<size_t>(row - 1)];
        return line.substr(0, line.find_last_not_of(' ') + 1);
    }
    int CaretRow() const { return row_; }
    int CaretColumn() const { return column_; }
    int bells = 0;

  private:
    void Clear() { lines_.fill(std::string(kColumns, ' ')); }

    void TakeByte(char c) {
        if (!sequence_.empty()) {
            sequence_ += c;
            if (c != '[' && (c < '0' || c > '9') && c != ';') EndSequence(c);
        } else if (c == '\x1b') {
            sequence_ = c;
        } else if (c == '\a') {
            ++bells;
        } else if (c == '\r') {
            column_ = 1;
        } else if (c == '\n') {
            ++row_;
        } else {
            lines_[static_cast<size_t>(row_ - 1)][static_cast<size_t>(column_ - 1)] = c;
            ++column_;
        }
    }

    void EndSequence(char last) {
        if (last == 'J') Clear();
        if (last == 'H') {
            row_ = column_ = 1;
            std::sscanf(sequence_.c_str(), "\x1b[%d;%dH", &row_, &column_);
        }
        sequence_.clear();
    }

    std::array<std::string, kRows> lines_;
    std::string sequence_;
    int row_ = 1;
    int column_ = 1;
};

class MaskedEntry : public testing::Test {
  protected:
    void SetUp() override {
        winsize size = {kRows, kColumns, 0, 0};
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
        while (!Read(100).empty()) {
        }
    }

    void WaitFor(const std::string& mark) {
        std::string seen;
        while (seen.find(mark) == std::string::npos) {
            const std::string more = Read(5000);
            ASSERT_FALSE(more.empty()) << "the program fell silent after: " << seen;
            seen += more;
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
        screen_.Take(all);
        return all;
    }

    Screen screen_;
    int terminal_ = -1;
    pid_t child_ = -1;
};

TEST_F(MaskedEntry, KeepsTheFieldsInShape) {
    EXPECT_EQ(screen_.Row(3).substr(0, 11), "> Telephone");
    Type("5551");
    EXPECT_EQ(screen_.Row(3).substr(0, 22), "> Telephone    (555) 1");
    EXPECT_EQ(screen_.Row(8), "unmasked: \"5551\"");
    EXPECT_EQ(screen_.CaretRow(), 3);
    EXPECT_EQ(screen_.CaretColumn(), 16 + 7);
    EXPECT_EQ(screen_.bells, 0);

    Type("x");  // refused with a beep
    EXPECT_EQ(screen_.bells, 1);
    Type("\x1b[D\x7f");  // left to the last digit's place, then the digit before the literals goes
    EXPECT_EQ(screen_.Row(8), "unmasked: \"551\"");
    Type(
        "\t"
        "ab1234c");
    EXPECT_EQ(screen_.Row(4).substr(0, 24), "> Part number  AB-1234-C");
    Type("\r");
    while (!Read(200).empty()) {
    }
    EXPECT_EQ(screen_.Row(1), "Telephone    551");
    EXPECT_EQ(screen_.Row(2), "Part number  AB1234C");
}

}  // namespace
