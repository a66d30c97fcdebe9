// The scanner under every date operation: cuts a date picture or date text into tokens. It works in one of five states,
// each a list of rules (picture_scanner.cpp); a scanner belongs to one parse and allocates nothing.
#pragma once

#include "quick_token.h"

class DateScanner {
  public:
    // A scanner that has to take more than this for one token stops there, as at the end of the text.
    static constexpr int kMaxTokenLength = 100;

    // `text` is zero-terminated and outlives the scanner.
    DateScanner(const char* text, ScanState state) : cursor_(text), state_(state) {}

    // The next token; kEnd for ever once the end is reached, a byte that no rule takes as kBad.
    DateToken Next() {
        DateToken token;
        if (state_ > ScanState::kPicture || !QuickToken(cursor_, QuickBytesOf(state_), &token)) return NextByRules();
        cursor_ += token.length;
        return token;
    }

    // The same by the rules alone, without the fast path.
    DateToken NextByRules();

    ScanState State() const { return state_; }

    void Enter(ScanState state) { state_ = state; }

  private:
    DateToken LongestMatch();
    DateToken Stop();

    const char* cursor_;
    ScanState state_;
};
