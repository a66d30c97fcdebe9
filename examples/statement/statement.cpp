// A statement: reads a ledger of amounts as people write them in one country, sums it exactly, and shows it in the
// conventions of three countries side by side.
//
//     statement [--convention US|German|Japanese] [FILE.csv]
//
// The ledger is a text file in UTF-8: date, text, amount, separated by ";" or ",", a field in double quotes where it
// holds the separator. A first line "# convention: German" tells how its amounts are written; "#" starts a comment, and a
// line whose amount can't be read is reported with its number (the column heads of the first line are not).
//
// The library's texts are in the ANSI code page of the system; the amounts here are within Windows-1252.
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iostream>
#include <iterator>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <morvl15/format.h>
#include <morvl15/intl.h>
#include <morvl15/number.h>

namespace {

// How a country writes money.
struct Convention {
    const char* name;
    char thousandSeparator;
    char decimalSeparator;
    const char* currency;
    int32_t currencyPosition;  // 0 $1, 1 1$, 2 $ 1, 3 1 $
    int32_t negativeLayout;    // the place of sign, symbol and amount, 0 to 10
    const char* picture;       // in this country's own separators
};

constexpr Convention kConventions[] = {
    {"US", ',', '.', "$", 0, 0, "$#,##0.00;($#,##0.00)"},
    {"German", '.', ',', "DM", 3, 8, "#.##0,00 DM;-#.##0,00 DM"},
    {"Japanese", ',', '.', "\xA5", 0, 1, "\xA5#,##0;-\xA5#,##0"},
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
    return block;
}

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

// ---- text -------------------------------------------------------------------------------------------------------

// Windows-1252 to UTF-8, for the bytes that amounts hold: from 0xA0 up the code page agrees with Unicode.
std::string ToUtf8(const std::string& text) {
    std::string utf8;
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte < 0x80) {
            utf8 += c;
        } else {
            utf8 += static_cast<char>(0xC0 | (byte >> 6));
            utf8 += static_cast<char>(0x80 | (byte & 0x3F));
        }
    }
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

constexpr size_t kDateWidth = 12;
constexpr size_t kTextWidth = 36;
constexpr size_t kAmountWidth = 18;

void PrintRow(std::string_view date, std::string_view text, const Number& amount) {
    PrintLeft(date, kDateWidth);
    PrintLeft(text, kTextWidth);
    for (const Convention& convention : kConventions) PrintRight(ToUtf8(ShowAmount(amount, convention)), kAmountWidth);
    std::cout << '\n';
}

void PrintRule() {
    std::cout << std::string(kDateWidth + kTextWidth + kAmountWidth * std::size(kConventions), '-') << '\n';
}

void PrintHead() {
    PrintLeft("Date", kDateWidth);
    PrintLeft("Text", kTextWidth);
    for (const Convention& convention : kConventions) PrintRight(convention.name, kAmountWidth);
    std::cout << '\n';
    PrintRule();
}

struct Totals {
    Number sum{};
    Number largest{};  // null until the first amount
    int32_t count = 0;

    Totals() { NumLongToNumber(&sum, 0); }
    void Add(const Number& amount) {
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

void PrintTotals(const Totals& totals) {
    PrintRule();
    PrintRow("", "Sum of " + std::to_string(totals.count) + " amounts", totals.sum);
    if (totals.count == 0) return;
    PrintRow("", "Average", totals.Average());
    PrintRow("", "Largest", totals.largest);
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

// Result: the number of lines whose amount can't be read.
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
        const std::string date = NextField(line, separator, at);
        const std::string text = NextField(line, separator, at);
        const std::string amountText = NextField(line, separator, at);
        const std::optional<Number> amount = ReadAmount(amountText, *convention);
        if (amount) {
            PrintRow(date, text, *amount);
            totals.Add(*amount);
        } else if (!expectsHeads) {
            std::cerr << "line " << lineNumber << ": no " << convention->name << " amount: \"" << amountText << "\"\n";
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
