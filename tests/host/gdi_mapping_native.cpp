// Mapping modes, origins, clip boxes and saved states of device contexts.
#include <gtest/gtest.h>

#include <climits>
#include <cstring>
#include <tuple>

#include "support/picture_native.h"

namespace {

constexpr INT kDots = 96;  // of the screen, an inch

// A context on the screen for the time of a test.
class GdiScreen : public testing::Test {
  protected:
    void TearDown() override { EXPECT_TRUE(DeleteDC(dc_)); }

    RECT ClipBox(INT kind) const {
        RECT box;
        EXPECT_EQ(GetClipBox(dc_, &box), kind);
        return box;
    }

    const HDC dc_ = CreateDCA("DISPLAY", nullptr, nullptr, nullptr);
};
using GdiMapping = GdiScreen;
using GdiClip = GdiScreen;
using GdiState = GdiScreen;
using GdiObjects = GdiScreen;

TEST_F(GdiMapping, Points) {
    const std::tuple<INT, POINT, POINT> kMappings[] = {
        {MM_TEXT, {7, 9}, {7, 9}},
        {MM_TEXT, {INT_MIN, INT_MAX}, {-INT_MAX, INT_MAX}},
        {MM_HIENGLISH, {1000, -1000}, {kDots, kDots}},  // an inch right and down
        {MM_HIENGLISH, {5, -5}, {0, 0}},
        {MM_HIENGLISH, {6, -6}, {1, 1}},
        {MM_HIENGLISH, {-6, 6}, {-1, -1}},  // rounding has no direction
        {MM_LOENGLISH, {100, 200}, {kDots, -2 * kDots}},
        {MM_LOMETRIC, {254, -508}, {kDots, 2 * kDots}},
        {MM_HIMETRIC, {2540, -2540}, {kDots, kDots}},
        {MM_TWIPS, {1440, -720}, {kDots, kDots / 2}},
        {MM_TWIPS, {INT_MAX, INT_MIN}, {143165576, 143165577}},
    };
    EXPECT_EQ(GetMapMode(dc_), MM_TEXT);
    for (const auto& [mode, logical, device] : kMappings) {
        SetMapMode(dc_, mode);
        POINT point = logical;
        EXPECT_TRUE(LPtoDP(dc_, &point, 1));
        EXPECT_EQ(point, device) << logical << " in mode " << mode;
    }
    EXPECT_EQ(SetMapMode(dc_, 7), 0);
    EXPECT_EQ(SetMapMode(dc_, 0), 0);
    EXPECT_EQ(SetMapMode(dc_, MM_TEXT), MM_TWIPS);
    EXPECT_FALSE(LPtoDP(dc_, nullptr, 1));
}

TEST_F(GdiMapping, OriginsTieALogicalPointToAPixel) {
    const POINT logical = {1234, -567};
    const POINT device = {-40, 30};
    for (INT mode = MM_TEXT; mode <= MM_TWIPS; ++mode) {
        SetMapMode(dc_, mode);
        EXPECT_TRUE(SetWindowOrgEx(dc_, logical.x, logical.y, nullptr));
        EXPECT_TRUE(SetViewportOrgEx(dc_, device.x, device.y, nullptr));
        POINT point = logical;
        LPtoDP(dc_, &point, 1);
        EXPECT_EQ(point, device);
        DPtoLP(dc_, &point, 1);
        EXPECT_EQ(point, logical);
    }
    POINT origin;
    EXPECT_TRUE(GetWindowOrgEx(dc_, &origin));
    EXPECT_EQ(origin, logical);
    EXPECT_TRUE(SetViewportOrgEx(dc_, 0, 0, &origin));
    EXPECT_EQ(origin, device);
    EXPECT_TRUE(GetViewportOrgEx(dc_, &origin));
    EXPECT_EQ(origin, (POINT{0, 0}));
}

// Pixels turned into units and back are the same pixels, wherever a unit isn't coarser.
TEST_F(GdiMapping, PixelsComeBack) {
    for (const INT mode : {MM_TEXT, MM_LOMETRIC, MM_HIMETRIC, MM_LOENGLISH, MM_HIENGLISH, MM_TWIPS}) {
        SetMapMode(dc_, mode);
        for (INT pixel = -2000; pixel <= 2000; ++pixel) {
            POINT point = {pixel, -pixel};
            DPtoLP(dc_, &point, 1);
            LPtoDP(dc_, &point, 1);
            ASSERT_EQ(point, (POINT{pixel, -pixel})) << "mode " << mode;
        }
    }
}

TEST_F(GdiClip, BoxIsInLogicalUnits) {
    EXPECT_EQ(ClipBox(SIMPLEREGION), (RECT{0, 0, 1024, 768}));
    SetMapMode(dc_, MM_HIENGLISH);
    EXPECT_EQ(ClipBox(SIMPLEREGION), (RECT{0, 0, 10667, -8000}));  // below the top
}

TEST_F(GdiClip, GrowsNarrowerAndComesBack) {
    const INT state = SaveDC(dc_);
    EXPECT_EQ(IntersectClipRect(dc_, 10, 20, 2000, 200), SIMPLEREGION);
    EXPECT_EQ(IntersectClipRect(dc_, 0, 0, 100, 100), SIMPLEREGION);
    EXPECT_EQ(ClipBox(SIMPLEREGION), (RECT{10, 20, 100, 100}));
    EXPECT_EQ(IntersectClipRect(dc_, 200, 200, 300, 300), NULLREGION);
    ClipBox(NULLREGION);
    EXPECT_TRUE(RestoreDC(dc_, state));
    EXPECT_EQ(ClipBox(SIMPLEREGION), (RECT{0, 0, 1024, 768}));
}

TEST_F(GdiState, SavedStatesAreCounted) {
    EXPECT_FALSE(RestoreDC(dc_, -1));
    EXPECT_EQ(SaveDC(dc_), 1);
    SetTextColor(dc_, RGB(1, 2, 3));
    EXPECT_EQ(SaveDC(dc_), 2);
    SetTextColor(dc_, RGB(4, 5, 6));
    EXPECT_EQ(SaveDC(dc_), 3);
    EXPECT_FALSE(RestoreDC(dc_, 4));
    EXPECT_FALSE(RestoreDC(dc_, 0));
    EXPECT_TRUE(RestoreDC(dc_, -2));
    EXPECT_EQ(GetTextColor(dc_), RGB(1, 2, 3));
    EXPECT_FALSE(RestoreDC(dc_, 2));  // gone with the one below it
    EXPECT_TRUE(RestoreDC(dc_, 1));
    EXPECT_EQ(GetTextColor(dc_), RGB(0, 0, 0));
}

TEST_F(GdiState, Capabilities) {
    HDC dc = CreateICA("display", nullptr, nullptr, nullptr);
    constexpr INT kCapabilities[][2] = {{TECHNOLOGY, DT_RASDISPLAY}, {HORZRES, 1024},  {VERTRES, 768},
                                        {LOGPIXELSX, kDots},         {HORZSIZE, 271},  {VERTSIZE, 203},
                                        {PHYSICALWIDTH, 0},          {LOGPIXELSY, 96}, {9999, 0}};
    for (const auto& [index, value] : kCapabilities) EXPECT_EQ(GetDeviceCaps(dc, index), value) << index;
    const INT wanted = QUERYESCSUPPORT;
    EXPECT_EQ(Escape(dc, QUERYESCSUPPORT, sizeof wanted, reinterpret_cast<LPCSTR>(&wanted), nullptr), 0);
    EXPECT_EQ(HostGetCairo(dc), nullptr);  // nothing is drawn on it
    EXPECT_TRUE(DeleteDC(dc));
    EXPECT_FALSE(DeleteDC(dc));
}

TEST_F(GdiState, WindowContextsAreReleased) {
    HDC dc = GetDC(nullptr);
    EXPECT_FALSE(DeleteDC(dc));
    EXPECT_EQ(ReleaseDC(nullptr, dc), 1);
    EXPECT_EQ(ReleaseDC(nullptr, dc), 0);
    EXPECT_EQ(GetDC(reinterpret_cast<HWND>(0x12345)), nullptr);
}

TEST_F(GdiObjects, HandlesEndWithTheirObjects) {
    HPEN pen = CreatePen(PS_SOLID, 3, RGB(255, 0, 0));
    HGDIOBJ black = SelectObject(dc_, pen);
    EXPECT_EQ(black, GetStockObject(BLACK_PEN));
    EXPECT_TRUE(DeleteObject(pen));  // still used by the context
    EXPECT_FALSE(DeleteObject(pen));
    EXPECT_EQ(SelectObject(dc_, pen), nullptr);
    EXPECT_TRUE(LineTo(dc_, 5, 5));
    SelectObject(dc_, black);
    HPEN other = CreatePen(PS_SOLID, 1, 0);
    EXPECT_NE(other, pen);  // the place of the first, but no handle twice
    DeleteObject(other);
    EXPECT_TRUE(DeleteObject(black));  // does nothing to a stock object
    EXPECT_EQ(SelectObject(dc_, black), black);
    for (const INT object : {-1, 9, 10, 15, 16, 18}) EXPECT_EQ(GetStockObject(object), nullptr) << object;
    EXPECT_EQ(SelectObject(dc_, dc_), nullptr);
    EXPECT_EQ(SelectObject(nullptr, black), nullptr);
}

TEST_F(GdiObjects, LogicalFontComesBack) {
    LOGFONTA font = FontOf("DejaVu Sans", -20);
    font.lfItalic = 1;
    HFONT handle = CreateFontIndirectA(&font);
    LOGFONTA read = {};
    EXPECT_EQ(GetObjectA(handle, sizeof read, nullptr), static_cast<INT>(sizeof read));
    EXPECT_EQ(GetObjectA(handle, sizeof read, &read), static_cast<INT>(sizeof read));
    EXPECT_EQ(std::memcmp(&read, &font, sizeof font), 0);
    EXPECT_EQ(GetObjectA(GetStockObject(BLACK_PEN), sizeof read, &read), 0);
    DeleteObject(handle);
}

TEST(Rectangles, EmptyAndCommonParts) {
    RECT rect;
    SetRect(&rect, 10, 10, 20, 20);
    const RECT other = {15, 5, 30, 12};
    RECT both;
    EXPECT_TRUE(IntersectRect(&both, &rect, &other));
    EXPECT_EQ(both, (RECT{15, 10, 20, 12}));
    OffsetRect(&rect, 100, 0);
    EXPECT_FALSE(IntersectRect(&both, &rect, &other));
    EXPECT_EQ(both, RECT{});
    InflateRect(&rect, -5, -5);
    EXPECT_EQ(rect, (RECT{115, 15, 115, 15}));
    EXPECT_TRUE(IsRectEmpty(&rect));
}

TEST(Rectangles, MulDivRoundsHalvesAway) {
    constexpr INT kRows[][4] = {
        {5, 1, 2, 3},
        {-5, 1, 2, -3},
        {5, -1, 2, -3},
        {INT_MAX, INT_MAX, INT_MAX, INT_MAX},
        {INT_MAX, 2, 1, -1},
        {1, 1, 0, -1},
        {INT_MIN, INT_MIN, INT_MIN, -1},
    };
    for (const auto& [value, numerator, denominator, want] : kRows)
        EXPECT_EQ(MulDiv(value, numerator, denominator), want) << value << ' ' << numerator << ' ' << denominator;
}

}  // namespace
