#include "ledger.h"

#include <unistd.h>

#include <iostream>
#include <optional>
#include <string_view>

namespace {

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

// "# convention: NAME" names the convention; any other comment names none.
const Convention* ConventionOfComment(const std::string& line) {
    constexpr std::string_view kMark = "# convention: ";
    return line.starts_with(kMark) ? FindConvention(std::string_view(line).substr(kMark.size())) : nullptr;
}

// How far it is, on a terminal that doesn't show the statement itself.
class Progress {
  public:
    ~Progress() { Clear(); }
    void Clear() {
        if (isShown_) std::cerr << "\r\x1b[K";
    }
    void Line(int number) {
        if (!isShown_ || number % kStep != 0) return;
        std::cerr << '\r' << number << " lines" << std::flush;
    }

  private:
    static constexpr int kStep = 10000;
    const bool isShown_ = isatty(STDERR_FILENO) != 0 && isatty(STDOUT_FILENO) == 0;
};

// One line's three fields as they stand, and what they say.
struct Line {
    std::string dateText;
    std::string text;
    std::string amountText;
    std::optional<DatDef> date;
    std::optional<Number> amount;
};

Line ReadLine(const std::string& line, const Convention& convention) {
    const char separator = line.find(';') != std::string::npos ? ';' : ',';
    size_t at = 0;
    Line read;
    read.dateText = NextField(line, separator, at);
    read.text = NextField(line, separator, at);
    read.amountText = NextField(line, separator, at);
    read.date = ReadDate(read.dateText, convention);
    read.amount = ReadAmount(read.amountText, convention);
    return read;
}

void Complain(int number, const Line& line, const Convention& convention) {
    std::cerr << "line " << number << ": no " << convention.name << (line.date ? " amount" : " date") << ": \""
              << (line.date ? line.amountText : line.dateText) << "\"\n";
}

}  // namespace

void Totals::Add(const Entry& entry) {
    if (count == 0) first = entry.date;
    last = entry.date;
    NumAddition(&sum, &sum, &entry.amount);
    if (NumIsNull(&largest) || NumCompare(&entry.amount, &largest) > 0) largest = entry.amount;
    ++count;
}

Number Totals::Average() const {
    Number average{};
    NumLongToNumber(&average, count);
    NumDivide(&average, &sum, &average);
    NumRound(&average, &average, 2);
    return average;
}

int ReadLedger(std::istream& ledger, const Convention* convention, const std::function<bool(const Entry&)>& take) {
    Progress progress;
    int bad = 0;
    int lineNumber = 0;
    bool expectsHeads = true;
    for (std::string text; std::getline(ledger, text);) {
        progress.Line(++lineNumber);
        if (!text.empty() && text.back() == '\r') text.pop_back();
        if (text.empty()) continue;
        if (text.front() == '#') {
            if (const Convention* told = ConventionOfComment(text)) convention = told;
            continue;
        }
        Line line = ReadLine(text, *convention);
        if (line.date && line.amount) {
            if (!take({*line.date, std::move(line.text), *line.amount})) break;
        } else if (!expectsHeads) {
            progress.Clear();
            Complain(lineNumber, line, *convention);
            ++bad;
        }
        expectsHeads = false;
    }
    return bad;
}
