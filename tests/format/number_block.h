// Control blocks and regions for tests.
#pragma once

#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include <morvl15/format.h>
#include <morvl15/number.h>

struct TestRegion {
    char thousand = ',';
    char decimal = '.';
    const char* currency = "$";
    int32_t position = 0;
    int32_t negative = 0;
    int32_t digits = 2;
    int32_t leadingZero = 0;
};

constexpr TestRegion kUS = {};
constexpr TestRegion kGermany = {'.', ',', "DM", 3, 8};

// A number operation's block under the region, or under the profile.
inline FMTCntlBlock BlockOf(const TestRegion& region) {
    FMTCntlBlock block;
    std::memset(&block, 0xA5, sizeof block);
    FMTInitCntlBlock(&block);
    block.ThousandSep = region.thousand;
    block.DecimalSep = region.decimal;
    block.Currency = region.currency;
    block.CurrencyPos = region.position;
    block.NegCurrency = region.negative;
    block.Digits = region.digits;
    block.LeadingZero = region.leadingZero;
    return block;
}

inline FMTCntlBlock BlockOfProfile() {
    FMTCntlBlock block = BlockOf({0, 0, nullptr, 0, 0, 0, 0});
    block.UseProfile = 1;
    return block;
}

using PictureConversion = int32_t(MORVL_CALL*)(FMTCntlBlock*);

// Runs a conversion with guard bytes behind the longest picture. "failed" for a result of 0.
inline std::string ConvertPicture(PictureConversion conversion, FMTCntlBlock block, const std::string& picture) {
    char output[70];
    std::memset(output, 0x7E, sizeof output);
    block.Picture = picture.c_str();
    block.Output = output;
    const int32_t result = conversion(&block);
    EXPECT_EQ(std::string(output + 64, 6), "~~~~~~");
    if (result == 1) return output;
    EXPECT_STREQ(output, "");
    return "failed";
}

constexpr int32_t kNumber = FMT_TYPE_NUMBER;
constexpr int32_t kCurrency = FMT_TYPE_CURRENCY;
constexpr int32_t kPicture = FMT_TYPE_PICTURE;

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

// A block with an output of its own, which is poisoned, so that "untouched" can be told.
class NumberBlock {
  public:
    NumberBlock() : block_(BlockOfProfile()) { Prepare(); }
    explicit NumberBlock(const TestRegion& region) : block_(BlockOf(region)) { Prepare(); }
    NumberBlock(const NumberBlock&) = delete;
    NumberBlock& operator=(const NumberBlock&) = delete;

    FMTCntlBlock* operator->() { return &block_; }
    FMTCntlBlock* Get() { return &block_; }
    std::string Output() const { return output_; }

    // What another block holds, but its output.
    void Take(const NumberBlock& other) {
        block_ = other.block_;
        block_.Output = output_;
    }

    // The text of a value by a type or a picture; "failed: " and the output when it can't be had.
    std::string Format(const std::string& value, int32_t type, const char* picture = nullptr) {
        block_.Type = type;
        block_.Picture = picture;
        block_.Value = NumberOf(value);
        return Outcome(FMTFormatNumber(&block_));
    }
    std::string Format(const std::string& value, const char* picture) { return Format(value, kPicture, picture); }

    std::string Unformat(const char* text, const char* picture) {
        block_.Input = text;
        block_.Picture = picture;
        return Outcome(FMTUnformatNumberStr(&block_));
    }

    // The value of a text, "failed" for one that isn't a number.
    std::string Validate(const char* text, int32_t type) {
        block_.Input = text;
        block_.Type = type;
        return FMTValidateNumber(&block_) == 1 ? TextOf(block_.Value) : "failed";
    }

  private:
    void Prepare() {
        block_.Type = kPicture;
        block_.Output = output_;
    }
    std::string Outcome(int32_t result) const { return result == 1 ? Output() : "failed: " + Output(); }

    FMTCntlBlock block_;
    char output_[1024] = "untouched";
};
