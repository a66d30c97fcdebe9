// Format, then unformat: the value comes back through every valid picture with enough places.
#include <gtest/gtest.h>

#include "format/picture_tokens.h"
#include "number_block.h"
#include "support/profile.h"

namespace {

size_t PlacesOf(const std::string& number, char decimal) {
    const size_t point = number.find(decimal);
    return point == std::string::npos ? 0 : number.size() - point - 1;
}

// Result: whether the picture is valid.
bool CheckValues(const TestRegion& region, bool useProfile, const std::string& picture, size_t places) {
    NumberBlock block = useProfile ? NumberBlock() : NumberBlock(region);
    block->Picture = picture.c_str();
    if (FMTIsNumberPicValid(block.Get()) == 0) return false;
    for (const std::string value : {"0", "7", "-12", "1234", "-1234567", "999999999999", "0.5", "-0.25", "1234.75",
                                    "-99.999", "0.001001", "-123456789.987654"}) {
        if (PlacesOf(value, '.') > places) continue;
        const testing::ScopedTrace row(__FILE__, __LINE__, value + " by " + picture);
        const std::string shown = block.Format(value, picture.c_str());
        const Number before = block->Value;
        EXPECT_EQ(block.Unformat(shown.c_str(), picture.c_str()), TextOf(before)) << shown;
        EXPECT_EQ(std::memcmp(&block->Value, &before, 1u + before.bytes[0]), 0) << shown;
    }
    return true;
}

// Literal text holds no digit place, no ";" and nothing that reads as part of a number.
void CheckPictures(const TestRegion& region, bool useProfile) {
    const std::string group = region.thousand != 0 ? std::string("#") + region.thousand + "##0" : "#";
    const std::string point(1, region.decimal);
    FMTCurrencyStrings s;
    FMTBuildCurrencyStrings(region.position, region.negative, s.posPrefix, s.posSuffix, s.negPrefix, s.negSuffix,
                            region.currency);
    const std::string symbol = s.posPrefix;
    int valid = 0;
    for (const std::string& run :
         {group, std::string("##000"), group + point + "00", "0" + point + "0##", "#" + point + "######"}) {
        const size_t places = PlacesOf(run, region.decimal);
        for (const std::string& prefix :
             {std::string(), symbol, " " + symbol, "\"kg\" " + symbol, std::string("\"it\"\"s\"")}) {
            for (const char* suffix : std::initializer_list<const char*>{"", s.posSuffix, "_)", "\"a b\"", "\"%x\"_)",
                                                                         "\"e\"", "\"\xE4\""}) {
                const std::string section = prefix + run + suffix;
                const std::string negative = ";-" + run + suffix;
                for (const std::string& picture :
                     {section, run + "%" + suffix, section + negative, section + ";(" + run + ")",
                      section + negative + ";\"nil\" " + run}) {
                    valid += CheckValues(region, useProfile, picture, places);
                }
            }
        }
    }
    EXPECT_GT(valid, 400) << "most pictures are valid";
}

TEST(FMTNumberRoundTrip, US) {
    CheckPictures(kUS, false);
    CheckPictures(kUS, true);
}

TEST(FMTNumberRoundTrip, Scientific) {
    for (const char* picture : {"0.####################E+0", "0.00##################e-000"}) {
        EXPECT_TRUE(CheckValues(kUS, true, picture, 20));
    }
}

TEST(FMTNumberRoundTrip, Continental) {
    CheckPictures(kGermany, false);
    const std::vector<TestProfile::Entry> entries = {
        {"intl", "sThousand", "."}, {"intl", "sDecimal", ","}, {"intl", "sCurrency", "DM"},
        {"intl", "iCurrency", "3"}, {"intl", "iNegCurr", "8"},
    };
    const TestProfile profile(entries);
    CheckPictures(kGermany, true);
    EXPECT_TRUE(CheckValues(kGermany, true, "0.####################E-0", 20));
}

TEST(FMTNumberRoundTrip, OtherGroupSeparators) {
    CheckPictures({'\'', '.', "Fr.", 2, 2}, false);
    CheckPictures({' ', ',', "F", 0, 5}, false);
    CheckPictures({0, '.', "", 0, 4}, false);
}

}  // namespace
