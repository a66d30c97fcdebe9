// The rules of the five scanner states, and the longest-match loop over them.
#include "picture_scanner.h"

#include "scan_table.h"

namespace {

// Of the rules that take the same, longest stretch the one listed first holds. Bytes that no rule takes are bad tokens.
// clang-format off

constexpr ScanRule kValueRules[] = {
    {R"(\x02[\x01-\x05]\x02)", ScanToken::kSwitch},
    {"{D}",                    ScanToken::kNumber},
    {"{S}",                    ScanToken::kSeparator},
    {"'[^']*'",                ScanToken::kQuoted},
    {"{W}+",                   ScanToken::kSpace},
    // Single bytes and pairs of lead and trail byte, in the ranges of Shift-JIS whatever the code page is. Bytes pair
    // up from the left, so that a lead byte stands alone only where no trail byte comes behind it.
    {R"(([A-Za-z\xA0-\xDF\xFD\xFE]|[\x81-\x9F\xE0-\xFC][\x40-\x7E\x80-\xFE])*[\x81-\x9F\xE0-\xFC]?)", ScanToken::kWord},
};

constexpr ScanRule kPictureRules[] = {
    {R"(\x02[\x01-\x05]\x02)", ScanToken::kSwitch},
    {"yy|yyyy",                ScanToken::kYear},
    {"M+",                     ScanToken::kMonth},  // runs of M, d and h are never cut; the parser refuses long ones
    {"d+",                     ScanToken::kDay},
    {"h+",                     ScanToken::kHour},
    {"mm",                     ScanToken::kMinute},
    {"ss",                     ScanToken::kSecond},
    {"mmmmmm",                 ScanToken::kMicrosecond},
    {"AMPM",                   ScanToken::kAmPm},
    {"{S}",                    ScanToken::kSeparator},
    {"'[^']*'",                ScanToken::kQuoted},
    {"{W}+",                   ScanToken::kSpace},
};

constexpr ScanRule kDateShapeRules[] = {
    {R"(\x02[\x01-\x05]\x02)", ScanToken::kSwitch},
    {"{D}{S}{D}{S}{D}",        ScanToken::kNumericDate},
    {"{A}{W}+{D}({W}|,)+{D}",  ScanToken::kMonthFirstDate},
    {"{D}{W}+{A}({W}|,)+{D}",  ScanToken::kDayFirstDate},
    {"{D}{S}{A}{S}{D}",        ScanToken::kDashedDate},
    {R"(\n)",                  ScanToken::kDropped},
};

constexpr ScanRule kTimeShapeRules[] = {
    {R"(\x02[\x01-\x05]\x02)", ScanToken::kSwitch},
    {"[0-9]{1,2}([,.:][0-9]{1,2}([,.:][0-9]{1,2}([,.:][0-9]{1,6})?)?)?{W}*[A-Za-z]*{W}*", ScanToken::kTime},
    {R"(\n)",                  ScanToken::kDropped},
};

constexpr ScanRule kDateTimeShapeRules[] = {
    {R"(\x02[\x01-\x05]\x02)",   ScanToken::kSwitch},
    {"{D}{S}{D}{S}{D}-?{W}*",    ScanToken::kNumericDate},
    {"{A}{W}+{D}({W}|,)+{D}{W}*", ScanToken::kMonthFirstDate},
    {"{D}{W}+{A}({W}|,)+{D}{W}*", ScanToken::kDayFirstDate},
    {"{D}{S}{A}{S}{D}{W}*",      ScanToken::kDashedDate},
    {R"(\n)",                    ScanToken::kDropped},
};

// clang-format on

constexpr ScanTable kTables[] = {
    CompileScanRules(kValueRules),     CompileScanRules(kPictureRules),       CompileScanRules(kDateShapeRules),
    CompileScanRules(kTimeShapeRules), CompileScanRules(kDateTimeShapeRules),
};

const ScanTable& TableOf(ScanState state) {
    return kTables[static_cast<int>(state) - 1];
}

unsigned char ByteAt(const char* text) {
    return static_cast<unsigned char>(*text);
}

// Counts as the end of the text where a token would begin, and closes a token that is under way.
constexpr unsigned char kInnerEnd = 0xFF;

constexpr char kNothingMore[] = "";

}  // namespace

DateToken DateScanner::NextByRules() {
    for (;;) {
        const DateToken token = LongestMatch();
        if (token.kind == ScanToken::kSwitch) {
            Enter(static_cast<ScanState>(token.start[1]));
        } else if (token.kind != ScanToken::kDropped) {
            return token;
        }
    }
}

DateToken DateScanner::Stop() {
    cursor_ = kNothingMore;
    return {ScanToken::kEnd, 0, cursor_};
}

DateToken DateScanner::LongestMatch() {
    if (ByteAt(cursor_) == 0 || ByteAt(cursor_) == kInnerEnd) return Stop();

    const ScanTable& table = TableOf(state_);
    DateToken match{ScanToken::kBad, 1, cursor_};
    int taken = 0;
    uint8_t at = kScanStart;
    while (table.goesOn[at]) {
        if (taken == kMaxTokenLength) return Stop();
        at = table.next[at][table.classOf[ByteAt(cursor_ + taken)]];
        if (at == kScanStop) break;
        ++taken;
        if (table.token[at] != ScanToken::kNone) match = {table.token[at], static_cast<uint8_t>(taken), cursor_};
    }
    cursor_ += match.length;
    // An inner end that the scanner has looked at for this token closes it and is used up.
    if (at == kScanStop && ByteAt(cursor_) == kInnerEnd) ++cursor_;
    return match;
}
