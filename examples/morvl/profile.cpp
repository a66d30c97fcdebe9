// The settings in force: shown, and made from the machine's locale.
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <iterator>
#include <string>
#include <vector>

#include <morvl15/datetime.h>
#include <morvl15/format.h>
#include <morvl15/host.h>

#include "command.h"
#include "encoding.h"
#include "locale_profile.h"
#include "numbers.h"

namespace {

constexpr char kSection[] = "intl";

// Where the host keeps the profile.
std::filesystem::path ProfilePath() {
    const char* configHome = std::getenv("XDG_CONFIG_HOME");
    const char* home = std::getenv("HOME");
    const bool isSet = configHome != nullptr && *configHome != 0;
    const std::filesystem::path folder =
        isSet ? std::filesystem::path(configHome) : std::filesystem::path(home != nullptr ? home : "") / ".config";
    return folder / "morvl15" / "profile.ini";
}

// ---- showing ----------------------------------------------------------------------------------------------------

void Row(const char* key, const std::string& value, const char* meaning) {
    constexpr size_t kValueWidth = 24;
    // In a code page a character has as many bytes as a terminal gives it columns.
    const std::string blanks(value.size() < kValueWidth ? kValueWidth - value.size() : 0, ' ');
    std::printf("  %-12s %s%s%s\n", key, Readable(value).c_str(), *meaning != 0 ? (blanks + ' ').c_str() : "", meaning);
}

void Row(const char* key, int32_t value, const char* meaning) {
    Row(key, std::to_string(value), meaning);
}

void Row(const char* key, char value, const char* meaning) {
    std::string shown(1, value);
    if (value == 0) shown = "none";
    if (value == ' ') shown = "blank";
    if (Readable(shown) == "\u00A0") shown = "no-break blank";
    Row(key, shown, meaning);
}

constexpr const char* kNegativeLayouts[] = {"($1)", "-$1", "$-1",  "$1-",  "(1$)", "-1$",
                                            "1-$",  "1$-", "-1 $", "-$ 1", "1 $-"};
constexpr const char* kSymbolPositions[] = {"$1", "1$", "$ 1", "1 $"};

void PrintSettings(const FMTIntlSettings& settings) {
    const int32_t position = (settings.iCurrAfter != 0 ? 1 : 0) + (settings.iCurrSpace != 0 ? 2 : 0);
    const bool knownLayout =
        settings.iNegCurr >= 0 && settings.iNegCurr < static_cast<int32_t>(std::size(kNegativeLayouts));
    std::printf("Numbers\n");
    Row("sThousand", settings.sThousand, "group separator");
    Row("sDecimal", settings.sDecimal, "decimal separator");
    Row("iDigits", settings.iDigits, "decimal places");
    Row("iLzero", settings.iLzero, settings.iLzero != 0 ? "0.5, not .5" : ".5, not 0.5");
    Row("sList", settings.sList, "list separator");
    std::printf("Amounts\n");
    Row("sCurrency", settings.sCurrency, "currency symbol");
    Row("iCurrency", position, kSymbolPositions[position]);
    Row("iNegCurr", settings.iNegCurr, knownLayout ? kNegativeLayouts[settings.iNegCurr] : "no layout, 0 to 10 are");
    Row("iCurrDigits", settings.iCurrDigits, "decimal places");
    std::printf("Dates and times\n");
    Row("sShortDate", settings.sShortDate, "short date picture");
    Row("sLongDate", settings.sLongDate, "long date picture");
    Row("sTime", settings.sTime, "time separator");
    Row("iTime", settings.iTime, settings.iTime != 0 ? "24-hour clock" : "12-hour clock");
    Row("iTLZero", settings.iTLZero, settings.iTLZero != 0 ? "09:05, not 9:05" : "9:05, not 09:05");
    Row("s1159", settings.s1159, "morning");
    Row("s2359", settings.s2359, "afternoon");
    std::printf("Country\n");
    Row("iCountry", settings.iCountry, "country code");
    Row("sCountry", settings.sCountry, "country");
    Row("sLanguage", settings.sLanguage, "language");
    Row("iMeasure", settings.iMeasure, settings.iMeasure == 0 ? "metric" : "U.S. measures");
}

std::string NumberShown(int32_t type, const char* plain) {
    std::vector<char> text(RoomForNumber("$"));
    FMTCntlBlock block{};
    FMTInitCntlBlock(&block);
    block.UseProfile = 1;
    block.Type = type;
    Number value{};
    NumAsciiToNumber(&value, plain);
    block.Value = value;
    block.Output = text.data();
    return FMTFormatNumber(&block) != 0 ? text.data() : "?";
}

std::string DateShown(int32_t type, bool isLong) {
    char text[512] = {};
    FMTCntlBlock block{};
    FMTInitCntlBlock(&block);
    block.UseProfile = 1;
    block.Type = type;
    block.Flags = FMT_DEFAULT_TIME | (isLong ? FMT_LONG_FORM : 0);
    block.Month = 1, block.Day = 2, block.Year = 2003;
    block.Hour = 21, block.Minute = 5, block.Second = 7;
    block.Output = text;
    return FMTFormatDateTime(&block) != 0 ? text : "?";
}

void PrintSamples() {
    std::printf("So the library shows\n");
    Row("a number", NumberShown(FMT_TYPE_NUMBER, "-1234567.89"), "");
    Row("an amount", NumberShown(FMT_TYPE_CURRENCY, "-1234567.89"), "");
    Row("a date", DateShown(FMT_TYPE_DATE, false), "");
    Row("a long date", DateShown(FMT_TYPE_DATE, true), "");
    Row("a time", DateShown(FMT_TYPE_TIME, false), "");
}

int ShowProfile() {
    const std::filesystem::path path = ProfilePath();
    const bool isThere = std::filesystem::exists(path);
    std::printf(
        "Profile %s%s\nCode page %u\n\n", path.c_str(),
        isThere ? "" : "\n(not there: the library's defaults are in force; \"morvl profile --write\" makes one)",
        GetACP());
    FMTIntlSettings settings;
    FMTGetProfileIntl(&settings);
    PrintSettings(settings);
    std::printf("\n");
    PrintSamples();
    return kGood;
}

// ---- making one -------------------------------------------------------------------------------------------------

int WriteProfile(const Arguments& arguments) {
    const std::filesystem::path path = ProfilePath();
    if (std::filesystem::exists(path) && !arguments.Has("--force")) {
        std::fprintf(stderr, "morvl profile: there is a profile, %s; --force changes it\n", path.c_str());
        return kCannotRun;
    }
    std::string problem;
    const std::string* name = arguments.ValueOf("--locale");
    const auto values = ConventionsOfLocale(name != nullptr ? *name : "", &problem);
    if (!values) {
        std::fprintf(stderr, "morvl profile: %s\n", problem.c_str());
        return kCannotRun;
    }
    for (const ProfileValue& value : *values) {
        // A value's quotes keep the blanks at its ends.
        if (WriteProfileStringA(kSection, value.key, ('"' + value.value + '"').c_str()) != FALSE) continue;
        std::fprintf(stderr, "morvl profile: %s can't be written\n", path.c_str());
        return kCannotRun;
    }
    FMTWinIniChanged();
    return ShowProfile();
}

constexpr Option kOptions[] = {{"--write", false}, {"--force", false}, {"--locale", true}};

int RunProfile(const Command& command, const Arguments& arguments) {
    if (!arguments.Operands().empty()) return UsageError(command, "there is nothing to follow the options");
    if (arguments.Has("--write")) return WriteProfile(arguments);
    if (arguments.Has("--force") || arguments.Has("--locale")) {
        return UsageError(command, "--force and --locale go with --write");
    }
    return ShowProfile();
}

}  // namespace

const Command kProfileCommand = {
    "profile",
    "[--write [--force] [--locale NAME]]",
    "show the settings in force, or make them from the locale",
    R"(Shows the regional settings in force: where they come from, each under the key that it has in section [intl] of the
profile, and a few values as the library shows them.

  --write         writes a profile from the conventions of the machine's locale (LC_ALL, LANG); an existing one stays
  --force         ... but with this its keys are changed
  --locale NAME   ... from this locale, such as de_DE.UTF-8

The profile is the file morvl15/profile.ini below XDG_CONFIG_HOME (~/.config without one).
)",
    kOptions,
    RunProfile};
