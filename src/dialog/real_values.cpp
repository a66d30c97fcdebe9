// Real numbers in edit controls: whole numbers in the program, decimal text on the screen.
#include <charconv>

#include <morvl15/dialog.h>
#include <morvl15/intl.h>

namespace {

constexpr double kCentimetresPerInch = 2.5406;  // the inch of both directions of these helpers
constexpr double kInchesPerCentimetre = 0.3936078091789341;
constexpr int32_t kTextSize = 32;
constexpr uint32_t kMostPlaces = 3;
constexpr uint32_t kPowersOf10[kMostPlaces + 1] = {1, 10, 100, 1000};
constexpr uint32_t kGreatest = 0xFFFFFFFF;

uint32_t PlacesOf(uint32_t places) {
    return places < kMostPlaces ? places : kMostPlaces;
}

bool IsDecimal(const char* text) {
    for (; *text != 0; ++text) {
        if ((*text < '0' || *text > '9') && *text != '.') return false;
    }
    return true;
}

// The decimal point is a point whatever locale the process has set.
uint32_t ReadMetric(const char* text) {
    double centimetres = 0;
    std::from_chars(text, text + lstrlenA(text), centimetres);
    const double thousandths = centimetres * kInchesPerCentimetre * 1000 + 0.5;
    return thousandths < kGreatest ? static_cast<uint32_t>(thousandths) : kGreatest;
}

uint32_t FetchNumber(const char* text) {
    int32_t value = 0;
    IntlFetchNextNumLong(&value, text);
    return static_cast<uint32_t>(value);
}

// Cuts a text at its first point and makes the fraction behind it, of exactly `places` digits.
void SplitFraction(char* text, char* fraction, uint32_t places) {
    while (*text != 0 && *text != '.') ++text;
    const char* digits = *text == '.' ? text + 1 : text;
    for (uint32_t i = 0; i < places; ++i) fraction[i] = *digits != 0 ? *digits++ : '0';
    fraction[places] = 0;
    *text = 0;
}

uint32_t ReadScaled(char* text, uint32_t places) {
    char fraction[kMostPlaces + 1];
    SplitFraction(text, fraction, places);
    return FetchNumber(text) * kPowersOf10[places] + FetchNumber(fraction);
}

// What lies below a tenth, in centimetres, and the digits that stand for it from there on.
struct HundredthsStep {
    double from;
    const char* digits;
};

constexpr double kNextTenthFrom = 0.0875;
constexpr HundredthsStep kHundredthsSteps[] = {{0.0625, "75"}, {0.0375, "5"}, {0.0125, "25"}};

const char* HundredthsOf(double centimetres) {
    for (const HundredthsStep& step : kHundredthsSteps) {
        if (centimetres >= step.from) return step.digits;
    }
    return "";
}

void CutTrailingZeros(char* text) {
    int32_t length = lstrlenA(text);
    while (length > 0 && text[length - 1] == '0') --length;
    if (length > 0 && text[length - 1] == '.') --length;
    text[length] = 0;
}

}  // namespace

uint32_t MORVL_CALL DlgGetDlgItemReal(HWND dialog, int32_t id, int32_t* good, uint32_t /*reserved*/, int32_t metric,
                                      uint32_t places) {
    char text[kTextSize] = {};
    const bool read = GetDlgItemTextA(dialog, id, text, kTextSize) != 0 && IsDecimal(text);
    if (good != nullptr) *good = read ? 1 : 0;
    if (!read) return 0;
    return metric != 0 ? ReadMetric(text) : ReadScaled(text, PlacesOf(places));
}

intptr_t MORVL_CALL DlgSetDlgItemReal(HWND dialog, int32_t id, uint32_t value, uint32_t reserved, int32_t metric,
                                      uint32_t places) {
    char text[kTextSize];
    if (metric != 0) {
        DlgSetStrRealMetricUnits(value, reserved, text);
    } else {
        DlgSetStrRealUnits(value, reserved, text, places);
    }
    return SendMessageA(GetDlgItem(dialog, id), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text));
}

void MORVL_CALL DlgSetStrRealMetricUnits(uint32_t value, uint32_t /*reserved*/, char* text) {
    if (value == 0) {
        lstrcpyA(text, "0.0");
        return;
    }
    double centimetres = value * 0.001 * kCentimetresPerInch;
    auto whole = static_cast<int32_t>(centimetres);
    centimetres -= whole;
    auto tenths = static_cast<int32_t>(centimetres * 10);
    if (tenths != 0) centimetres -= tenths * 0.1;
    if (centimetres >= kNextTenthFrom) {
        whole += tenths == 9 ? 1 : 0;
        tenths = tenths == 9 ? 0 : tenths + 1;
        centimetres = 0;
    }
    const int32_t length = wsprintfA(text, "%d.%d", whole, tenths);
    lstrcpyA(text + length, HundredthsOf(centimetres));
}

void MORVL_CALL DlgSetStrRealUnits(uint32_t value, uint32_t /*reserved*/, char* text, uint32_t places) {
    static constexpr const char* kFormats[kMostPlaces + 1] = {"%d", "%d.%01d", "%d.%02d", "%d.%03d"};
    const uint32_t shown = PlacesOf(places);
    const uint32_t whole = value / kPowersOf10[shown];
    const uint32_t rest = value % kPowersOf10[shown];
    if (rest == 0) {
        wsprintfA(text, kFormats[0], whole);
        return;
    }
    wsprintfA(text, kFormats[shown], whole, rest);
    CutTrailingZeros(text);
}
