// A document laid out on a device, sheet by sheet.
#include "page_callback.h"

#include <algorithm>

namespace {

void SendDraftMode(HDC dc, INT mode) {
    if (PrintDeviceHas(dc, DRAFTMODE)) {
        Escape(dc, DRAFTMODE, sizeof mode, reinterpret_cast<const char*>(&mode), nullptr);
    }
}

// The copies that the library has to make: all, unless the device or the driver makes them.
int32_t SettleCopies(HDC dc, const PageRecord& record) {
    const INT copies = record.copies;
    if (PrintDeviceHas(dc, SETCOPYCOUNT)) {
        INT made = 0;  // drivers write here without asking
        Escape(dc, SETCOPYCOUNT, sizeof copies, reinterpret_cast<const char*>(&copies), &made);
        return 1;
    }
    const DEVMODEA* mode = record.job.deviceMode;
    return mode != nullptr && mode->dmCopies > 1 ? 1 : std::max<int32_t>(copies, 1);
}

// Puts the document's size on the device's grid of pixels.
void RoundToDevice(HDC dc, PageRecord* record) {
    POINT size = {record->docWidth, record->docHeight};
    LPtoDP(dc, &size, 1);
    DPtoLP(dc, &size, 1);
    record->docWidth = size.x;
    record->docHeight = size.y;
}

void TrimDocument(PageLayoutState* state, const PagePrintableArea& area) {
    PageRecord* record = state->record;
    const bool mayspan = record->spanA != 0 || record->spanB != 0;
    int32_t width = record->docWidth;
    int32_t height = record->docHeight;
    const bool widthCut = PageTrimSide(&width, state->paperWidth, mayspan);
    const bool heightCut = PageTrimSide(&height, state->paperHeight, mayspan);
    record->docWidth = width;
    record->docHeight = height;
    if (record->fitToPaper == 0) {
        RoundToDevice(state->dc, record);
    } else {
        PageFitToPaper(record, *state, area, widthCut, heightCut);
    }
}

// A context of the caller's may come with origins of its own, which would count as lengths.
int32_t Begin(PageLayoutState* state) {
    HDC dc = state->dc;
    PageRecord* record = state->record;
    SetWindowOrgEx(dc, 0, 0, nullptr);
    SetViewportOrgEx(dc, 0, 0, nullptr);
    const PrintExtent offsetPixels = PrintOffsetPixels(dc);
    const PagePrintableArea area = {PrintPrintable(dc), PrintToLogical(dc, offsetPixels)};
    SendDraftMode(dc, record->draftMode);
    state->copyCount = SettleCopies(dc, *record);
    const PrintExtent paper = PrintToLogical(dc, PrintPaperPixels(dc));
    if (paper.width <= 0 || paper.height <= 0) return 0;
    state->paperWidth = paper.width;
    state->paperHeight = paper.height;
    TrimDocument(state, area);
    state->startX = std::max<int32_t>(int32_t{record->startX}, 0);
    state->startY = std::max<int32_t>(int32_t{record->startY}, 0);
    if (PrintDeviceHas(dc, GETPRINTINGOFFSET)) PageSetMargins(state, area, offsetPixels);
    PageMakeGrid(state);
    PageResetSequence(state);
    return 1;
}

void MapTile(const PageLayoutState& state) {
    const PagePlace origin = PageTileOrigin(state);
    const PagePlace viewport = PageTileViewport(state);
    SetWindowOrgEx(state.dc, origin.x, origin.y, nullptr);
    SetViewportOrgEx(state.dc, viewport.x, viewport.y, nullptr);
}

void DrawFrame(const PageLayoutState& state) {
    const RECT frame = PageTileFrame(state);
    SetBkMode(state.dc, TRANSPARENT);
    Rectangle(state.dc, frame.left, frame.top, frame.right, frame.bottom);
}

int32_t Render(const PageLayoutState& state, const RECT* band) {
    if (band->left == band->right || band->top == band->bottom) return 1;
    MapTile(state);
    RECT box = {};
    GetClipBox(state.dc, &box);
    if (box.left == box.right || box.top == box.bottom) return 1;
    if (state.record->drawFrame != 0) DrawFrame(state);
    const PageRenderHook render = state.record->renderHook;
    if (render != nullptr) render(state.dc, PAGE_RENDER, band, state.record->hookValue, 0, 0, 0);
    return 1;
}

}  // namespace

int32_t PageJobCallback(HDC dc, int32_t command, const RECT* rectangle, void* context, int32_t /*zero1*/,
                        int32_t /*zero2*/, int32_t /*zero3*/) {
    auto* state = static_cast<PageLayoutState*>(context);
    state->dc = dc;
    SetMapMode(dc, MM_HIENGLISH);
    switch (command) {
        case kJobBegin: return Begin(state);
        case kJobNextSheet: return PageNextSheet(state);
        case kJobRender: return Render(*state, rectangle);
        default: return 1;
    }
}

int32_t MORVL_CALL PagePrint(HWND owner, PageRecord* record) {
    if (record == nullptr) return 1;
    PageLayoutState state = {};
    state.record = record;
    record->pageCount = std::max<int32_t>(int32_t{record->pageCount}, 1);
    PrintRunJob(owner, &record->job, PageJobCallback, &state);
    return 1;
}
