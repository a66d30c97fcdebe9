// Control blocks for tests of number formatting and parsing.
#pragma once

#include <cstring>
#include <string>

#include <morvl15/format.h>
#include <morvl15/number.h>

// A region given privately, without the profile.
struct PrivateRegion {
    char thousand = ',';
    char decimal = '.';
    int32_t digits = 2;
    int32_t leadingZero = 0;
    const char* currency = "$";
    int32_t position = 0;
    int32_t negative = 0;
};

inline Number NumberOf(const std::string& text) {
    Number number;
    EXPECT_GT(NumAsciiToNumber(&number, text.c_str()), 0) << text;
    return number;
}

inline std::string TextOf(const Number& number) {
    char text[128] = {};
    NumToAscii(&number, text, 108);
    return text;
}

inline bool SameBytes(const Number& a, const Number& b) {
    return (a.bytes[0] & 0x0F) == (b.bytes[0] & 0x0F) && std::memcmp(a.bytes + 1, b.bytes + 1, a.bytes[0] & 0x0F) == 0;
}

// A block with an output of its own, which is poisoned, so that "untouched" can be told.
class NumberBlock {
  public:
    static constexpr const char* kUntouched = "untouched";

    // Under the profile's settings.
    NumberBlock() {
        FMTInitCntlBlock(&block_);
        block_.UseProfile = 1;
        block_.Currency = nullptr;
        block_.CurrencyPos = 0;
        block_.NegCurrency = 0;
        block_.Type = 6;
        block_.Output = output_;
        std::strcpy(output_, kUntouched);
    }
    explicit NumberBlock(const PrivateRegion& region) : NumberBlock() {
        block_.UseProfile = 0;
        block_.ThousandSep = region.thousand;
        block_.DecimalSep = region.decimal;
        block_.Digits = region.digits;
        block_.LeadingZero = region.leadingZero;
        block_.Currency = region.currency;
        block_.CurrencyPos = region.position;
        block_.NegCurrency = region.negative;
    }

    NumberBlock(const NumberBlock&) = delete;
    NumberBlock& operator=(const NumberBlock&) = delete;

    FMTCntlBlock* operator->() { return &block_; }
    FMTCntlBlock* Get() { return &block_; }
    std::string Output() const { return output_; }

    // The text of a value by a type or a picture; "failed: " and the output when it can't be had.
    std::string Format(const std::string& value, int32_t type, const char* picture = nullptr) {
        block_.Type = type;
        block_.Picture = picture;
        block_.Value = NumberOf(value);
        const int32_t result = FMTFormatNumber(&block_);
        return result == 1 ? Output() : "failed: " + Output();
    }

    std::string Unformat(const char* text, const char* picture) {
        block_.Input = text;
        block_.Picture = picture;
        return FMTUnformatNumberStr(&block_) == 1 ? Output() : "failed: " + Output();
    }

    // The value of a text, "failed" for one that isn't a number.
    std::string Validate(const char* text, int32_t type) {
        block_.Input = text;
        block_.Type = type;
        return FMTValidateNumber(&block_) == 1 ? TextOf(block_.Value) : "failed";
    }

  private:
    FMTCntlBlock block_ = {};
    char output_[1024] = {};
};
