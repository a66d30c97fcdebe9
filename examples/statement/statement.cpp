// A statement: reads a ledger of dates and amounts as people write them in one country, sums it exactly, and shows it
// in the conventions of three countries side by side.
//
//     statement [--convention US|German|Japanese] [FILE.csv]
//
// The ledger is a text file in UTF-8: date, text, amount, separated by ";" or ",", a field in double quotes where it
// holds the separator. A first line "# convention: German" tells how its dates and amounts are written; a date may
// stand in any form that the library reads ("02.01.2003", "3-Jan-2003", "2003-01-07"). "#" starts a comment, and a line
// that can't be read is reported with its number (the column heads of the first line are not).
//
// The library's texts are in the ANSI code page of the system; the amounts here are within Windows-1252, and Japanese
// dates are Shift-JIS.
#include <iconv.h>

#include <cstring>
#include <fstream>
#include <iostream>
#include <iterator>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <morvl15/datetime.h>
#include <morvl15/format.h>
#include <morvl15/number.h>

namespace {

// How a country writes money and dates.
struct Convention {
    const char* name;
    char thousandSeparator;
    char decimalSeparator;
    const char* currency;
    int32_t currencyPosition;  // 0 $1, 1 1$, 2 $ 1, 3 1 $
    int32_t negativeLayout;    // the place of sign, symbol and amount, 0 to 10
    const char* picture;       // of amounts, in this country's own separators
    const char* shortDate;
    const char* longDate;
    int32_t longForm;  // of dates: 0 by the long picture, 3 in the Japanese era form
};

constexpr Convention kConventions[] = {
    {"US", ',', '.', "$", 0, 0, "$#,##0.00;($#,##0.00)", "M/d/yyyy", "dddd, MMMM dd, yyyy", 0},
    {"German", '.', ',', "DM", 3, 8, "#.##0,00 DM;-#.##0,00 DM", "dd.MM.yyyy", "dddd, d. MMMM yyyy", 0},
    {"Japanese", ',', '.', "\xA5", 0, 1, "\xA5#,##0;-\xA5#,##0", "yyyy/MM/dd", "", 3},
};

// A control block that takes its regional values from a convention and not from the user's profile.
FMTCntlBlock BlockFor(const Convention& convention, int32_t type) {
    FMTCntlBlock block{};
    FMTInitCntlBlock(&block);
    block.Type = type;
    block.UseProfile = 0;
    block.ThousandSep = convention.thousandSeparator;
    block.DecimalSep = convention.decimalSeparator;
    block.Digits = 2;
    block.LeadingZero = 1;
    block.Currency = convention.currency;
    block.CurrencyPos = convention.currencyPosition;
    block.NegCurrency = convention.negativeLayout;
    block.ShortDatePic = convention.shortDate;
    block.LongDatePic = convention.longDate;
    return block;
}

constexpr int32_t kTypeDate = 1;
constexpr int32_t kTypeCurrency = 5;
constexpr int32_t kTypePicture = 6;

std::optional<Number> ReadAmount(const std::string& text, const Convention& convention) {
    FMTCntlBlock block = BlockFor(convention, kTypeCurrency);
    block.Input = text.c_str();
    if (!FMTValidateNumber(&block)) return std::nullopt;
    return block.Value;
}

std::string ShowAmount(const Number& amount, const Convention& convention) {
    char text[128] = {};
    FMTCntlBlock block = BlockFor(convention, kTypePicture);
    block.Picture = convention.picture;
    block.Value = amount;
    block.Output = text;
    if (!FMTFormatNumber(&block)) return "?";
    return text;
}

std::optional<DatDef> ReadDate(const std::string& text, const Convention& convention) {
    FMTCntlBlock block = BlockFor(convention, kTypeDate);
    block.Input = text.c_str();
    if (!FMTValidateDateTime(&block)) return std::nullopt;
    return DatDef{block.Month, block.Day, block.Year, 0, 0, 0, 0};
}

constexpr int32_t kShortForm = 1;

// Form 1 is the convention's short picture, its own long form is told by the convention.
std::string ShowDate(const DatDef& date, const Convention& convention, int32_t form) {
    char text[128] = {};
    FMTCntlBlock block = BlockFor(convention, kTypeDate);
    block.DateForm = form;
    block.Month = date.Month;
    block.Day = date.Day;
    block.Year = date.Year;
    block.Output = text;
    if (!FMTFormatDateTime(&block)) return "?";
    return text;
}

// ---- text -------------------------------------------------------------------------------------------------------

std::string ToUtf8(std::string text, const char* codePage) {
    std::string utf8(4 * text.size() + 1, '\0');
    iconv_t converter = iconv_open("UTF-8", codePage);
    char* in = text.data();
    char* out = utf8.data();
    size_t inLeft = text.size();
    size_t outLeft = utf8.size();
    const bool converted = iconv(converter, &in, &inLeft, &out, &outLeft) != static_cast<size_t>(-1);
    iconv_close(converter);
    utf8.resize(converted ? utf8.size() - outLeft : 0);
    return utf8;
}

size_t CharactersIn(std::string_view utf8) {
    size_t count = 0;
    for (const char c : utf8) count += (static_cast<unsigned char>(c) & 0xC0) != 0x80;
    return count;
}

std::string CutTo(std::string_view utf8, size_t characters) {
    size_t count = 0;
    size_t end = 0;
    while (end < utf8.size()) {
        const bool starts = (static_cast<unsigned char>(utf8[end]) & 0xC0) != 0x80;
        if (starts && count++ == characters) break;
        ++end;
    }
    return std::string(utf8.substr(0, end));
}

void PrintLeft(std::string_view utf8, size_t width) {
    const std::string text = CutTo(utf8, width);
    std::cout << text << std::string(width - CharactersIn(text), ' ');
}

void PrintRight(const std::string& utf8, size_t width) {
    const size_t characters = CharactersIn(utf8);
    std::cout << std::string(characters < width ? width - characters : 0, ' ') << utf8;
}

// One field of a line, from `at`, which moves behind the separator.
std::string NextField(const std::string& line, char separator, size_t& at) {
    std::string field;
    bool quoted = false;
    for (; at < line.size(); ++at) {
        const char c = line[at];
        if (c == '"') {
            quoted = !quoted;
        } else if (c == separator && !quoted) {
            break;
        } else {
            field += c;
        }
    }
    if (at < line.size()) ++at;
    return field;
}

// ---- the statement ----------------------------------------------------------------------------------------------

constexpr size_t kTextWidth = 36;
constexpr size_t kDateWidth = 13;
constexpr size_t kAmountWidth = 15;

void PrintRow(const DatDef* date, std::string_view text, const Number& amount) {
    PrintLeft(text, kTextWidth);
    for (const Convention& convention : kConventions) {
        PrintRight(date == nullptr ? "" : ShowDate(*date, convention, kShortForm), kDateWidth);
        PrintRight(ToUtf8(ShowAmount(amount, convention), "WINDOWS-1252"), kAmountWidth);
    }
    std::cout << '\n';
}

void PrintRule() {
    std::cout << std::string(kTextWidth + (kDateWidth + kAmountWidth) * std::size(kConventions), '-') << '\n';
}

void PrintHead() {
    PrintLeft("Text", kTextWidth);
    for (const Convention& convention : kConventions) PrintRight(convention.name, kDateWidth + kAmountWidth);
    std::cout << '\n';
    PrintRule();
}

struct Totals {
    Number sum{};
    Number largest{};  // null until the first amount
    int32_t count = 0;
    DatDef first{};
    DatDef last{};

    Totals() { NumLongToNumber(&sum, 0); }
    void Add(const DatDef& date, const Number& amount) {
        if (count == 0) first = date;
        last = date;
        NumAddition(&sum, &sum, &amount);
        if (NumIsNull(&largest) || NumCompare(&amount, &largest) > 0) largest = amount;
        ++count;
    }
    // Exact to the last digit of a Number, then rounded half away from zero to two places.
    Number Average() const {
        Number average{};
        NumLongToNumber(&average, count);
        NumDivide(&average, &sum, &average);
        NumRound(&average, &average, 2);
        return average;
    }
};

void PrintPeriod(const Totals& totals) {
    for (const Convention& convention : kConventions) {
        const char* codePage = convention.longForm == 0 ? "WINDOWS-1252" : "SHIFT_JIS";
        std::cout << "From " << ToUtf8(ShowDate(totals.first, convention, convention.longForm), codePage) << " to "
                  << ToUtf8(ShowDate(totals.last, convention, convention.longForm), codePage) << '\n';
    }
}

void PrintTotals(const Totals& totals) {
    PrintRule();
    PrintRow(nullptr, "Sum of " + std::to_string(totals.count) + " amounts", totals.sum);
    if (totals.count == 0) return;
    PrintRow(nullptr, "Average", totals.Average());
    PrintRow(nullptr, "Largest", totals.largest);
    std::cout << '\n';
    PrintPeriod(totals);
}

const Convention* FindConvention(std::string_view name) {
    for (const Convention& convention : kConventions) {
        if (name == convention.name) return &convention;
    }
    return nullptr;
}

// "# convention: NAME" names the convention; any other comment names none.
const Convention* ConventionOfComment(const std::string& line) {
    constexpr std::string_view kMark = "# convention: ";
    return line.starts_with(kMark) ? FindConvention(std::string_view(line).substr(kMark.size())) : nullptr;
}

// Result: the number of lines that can't be read.
int PrintStatement(std::istream& ledger, const Convention* convention) {
    Totals totals;
    int bad = 0;
    int lineNumber = 0;
    bool expectsHeads = true;
    PrintHead();
    for (std::string line; std::getline(ledger, line);) {
        ++lineNumber;
        if (!line.empty() && line.back() == '\r') line.pop_back();
        if (line.empty()) continue;
        if (line.front() == '#') {
            if (const Convention* told = ConventionOfComment(line)) convention = told;
            continue;
        }
        const char separator = line.find(';') != std::string::npos ? ';' : ',';
        size_t at = 0;
        const std::string dateText = NextField(line, separator, at);
        const std::string text = NextField(line, separator, at);
        const std::string amountText = NextField(line, separator, at);
        const std::optional<DatDef> date = ReadDate(dateText, *convention);
        const std::optional<Number> amount = ReadAmount(amountText, *convention);
        if (date && amount) {
            PrintRow(&*date, text, *amount);
            totals.Add(*date, *amount);
        } else if (!expectsHeads) {
            std::cerr << "line " << lineNumber << ": no " << convention->name << (date ? " amount" : " date") << ": \""
                      << (date ? amountText : dateText) << "\"\n";
            ++bad;
        }
        expectsHeads = false;
    }
    PrintTotals(totals);
    return bad;
}

int Usage() {
    std::cerr << "usage: statement [--convention US|German|Japanese] [FILE.csv]\n";
    return 2;
}

}  // namespace

int main(int argc, char** argv) {
    const Convention* convention = &kConventions[0];
    const char* path = nullptr;
    for (int i = 1; i < argc; ++i) {
        if (std::strcmp(argv[i], "--convention") == 0 && i + 1 < argc) {
            convention = FindConvention(argv[++i]);
            if (convention == nullptr) return Usage();
        } else if (argv[i][0] == '-' || path != nullptr) {
            return Usage();
        } else {
            path = argv[i];
        }
    }
    if (path == nullptr) return PrintStatement(std::cin, convention) == 0 ? 0 : 1;
    std::ifstream file(path);
    if (!file) {
        std::cerr << "statement: cannot read " << path << '\n';
        return 2;
    }
    return PrintStatement(file, convention) == 0 ? 0 : 1;
}
