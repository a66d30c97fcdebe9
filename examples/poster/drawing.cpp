// The poster's drawing, in the platform's own calls: nothing here knows of sheets.
#include "drawing.h"

#include <cstring>
#include <string>

#include "../drawing/selected.h"

namespace {

constexpr int32_t kInch = 1000;

constexpr COLORREF kPaper = RGB(250, 244, 228);
constexpr COLORREF kGrid = RGB(200, 196, 180);
constexpr COLORREF kInk = RGB(30, 50, 90);
constexpr COLORREF kRings[] = {RGB(178, 34, 52), RGB(236, 135, 14), RGB(70, 130, 80), RGB(40, 90, 160)};

HFONT MakeFont(int32_t height, int32_t weight) {
    LOGFONTA font = {};
    font.lfHeight = -height;
    font.lfWeight = weight;
    font.lfCharSet = DEFAULT_CHARSET;
    std::strcpy(font.lfFaceName, "DejaVu Sans");
    return CreateFontIndirectA(&font);
}

void DrawLine(HDC dc, int32_t x1, int32_t y1, int32_t x2, int32_t y2) {
    MoveToEx(dc, x1, y1, nullptr);
    LineTo(dc, x2, y2);
}

void DrawBackground(HDC dc, const Poster& poster) {
    HBRUSH brush = CreateSolidBrush(kPaper);
    const RECT all = {0, 0, poster.width, -poster.height};
    FillRect(dc, &all, brush);
    DeleteObject(brush);
}

// A line an inch, and the inches written at the top and at the left.
void DrawGrid(HDC dc, const Poster& poster) {
    const Selected pen(dc, CreatePen(PS_SOLID, 10, kGrid));
    const Selected font(dc, MakeFont(140, FW_NORMAL));
    SetTextColor(dc, kInk);
    for (int32_t x = kInch; x < poster.width; x += kInch) {
        DrawLine(dc, x, 0, x, -poster.height);
        const std::string label = std::to_string(x / kInch);
        TextOutA(dc, x + 30, -30, label.c_str(), static_cast<INT>(label.size()));
    }
    for (int32_t y = kInch; y < poster.height; y += kInch) {
        DrawLine(dc, 0, -y, poster.width, -y);
        const std::string label = std::to_string(y / kInch);
        TextOutA(dc, 30, -y - 30, label.c_str(), static_cast<INT>(label.size()));
    }
}

// Rings round the middle, and the diagonals through it: what crosses the edges of sheets shows every gap.
void DrawRings(HDC dc, const Poster& poster) {
    const int32_t middleX = poster.width / 2;
    const int32_t middleY = -poster.height / 2;
    const int32_t largest = (poster.width < poster.height ? poster.width : poster.height) * 9 / 20;
    const HGDIOBJ brush = SelectObject(dc, GetStockObject(NULL_BRUSH));
    int32_t radius = largest;
    for (const COLORREF color : kRings) {
        const Selected pen(dc, CreatePen(PS_SOLID, largest / 12, color));
        Ellipse(dc, middleX - radius, middleY + radius, middleX + radius, middleY - radius);
        radius -= largest / 5;
    }
    SelectObject(dc, brush);
    const Selected pen(dc, CreatePen(PS_SOLID, 40, kInk));
    DrawLine(dc, 0, 0, poster.width, -poster.height);
    DrawLine(dc, poster.width, 0, 0, -poster.height);
}

void DrawTitle(HDC dc, const Poster& poster) {
    const Selected font(dc, MakeFont(poster.height / 9, FW_BOLD));
    SetTextAlign(dc, TA_CENTER | TA_BASELINE);
    TextOutA(dc, poster.width / 2, -poster.height * 11 / 20, poster.title, static_cast<INT>(std::strlen(poster.title)));
    SetTextAlign(dc, TA_LEFT | TA_TOP);
}

void DrawBorder(HDC dc, const Poster& poster) {
    const HGDIOBJ brush = SelectObject(dc, GetStockObject(NULL_BRUSH));
    {
        const Selected pen(dc, CreatePen(PS_SOLID, 60, kInk));
        Rectangle(dc, 100, -100, poster.width - 100, -poster.height + 100);
    }
    SelectObject(dc, brush);
}

}  // namespace

int32_t MORVL_CALL DrawPoster(HDC dc, int32_t /*command*/, const RECT* /*band*/, uintptr_t value, int32_t /*zero1*/,
                              int32_t /*zero2*/, int32_t /*zero3*/) {
    const auto& poster = *reinterpret_cast<const Poster*>(value);
    SetBkMode(dc, TRANSPARENT);
    DrawBackground(dc, poster);
    DrawGrid(dc, poster);
    DrawRings(dc, poster);
    DrawTitle(dc, poster);
    DrawBorder(dc, poster);
    return 1;
}
