// The command-line companion: what it shows, what it says of bad values and pictures, and its exit codes.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <string>

#include "program.h"

namespace {

Outcome RunMorvl(const std::string& arguments, const std::string& input = "") {
    return RunProgram(std::string(MORVL_PROGRAM) + " " + arguments, input);
}

struct CallCase {
    int line;
    const char* arguments;
    int status;
    const char* out;
    const char* err;  // stands somewhere in it; "" for an empty one
};

// clang-format off
constexpr CallCase kCalls[] = {
    {__LINE__, R"(number '#,##0.00;(#,##0.00)' -1234.5 0 '')", 0, "(1,234.50)\n0.00\n\n", ""},
    {__LINE__, R"(number '' ' 1e3 ' 0x10)", 0, "1,000.00\n16.00\n", ""},
    {__LINE__, R"(number -- '--#' 1)", 2, "", "--#\n    ^ can't stand here"},
    {__LINE__, R"(number '# "größe"' 5)", 0, "5 größe\n", ""},
    {__LINE__, R"(number 0 1x 2)", 1, "\n2\n", "morvl: value 1, column 2: \"1x\" is no plain number"},
    {__LINE__, R"(number 0 ' é1')", 1, "\n", "value 1, column 2: \" é1\""},
    {__LINE__, R"(number 0 1e100 1e-200)", 1, "\n\n", "value 1: \"1e100\" is too large\nmorvl: value 2: \"1e-200\" is too small"},
    {__LINE__, R"(number 0 日本)", 1, "\n", "value 1, column 1: \"日本\" is no UTF-8, or has a character that isn't in code page 1252"},
    {__LINE__, R"(number --local 0.00 '($1,234.50)' 12,34)", 1, "-1234.50\n\n", "value 2: \"12,34\" is no number or amount"},

    // The place of the fault in a picture: what can't go on, or an end that is missing.
    {__LINE__, R"(number '0.00E' 1)", 2, "", "    0.00E\n         ^ something is missing"},
    {__LINE__, R"(number "# 'kg" 1)", 2, "", "    # 'kg\n         ^ something is missing"},
    {__LINE__, R"(number "# 'ä'x" 1)", 2, "", "    # 'ä'x\n         ^ can't stand here"},
    {__LINE__, R"(number '#;(#' 1)", 2, "", "    #;(#\n        ^ something is missing"},
    {__LINE__, R"(number '#;#;#;#' 1)", 2, "", "    #;#;#;#\n         ^ can't stand here"},
    {__LINE__, R"(number "'1234567890123456789012345678901234567890123456789012345678901234'#" 1)", 2, "", "the picture is too long"},
    {__LINE__, R"(number 日 1)", 2, "", "    日\n    ^ no UTF-8, or no character of the code page"},
    {__LINE__, R"(date 'yyyy;MM' 1/2/03)", 2, "", "    yyyy;MM\n        ^ can't stand here"},
    {__LINE__, R"(date --from y M 1)", 2, "", "    y\n     ^ something is missing"},
    {__LINE__, R"(mask '9*9' 1)", 2, "", "    9*9\n      ^ can't stand here"},
    {__LINE__, R"(mask '^x' 1)", 2, "", "    ^x\n      ^ something is missing"},

    {__LINE__, R"(date "yyyy-MM-dd hhhh:mm:ss.mmmmmm" 'Jan 2, 2003 9:05 PM' '12:30 PM')", 0,
     "2003-01-02 21:05:00.000000\n1900-01-01 12:30:00.000000\n", ""},
    {__LINE__, R"(date --from yyyyMMdd M/d/yy 20030102 20030230)", 1, "1/2/03\n\n", "value 2: \"20030230\" can't be read"},
    {__LINE__, R"(date S 2003-01-02)", 0, "1/2/03\n", ""},
    {__LINE__, R"(date L 2003-01-02)", 0, "Thursday, January 02, 2003\n", ""},
    {__LINE__, R"(date T '9:05 PM')", 0, "9:05:00 PM\n", ""},
    {__LINE__, R"(date ED '1/1/1800')", 1, "\n", "value 1: \"1/1/1800\" can't be shown"},

    {__LINE__, R"(mask '(999) 999-9999' 5551234567 '555-1234' '')", 0, "(555) 123-4567\n(555) 123-4\n\n", ""},
    {__LINE__, R"(mask '(999) 999-9999' 55a5)", 1, "(555)\n", "value 1, column 3: \"55a5\" doesn't fit"},
    {__LINE__, R"(mask AA-99 ab123)", 1, "AB-12\n", "value 1, column 5: \"ab123\""},
    {__LINE__, R"(mask 'ID-999' ID-123 123)", 0, "ID-123\nID-123\n", ""},
    {__LINE__, R"(mask '!!*' größer)", 0, "GRößer\n", ""},

    {__LINE__, R"(unformat number '#,##0.00;(#,##0.00)' '(1,234.50)' x)", 1, "-1234.5\n\n", "value 2: \"x\""},
    {__LINE__, R"(unformat date 'M/d/yyyy' 1/2/2003)", 0, "2003-01-02\n", ""},
    {__LINE__, R"(unformat date 'hh:mm:ss.mmmmmm AMPM' '9:05:07.000123 PM')", 0, "21:05:07.000123\n", ""},
    {__LINE__, R"(unformat date 'M/d/yyyy hh:mm AMPM' '1/2/2003 9:05 PM' '1/2')", 1, "2003-01-02 21:05:00\n\n", "value 2: \"1/2\""},
    {__LINE__, R"(unformat mask '(999) 999-9999' '(555) 123-4567' '(55x')", 1, "5551234567\n\n", "value 2, column 4"},
    {__LINE__, R"(unformat numbers '#' 1)", 2, "", "the first argument is number, date or mask"},
    {__LINE__, R"(unformat date)", 2, "", "there is no picture"},

    {__LINE__, R"(--version)", 0, "morvl " MORVL_VERSION "\n", ""},
    {__LINE__, R"()", 2, "", "usage: morvl COMMAND"},
    {__LINE__, R"(numbre 1)", 2, "", "there is no command \"numbre\""},
    {__LINE__, R"(number)", 2, "", "there is no picture\nusage: morvl number [--local] PICTURE [VALUE...]"},
    {__LINE__, R"(number --loca 0 1)", 2, "", "there is no option --loca"},
    {__LINE__, R"(date --from)", 2, "", "the option --from needs a value"},
    {__LINE__, R"(profile here)", 2, "", "nothing to follow the options"},
    {__LINE__, R"(profile --force)", 2, "", "go with --write"},
    {__LINE__, R"(number 0 1 >/dev/full)", 2, "", "the output can't be written: No space left on device"},
    {__LINE__, R"(number 0 </)", 2, "", "standard input can't be read: Is a directory"},
};
// clang-format on

TEST(Morvl, ConvertsItsArguments) {
    for (const CallCase& call : kCalls) {
        const testing::ScopedTrace row(__FILE__, call.line, call.arguments);
        const Outcome outcome = RunMorvl(call.arguments);
        EXPECT_EQ(outcome.status, call.status);
        EXPECT_EQ(outcome.out, call.out);
        EXPECT_EQ(outcome.err.empty(), *call.err == 0) << outcome.err;
        ExpectTexts(outcome.err, {call.err});
    }
}

TEST(Morvl, HelpsWithEachCommand) {
    const Outcome all = RunMorvl("--help");
    EXPECT_EQ(all.status, 0);
    for (const std::string command : {"number", "date", "mask", "unformat", "profile"}) {
        const Outcome help = RunMorvl(command + " --help");
        EXPECT_EQ(help.status, 0);
        EXPECT_EQ(help.err, "");
        const std::string usage = help.out.substr(7, help.out.find('\n') - 7);  // behind "usage: "
        EXPECT_NE(all.out.find("  " + usage + "\n"), std::string::npos) << usage;
    }
}

struct InputCase {
    std::string input;
    int status;
    std::string out;
    std::string err;
};

TEST(Morvl, ReadsItsInputLineByLine) {
    const InputCase kInputs[] = {
        {"", 0, "", ""},
        {"1\n2", 0, "1\n2\n", ""},
        {"1\r\n\r\n\n2\r\n", 0, "1\n\n\n2\n", ""},
        {"\uFEFF1\n\uFEFF2\n", 1, "1\n\n", "line 2, column 1"},
        {std::string("1\n2\0003\n4\n", 8), 1, "1\n\n4\n", "line 2, column 2"},
        {"\xC3\n1\n", 1, "\n1\n", "line 1, column 1"},
        {"x\ny\n", 1, "\n\n", "morvl: line 2, column 1: \"y\""},
        {std::string(65535, ' ') + "1\n2\n", 0, "1\n2\n", ""},
        {std::string(200000, ' ') + "1\n2\n", 1, "\n2\n",
         "line 1: \"                    ...\" is longer than 65536 bytes"},
    };
    for (const InputCase& input : kInputs) {
        SCOPED_TRACE(input.input.substr(0, 20));
        const Outcome outcome = RunMorvl("number 0", input.input);
        EXPECT_EQ(outcome.status, input.status);
        EXPECT_EQ(outcome.out, input.out);
        EXPECT_EQ(outcome.err.empty(), input.err.empty());
        ExpectTexts(outcome.err, {input.err});
    }
}

// Lines of every length across the borders of the buffers.
TEST(Morvl, LosesNothingOfAFile) {
    std::string input;
    std::string wanted;
    for (int i = 0; i < 50000; ++i) {
        input += std::string(static_cast<size_t>(i % 37), ' ') + std::to_string(i) + "\n";
        wanted += std::to_string(i) + "\n";
    }
    const Outcome outcome = RunMorvl("number 0", input);
    EXPECT_EQ(outcome.status, 0);
    EXPECT_TRUE(outcome.out == wanted);
}

// What has been asked is answered before more is awaited.
TEST(Morvl, AnswersEachLine) {
    const Outcome outcome = RunProgram("mkfifo there back; " + std::string(MORVL_PROGRAM) +
                                       " number 0.0 <there >back & exec 3>there 4<back; echo 1 >&3; read answer <&4; "
                                       "echo 2$answer >&3; read answer <&4; echo $answer; exec 3>&-; wait");
    EXPECT_EQ(outcome.out, "21.0\n");
}

TEST(Morvl, WorksInTheLanguageInForce) {
    const std::string japanese = "LANG=ja_JP.UTF-8 " + std::string(MORVL_PROGRAM);
    EXPECT_EQ(RunProgram(japanese + R"( number "'合計' #,##0'円'" 1234567)").out, "合計 1,234,567円\n");
    EXPECT_EQ(RunProgram(japanese + R"( date M/d/yyyy 平成15年1月2日)").out, "1/2/2003\n");
    EXPECT_EQ(RunProgram(japanese + R"( number 0 ｱ日1)").err.substr(0, 25), "morvl: value 1, column 1:");
}

// ---- the profile ------------------------------------------------------------------------------------------------

const std::string kShow = std::string(MORVL_PROGRAM) + " profile";

TEST(MorvlProfile, ShowsTheSettingsInForce) {
    const Outcome defaults = RunProgram(kShow);
    EXPECT_EQ(defaults.status, 0);
    ExpectTexts(defaults.out, {"the library's defaults are in force", "($1,234,567.89)", "Thursday, January 02, 2003"});

    const Outcome changed = RunProgram(
        "mkdir morvl15; printf '[intl]\\nsDecimal=,\\nsThousand=\" \"\\niDigits=300\\n' >morvl15/profile.ini; " +
        kShow);
    EXPECT_EQ(changed.out.find("defaults"), std::string::npos);
    ExpectTexts(changed.out, {"sThousand    blank ", "-1 234 567,89" + std::string(298, '0') + "\n"});
}

TEST(MorvlProfile, IsNotMadeOfALocaleThatTellsNothing) {
    for (const auto& [locale, problem] :
         {std::pair("C", "tells nothing of money"), {"xx_YY.UTF-8", "isn't installed"}}) {
        const Outcome outcome = RunProgram(std::string("LC_ALL=") + locale + " " + kShow + " --write; echo $?; ls");
        EXPECT_EQ(outcome.out, "2\nerr\nin\nout\n");
        ExpectTexts(outcome.err, {std::string("\"") + locale + "\" " + problem});
    }
}

// A script's beginning that compiles a locale of the C library into the folder: a machine needs to have none installed.
// Charsets other than UTF-8 are quicker to compile.
std::string WithLocale(const std::string& name, const std::string& charset) {
    return "localedef -c -i " + name + " -f " + charset + " --no-archive ./" + name + " 2>&-; export LOCPATH=.; ";
}

class MorvlLocale : public testing::Test {
  protected:
    void SetUp() override {
        if (std::system("localedef --version >/dev/null 2>&1") != 0 ||
            !std::filesystem::exists("/usr/share/i18n/locales/de_DE")) {
            GTEST_SKIP() << "no localedef, or no locales to compile";
        }
    }
};

struct LocaleCase {
    const char* locale;
    const char* charset;
    const char* language;
    const char* samples;  // a number, an amount, a date, a long date, a time
};

constexpr LocaleCase kLocales[] = {
    {"de_DE", "ISO-8859-15", "de_DE", "-1.234.567,89|-1.234.567,89 €|02.01.2003|Thursday, 2 January 2003|21:05:07|"},
    {"ja_JP", "EUC-JP", "ja_JP", "-1,234,567.89|￥-1,234,568|2003/01/02|2003年01月02日|21:05:07|"},
    // The yen in full width is in no Western code page.
    {"ja_JP", "EUC-JP", "C", "-1,234,567.89|JPY-1,234,568|2003/01/02|Thursday, 2003 January 2|21:05:07|"},
    {"en_US", "ISO-8859-1", "C", "-1,234,567.89|-$1,234,567.89|01/02/2003|Thursday, January 2, 2003|09:05:07 PM|"},
};

TEST_F(MorvlLocale, MakesAProfile) {
    for (const LocaleCase& row : kLocales) {
        const Outcome outcome = RunProgram(WithLocale(row.locale, row.charset) + "LANG=" + row.language + " " + kShow +
                                           " --write --locale " + row.locale +
                                           " | sed -n '/^So/,$ s/^  an\\? [a-z ]*  //p' | tr '\\n' '|'");
        EXPECT_EQ(outcome.out, row.samples) << outcome.err;
    }
}

TEST_F(MorvlLocale, LeavesAProfileAloneUnlessItIsForced) {
    const Outcome outcome =
        RunProgram(WithLocale("de_DE", "ISO-8859-15") +
                   "export LANG=de_DE; mkdir morvl15; printf '[intl]\\nsDecimal=x\\n[other]\\nkept=1\\n' "
                   ">morvl15/profile.ini; " +
                   kShow + " --write; echo $?; grep sDecimal morvl15/profile.ini; " + kShow +
                   " --write --force >/dev/null; echo $?; grep -e sDecimal -e kept morvl15/profile.ini");
    EXPECT_EQ(outcome.out, "2\nsDecimal=x\n0\nsDecimal=\",\"\nkept=1\n");
    ExpectTexts(outcome.err, {"there is a profile"});
}

}  // namespace
