// States of the scanner of date pictures and date text, and the tokens that it cuts a text into.
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
    uint8_t length;     // bytes, at most DateScanner::kMaxTokenLength; for kQuoted both quotes included
    const char* start;  // in the scanned text
};
