// Compiles the rules of a scanner state, written as patterns, into the table that the longest-match loop walks. All of
// it runs in the compiler; the library carries the tables only.
//
// Patterns:
//   x            the byte x; a backslash makes a plain byte of a special one; \t, \n and \xHH as in C
//   [abc-f]      one byte of the set; [^abc-f] one byte outside it, but never 0x00 or 0xFF, which end the input
//   {D} {A}      a run of digits, a run of letters
//   {S} {W}      a separator, a blank
//   (p) p|q      grouping, either
//   p? p* p+     none or one, none or more, one or more
//   p{m,n}       m to n times, each a digit from 1 to 9
//
// Method: Glushkov's position automaton (each byte set of the patterns is a position), made deterministic by the
// construction of subsets.
#pragma once

#include "scan_tokens.h"

struct ScanRule {
    const char* pattern;
    ScanToken token;
};

// A deterministic automaton over classes of bytes. State 0 means that there is no way on, state 1 is the start.
struct ScanTable {
    static constexpr int kStates = 64;
    static constexpr int kClasses = 32;

    uint8_t classOf[256];
    uint8_t next[kStates][kClasses];
    ScanToken token[kStates];  // of the first rule that may end in the state; kNone where none may
    bool goesOn[kStates];      // some byte leads on from the state
};

constexpr uint8_t kScanStop = 0;
constexpr uint8_t kScanStart = 1;

class ScanTableCompiler {
  public:
    constexpr void Add(const ScanRule& rule) {
        cursor_ = rule.pattern;
        const Part part = Alternatives();
        if (*cursor_ != 0) PatternIsMalformed();
        start_ |= part.first;
        for (int position = 0; position < positions_; ++position) {
            if (part.last >> position & 1) endsRule_[position] = rule.token;
        }
    }

    constexpr ScanTable Table() const {
        ScanTable table{};
        Positions ofClass[ScanTable::kClasses] = {};
        const int classes = ClassifyBytes(table, ofClass);
        Positions sets[ScanTable::kStates] = {};  // of each state: what the last byte can have been
        int states = kScanStart + 1;
        for (int state = kScanStart; state < states; ++state) {
            const Positions reachable = state == kScanStart ? start_ : FollowersOf(sets[state]);
            for (int byteClass = 0; byteClass < classes; ++byteClass) {
                const Positions target = reachable & ofClass[byteClass];
                if (target == 0) continue;
                table.goesOn[state] = true;
                table.next[state][byteClass] = static_cast<uint8_t>(StateOf(target, sets, states));
            }
            table.token[state] = TokenOf(sets[state]);
        }
        return table;
    }

  private:
    using Positions = uint64_t;  // a set of positions
    static constexpr int kMaxPositions = 64;

    struct ByteSet {
        uint64_t bits[4];
        constexpr void Add(int byte) { bits[byte / 64] |= uint64_t{1} << byte % 64; }
        constexpr bool Has(int byte) const { return (bits[byte / 64] >> byte % 64 & 1) != 0; }
    };

    // A piece of a pattern: the positions it may begin and end with, and whether it may be passed over.
    struct Part {
        Positions first;
        Positions last;
        bool optional;
    };

    static void PatternIsMalformed();  // not defined: reaching it ends the compilation

    constexpr void Link(Positions from, Positions to) {
        for (int position = 0; position < positions_; ++position) {
            if (from >> position & 1) followers_[position] |= to;
        }
    }

    constexpr Part Join(const Part& a, const Part& b) {
        Link(a.last, b.first);
        return {a.first | (a.optional ? b.first : 0), b.last | (b.optional ? a.last : 0), a.optional && b.optional};
    }

    constexpr Part Alternatives() {
        Part all = Sequence();
        while (*cursor_ == '|') {
            ++cursor_;
            const Part other = Sequence();
            all = {all.first | other.first, all.last | other.last, all.optional || other.optional};
        }
        return all;
    }

    constexpr Part Sequence() {
        Part all{0, 0, true};
        while (*cursor_ != 0 && *cursor_ != '|' && *cursor_ != ')') all = Join(all, Repeated());
        return all;
    }

    constexpr Part Repeated() {
        const char* from = cursor_;
        Part part = Atom();
        const char sign = *cursor_;
        if (sign == '{' && cursor_[1] >= '1' && cursor_[1] <= '9') return Times(part, from);
        if (sign != '?' && sign != '*' && sign != '+') return part;
        ++cursor_;
        if (sign != '?') Link(part.last, part.first);
        if (sign != '+') part.optional = true;
        return part;
    }

    // The cursor stands on the "{m,n}" behind a part that was read at `from`; each further time reads it again.
    constexpr Part Times(Part part, const char* from) {
        const int least = cursor_[1] - '0';
        const int most = cursor_[3] - '0';
        const char* behind = cursor_ + 5;
        if (cursor_[2] != ',' || most < least || most > 9 || cursor_[4] != '}') PatternIsMalformed();
        for (int time = 2; time <= most; ++time) {
            cursor_ = from;
            Part again = Atom();
            again.optional = again.optional || time > least;
            part = Join(part, again);
        }
        cursor_ = behind;
        return part;
    }

    constexpr Part Atom() {
        switch (*cursor_) {
            case '(': return Group();
            case '{': return Named();
            case '[': return Position(Set());
            default: {
                ByteSet single{};
                single.Add(Byte());
                return Position(single);
            }
        }
    }

    constexpr Part Group() {
        ++cursor_;
        const Part part = Alternatives();
        if (*cursor_ != ')') PatternIsMalformed();
        ++cursor_;
        return part;
    }

    constexpr Part Named() {
        const char* behind = cursor_ + 3;
        if (cursor_[2] != '}') PatternIsMalformed();
        switch (cursor_[1]) {
            case 'D': cursor_ = "[0-9]+"; break;
            case 'A': cursor_ = "[A-Za-z]+"; break;
            case 'S': cursor_ = R"([,\-./:\\])"; break;
            case 'W': cursor_ = R"([ \t\n])"; break;
            default: PatternIsMalformed();
        }
        const Part part = Sequence();
        cursor_ = behind;
        return part;
    }

    constexpr Part Position(const ByteSet& bytes) {
        if (positions_ == kMaxPositions) PatternIsMalformed();
        bytes_[positions_] = bytes;
        const Positions own = Positions{1} << positions_++;
        return {own, own, false};
    }

    constexpr ByteSet Set() {
        ++cursor_;
        const bool outside = *cursor_ == '^';
        if (outside) ++cursor_;
        ByteSet named{};
        while (*cursor_ != ']') {
            const int from = Byte();
            int to = from;
            if (*cursor_ == '-') {
                ++cursor_;
                to = Byte();
            }
            for (int byte = from; byte <= to; ++byte) named.Add(byte);
        }
        ++cursor_;
        if (!outside) return named;
        ByteSet others{};
        for (int byte = 1; byte < 0xFF; ++byte) {
            if (!named.Has(byte)) others.Add(byte);
        }
        return others;
    }

    constexpr int Byte() {
        if (*cursor_ == 0) PatternIsMalformed();
        if (*cursor_ != '\\') return static_cast<unsigned char>(*cursor_++);
        cursor_ += 2;
        switch (cursor_[-1]) {
            case 't': return '\t';
            case 'n': return '\n';
            case 'x': cursor_ += 2; return HexDigit(cursor_[-2]) * 16 + HexDigit(cursor_[-1]);
            default: return cursor_[-1];
        }
    }

    static constexpr int HexDigit(char digit) { return digit <= '9' ? digit - '0' : digit - 'A' + 10; }

    // Bytes that lie in the same sets share a class; class 0 is that of the bytes in no set.
    constexpr int ClassifyBytes(ScanTable& table, Positions* ofClass) const {
        int classes = 1;
        for (int byte = 0; byte < 256; ++byte) {
            Positions holding = 0;
            for (int position = 0; position < positions_; ++position) {
                if (bytes_[position].Has(byte)) holding |= Positions{1} << position;
            }
            int byteClass = 0;
            while (byteClass < classes && ofClass[byteClass] != holding) ++byteClass;
            if (byteClass == ScanTable::kClasses) PatternIsMalformed();
            if (byteClass == classes) ofClass[classes++] = holding;
            table.classOf[byte] = static_cast<uint8_t>(byteClass);
        }
        return classes;
    }

    constexpr Positions FollowersOf(Positions set) const {
        Positions all = 0;
        for (int position = 0; position < positions_; ++position) {
            if (set >> position & 1) all |= followers_[position];
        }
        return all;
    }

    static constexpr int StateOf(Positions set, Positions* sets, int& states) {
        for (int state = kScanStart + 1; state < states; ++state) {
            if (sets[state] == set) return state;
        }
        if (states == ScanTable::kStates) PatternIsMalformed();
        sets[states] = set;
        return states++;
    }

    // Positions are numbered in the order of the rules, so that the lowest one belongs to the rule listed first.
    constexpr ScanToken TokenOf(Positions set) const {
        for (int position = 0; position < positions_; ++position) {
            if ((set >> position & 1) != 0 && endsRule_[position] != ScanToken::kNone) return endsRule_[position];
        }
        return ScanToken::kNone;
    }

    const char* cursor_ = nullptr;
    int positions_ = 0;
    Positions start_ = 0;
    ByteSet bytes_[kMaxPositions] = {};
    Positions followers_[kMaxPositions] = {};
    ScanToken endsRule_[kMaxPositions] = {};
};

template <int kRules>
consteval ScanTable CompileScanRules(const ScanRule (&rules)[kRules]) {
    ScanTableCompiler compiler;
    for (const ScanRule& rule : rules) compiler.Add(rule);
    return compiler.Table();
}
