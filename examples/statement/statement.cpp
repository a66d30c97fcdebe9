// A statement: reads a ledger of dates and amounts as people write them in one country, sums it exactly, and shows it
// in the conventions of three countries side by side.
//
//     statement [--convention US|German|Japanese] [--pdf FILE.pdf] [FILE.csv]
//
// The ledger is a text file in UTF-8: date, text, amount, separated by ";" or ",", a field in double quotes where it
// holds the separator. A first line "# convention: German" tells how its dates and amounts are written; a date may
// stand in any form that the library reads ("02.01.2003", "3-Jan-2003", "2003-01-07"). "#" starts a comment, and a line
// that can't be read is reported with its number (the column heads of the first line are not).
//
// The ledger is read line by line: one of a million lines (make_ledger.py writes it) takes no more memory than a short one.
// On a terminal a line of progress stands on standard error while the statement goes to a file.
//
// With --pdf it is printed, through the native host's printer "PDF", and kept in memory until then. An interrupt (Ctrl-C)
// cancels it, and leaves no file.
#include <algorithm>
#include <csignal>
#include <cstring>
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>
#include <string_view>

#include "ledger.h"
#include "pages.h"

namespace {

// ---- text -------------------------------------------------------------------------------------------------------

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

constexpr size_t kTextWidth = 36;
constexpr size_t kDateWidth = 13;
constexpr size_t kAmountWidth = 15;

void PrintRow(const DatDef* date, std::string_view text, const Number& amount) {
    PrintLeft(text, kTextWidth);
    for (const Convention& convention : kConventions) {
        PrintRight(date == nullptr ? "" : ShowDate(*date, convention), kDateWidth);
        PrintRight(ShowAmount(amount, convention), kAmountWidth);
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

void PrintPeriod(const Totals& totals) {
    for (const Convention& convention : kConventions) {
        std::cout << "From " << ShowLongDate(totals.first, convention) << " to "
                  << ShowLongDate(totals.last, convention) << '\n';
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

// Result: the number of lines that can't be read.
int ShowStatement(std::istream& ledger, const Convention* convention) {
    Totals totals;
    PrintHead();
    const int bad = ReadLedger(ledger, convention, [&](const Entry& entry) {
        PrintRow(&entry.date, entry.text, entry.amount);
        totals.Add(entry);
        return true;
    });
    PrintTotals(totals);
    return bad;
}

// ---- the printed statement --------------------------------------------------------------------------------------

volatile std::sig_atomic_t interrupted = 0;

void Interrupt(int signal) {
    interrupted = 1;
    std::signal(signal, SIG_DFL);  // a second one ends the program
}

bool IsInterrupted() {
    return interrupted != 0;
}

// Result: whether all lines could be read and the statement was printed.
bool PrintStatement(std::istream& ledger, const Convention* convention, const char* pdf) {
    Statement statement;
    const int bad = ReadLedger(ledger, convention, [&](const Entry& entry) {
        statement.entries.push_back(entry);
        statement.totals.Add(entry);
        return !IsInterrupted();
    });
    const char* outcome = PrintPages(statement, pdf, IsInterrupted);
    if (outcome != nullptr) std::cerr << "statement: " << outcome << '\n';
    return bad == 0 && outcome == nullptr;
}

struct Options {
    const Convention* convention = &kConventions[0];
    const char* pdf = nullptr;   // null: a text on standard output
    const char* path = nullptr;  // null: standard input
};

bool ReadOptions(char** arguments, Options* options) {
    for (; *arguments != nullptr; ++arguments) {
        const std::string_view name = *arguments;
        if (name == "--convention" && arguments[1] != nullptr) {
            options->convention = FindConvention(*++arguments);
            if (options->convention == nullptr) return false;
        } else if (name == "--pdf" && arguments[1] != nullptr) {
            options->pdf = *++arguments;
        } else if (name.starts_with('-') || options->path != nullptr) {
            return false;
        } else {
            options->path = *arguments;
        }
    }
    return true;
}

}  // namespace

int main(int /*argc*/, char** argv) {
    std::ios::sync_with_stdio(false);
    Options options;
    if (!ReadOptions(argv + 1, &options)) {
        std::cerr << "usage: statement [--convention US|German|Japanese] [--pdf FILE.pdf] [FILE.csv]\n";
        return 2;
    }
    if (options.pdf != nullptr) std::signal(SIGINT, Interrupt);
    std::ifstream file;
    if (options.path != nullptr) file.open(options.path);
    if (!file) {
        std::cerr << "statement: cannot read " << options.path << '\n';
        return 2;
    }
    std::istream& ledger = options.path != nullptr ? file : std::cin;
    if (options.pdf != nullptr) return PrintStatement(ledger, options.convention, options.pdf) ? 0 : 1;
    return ShowStatement(ledger, options.convention) == 0 ? 0 : 1;
}
