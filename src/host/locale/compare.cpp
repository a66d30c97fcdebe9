// The order of texts. It is a word sort in four steps, each over the whole length before the next one counts:
//   1. letters of the alphabet, whatever their marks and case; before them digits, before these all other characters,
//      behind them the double-byte characters by their codes. Hyphens and apostrophes are passed over;
//   2. marks: a letter without marks comes first;
//   3. case, in lstrcmpA alone: the small letter comes first;
//   4. hyphens and apostrophes: the text comes first that goes on without one; an apostrophe before a hyphen.
// So "coop" < "co-op" < "coops", and "a" < "A" < "ä" < "Ä" < "b".
#include "code_page.h"

namespace {

constexpr uint32_t kWeightOfDoubleBytes = 0x50000;

bool IsPassedOver(char character) {
    return character == '-' || character == '\'';
}

// Walks a text from weight to weight.
class Weights {
  public:
    Weights(const CodePage& page, const char* text) : page_(page), at_(text) {}

    // The weight of the next character; that of the terminator again and again.
    SortWeight Next() {
        while (IsPassedOver(*at_)) ++at_;
        if (*at_ == 0) return {};
        if (CharacterBytes(page_, at_, 2) == 1) return page_.weight[static_cast<uint8_t>(*at_++)];
        const uint16_t code = DoubleByteCode(at_);
        const uint16_t lower = DoubleByteCase(page_, code, &CaseRow::lower);
        at_ += 2;
        return {kWeightOfDoubleBytes + lower, 0, lower != code};
    }

  private:
    const CodePage& page_;
    const char* at_;
};

template <typename T>
int Order(T first, T second) {
    return static_cast<int>(first > second) - static_cast<int>(first < second);
}

// Step 4, for texts that are the same but for what is passed over.
int ComparePassedOver(const char* first, const char* second) {
    while (*first != 0 || *second != 0) {
        const bool passFirst = IsPassedOver(*first);
        const bool passSecond = IsPassedOver(*second);
        if (passFirst != passSecond) return passFirst ? 1 : -1;
        if (passFirst && *first != *second) return Order(*first, *second);
        ++first;
        ++second;
    }
    return 0;
}

int Compare(LPCSTR first, LPCSTR second, bool withCase) {
    if (first == nullptr || second == nullptr) return Order(first != nullptr, second != nullptr);
    const CodePage& page = CurrentCodePage();
    Weights firstWeights(page, first);
    Weights secondWeights(page, second);
    int marks = 0;
    int cases = 0;
    for (;;) {
        const SortWeight a = firstWeights.Next();
        const SortWeight b = secondWeights.Next();
        if (a.letter != b.letter) return Order(a.letter, b.letter);
        if (a.letter == 0) break;
        if (marks == 0) marks = Order(a.mark, b.mark);
        if (cases == 0) cases = Order(a.isUpper, b.isUpper);
    }
    if (marks != 0) return marks;
    if (withCase && cases != 0) return cases;
    return ComparePassedOver(first, second);
}

}  // namespace

INT lstrcmpA(LPCSTR first, LPCSTR second) {
    return Compare(first, second, true);
}

INT lstrcmpiA(LPCSTR first, LPCSTR second) {
    return Compare(first, second, false);
}
