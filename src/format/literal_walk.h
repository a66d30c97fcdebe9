// The literal rule of number pictures: quotes come off, what they hold stays.
#pragma once

#include <cstring>
#include <string_view>

#include "text_step.h"

// Walks over the text before or behind a section's digit places and hands out what it shows, character by character.
//   Outside quotes, ' or " opens a literal, and any other character is shown.
//   Inside, the quote that opened the literal closes it; doubled, or with a backslash before it, it is shown.
class FMTLiteralWalk {
  public:
    // The pad rule holds behind the digits only: there "_" and the character after it stand for a blank.
    enum class PadRule { kShown, kPads };
    enum class Step { kEnd, kCharacter, kPad };

    FMTLiteralWalk(std::string_view text, PadRule padRule) : rest_(text), padRule_(padRule) {}

    // After kCharacter, Shown() is the character, one or two bytes.
    Step Next() {
        while (!rest_.empty()) {
            const char c = rest_[0];
            if (quote_ == 0) {
                if (c == '\'' || c == '"') {
                    quote_ = c;
                    Pass(1);
                    continue;
                }
                if (c == '_' && padRule_ == PadRule::kPads) {
                    Pass(1);
                    Pass(TextStep(rest_));
                    return Step::kPad;
                }
            } else if (c == quote_ && !QuoteFollows()) {
                quote_ = 0;
                Pass(1);
                continue;
            } else if ((c == quote_ || c == '\\') && QuoteFollows()) {
                Pass(1);
            }
            Show(TextStep(rest_));
            return Step::kCharacter;
        }
        return Step::kEnd;
    }

    std::string_view Shown() const { return shown_; }

  private:
    bool QuoteFollows() const { return rest_.size() > 1 && rest_[1] == quote_; }
    void Pass(size_t bytes) { rest_.remove_prefix(bytes); }
    void Show(size_t bytes) {
        shown_ = rest_.substr(0, bytes);
        Pass(bytes);
    }

    std::string_view rest_;
    std::string_view shown_;
    PadRule padRule_;
    char quote_ = 0;  // the quote that opened the literal, 0 outside
};

// Appends what a section shows before or behind its digits; a pad shows a blank.
inline char* FMTAppendLiteral(char* out, std::string_view text, FMTLiteralWalk::PadRule padRule) {
    FMTLiteralWalk walk(text, padRule);
    for (auto step = walk.Next(); step != FMTLiteralWalk::Step::kEnd; step = walk.Next()) {
        const std::string_view shown = step == FMTLiteralWalk::Step::kPad ? std::string_view(" ") : walk.Shown();
        std::memcpy(out, shown.data(), shown.size());
        out += shown.size();
    }
    return out;
}
