// The arithmetic of documents on sheets.
#include <gtest/gtest.h>

#include <climits>
#include <string>
#include <vector>

#include "print/page_layout.h"

namespace {

constexpr int32_t kWidth = 8500;
constexpr int32_t kHeight = 11000;

using Numbers = std::vector<int32_t>;

struct TrimCase {
    int32_t side, wanted;
    bool mayspan, cut;
};

// To be 20 larger than the paper is a rounding.
constexpr TrimCase kTrims[] = {
    {kWidth - 1, kWidth - 1, false, false},  {kWidth, kWidth, false, false},
    {kWidth + 1, kWidth, false, true},       {kWidth + 20, kWidth, true, true},
    {kWidth + 21, kWidth + 21, true, false}, {3 * kWidth, kWidth, false, true},
    {INT32_MAX, INT32_MAX, true, false},     {-5, -5, true, false},
};

TEST(PageTrim, CutsWhatMayNotSpanSheets) {
    for (const TrimCase& c : kTrims) {
        int32_t side = c.side;
        EXPECT_EQ(PageTrimSide(&side, kWidth, c.mayspan), c.cut) << c.side;
        EXPECT_EQ(side, c.wanted);
    }
}

// A layout on paper with four different margins.
PageLayoutState Grid(PageRecord* record, int32_t across, int32_t down) {
    PageLayoutState state = {};
    state.record = record;
    state.paperWidth = kWidth;
    state.paperHeight = kHeight;
    PageSetMargins(&state, {{kWidth - 300, kHeight - 700}, {100, 300}}, {60, 180});
    state.across = across;
    state.down = down;
    state.tiles = across * down;
    state.copyCount = 1;
    PageResetSequence(&state);
    return state;
}

PageRecord Document(int32_t width, int32_t height) {
    PageRecord record = {};
    record.docWidth = width;
    record.docHeight = height;
    return record;
}

struct FitCase {
    int32_t docWidth, docHeight;
    bool widthCut, heightCut;
    int32_t wantedWidth, wantedHeight;
};

// With margins of 250: the printable area is 8000 by 10500.
constexpr FitCase kFits[] = {
    {8500, 11000, true, false, 8500, 11000},  // 10500 is not below 11000 - 500
    {8500, 11001, true, false, 8500, 11000},  {8500, 9000, true, false, 8500, 9000},
    {8501, 11000, false, true, 8500, 11000},  {8500, 11000, false, true, 8500, 11000},
    {9000, 12000, true, true, 9000, 12000},  // both or none: nothing
    {9000, 12000, false, false, 9000, 12000},
};

TEST(PageFit, SetsTheOtherSideWhenOneWasCut) {
    const PagePrintableArea area = {{kWidth - 500, kHeight - 500}, {250, 250}};
    for (const FitCase& c : kFits) {
        SCOPED_TRACE(std::to_string(c.docWidth) + " by " + std::to_string(c.docHeight));
        PageRecord record = Document(c.docWidth, c.docHeight);
        PageFitToPaper(&record, Grid(&record, 1, 1), area, c.widthCut, c.heightCut);
        EXPECT_EQ((Numbers{record.docWidth, record.docHeight}), (Numbers{c.wantedWidth, c.wantedHeight}));
    }
}

struct GridCase {
    int32_t docWidth, docHeight, startX, startY;
    int32_t across, down, tiles;
};

constexpr GridCase kGrids[] = {
    {kWidth, kHeight, 0, 0, 1, 1, 1},
    {kWidth + 21, kHeight, 0, 0, 2, 1, 2},
    {kWidth, kHeight, 100, 0, 2, 1, 2},  // the start counts, the width stays
    {kWidth - 100, kHeight, 100, 1, 1, 2, 2},
    {3 * kWidth, 2 * kHeight + 1, 0, 0, 3, 3, 9},
    {0, 0, 0, 0, 1, 1, 1},
    {-20 * kWidth, INT32_MIN, 0, 0, 1, 1, 1},  // never a grid without tiles: it would never end
    {INT32_MAX, INT32_MAX, INT32_MAX, INT32_MAX, 505291, 390452, INT32_MAX},
};

TEST(PageGrid, CountsTiles) {
    for (const GridCase& c : kGrids) {
        SCOPED_TRACE(std::to_string(c.docWidth) + " by " + std::to_string(c.docHeight));
        PageRecord record = Document(c.docWidth, c.docHeight);
        PageLayoutState state = Grid(&record, 0, 0);
        state.startX = c.startX;
        state.startY = c.startY;
        PageMakeGrid(&state);
        EXPECT_EQ((Numbers{state.across, state.down, state.tiles}), (Numbers{c.across, c.down, c.tiles}));
    }
}

TEST(PageMargins, AreWhatIsNotPrintable) {
    const PageLayoutState state = Grid(nullptr, 1, 1);
    EXPECT_EQ((Numbers{state.left, state.top, state.right, state.bottom}), (Numbers{100, 300, 200, 400}));
}

struct PlaceCase {
    int32_t tile;
    int32_t x, y;
    int32_t viewportX, viewportY;
};

// Three columns, four rows: L 100, R 200, T 300, B 400.
constexpr PlaceCase kPlaces[] = {
    {1, 0, 0, -60, -180},
    {2, kWidth - 100, 0, 0, -180},      // at W - L
    {3, 2 * kWidth - 400, 0, 0, -180},  // a printable width on
    {4, 0, -(kHeight - 400), -60, 0},   // at H - B
    {5, kWidth - 100, -(kHeight - 400), 0, 0},
    {7, 0, -(2 * kHeight - 800 - 300), -60, 0},  // at 2H - 2B - T
    {9, 2 * kWidth - 400, -(2 * kHeight - 1100), 0, 0},
};

TEST(PageTilePlace, GoesOnWhereThePrintablePartEnds) {
    PageRecord record = Document(20000, INT32_MAX);
    PageLayoutState state = Grid(&record, 3, 4);
    for (const PlaceCase& c : kPlaces) {
        state.tile = c.tile;
        const PagePlace origin = PageTileOrigin(state);
        const PagePlace viewport = PageTileViewport(state);
        EXPECT_EQ((Numbers{origin.x, origin.y, viewport.x, viewport.y}), (Numbers{c.x, c.y, c.viewportX, c.viewportY}))
            << c.tile;
    }
    const RECT frame = PageTileFrame(state);
    EXPECT_EQ((Numbers{frame.left, frame.right, frame.bottom}),
              (Numbers{2 * kWidth - 400, 2 * kWidth - 400 + 20000, INT32_MIN}));
}

// ---- the order of sheets ----------------------------------------------------------------------------------------

int32_t MORVL_CALL TakePage(uintptr_t value) {
    return --*reinterpret_cast<int32_t*>(value);
}

using Sheets = std::vector<std::pair<int32_t, int32_t>>;  // tile, copy

// All sheets of a document of so many pages; without a hook for 0.
Sheets SheetsOf(int32_t across, int32_t down, int32_t copyCount, int32_t pages) {
    PageRecord record = {};
    record.nextPageHook = pages > 0 ? TakePage : nullptr;
    record.hookValue = reinterpret_cast<uintptr_t>(&pages);
    PageLayoutState state = Grid(&record, across, down);
    state.copyCount = copyCount;
    Sheets sheets;
    do {
        sheets.emplace_back(state.tile, state.copy);
    } while (PageNextSheet(&state) != 0 && sheets.size() < 100);
    EXPECT_EQ(std::pair(state.tile, state.copy), std::pair(1, 1));
    return sheets;
}

TEST(PageOrder, CopiesOfATileThenTilesThenPages) {
    EXPECT_EQ(SheetsOf(1, 1, 1, 0), (Sheets{{1, 1}}));
    EXPECT_EQ(SheetsOf(2, 1, 2, 0), (Sheets{{1, 1}, {1, 2}, {2, 1}, {2, 2}}));
    EXPECT_EQ(SheetsOf(2, 1, 2, 1), SheetsOf(2, 1, 2, 0));  // a hook that has no other page
    EXPECT_EQ(SheetsOf(1, 1, 3, 0), (Sheets{{1, 1}, {1, 2}, {1, 3}}));
    EXPECT_EQ(SheetsOf(1, 2, 1, 3), (Sheets{{1, 1}, {2, 1}, {1, 1}, {2, 1}, {1, 1}, {2, 1}}));
    EXPECT_EQ(SheetsOf(2, 2, 3, 2).size(), 24u);
}

}  // namespace
