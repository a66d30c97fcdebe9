#include "locale_profile.h"

#include <langinfo.h>

#include <algorithm>
#include <climits>
#include <clocale>
#include <cstdlib>
#include <cstring>
#include <string_view>

#include <morvl15/datetime.h>
#include <morvl15/format.h>

#include "encoding.h"

namespace {

// ---- texts ------------------------------------------------------------------------------------------------------

// A text of the locale in UTF-8.
std::string TextOf(const char* text) {
    static Charset charset("UTF-8", nl_langinfo(CODESET));
    std::string utf8;
    size_t badAt = 0;
    return charset.Convert(text, &utf8, &badAt) ? utf8 : "";
}

// ... in the code page; empty where it isn't there or doesn't fit into the room of a field.
std::string Fitted(const std::string& utf8, size_t room) {
    std::string text;
    size_t badAt = 0;
    return ToCodePage().Convert(utf8, &text, &badAt) && text.size() < room ? text : "";
}

// A separator is one byte. What the locale writes with a character of its own stands in the code page as the nearest
// one there.
char Separator(const char* text) {
    struct Nearest {
        std::string_view separator;
        const char* nearest[2];
    };
    static constexpr Nearest kNearest[] = {
        {"\u202F", {"\u00A0", " "}},  // narrow no-break space
        {"\u00A0", {"\u00A0", " "}},  // no-break space
        {"\u2019", {"'", "'"}},       // apostrophe of Switzerland
        {"\u066B", {",", ","}},       // Arabic decimal and group separators
        {"\u066C", {".", "."}},
    };
    const std::string utf8 = TextOf(text);
    for (const Nearest& row : kNearest) {
        if (utf8 != row.separator) continue;
        const std::string first = Fitted(row.nearest[0], 2);
        return first.empty() ? *row.nearest[1] : first[0];
    }
    const std::string fitted = Fitted(utf8, 2);
    return fitted.empty() ? '\0' : fitted[0];
}

// ---- money ------------------------------------------------------------------------------------------------------

// Layouts of a negative amount by the place of the sign as the C library tells it (0 parentheses, 1 before both, 2
// behind both, 3 directly before the symbol, 4 directly behind it), without and with a blank between symbol and amount.
// Where no layout is quite it, the nearest one stands.
constexpr int kSignPlaces = 5;
constexpr int kSymbolFirst[kSignPlaces][2] = {{0, 0}, {1, 9}, {3, 3}, {1, 9}, {2, 2}};
constexpr int kSymbolLast[kSignPlaces][2] = {{4, 4}, {5, 8}, {7, 10}, {6, 6}, {7, 10}};

int NegativeLayout(const lconv& conventions) {
    const int place = conventions.n_sign_posn < kSignPlaces ? conventions.n_sign_posn : 1;
    const int blank = conventions.n_sep_by_space == 1 ? 1 : 0;
    return conventions.n_cs_precedes == 1 ? kSymbolFirst[place][blank] : kSymbolLast[place][blank];
}

int SymbolPosition(const lconv& conventions) {
    return (conventions.p_cs_precedes == 1 ? 0 : 1) + (conventions.p_sep_by_space == 1 ? 2 : 0);
}

// The symbol, or where the code page or the field doesn't hold it the three letters of the currency.
std::string CurrencySymbol(const lconv& conventions) {
    const std::string symbol = Fitted(TextOf(conventions.currency_symbol), sizeof FMTIntlSettings::sCurrency);
    return !symbol.empty() ? symbol : std::string(conventions.int_curr_symbol).substr(0, 3);
}

// ---- dates ------------------------------------------------------------------------------------------------------

struct DateField {
    char letter;  // behind the "%"
    const char* padded;
    const char* plain;  // with "-" between
};
constexpr DateField kDateFields[] = {
    {'d', "dd", "d"},
    {'e', "d", "d"},
    {'m', "MM", "M"},
    {'y', "yy", "yy"},
    {'Y', "yyyy", "yyyy"},
    {'b', "MMM", "MMM"},
    {'h', "MMM", "MMM"},
    {'B', "MMMM", "MMMM"},
    {'a', "ddd", "ddd"},
    {'A', "dddd", "dddd"},
    {'D', "MM/dd/yy", "MM/dd/yy"},
    {'F', "yyyy-MM-dd", "yyyy-MM-dd"},
};
constexpr std::string_view kBare = ",-./:\\ ";  // stands in a picture as it is

// A format of the C library as a date picture in UTF-8; empty for one with a field that pictures don't have.
std::string DatePictureOf(const std::string& format) {
    std::string picture;
    bool isQuoted = false;
    const auto quote = [&](bool on) {
        if (on != isQuoted) picture += '\'';
        isQuoted = on;
    };
    for (size_t i = 0; i < format.size(); ++i) {
        if (format[i] != '%') {
            quote(kBare.find(format[i]) == std::string_view::npos);
            picture += format[i];
            continue;
        }
        const size_t letter = format.find_first_not_of("-EO_0", i + 1);
        if (letter == std::string::npos) return "";
        const auto* field = std::ranges::find(kDateFields, format[letter], &DateField::letter);
        if (field == std::end(kDateFields)) return "";
        quote(false);
        picture += format[i + 1] == '-' ? field->plain : field->padded;
        i = letter;
    }
    quote(false);
    return picture;
}

// Month-day-year, day-month-year, year-month-day, in the numbering of the profile.
struct DateOrder {
    char firstLetter;
    const char* shortPicture;  // where the locale's own doesn't fit
    const char* longPicture;
};
constexpr DateOrder kDateOrders[] = {
    {'M', "MM/dd/yyyy", "dddd, MMMM d, yyyy"},
    {'d', "dd/MM/yyyy", "dddd, d MMMM yyyy"},
    {'y', "yyyy/MM/dd", "dddd, yyyy MMMM d"},
};

void AddDates(std::vector<ProfileValue>* values) {
    const std::string local = DatePictureOf(TextOf(nl_langinfo(D_FMT)));
    const size_t firstField = local.find_first_of("Mdy");
    const char letter = firstField == std::string::npos ? 'M' : local[firstField];
    const DateOrder& order = *std::ranges::find(kDateOrders, letter, &DateOrder::firstLetter);
    std::string shortPicture = Fitted(local, sizeof FMTIntlSettings::sShortDate);
    if (shortPicture.empty()) shortPicture = order.shortPicture;
    // Words of the language between the fields make a long picture.
    const std::string worded =
        local.find('\'') != std::string::npos ? Fitted(local, sizeof FMTIntlSettings::sLongDate) : "";
    const size_t separator = shortPicture.find_first_of("./-");
    values->push_back({"iDate", std::to_string(&order - kDateOrders)});
    values->push_back({"sDate", separator == std::string::npos ? "/" : std::string(1, shortPicture[separator])});
    values->push_back({"sShortDate", shortPicture});
    values->push_back({"sLongDate", worded.empty() ? order.longPicture : worded});
}

void AddTimes(std::vector<ProfileValue>* values) {
    const std::string format = nl_langinfo(T_FMT);
    const bool is24Hour = format.find_first_of("HkTR") != std::string::npos;
    const bool isPlain = format.find_first_of("kl-") != std::string::npos;
    values->push_back({"iTime", is24Hour ? "1" : "0"});
    values->push_back({"iTLZero", isPlain ? "0" : "1"});
    values->push_back({"sTime", format.find('.') != std::string::npos ? "." : ":"});
    const std::string morning = Fitted(TextOf(nl_langinfo(AM_STR)), sizeof FMTIntlSettings::s1159);
    const std::string afternoon = Fitted(TextOf(nl_langinfo(PM_STR)), sizeof FMTIntlSettings::s2359);
    values->push_back({"s1159", morning.empty() || afternoon.empty() ? "AM" : morning});
    values->push_back({"s2359", morning.empty() || afternoon.empty() ? "PM" : afternoon});
}

void AddNumbers(const lconv& conventions, std::vector<ProfileValue>* values) {
    const char decimal = Separator(conventions.decimal_point);
    const char group = Separator(conventions.thousands_sep);
    values->push_back({"sDecimal", decimal == 0 ? "." : std::string(1, decimal)});
    values->push_back({"sThousand", group == 0 ? "" : std::string(1, group)});
    values->push_back({"sList", decimal == ',' ? ";" : ","});
    values->push_back({"iDigits", "2"});  // of this the C library tells nothing
    values->push_back({"iLzero", "1"});
    values->push_back({"sCurrency", CurrencySymbol(conventions)});
    values->push_back({"iCurrency", std::to_string(SymbolPosition(conventions))});
    values->push_back({"iNegCurr", std::to_string(NegativeLayout(conventions))});
    values->push_back({"iCurrDigits", std::to_string(conventions.frac_digits)});
}

void AddCountry(std::vector<ProfileValue>* values) {
    const std::string prefix = nl_langinfo(_NL_TELEPHONE_INT_PREFIX);
    const std::string country = Fitted(TextOf(nl_langinfo(_NL_ADDRESS_COUNTRY_NAME)), sizeof FMTIntlSettings::sCountry);
    const std::string language = nl_langinfo(_NL_ADDRESS_LANG_TERM);
    if (!prefix.empty()) values->push_back({"iCountry", prefix});
    values->push_back({"sCountry", country.empty() ? nl_langinfo(_NL_ADDRESS_COUNTRY_AB3) : country});
    if (!language.empty()) values->push_back({"sLanguage", language.substr(0, 3)});
    constexpr char kMetric = 1;
    values->push_back({"iMeasure", *nl_langinfo(_NL_MEASUREMENT_MEASUREMENT) == kMetric ? "0" : "1"});
}

std::string NameOr(const std::string& name) {
    if (!name.empty()) return name;
    for (const char* variable : {"LC_ALL", "LC_MONETARY", "LANG"}) {
        const char* value = std::getenv(variable);
        if (value != nullptr && *value != 0) return value;
    }
    return "C";
}

}  // namespace

std::optional<std::vector<ProfileValue>> ConventionsOfLocale(const std::string& name, std::string* problem) {
    if (std::setlocale(LC_ALL, name.c_str()) == nullptr) {
        *problem =
            "the locale \"" + NameOr(name) + "\" isn't installed on this machine; \"locale -a\" shows those that are";
        return std::nullopt;
    }
    const lconv& conventions = *std::localeconv();
    if (conventions.frac_digits == CHAR_MAX) {
        *problem =
            "the locale \"" + NameOr(name) + "\" tells nothing of money and dates; name one with --locale or LC_ALL";
        return std::nullopt;
    }
    std::vector<ProfileValue> values;
    AddCountry(&values);
    AddNumbers(conventions, &values);
    AddDates(&values);
    AddTimes(&values);
    return values;
}
