// The example that calls the library from Python.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "program.h"

namespace {

Outcome RunTable(const std::string& arguments) {
    const auto examples = std::filesystem::path(STATEMENT_FOLDER).parent_path();
    const auto programs = std::filesystem::path(STATEMENT_PROGRAM).parent_path();
    return RunProgram("MORVL15_LIBRARY=" + (programs / "../lib/libmorvl15.so").string() + " python3 " +
                      (examples / "python/table.py").string() + " " + arguments);
}

TEST(PythonTable, FormatsByPictures) {
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
    GTEST_SKIP() << "python3 isn't built with the sanitizer that the library needs";
#endif
    EXPECT_EQ(RunTable("").out,
              "Opening balance   Jan 2, 2003  12,480.37 \n"
              "Rent              Jan 3, 2003  (1,150.00)\n"
              "Invoice 2003-001  Jan 7, 2003   3,999.95 \n"
              "Power and water   Jan 9, 2003    (214.08)\n");
    EXPECT_EQ(RunTable("'#,##0' dd.MM.yyyy").out,
              "Opening balance   02.01.2003  12,480\n"
              "Rent              03.01.2003  -1,150\n"
              "Invoice 2003-001  07.01.2003   4,000\n"
              "Power and water   09.01.2003    -214\n");
    const Outcome bad = RunTable("'0.0#0'");
    EXPECT_EQ(bad.status, 1);
    EXPECT_EQ(bad.err, "table.py: '0.0#0' is no number picture (docs/number-pictures.md)\n");
}

}  // namespace
