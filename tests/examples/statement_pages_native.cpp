// The printed statement.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "program.h"
#include "support/pdf_file.h"

namespace {

constexpr char kLedger[] = STATEMENT_FOLDER "/ledger.csv";
constexpr char kGenerator[] = "python3 " STATEMENT_FOLDER "/make_ledger.py ";

Outcome PrintTo(const std::string& file, const std::string& arguments, const std::string& before = "") {
    return RunProgram(before + STATEMENT_PROGRAM " --pdf " + file + " " + arguments);
}

// The text of a page, as it lies on it; of all pages for 0.
std::string TextOf(const std::string& file, int page = 0) {
    const std::string which = page == 0 ? "" : " -f " + std::to_string(page) + " -l " + std::to_string(page);
    return RunProgram("pdftotext -layout" + which + " " + file + " -").out;
}

class StatementPages : public testing::Test {
  protected:
    TestFolder folder;
    const std::string file = folder.Path() + "/statement.pdf";
};

TEST_F(StatementPages, ShowTheLedgerInThreeConventions) {
    const Outcome outcome = PrintTo(file, kLedger);
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(PdfValue(file, "Pages"), "1");
    ExpectTexts(TextOf(file),
                {"Page 1 of 1", "US", "German", "Japanese", "Rechnung 2003-001, Möbelhaus", "1/31/2003", "31.01.2003",
                 "2003/01/31", "($38,412.77)", "-38.412,77 DM", "-¥38,413", "Sum of 12 amounts", "$64,989.87",
                 "$5,415.82", "From Thursday, 2. January 2003", "From 2003/01/02 to 2003/01/31"});
}

// Shift-JIS holds the era's names, for which the machine may have no letters, and neither umlauts nor the yen sign.
TEST_F(StatementPages, AreInTheCodePageInForce) {
    EXPECT_EQ(PrintTo(file, kLedger, "LANG=ja_JP.UTF-8 ").status, 0);
    const std::string text = TextOf(file);
    ExpectTexts(text, {"M?belhaus", "-\\38,413", "31.01.2003"});
    EXPECT_EQ(text.find("From 2003/01/02"), std::string::npos) << text;
}

// A page has 31 lines; the totals take eight, and stay together.
TEST_F(StatementPages, AreNumberedAndHaveHeads) {
    constexpr std::pair<int, int> kPages[] = {{0, 1}, {23, 1}, {24, 2}, {31, 2}, {54, 2}, {55, 3}};
    for (const auto& [rows, pages] : kPages) {
        EXPECT_EQ(PrintTo(file, "", kGenerator + std::to_string(rows) + " | ").status, 0);
        EXPECT_EQ(PdfValue(file, "Pages"), std::to_string(pages)) << rows;
        for (int page = 1; page <= pages; ++page) {
            ExpectTexts(TextOf(file, page),
                        {"Statement", "Page " + std::to_string(page) + " of " + std::to_string(pages), "Japanese"});
        }
        ExpectTexts(TextOf(file, pages), {"Sum of " + std::to_string(rows) + " amounts"});
    }
}

TEST_F(StatementPages, LeaveNoFileThatIsNotWhole) {
    EXPECT_EQ(PrintTo("/nowhere/at/all/statement.pdf", kLedger).status, 1);
    EXPECT_EQ(PrintTo(folder.Path() + "/" + std::string(300, 'n'), kLedger).status, 1);
    const Outcome full = PrintTo(file, kLedger, "ulimit -f 4; ");
    EXPECT_EQ(full.status, 1);
    EXPECT_EQ(full.err.find("cancelled"), std::string::npos) << full.err;
    EXPECT_TRUE(std::filesystem::is_empty(folder.Path()));
}

// The ledger comes through a pipe, so that the interrupt comes when the program reads.
TEST_F(StatementPages, AreCancelledByAnInterrupt) {
    const Outcome outcome =
        RunProgram("mkfifo pipe; " STATEMENT_PROGRAM " --pdf " + file + " pipe & exec 3>pipe; kill -INT $!; " +
                   kGenerator + "100 >&3; exec 3>&-; wait $!");
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.err.substr(0, outcome.err.find("\n")), "statement: cancelled");
    EXPECT_TRUE(std::filesystem::is_empty(folder.Path()));
}

}  // namespace
