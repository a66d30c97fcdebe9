// Format, then unformat: the value comes back through every valid picture with enough places.
#include <gtest/gtest.h>

#include <random>

#include "number_block.h"
#include "support/profile.h"

namespace {

constexpr int kRounds = 3000;

class RoundTrip {
  public:
    RoundTrip(const PrivateRegion& region, bool useProfile) : region_(region), useProfile_(useProfile) {}

    void Run() {
        for (int round = 0; round < kRounds; ++round) {
            const int places = Between(0, 6);
            CheckOne(MakeValue(places), MakePicture(places));
        }
        EXPECT_GT(checked_, kRounds / 2) << "most pictures are valid";
    }

  private:
    int Between(int low, int high) { return low + static_cast<int>(random_() % static_cast<unsigned>(high - low + 1)); }
    bool Maybe() { return Between(0, 1) != 0; }
    std::string Digits(int count) {
        std::string digits;
        for (int i = 0; i < count; ++i) digits += static_cast<char>(Between('0', '9'));
        return digits;
    }

    std::string MakeValue(int places) {
        if (Between(0, 9) == 0) return "0";
        std::string value = (Maybe() ? "-" : "") + Digits(Between(1, 12));
        if (places > 0 && Maybe()) value += "." + Digits(Between(1, places));
        return value;
    }

    // Literal text holds no digit place, no ";" and nothing that reads as part of a number.
    std::string Literal() {
        static const char* const kTexts[] = {"kg", "a b", "%x", "it\"\"s", "e", "\xE4"};
        return std::string("\"") + kTexts[Between(0, 5)] + "\"";
    }
    std::string Prefix() {
        return (Maybe() ? Literal() : "") + (Maybe() ? " " : "") + (Maybe() ? region_.currency : "");
    }
    std::string Suffix() { return (Maybe() ? Literal() : "") + (Maybe() ? "_)" : ""); }

    std::string Run(int places) {
        std::string run;
        if (region_.thousand != 0 && Maybe()) {
            run = std::string("#") + region_.thousand + (Maybe() ? "##0" : "###");
        } else {
            run = std::string(Between(0, 2), '#') + std::string(Between(1, 4), '0');
        }
        if (places == 0) return run;
        const int zeros = Between(0, places);
        return run + region_.decimal + std::string(zeros, '0') + std::string(places - zeros, '#');
    }

    std::string MakePicture(int places) {
        if (Between(0, 4) == 0 && useProfile_) {
            return "0." + std::string(Between(0, 3), '0') + std::string(20, '#') + (Maybe() ? "E" : "e") +
                   (Maybe() ? "+" : "-") + std::string(Between(1, 3), '0');
        }
        if (Between(0, 4) == 0) return Run(places) + "%" + Suffix();
        std::string picture = Prefix() + Run(places) + Suffix();
        if (Maybe()) {
            const bool parens = (region_.negative == 0 || region_.negative == 4) && Maybe();
            picture += parens ? ";(" + Run(places) + ")" : ";-" + Run(places) + Suffix();
            if (Maybe()) picture += ";\"nil\" " + Run(places);
        }
        return picture;
    }

    void CheckOne(const std::string& value, const std::string& picture) {
        const testing::ScopedTrace row(__FILE__, __LINE__, value + " by " + picture);
        NumberBlock block = useProfile_ ? NumberBlock() : NumberBlock(region_);
        block->Picture = picture.c_str();
        if (FMTIsNumberPicValid(block.Get()) == 0) return;
        ++checked_;
        const std::string shown = block.Format(value, 6, picture.c_str());
        const Number before = block->Value;
        EXPECT_EQ(block.Unformat(shown.c_str(), picture.c_str()), TextOf(before)) << shown;
        EXPECT_TRUE(SameBytes(block->Value, before)) << shown;
    }

    PrivateRegion region_;
    bool useProfile_;
    std::mt19937 random_{20261122};
    int checked_ = 0;
};

TEST(FMTNumberRoundTrip, US) {
    RoundTrip({}, false).Run();
    RoundTrip({}, true).Run();
}

TEST(FMTNumberRoundTrip, Continental) {
    const PrivateRegion region = {.thousand = '.', .decimal = ',', .currency = "DM", .position = 3, .negative = 8};
    RoundTrip(region, false).Run();
    const TestProfile profile({{"intl", "sThousand", "."},
                               {"intl", "sDecimal", ","},
                               {"intl", "sCurrency", "DM"},
                               {"intl", "iCurrency", "3"},
                               {"intl", "iNegCurr", "8"}});
    RoundTrip(region, true).Run();
}

TEST(FMTNumberRoundTrip, OtherGroupSeparators) {
    RoundTrip({.thousand = '\'', .currency = "Fr.", .position = 2, .negative = 2}, false).Run();
    RoundTrip({.thousand = ' ', .decimal = ',', .currency = "F", .negative = 5}, false).Run();
    RoundTrip({.thousand = 0, .currency = "", .negative = 4}, false).Run();
}

}  // namespace
