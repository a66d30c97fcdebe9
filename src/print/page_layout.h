// The arithmetic of a document on sheets: its size trimmed to the paper, the grid of tiles, the order of sheets, the
// place of each tile. Lengths are thousandths of an inch unless told otherwise; nothing here touches a device.
#pragma once

#include <morvl15/print.h>

#include "printer_device.h"

// A layout, for one call of PagePrint. All zero at first.
struct PageLayoutState {
    HDC dc;
    PageRecord* record;
    int32_t across;  // columns
    int32_t down;    // rows
    int32_t tiles;
    int32_t tile;       // 1 to tiles, row by row
    int32_t copy;       // 1 to copyCount
    int32_t copyCount;  // copies that the library makes itself
    int32_t startX;
    int32_t startY;
    int32_t paperWidth;  // W
    int32_t paperHeight;
    int32_t left;  // unprintable margins, L; all 0 when the device can't tell
    int32_t top;
    int32_t right;
    int32_t bottom;
    int32_t leftPixels;  // the same two margins as device values
    int32_t topPixels;
};

// Cuts a side of the document to the paper; a document that may span sheets is left alone if it is larger by more than
// a rounding. Result: whether it was cut.
bool PageTrimSide(int32_t* side, int32_t paper, bool mayspan);

// What the device tells of margins, before they are laid out.
struct PagePrintableArea {
    PrintExtent printable;
    PrintExtent offset;  // logical
};

// Where exactly one side was cut, sets the other to the paper's if it is near it.
void PageFitToPaper(PageRecord* record, const PageLayoutState& state, const PagePrintableArea& area, bool widthCut,
                    bool heightCut);

// Takes the margins from the printable area.
void PageSetMargins(PageLayoutState* state, const PagePrintableArea& area, PrintExtent offsetPixels);

// The number of tiles; the paper is not empty. Counts are at least 1, and clamp at the end of the range.
void PageMakeGrid(PageLayoutState* state);

// The first sheet: tile 1, copy 1.
void PageResetSequence(PageLayoutState* state);

// Moves on to the next sheet: copies of a tile follow each other, then comes the next tile; behind the last one the
// next page of the document, if the record's hook has one. Result: nonzero while there is another sheet.
int32_t PageNextSheet(PageLayoutState* state);

// The current tile: column and row, from 1.
struct PageTile {
    int32_t column;
    int32_t row;
};
PageTile PageCurrentTile(const PageLayoutState& state);

// The point of the document that stands at the viewport's origin; y is 0 or negative.
struct PagePlace {
    int32_t x;
    int32_t y;
};
PagePlace PageTileOrigin(const PageLayoutState& state);

// The viewport's origin in pixels: a tile of the first column or row begins at the paper's edge, outside the printable
// area.
PagePlace PageTileViewport(const PageLayoutState& state);

// A frame of the document's size from the tile's origin on.
RECT PageTileFrame(const PageLayoutState& state);
