#include "conversion.h"

#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>

#include <morvl15/host.h>
#include <morvl15/intl.h>

#include "command.h"
#include "lines.h"

namespace {

// Where a value comes from, for messages.
struct Place {
    const char* unit;  // "line" or "value"
    uint64_t number;
};

class Run {
  public:
    explicit Run(Conversion& conversion) : conversion_(conversion) {}

    void Value(const Place& place, const std::string& utf8);
    void Bad(const Place& place, const std::string& utf8, const std::string& what, std::optional<size_t> column);
    Output* Out() { return &output_; }
    int Result();

  private:
    bool TakeIn(const Place& place, const std::string& utf8);

    Conversion& conversion_;
    Output output_{STDOUT_FILENO};
    bool someBad_ = false;
    std::string value_;  // kept, as are the others, for their memory
    std::string text_;
    std::string shown_;
};

void Run::Bad(const Place& place, const std::string& utf8, const std::string& what, std::optional<size_t> column) {
    someBad_ = true;
    if (isatty(STDOUT_FILENO) != 0) output_.Flush();
    std::fprintf(stderr, "morvl: %s %llu", place.unit, static_cast<unsigned long long>(place.number));
    if (column) std::fprintf(stderr, ", column %zu", *column);
    std::fprintf(stderr, ": \"%s\" %s\n", utf8.c_str(), what.c_str());
}

// The value in the code page.
bool Run::TakeIn(const Place& place, const std::string& utf8) {
    size_t badAt = utf8.find('\0');
    if (badAt != std::string::npos) {
        Bad(place, utf8, "goes on behind a zero byte", CharactersIn(utf8.substr(0, badAt)) + 1);
        return false;
    }
    if (ToCodePage().Convert(utf8, &value_, &badAt)) return true;
    Bad(place, utf8,
        "is no UTF-8, or has a character that isn't in code page " + std::to_string(GetACP()) +
            "; the code page goes by LANG",
        CharactersIn(std::string_view(utf8).substr(0, badAt)) + 1);
    return false;
}

void Run::Value(const Place& place, const std::string& utf8) {
    if (utf8.empty()) return output_.Line("");
    text_.clear();
    Fault fault;
    if (!TakeIn(place, utf8)) return output_.Line("");
    if (!conversion_.Convert(value_, &text_, &fault)) {
        std::optional<size_t> column;
        if (fault.at) column = static_cast<size_t>(IntlStrLen(value_.substr(0, *fault.at).c_str())) + 1;
        Bad(place, utf8, fault.what, column);
    }
    size_t badAt = 0;
    conversion_.Decoder().Convert(text_, &shown_, &badAt);
    output_.Line(shown_);
}

int Run::Result() {
    if (!output_.Flush()) {
        std::fprintf(stderr, "morvl: the output can't be written: %s\n", std::strerror(errno));
        return kCannotRun;
    }
    return someBad_ ? kSomeBad : kGood;
}

int ConvertInput(Run& run) {
    Lines lines(STDIN_FILENO, run.Out());
    for (std::string line; lines.Next(&line);) {
        const Place place{"line", lines.Number()};
        if (lines.WasCut()) {
            run.Bad(place, line.substr(0, 20) + "...", "is longer than " + std::to_string(Lines::kLongest) + " bytes",
                    {});
            run.Out()->Line("");
        } else {
            run.Value(place, line);
        }
    }
    if (!lines.Failed()) return run.Result();
    std::fprintf(stderr, "morvl: standard input can't be read: %s\n", std::strerror(errno));
    run.Result();
    return kCannotRun;
}

}  // namespace

int ConvertValues(Conversion& conversion, std::span<const std::string> values) {
    Run run(conversion);
    if (values.empty()) return ConvertInput(run);
    for (size_t i = 0; i < values.size(); ++i) run.Value({"value", i + 1}, values[i]);
    return run.Result();
}
