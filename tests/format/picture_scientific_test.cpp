// Which number pictures count as scientific.
#include <gtest/gtest.h>

#include <random>
#include <string>

#include <morvl15/intl.h>

#include "format/picture_tokens.h"
#include "support/locale.h"

namespace {

// The definition of what counts as scientific: two patterns of the wild-card scan, found at the very start.
int32_t IsSciPicByDefinition(const char* picture) {
    if (*picture != '0') return 0;
    return IntlStrScan(picture, "0.%E_0%") == 0 || IntlStrScan(picture, "0.%e_0%") == 0 ? 1 : 0;
}

void ExpectRecognisedAsDefined(const std::string& letters) {
    std::mt19937 random(20260503);
    for (int32_t round = 0; round < 20000; ++round) {
        std::string picture = round % 4 == 0 ? "" : "0.";
        for (size_t length = random() % 10; length > 0; --length) picture += letters[random() % letters.size()];
        ASSERT_EQ(FMTIsSciPic(picture.c_str()), IsSciPicByDefinition(picture.c_str())) << picture;
    }
}

TEST(SciPictures, RecognisedAsTheScanDoes) {
    ExpectRecognisedAsDefined("0Ee+#.x");
}

TEST(SciPicturesJapanese, RecognisedAsTheScanDoes) {
    const TestLanguage language(kJapanese);
    ExpectRecognisedAsDefined("0Ee+.\x83");  // a lead byte makes any letter behind it a trail
}

}  // namespace
