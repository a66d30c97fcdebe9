// Tiles of a document: how many, in which order, and where each shows the document.
#include "page_layout.h"

#include <algorithm>
#include <cstdint>

namespace {

// A document that is larger than the paper by no more than this has grown by rounding.
constexpr int32_t kSpanTolerance = 20;

int32_t Clamp(int64_t value) {
    return static_cast<int32_t>(std::clamp<int64_t>(value, INT32_MIN, INT32_MAX));
}

// Sheets along one side.
int64_t CountTiles(int32_t side, int32_t start, int32_t paper) {
    return std::max<int64_t>((int64_t{side} + start - 1) / paper + 1, 1);
}

// Where the n-th tile along a side begins. The first shows the document from the paper's edge, the second goes on where
// the first one's printable part ends, and each further one a printable length on.
int32_t TileStart(int32_t n, int32_t firstEnd, int64_t printable) {
    return n == 1 ? 0 : Clamp(printable * (n - 2) + firstEnd);
}

}  // namespace

bool PageTrimSide(int32_t* side, int32_t paper, bool mayspan) {
    if (*side <= paper) return false;
    if (mayspan && int64_t{*side} - paper > kSpanTolerance) return false;
    *side = paper;
    return true;
}

void PageFitToPaper(PageRecord* record, const PageLayoutState& state, const PagePrintableArea& area, bool widthCut,
                    bool heightCut) {
    if (widthCut == heightCut) return;
    if (widthCut && area.printable.height < int64_t{record->docHeight} - 2 * int64_t{area.offset.height}) {
        record->docHeight = state.paperHeight;
    }
    if (heightCut && area.printable.width < int64_t{record->docWidth} - 2 * int64_t{area.offset.width}) {
        record->docWidth = state.paperWidth;
    }
}

void PageSetMargins(PageLayoutState* state, const PagePrintableArea& area, PrintExtent offsetPixels) {
    state->leftPixels = offsetPixels.width;
    state->topPixels = offsetPixels.height;
    state->left = area.offset.width;
    state->top = area.offset.height;
    state->right = state->paperWidth - state->left - area.printable.width;
    state->bottom = state->paperHeight - state->top - area.printable.height;
}

void PageMakeGrid(PageLayoutState* state) {
    const PageRecord& record = *state->record;
    const int64_t across = CountTiles(record.docWidth, state->startX, state->paperWidth);
    const int64_t down = CountTiles(record.docHeight, state->startY, state->paperHeight);
    state->across = Clamp(across);
    state->down = Clamp(down);
    state->tiles = across <= INT32_MAX / down ? static_cast<int32_t>(across * down) : INT32_MAX;
}

void PageResetSequence(PageLayoutState* state) {
    state->tile = 1;
    state->copy = 1;
}

int32_t PageNextSheet(PageLayoutState* state) {
    int32_t result = 1;
    if (state->copy == state->copyCount && state->tile == state->tiles) {
        const PageNextHook next = state->record->nextPageHook;
        result = next != nullptr ? next(state->record->hookValue) : 0;
        if (result != 0) {
            PageResetSequence(state);
            return result;
        }
    }
    if (state->copy != state->copyCount) {
        ++state->copy;
    } else {
        state->copy = 1;
        state->tile = state->tile == state->tiles ? 1 : state->tile + 1;
    }
    return result;
}

PageTile PageCurrentTile(const PageLayoutState& state) {
    const int32_t before = state.tile - 1;
    return {before % state.across + 1, before / state.across + 1};
}

// Across, the left margin stands in for the right one: the two are equal on most devices.
PagePlace PageTileOrigin(const PageLayoutState& state) {
    const PageTile tile = PageCurrentTile(state);
    const int64_t width = int64_t{state.paperWidth} - state.left - state.right;
    const int64_t height = int64_t{state.paperHeight} - state.top - state.bottom;
    return {TileStart(tile.column, state.paperWidth - state.left, width),
            -TileStart(tile.row, state.paperHeight - state.bottom, height)};
}

PagePlace PageTileViewport(const PageLayoutState& state) {
    const PageTile tile = PageCurrentTile(state);
    return {tile.column == 1 ? -state.leftPixels : 0, tile.row == 1 ? -state.topPixels : 0};
}

RECT PageTileFrame(const PageLayoutState& state) {
    const PagePlace corner = PageTileOrigin(state);
    return {corner.x, corner.y, Clamp(int64_t{corner.x} + state.record->docWidth),
            Clamp(int64_t{corner.y} - state.record->docHeight)};
}
