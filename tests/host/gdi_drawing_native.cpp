// What the drawing calls leave on a picture.
#include <gtest/gtest.h>

#include "support/picture_native.h"

namespace {

constexpr uint32_t kWhite = 0xFFFFFF;
constexpr uint32_t kBlack = 0x000000;
constexpr uint32_t kRed = 0xFF0000;
constexpr RECT kWhole = {0, 0, 100, 60};

HBRUSH Brush(INT stock) {
    return static_cast<HBRUSH>(GetStockObject(stock));
}

class GdiDrawing : public testing::Test {
  protected:
    const TestPicture picture_{kWhole.right, kWhole.bottom};
};

TEST_F(GdiDrawing, RectanglesCoverAllButTheLastRowAndColumn) {
    const Selected brush(picture_, CreateSolidBrush(RGB(255, 0, 0)));
    Rectangle(picture_, 10, 10, 20, 30);
    EXPECT_EQ(picture_.Inked(), (RECT{10, 10, 20, 30}));
    EXPECT_EQ(picture_.At(10, 10), kBlack);
    EXPECT_EQ(picture_.At(19, 29), kBlack);
    EXPECT_EQ(picture_.At(11, 11), kRed);
    EXPECT_EQ(picture_.At(18, 28), kRed);
}

TEST_F(GdiDrawing, CornersComeInAnyOrder) {
    SetMapMode(picture_, MM_HIENGLISH);
    const RECT half = {1000, -250, 500, -500};  // y grows upward
    FillRect(picture_, &half, Brush(BLACK_BRUSH));
    EXPECT_EQ(picture_.Inked(), (RECT{48, 24, 96, 48}));
}

TEST_F(GdiDrawing, LinesLeaveTheirLastPixelOut) {
    MoveToEx(picture_, 5, 7, nullptr);
    LineTo(picture_, 25, 7);
    EXPECT_EQ(picture_.Inked(), (RECT{5, 7, 25, 8}));
    POINT before;
    MoveToEx(picture_, 0, 0, &before);
    EXPECT_EQ(before, (POINT{25, 7}));
}

TEST_F(GdiDrawing, PensHaveWidthColorAndStyle) {
    {
        const Selected pen(picture_, CreatePen(PS_SOLID, 5, RGB(255, 0, 0)));
        const POINT corner[] = {{10, 10}, {40, 10}, {40, 40}};
        Polyline(picture_, corner, 3);
        EXPECT_EQ(picture_.At(25, 12), kRed);
        EXPECT_EQ(picture_.At(25, 13), kWhite);
        EXPECT_EQ(picture_.At(38, 25), kRed);
    }
    const Selected pen(picture_, CreatePen(PS_DOT, 1, RGB(0, 0, 0)));
    MoveToEx(picture_, 0, 55, nullptr);
    LineTo(picture_, 60, 55);
    EXPECT_EQ(picture_.At(1, 55), kBlack);
    EXPECT_EQ(picture_.At(4, 55), kWhite);
    EXPECT_EQ(picture_.At(7, 55), kBlack);
}

TEST_F(GdiDrawing, NullPenAndNullBrushDrawNothing) {
    SelectObject(picture_, GetStockObject(NULL_PEN));
    SelectObject(picture_, GetStockObject(NULL_BRUSH));
    const POINT triangle[] = {{10, 10}, {40, 10}, {25, 40}};
    EXPECT_TRUE(Polygon(picture_, triangle, 3));
    EXPECT_TRUE(Ellipse(picture_, 5, 5, 45, 45));
    EXPECT_TRUE(Rectangle(picture_, 5, 5, 45, 45));
    EXPECT_EQ(FillRect(picture_, &kWhole, Brush(NULL_BRUSH)), 1);
    EXPECT_EQ(picture_.Inked().right, 0);
}

TEST_F(GdiDrawing, PolygonsAndEllipsesAreFilled) {
    const Selected brush(picture_, CreateSolidBrush(RGB(255, 0, 0)));
    const POINT triangle[] = {{10, 10}, {40, 10}, {10, 40}};
    Polygon(picture_, triangle, 3);
    EXPECT_EQ(picture_.At(15, 15), kRed);
    EXPECT_EQ(picture_.At(35, 35), kWhite);
    Ellipse(picture_, 50, 10, 90, 40);
    EXPECT_EQ(picture_.At(70, 25), kRed);
    EXPECT_EQ(picture_.At(51, 11), kWhite);
    EXPECT_EQ(picture_.At(70, 10), kBlack);
}

TEST_F(GdiDrawing, FramesAreOnePixelWide) {
    const RECT rect = {10, 10, 30, 20};
    FrameRect(picture_, &rect, Brush(BLACK_BRUSH));
    EXPECT_EQ(picture_.Inked(), rect);
    EXPECT_EQ(picture_.At(11, 11), kWhite);
    EXPECT_EQ(picture_.At(28, 18), kWhite);
    EXPECT_EQ(picture_.At(29, 19), kBlack);
}

TEST_F(GdiDrawing, NothingOutsideOfTheClip) {
    SaveDC(picture_);
    IntersectClipRect(picture_, 20, 20, 30, 30);
    FillRect(picture_, &kWhole, Brush(BLACK_BRUSH));
    TextOutA(picture_, 0, 0, "text", 4);
    EXPECT_EQ(picture_.Inked(), (RECT{20, 20, 30, 30}));
    RestoreDC(picture_, -1);
    LineTo(picture_, 10, 0);
    EXPECT_EQ(picture_.At(5, 0), kBlack);
}

TEST_F(GdiDrawing, PicturesAreCopied) {
    const TestPicture from(20, 20);
    const RECT dot = {3, 4, 5, 6};
    FillRect(from, &dot, Brush(BLACK_BRUSH));
    EXPECT_TRUE(BitBlt(picture_, 10, 10, 10, 10, from, 2, 2, SRCCOPY));
    EXPECT_EQ(picture_.Inked(), (RECT{11, 12, 13, 14}));
    EXPECT_FALSE(BitBlt(picture_, 0, 0, 1, 1, from, 0, 0, 0x42));
}

TEST_F(GdiDrawing, WithCairoBesides) {
    cairo_t* cairo = HostGetCairo(picture_);
    cairo_set_source_rgb(cairo, 1, 0, 0);
    cairo_rectangle(cairo, 2, 3, 4, 5);
    cairo_fill(cairo);
    EXPECT_EQ(picture_.Inked(), (RECT{2, 3, 6, 8}));
    EXPECT_EQ(HostGetCairo(nullptr), nullptr);
}

TEST_F(GdiDrawing, RefusesWhatIsNoContext) {
    const POINT points[] = {{0, 0}, {1, 1}};
    EXPECT_FALSE(LineTo(nullptr, 1, 1));
    EXPECT_FALSE(Polyline(nullptr, points, 2));
    EXPECT_FALSE(Rectangle(reinterpret_cast<HDC>(GetStockObject(BLACK_PEN)), 0, 0, 1, 1));
    EXPECT_EQ(FillRect(nullptr, &kWhole, nullptr), 0);
    EXPECT_EQ(SetTextColor(nullptr, 0), CLR_INVALID);
    EXPECT_FALSE(Polyline(picture_, points, 1));
    EXPECT_FALSE(Polygon(picture_, nullptr, 3));
    EXPECT_EQ(FillRect(picture_, nullptr, nullptr), 0);
}

}  // namespace
