// Real numbers in edit controls.
#include <gtest/gtest.h>

#include <clocale>
#include <cmath>
#include <random>
#include <string>
#include <vector>

#include <morvl15/dialog.h>

#include "dialog/windows.h"

namespace {

constexpr int32_t kId = 7;

std::string Metric(uint32_t value) {
    char text[32];
    DlgSetStrRealMetricUnits(value, 99, text);
    return text;
}

std::string Scaled(uint32_t value, uint32_t places) {
    char text[32];
    DlgSetStrRealUnits(value, 99, text, places);
    return text;
}

// A number read from a control; -1 for none.
int64_t Read(HWND frame, const std::string& text, int32_t metric, uint32_t places) {
    SetDlgItemTextA(frame, kId, text.c_str());
    int32_t good = 77;
    const uint32_t value = DlgGetDlgItemReal(frame, kId, &good, 99, metric, places);
    EXPECT_TRUE(good == 1 || (good == 0 && value == 0)) << text;
    return good == 1 ? int64_t{value} : -1;
}

class RealValues : public testing::Test {
  protected:
    TestWindow frame_ = MakeFrame();
    TestWindow edit_ = MakeControl(frame_, "EDIT", ES_AUTOHSCROLL);
};

struct TextCase {
    int32_t metric;
    uint32_t value, places;
    const char* text;
};

constexpr uint32_t kMost = 0xFFFFFFFF;

// The inch is a little long: half of one is 1.275 centimetres. 0.0940 rounds up to the next tenth, 0.9959 over the
// ninth.
constexpr TextCase kTexts[] = {
    {1, kMost, 0, "10911793.9"},  {1, 1000, 0, "2.55"}, {1, 5, 0, "0.025"},    {1, 0, 0, "0.0"},  {1, 3937, 0, "10.0"},
    {1, 10000, 0, "25.4"},        {1, 100, 0, "0.25"},  {1, 500, 0, "1.275"},  {1, 37, 0, "0.1"}, {1, 392, 0, "1.0"},
    {0, kMost, 0, "-1"},          {0, 1250, 3, "1.25"}, {0, 1001, 3, "1.001"}, {0, 1000, 3, "1"}, {0, 0, 2, "0"},
    {0, kMost, 1, "429496729.5"}, {0, 105, 2, "1.05"},  {0, 1250, 9, "1.25"},  {0, 7, 1, "0.7"},  {0, 110, 2, "1.1"},
    {0, 100000, 3, "100"},        {0, 7, 0, "7"},
};

TEST_F(RealValues, Texts) {
    for (const TextCase& c : kTexts) {
        EXPECT_EQ(c.metric != 0 ? Metric(c.value) : Scaled(c.value, c.places), c.text);
        EXPECT_NE(DlgSetDlgItemReal(frame_, kId, c.value, 99, c.metric, c.places), 0);
        EXPECT_EQ(edit_.Text(), c.text);
    }
}

struct ReadCase {
    const char* text;
    int32_t metric;
    uint32_t places;
    int64_t value;  // -1 for no number
};

// The fraction of "1.2.3" is "2.3"; 2147483648 is beyond what is read, and so is a byte behind the 31st.
constexpr ReadCase kReadings[] = {
    {"2.54", 1, 0, 1000},    {"1", 1, 0, 394},
    {".5", 1, 0, 197},       {"5.", 1, 0, 1968},
    {".", 1, 0, 0},          {"1.2.3", 1, 0, 472},
    {"10.16", 1, 0, 3999},   {"9999999999", 1, 0, kMost},
    {"1.2", 0, 3, 1200},     {"1.23456", 0, 2, 123},
    {".5", 0, 1, 5},         {"1.5", 0, 0, 1},
    {"1.5", 0, 9, 1500},     {"7.", 0, 2, 700},
    {"1.2.3", 0, 3, 1002},   {".", 0, 2, 0},
    {"2147483648", 0, 0, 0}, {"123456789012345678901234567890.5", 0, 1, 0},
    {"-1", 1, 0, -1},        {"-1", 0, 2, -1},
    {"", 0, 2, -1},          {"1,000", 0, 2, -1},
    {" 1", 1, 0, -1},        {"1e3", 1, 0, -1},
};

// In any locale of the process: some of these have "," as their point, if the machine has them.
TEST_F(RealValues, Readings) {
    for (const char* locale : {"C", "de_DE.UTF-8", "de_DE", "German", "fr_FR.UTF-8"}) {
        if (std::setlocale(LC_NUMERIC, locale) == nullptr) continue;
        for (const ReadCase& c : kReadings) {
            EXPECT_EQ(Read(frame_, c.text, c.metric, c.places), c.value) << c.text << " in " << locale;
        }
        EXPECT_EQ(Metric(1000), "2.55");
    }
    std::setlocale(LC_NUMERIC, "C");
    int32_t good = 77;
    EXPECT_EQ(DlgGetDlgItemReal(frame_, kId + 1, &good, 0, 1, 0), 0u);
    EXPECT_EQ(good, 0);
    EXPECT_EQ(DlgSetDlgItemReal(frame_, kId + 1, 5, 0, 1, 0), 0);
}

// What the header promises of values that are set and read again.
TEST_F(RealValues, RoundTrips) {
    std::mt19937 random(20);
    for (uint32_t places = 0; places <= 3; ++places) {
        std::vector<uint32_t> values = {0, 1, 10, 999, 1000, 123400, kMost};
        for (int i = 0; i < 500; ++i) values.push_back(static_cast<uint32_t>(random()));
        for (uint32_t value : values) {
            if (places == 0) value >>= 1;
            EXPECT_EQ(Read(frame_, Scaled(value, places), 0, places), value) << value << " " << places;
        }
    }
    for (uint32_t value = 0; value <= 6000; value += value < 1000 ? 1 : 25) {
        EXPECT_LE(std::abs(Read(frame_, Metric(value), 1, 0) - int64_t{value}), 5) << value;
    }
    for (int step = 0; step <= 2000; ++step) {  // texts on a step come back as they were
        const std::string text = Scaled(static_cast<uint32_t>(step) * 25, 3);
        const std::string again = Metric(static_cast<uint32_t>(Read(frame_, text, 1, 0)));
        EXPECT_EQ(again, text.find('.') == std::string::npos ? text + ".0" : text);
    }
}

TEST(SearchSpec, HoldsAWildCard) {
    for (const char* text : {"*", "a?.txt", "folder/*.c"}) EXPECT_EQ(DlgSearchSpec(text), 1) << text;
    for (const char* text : {"", "a.txt", "[a]"}) EXPECT_EQ(DlgSearchSpec(text), 0) << text;
    EXPECT_EQ(DlgSearchSpec(nullptr), 0);
}

TEST(ScreenPixels, RoundsHalvesAwayFromZero) {
    const HDC screen = CreateICA("DISPLAY", nullptr, nullptr, nullptr);
    const int32_t dots = GetDeviceCaps(screen, LOGPIXELSX);
    const int32_t dotsDown = GetDeviceCaps(screen, LOGPIXELSY);
    DeleteDC(screen);
    ASSERT_EQ(dots, 96);
    constexpr int32_t kLengths[][2] = {{1000, 96}, {5, 0}, {6, 1}, {-5, 0}, {-6, -1}, {0, 0}, {2000000000, 192000000}};
    for (const auto& [length, pixels] : kLengths) EXPECT_EQ(DlgGetScreenPixels(length, 0), pixels) << length;
    EXPECT_EQ(DlgGetScreenPixels(1000, 1), dotsDown);
}

}  // namespace
