// The statement example on its own ledger and on ledgers that can't be read.
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdio>
#include <fstream>
#include <string>

namespace {

struct Outcome {
    int status;
    std::string text;  // output and messages
};

Outcome RunStatement(const std::string& arguments) {
    Outcome outcome{-1, ""};
    const std::string command = std::string(STATEMENT_PROGRAM) + " " + arguments + " 2>&1";
    FILE* program = popen(command.c_str(), "r");
    if (program == nullptr) return outcome;
    char bytes[4096];
    while (const size_t count = fread(bytes, 1, sizeof bytes, program)) outcome.text.append(bytes, count);
    outcome.status = WEXITSTATUS(pclose(program));
    return outcome;
}

class Ledger {
  public:
    explicit Ledger(const std::string& contents) : path_(testing::TempDir() + "/morvl15-ledger.csv") {
        std::ofstream(path_) << contents;
    }
    ~Ledger() { std::remove(path_.c_str()); }
    Ledger(const Ledger&) = delete;
    Ledger& operator=(const Ledger&) = delete;
    const std::string& Path() const { return path_; }

  private:
    std::string path_;
};

TEST(Statement, ShowsItsLedgerInThreeConventions) {
    const Outcome outcome = RunStatement(std::string(STATEMENT_FOLDER) + "/ledger.csv");
    EXPECT_EQ(outcome.status, 0) << outcome.text;
    for (const char* wanted : {
             "$3,999.95",
             "3.999,95 DM",
             "\xC2\xA5"
             "4,000",  // one amount, three ways
             "($129.33)",
             "-129,33 DM",
             "-\xC2\xA5"
             "129",  // written with a trailing sign
             "1/3/2003",
             "03.01.2003",
             "2003/01/03",  // one date, written as 3-Jan-2003
             "Sum of 12 amounts",
             "$64,989.87",
             "64.989,87 DM",  //
             "$5,415.82",
             "5.415,82 DM",  // the average, rounded once
             "From Thursday, January 02, 2003 to Friday, January 31, 2003",
             "From Thursday, 2. January 2003 to Friday, 31. January 2003",
             "From \xE5\xB9\xB3\xE6\x88\x90"
             "15\xE5\xB9\xB4"
             "01\xE6\x9C\x88"
             "02\xE6\x97\xA5 to ",
         }) {
        EXPECT_NE(outcome.text.find(wanted), std::string::npos) << wanted << " is missing in\n" << outcome.text;
    }
}

TEST(Statement, TellsWhichLinesCannotBeRead) {
    const Ledger ledger(
        "date;text;amount\n"
        "1/2/2003;good;$5.00\n"
        "1/3/2003;twice grouped;$1,23\n"
        "2/30/2003;no such day;$1.00\n");
    const Outcome outcome = RunStatement(ledger.Path());
    EXPECT_EQ(outcome.status, 1);
    EXPECT_NE(outcome.text.find("line 3: no US amount: \"$1,23\""), std::string::npos) << outcome.text;
    EXPECT_NE(outcome.text.find("line 4: no US date: \"2/30/2003\""), std::string::npos) << outcome.text;
    EXPECT_NE(outcome.text.find("Sum of 1 amounts"), std::string::npos) << outcome.text;
}

TEST(Statement, FailsOnWhatIsNoLedger) {
    EXPECT_EQ(RunStatement("/nowhere/ledger.csv").status, 2);
    EXPECT_EQ(RunStatement("--convention Martian").status, 2);
    EXPECT_EQ(RunStatement("</dev/null").status, 0);
}

}  // namespace
