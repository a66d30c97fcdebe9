// The faster ways of formatting and parsing give what the plain routines give, byte for byte.
#include <gtest/gtest.h>

#include <random>

#include "format/fast_number.h"
#include "format/number_format.h"
#include "number_block.h"
#include "support/locale.h"

namespace {

constexpr int kRounds = 8000;

const TestRegion kRegions[] = {
    kUS, kGermany, {'\'', '.', "Fr"}, {' ', ',', "\x80"}, {0, '.', ""}, {',', 0}, {'-', 'e'}, {'.', '.'}, {'\xA0', '0'},
};

class Source {
  public:
    int Between(int low, int high) { return low + static_cast<int>(random_() % static_cast<unsigned>(high - low + 1)); }
    bool OneIn(int n) { return Between(1, n) == 1; }
    template <size_t N>
    const auto& Pick(const auto(&choices)[N]) {
        return choices[random_() % N];
    }

    std::string Digits(int count) {
        std::string digits;
        for (int i = 0; i < count; ++i)
            digits += OneIn(3) ? Pick({'0', '9', '5', '4'}) : static_cast<char>(Between('0', '9'));
        return digits;
    }

    Number Value() {
        if (OneIn(20)) {  // any bytes
            Number number;
            for (uint8_t& byte : number.bytes) byte = static_cast<uint8_t>(random_());
            return number;
        }
        std::string text = OneIn(2) ? "-" : "";
        text += OneIn(8) ? "0" : Digits(Between(1, 12));
        if (OneIn(2)) text += "." + Digits(Between(1, 10));
        if (OneIn(6)) text += "e" + std::to_string(Between(-99, 90));
        Number number;
        NumAsciiToNumber(&number, text.c_str());
        return number;
    }

    TestRegion Region() {
        TestRegion region = Pick(kRegions);
        region.digits = OneIn(10) ? Pick({-1, 60, 70, 150}) : Between(0, 5);
        region.leadingZero = Between(0, 1);
        region.position = Between(0, 4);
        region.negative = Between(-1, 11);
        return region;
    }

    std::string Picture(const TestRegion& region) {
        if (OneIn(8)) return OneIn(2) ? "" : "$";
        if (OneIn(4)) return ScientificPicture();
        if (OneIn(2)) return UsualPicture(region);
        std::string picture;
        static const char* const kPieces[] = {"#",  "0", "##0", ",",     ".",   "00",   "%",    "_",
                                              "_)", "'", "\"",  "\\",    ";",   " ",    "(",    ")",
                                              "-",  "$", "x",   "'a b'", "E+0", "\xE4", "\x81", "\x0F"};
        for (int pieces = Between(0, 12); pieces > 0; --pieces) picture += Pick(kPieces);
        return picture;
    }

    std::string Text(std::string shown) {
        if (OneIn(2)) return shown;
        static const char kBytes[] = "0123456789,.-+()$ eE%'x\t\xA0\x81\x40\xE4";
        for (int changes = Between(1, 3); changes > 0; --changes) {
            const auto at = static_cast<size_t>(Between(0, static_cast<int>(shown.size())));
            const char byte = kBytes[random_() % (sizeof kBytes - 1)];
            if (OneIn(3) && at < shown.size()) {
                shown.erase(at, 1);
            } else if (OneIn(2) && at < shown.size()) {
                shown[at] = byte;
            } else {
                shown.insert(at, 1, byte);
            }
        }
        return shown;
    }

  private:
    std::string Row(char byte, int most) { return std::string(static_cast<size_t>(Between(0, most)), byte); }
    std::string Run(const TestRegion& region) {
        std::string run = Row('#', 2);
        if (region.thousand != 0 && OneIn(2)) run += std::string(1, region.thousand) + "##";
        run += Row('0', 3);
        if (region.decimal != 0 && OneIn(2)) run += region.decimal + Row('0', 3) + Row('#', 3);
        return run;
    }
    std::string Section(const TestRegion& region) {
        static const char* const kPrefixes[] = {"", "", "$", "(", "-", "'x''y' ", "DM ", "_"};
        static const char* const kSuffixes[] = {"", "", "%", ")", "_)", " kg", "' E'", "%_x", "_"};
        return Pick(kPrefixes) + Run(region) + Pick(kSuffixes);
    }
    std::string ScientificPicture() {
        const auto places = [this] { return Row('0', 4) + Row('#', 3); };
        return "0." + places() + Pick({"E", "e", ""}) + Pick({"+", "-"}) + places() + (OneIn(8) ? ";x" : "");
    }
    std::string UsualPicture(const TestRegion& region) {
        std::string picture = Section(region);
        for (int more = Between(0, 3); more > 0; --more) picture += ";" + (OneIn(6) ? "" : Section(region));
        return picture;
    }

    std::mt19937 random_{20261123};
};

std::string Show(int32_t result, const Number& value) {
    std::string text = std::to_string(result) + ": ";
    // Bytes behind the length mean nothing.
    for (int i = 0; i <= (value.bytes[0] & 0x0F) && i < 13; ++i) text += std::to_string(value.bytes[i]) + " ";
    return text;
}

template <typename Operation>
std::string OutcomeOf(Operation operation, NumberBlock& block) {
    const int32_t result = operation(block.Get());
    return Show(result, block->Value) + block.Output();
}

void CompareAll() {
    Source source;
    for (int round = 0; round < kRounds; ++round) {
        const TestRegion region = source.Region();
        const std::string picture = source.Picture(region);
        const Number value = source.Value();
        NumberBlock plainBlock(region);
        plainBlock->Picture = picture.c_str();
        plainBlock->Value = value;
        if (source.OneIn(8)) plainBlock->Type = source.Between(3, 5);
        if (source.OneIn(8)) plainBlock->Flags |= FMT_EVERY_DIGIT;
        NumberBlock fastBlock(region);
        fastBlock.Take(plainBlock);
        ASSERT_EQ(OutcomeOf(FMTFormatNumber, fastBlock), OutcomeOf(plain::FormatNumber, plainBlock)) << picture;

        const std::string text = source.Text(plainBlock.Output());
        plainBlock->Input = text.c_str();
        fastBlock.Take(plainBlock);
        ASSERT_EQ(OutcomeOf(FMTUnformatNumberStr, fastBlock), OutcomeOf(plain::UnformatNumberStr, plainBlock))
            << text << " by " << picture;

        const FMTNumberForm form = {{region.thousand, region.decimal},
                                    source.OneIn(2) ? region.currency : nullptr,
                                    region.position == 1 || region.position == 3};
        Number plainValue = value;
        Number fastValue = value;
        const int32_t plainResult = plain::ParseNumberText(text.c_str(), form, &plainValue);
        const int32_t fastResult = FMTParseNumberText(text.c_str(), form, &fastValue);
        ASSERT_EQ(Show(fastResult, fastValue), Show(plainResult, plainValue)) << text;
    }
}

TEST(FMTNumberFast, EqualsPlain) {
    CompareAll();
}

TEST(FMTNumberFastJapanese, EqualsPlain) {
    const TestLanguage language(kJapanese);
    CompareAll();
}

// The fast ways take what is usual; they are no use if they decline.
TEST(FMTNumberFast, TakesUsualPicturesAndTexts) {
    for (const char* picture :
         {"#,##0.00;(#,##0.00)", "#,##0.00_);($#,##0.00)", "0%", "0.0#", "# 'kg'", "#;-#;0", "0.00E+00", "$", ""}) {
        NumberBlock block(kUS);
        block->Picture = picture;
        for (const char* value : {"1234.5", "-1234.5", "0", "99999999999999.99"}) {
            block->Value = NumberOf(value);
            EXPECT_TRUE(fast::FormatNumber(*block.Get())) << picture << value;
            const std::string text = block.Output();
            block->Input = text.c_str();
            if (std::strpbrk(picture, "#%") == nullptr) continue;
            EXPECT_NE(fast::UnformatNumberStr(block.Get()), fast::Outcome::kDeclined) << picture << text;
        }
    }
    Number value;
    for (const char* text : {"1,234.50", "-5", "5-", " 12 ", "abc", "$12", "($12.5)"}) {
        EXPECT_NE(fast::ParseNumberText(text, {{',', '.'}, "$", false}, &value), fast::Outcome::kDeclined) << text;
    }
}

}  // namespace
