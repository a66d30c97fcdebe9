// Documents laid out on a device: what is asked of it, and where each sheet's origin stands.
#include <gtest/gtest.h>

#include <array>
#include <string>
#include <vector>

#include "scripted_printer.h"

namespace {

using Sheet = std::array<LONG, 8>;  // the origins of window and viewport, the clip box

std::vector<Sheet> sheets;
POINT inch;  // the pixel of a point an inch from both edges of the document

int32_t MORVL_CALL Note(HDC dc, int32_t /*command*/, const RECT* band, uintptr_t /*value*/, int32_t /*zero1*/,
                        int32_t /*zero2*/, int32_t /*zero3*/) {
    EXPECT_EQ(GetMapMode(dc), MM_HIENGLISH);
    EXPECT_EQ((std::array{band->left, band->top, band->right, band->bottom}), (std::array<LONG, 4>{0, 0, 850, 1100}));
    POINT window = {};
    POINT viewport = {};
    RECT box = {};
    GetWindowOrgEx(dc, &window);
    GetViewportOrgEx(dc, &viewport);
    GetClipBox(dc, &box);
    inch = {1000, -1000};
    LPtoDP(dc, &inch, 1);
    sheets.push_back({window.x, window.y, viewport.x, viewport.y, box.left, box.top, box.right, box.bottom});
    return 1;
}

struct Pages : ScriptedJob {
    explicit Pages(const ScriptedPrinter& printer) : ScriptedJob(printer) {
        record.renderHook = Note;
        sheets.clear();
    }
};

class PagePrinting : public testing::Test {
  protected:
    ScriptedPrinter printer;
    Pages pages{printer};
};

TEST_F(PagePrinting, MapsTheFirstSheetFromThePapersCorner) {
    EXPECT_EQ(pages.Print(), PRINT_FINISHED);
    EXPECT_EQ(sheets, (std::vector{Sheet{0, 0, -25, -25, 250, -250, 8250, -10750}}));
    EXPECT_EQ(inch.x + 25, 100);  // of the paper
    EXPECT_EQ(inch.y + 25, 100);
}

// Two by two: each goes on where the one before ends.
const std::vector<Sheet> kFourSheets = {{0, 0, -25, -25, 250, -250, 8250, -10750},
                                        {8250, 0, 0, -25, 8250, -250, 16250, -10750},
                                        {0, -10750, -25, 0, 250, -10750, 8250, -21250},
                                        {8250, -10750, 0, 0, 8250, -10750, 16250, -21250}};

TEST_F(PagePrinting, GoesOnWhereEachSheetEnds) {
    pages.record.docWidth = 17000;
    pages.record.docHeight = 22000;
    EXPECT_EQ(pages.Print(), PRINT_FINISHED);
    EXPECT_EQ(sheets, kFourSheets);
}

// A device that doesn't tell its margins.
TEST_F(PagePrinting, DoesWithoutMargins) {
    printer.metrics.escapes = 0;
    pages.record.docWidth = 17000;
    EXPECT_EQ(pages.Print(), PRINT_FINISHED);
    EXPECT_EQ(sheets, (std::vector<Sheet>{{0, 0, 0, 0, 0, 0, 8000, -10500}, {8500, 0, 0, 0, 8500, 0, 16500, -10500}}));
}

// Origins that a context of the caller's comes with are no lengths.
TEST_F(PagePrinting, LaysOutAsIfTheContextWereNew) {
    HDC dc = CreateDCA("Script", "Scripted", "LPT1:", nullptr);
    SetWindowOrgEx(dc, 307, -207, nullptr);
    SetViewportOrgEx(dc, -31, 53, nullptr);
    pages.record.job.dc = dc;
    pages.record.docWidth = 17000;
    pages.record.docHeight = 11100;
    EXPECT_EQ(pages.Print(), PRINT_FINISHED);
    EXPECT_EQ(int32_t{pages.record.docWidth}, 17000);
    EXPECT_EQ(int32_t{pages.record.docHeight}, 11100);
    EXPECT_EQ(sheets, kFourSheets);
    DeleteDC(dc);
}

struct SizeCase {
    int32_t width, height, span, fit, start;
    int32_t wantedWidth, wantedHeight, wantedSheets;
};

constexpr SizeCase kSizes[] = {
    {8500, 11000, 0, 0, 0, 8500, 11000, 1},    {8501, 12000, 0, 0, 0, 8500, 11000, 1},
    {8520, 11000, 1, 0, 0, 8500, 11000, 1},    {8521, 11000, 1, 0, 0, 8520, 11000, 2},  // rounded to pixels of 10 units
    {8521, 11000, 1, 1, 0, 8521, 11000, 2},    {8500, 11000, 0, 0, 100, 8500, 11000, 2},
    {8600, 11000, 1, 0, -100, 8600, 11000, 2}, {9000, 10999, 0, 1, 0, 8500, 10999, 1},
};

TEST(PagePrint, HandsBackTheSizeAsItWasLaidOut) {
    for (const SizeCase& c : kSizes) {
        const ScriptedPrinter printer;
        Pages pages(printer);
        pages.record.docWidth = c.width;
        pages.record.docHeight = c.height;
        pages.record.spanA = 0;
        pages.record.spanB = c.span;
        pages.record.fitToPaper = c.fit;
        pages.record.startX = c.start;
        EXPECT_EQ(pages.Print(), PRINT_FINISHED);
        const std::array laidOut = {int32_t{pages.record.docWidth}, int32_t{pages.record.docHeight},
                                    static_cast<int32_t>(sheets.size())};
        EXPECT_EQ(laidOut, (std::array{c.wantedWidth, c.wantedHeight, c.wantedSheets}))
            << c.width << " by " << c.height;
    }
}

struct CopyCase {
    int32_t copies;
    int16_t modeCopies;  // 0 for no device mode
    bool deviceCounts;
    size_t sheets;
    const char* calls;  // the document's first
};

constexpr CopyCase kCopies[] = {
    {3, 0, false, 3, "start, page"},        {3, 1, false, 3, "start, page"}, {3, 2, false, 1, "start, page"},
    {3, 2, true, 1, "start, escape 17: 3"}, {0, 0, false, 1, "start, page"}, {-2, 0, false, 1, "start, page"},
};

TEST(PagePrint, LetsTheDeviceCopyOrCopiesItself) {
    for (const CopyCase& c : kCopies) {
        ScriptedPrinter printer;
        Pages pages(printer);
        DEVMODEA mode = {};
        mode.dmSize = sizeof mode;
        mode.dmCopies = c.modeCopies;
        pages.record.copies = c.copies;
        pages.record.job.deviceMode = c.modeCopies > 0 ? &mode : nullptr;
        if (c.deviceCounts) printer.metrics.escapes |= EscapeBit(SETCOPYCOUNT);
        EXPECT_EQ(pages.Print(), PRINT_FINISHED);
        EXPECT_EQ(sheets.size(), c.sheets) << c.copies << " " << c.modeCopies;
        EXPECT_EQ(printer.Calls().rfind(c.calls, 0), 0u) << printer.Calls();
    }
}

TEST_F(PagePrinting, AsksForDraftsOnlyWhereTheDeviceHasThem) {
    printer.metrics.escapes |= EscapeBit(DRAFTMODE);
    pages.record.draftMode = 1;
    EXPECT_EQ(pages.Print(), PRINT_FINISHED);
    EXPECT_EQ(printer.Calls(), "start, escape 7: 1, page, end page, end");
}

TEST_F(PagePrinting, CarriesTheRangeUnread) {
    pages.record.allPages = 5;
    pages.record.firstPage = 9;
    pages.record.lastPage = 4;
    pages.record.pageCount = -3;
    pages.record.renderHook = nullptr;
    pages.record.drawFrame = 1;
    EXPECT_EQ(pages.Print(), PRINT_FINISHED);
    EXPECT_EQ(printer.Calls(), "start, page, end page, end");
    EXPECT_EQ(int32_t{pages.record.pageCount}, 1);
    EXPECT_EQ(int32_t{pages.record.firstPage}, 9);
}

}  // namespace
