// The statement example on its own ledger and on ledgers that can't be read.
#include <gtest/gtest.h>
#include <pty.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <string>

#include "program.h"

namespace {

Outcome RunStatement(const std::string& arguments) {
    return RunProgram(std::string(STATEMENT_PROGRAM) + " " + arguments);
}

TEST(Statement, ShowsItsLedgerInThreeConventions) {
    const Outcome outcome = RunStatement(std::string(STATEMENT_FOLDER) + "/ledger.csv");
    EXPECT_EQ(outcome.status, 0) << outcome.out;
    // One amount three ways; one written with a trailing sign; a date written as 3-Jan-2003; the average, rounded once.
    ExpectTexts(outcome.out,
                {"$3,999.95", "3.999,95 DM", "¥4,000", "($129.33)", "-129,33 DM", "-¥129", "1/3/2003", "03.01.2003",
                 "2003/01/03", "Sum of 12 amounts", "$64,989.87", "64.989,87 DM", "$5,415.82", "5.415,82 DM",
                 "From Thursday, January 02, 2003 to Friday, January 31, 2003",
                 "From Thursday, 2. January 2003 to Friday, 31. January 2003", "From 平成15年01月02日 to "});
}

TEST(Statement, TellsWhichLinesCannotBeRead) {
    const Outcome outcome = RunProgram(STATEMENT_PROGRAM,
                                       "date;text;amount\n1/2/2003;good;$5.00\n"
                                       "1/3/2003;twice grouped;$1,23\n2/30/2003;no such day;$1.00\n");
    EXPECT_EQ(outcome.status, 1);
    ExpectTexts(outcome.err, {"line 3: no US amount: \"$1,23\"", "line 4: no US date: \"2/30/2003\""});
    ExpectTexts(outcome.out, {"Sum of 1 amounts"});
}

TEST(Statement, FailsOnWhatIsNoLedger) {
    EXPECT_EQ(RunStatement("/nowhere/ledger.csv").status, 2);
    EXPECT_EQ(RunStatement("--convention Martian").status, 2);
    EXPECT_EQ(RunStatement("</dev/null").status, 0);
}

// In each form that the generator writes.
TEST(Statement, ReadsEveryLineOfAGeneratedLedger) {
    const Outcome outcome = RunProgram("python3 " STATEMENT_FOLDER "/make_ledger.py 3000 | " STATEMENT_PROGRAM);
    EXPECT_EQ(outcome.err, "");
    EXPECT_EQ(outcome.status, 0);
    ExpectTexts(outcome.out, {"Sum of 3000 amounts", "From Friday, January 01, 1993"});
}

TEST(Statement, ShowsItsProgressOnATerminal) {
    std::string lines;
    for (int i = 0; i < 10001; ++i) lines += "# nothing\n";
    const TestFolder folder;
    const std::string ledger = folder.Path() + "/ledger.csv";
    WriteFile(ledger, lines);
    int terminal = -1;
    const pid_t child = forkpty(&terminal, nullptr, nullptr, nullptr);
    ASSERT_GE(child, 0);
    if (child == 0) {
        if (std::freopen("/dev/null", "w", stdout) == nullptr) _exit(126);
        execl(STATEMENT_PROGRAM, STATEMENT_PROGRAM, ledger.c_str(), static_cast<char*>(nullptr));
        _exit(127);
    }
    std::string shown;
    char bytes[256];
    for (ssize_t count = 0; (count = read(terminal, bytes, sizeof bytes)) > 0;) {
        shown.append(bytes, static_cast<size_t>(count));
    }
    waitpid(child, nullptr, 0);
    close(terminal);
    EXPECT_EQ(shown, "\r10000 lines\r\x1b[K");
}

}  // namespace
