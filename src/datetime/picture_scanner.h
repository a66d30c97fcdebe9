// The scanner under every date operation: cuts a date picture or date text into tokens. It works in one of five states,
// each a list of rules (picture_scanner.cpp); a scanner belongs to one parse and allocates nothing.
#pragma once

#include <cstdint>

// The numbers are those by which a text changes the state: the bytes 0x02, n, 0x02.
enum class ScanState : uint8_t {
    kValue = 1,      // date text, cut into numbers, words and punctuation
    kPicture,        // a date picture
    kDateShape,      // a whole date, recognised by its shape
    kTimeShape,      // a whole time
    kDateTimeShape,  // a whole date, and what comes before a time
};

enum class ScanToken : uint8_t {
    kNone,     // in the tables: no rule ends here
    kSwitch,   // the scanner's own: another state is in force from here
    kDropped,  // the scanner's own: a stretch that yields nothing
    kEnd,
    kBad,
    // of pictures
    kYear,
    kMonth,
    kDay,
    kHour,
    kMinute,
    kSecond,
    kMicrosecond,
    kAmPm,
    // of pictures and values
    kSeparator,
    kQuoted,
    kSpace,
    // of values
    kNumber,
    kWord,
    // of shapes
    kNumericDate,     // 1/2/2003
    kMonthFirstDate,  // Jan 2, 2003
    kDayFirstDate,    // 2 Jan, 2003
    kDashedDate,      // 2-Jan-2003
    kTime,            // 12:30:15 PM
};

struct DateToken {
    ScanToken kind;
    uint8_t length;     // bytes, at most kMaxTokenLength; for kQuoted both quotes included
    const char* start;  // in the scanned text
};

class DateScanner {
  public:
    // A scanner that has to take more than this for one token stops there, as at the end of the text.
    static constexpr int kMaxTokenLength = 100;

    // `text` is zero-terminated and outlives the scanner.
    DateScanner(const char* text, ScanState state) : cursor_(text) { Enter(state); }

    // The next token; kEnd for ever once the end is reached, a byte that no rule takes as kBad.
    DateToken Next();

    // The same by the rules alone, without the fast path.
    DateToken NextByRules();

    ScanState State() const { return state_; }

    void Enter(ScanState state) {
        state_ = state;
        reachedShapes_ = reachedShapes_ || state >= ScanState::kDateShape;
    }

    // Whether a state of shapes is or was in force.
    bool ReachedShapes() const { return reachedShapes_; }

  private:
    DateToken LongestMatch();
    DateToken Stop();

    const char* cursor_;
    ScanState state_ = ScanState::kValue;
    bool reachedShapes_ = false;
};
