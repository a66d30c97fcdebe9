// Contexts on printers: figures, pages to draw on, the calls of a document. The printer has 72 dots an inch, and keeps its
// page as a picture.
#include <gtest/gtest.h>

#include <string>

#include "support/picture_native.h"
#include "support/test_printer.h"

namespace {

constexpr SIZE kPaper = {120, 150};
constexpr POINT kOffset = {10, 20};
constexpr DOCINFOA kDocument = {sizeof kDocument, "document", nullptr, nullptr, 0};

class GdiPages : public testing::Test {
  protected:
    GdiPages() {
        printer_.changeMetrics = [](HostPrinterMetrics* metrics) {
            *metrics = {72, 72, kPaper.cx, kPaper.cy, kOffset.x, kOffset.y, 90, 100, TRUE, metrics->escapes};
        };
        dc_ = CreateDCA("Test", "Pictures", nullptr, nullptr);
    }
    ~GdiPages() override {
        DeleteDC(dc_);
        cairo_surface_destroy(printer_.page);
    }

    INT Start() const { return StartDocA(dc_, &kDocument); }
    INT StartNewPage() {
        cairo_surface_destroy(printer_.page);
        printer_.page = cairo_image_surface_create(CAIRO_FORMAT_RGB24, kPaper.cx, kPaper.cy);
        return StartPage(dc_);
    }
    uint32_t At(INT x, INT y) const { return PixelOf(printer_.page, x, y); }

    TestPrinter printer_{"Pictures"};
    HDC dc_;
};

TEST_F(GdiPages, FiguresAreThePrinters) {
    constexpr INT kCapabilities[][2] = {
        {TECHNOLOGY, DT_RASPRINTER}, {LOGPIXELSX, 72},      {LOGPIXELSY, 72},
        {PHYSICALWIDTH, 120},        {PHYSICALHEIGHT, 150}, {PHYSICALOFFSETX, 10},
        {PHYSICALOFFSETY, 20},       {HORZRES, 90},         {VERTRES, 100},
    };
    for (const auto& [index, value] : kCapabilities) EXPECT_EQ(GetDeviceCaps(dc_, index), value) << index;
    RECT box;
    SetMapMode(dc_, MM_HIENGLISH);
    GetClipBox(dc_, &box);
    EXPECT_EQ(box, (RECT{0, 0, 1250, -1389}));
    POINT size = {};
    EXPECT_GT(Escape(dc_, GETPHYSPAGESIZE, 0, nullptr, &size), 0);
    EXPECT_EQ(size, (POINT{120, 150}));
    const INT draft = DRAFTMODE;
    EXPECT_EQ(Escape(dc_, QUERYESCSUPPORT, sizeof draft, reinterpret_cast<LPCSTR>(&draft), nullptr), 0);
}

TEST_F(GdiPages, PixelsStartAtThePrintableCorner) {
    EXPECT_EQ(HostGetCairo(dc_), nullptr);
    EXPECT_GT(Start(), 0);
    EXPECT_EQ(HostGetCairo(dc_), nullptr);
    EXPECT_GT(StartNewPage(), 0);
    ASSERT_NE(HostGetCairo(dc_), nullptr);
    const RECT more = {-50, -50, 500, 500};
    FillRect(dc_, &more, static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH)));
    EXPECT_GT(EndPage(dc_), 0);
    EXPECT_EQ(HostGetCairo(dc_), nullptr);
    EXPECT_EQ(At(10, 20), 0xFFFFFFu);
    EXPECT_EQ(At(9, 20), 0u);  // can't be printed on
    EXPECT_EQ(At(10, 19), 0u);
    EXPECT_EQ(At(99, 119), 0xFFFFFFu);
    EXPECT_EQ(At(100, 119), 0u);
    EXPECT_GT(EndDoc(dc_), 0);
    EXPECT_EQ(printer_.calls, "osped");
}

TEST_F(GdiPages, SettingsLastFromPageToPage) {
    Start();
    SetBkColor(dc_, RGB(0, 0, 255));
    SetViewportOrgEx(dc_, 30, 30, nullptr);
    for (int page = 0; page < 2; ++page) {
        StartNewPage();
        const RECT square = {0, 0, 10, 10};
        ExtTextOutA(dc_, 0, 0, ETO_OPAQUE, &square, "", 0, nullptr);
        EXPECT_EQ(At(kOffset.x + 35, kOffset.y + 35), 0x0000FFu) << page;
        EndPage(dc_);
    }
    EXPECT_GT(AbortDoc(dc_), 0);
}

TEST_F(GdiPages, RefusalsComeThrough) {
    constexpr INT kRefusals[][5] = {
        // what fails; the results of start, page, end of page, end
        {'s', SP_OUTOFDISK, SP_ERROR, SP_ERROR, SP_ERROR},
        {'p', 1, SP_OUTOFDISK, SP_ERROR, SP_ERROR},
        {'e', 1, 1, SP_OUTOFDISK, SP_ERROR},
        {'d', 1, 1, 1, SP_OUTOFDISK},
    };
    printer_.code = SP_OUTOFDISK;
    for (const auto& [failing, start, page, endPage, end] : kRefusals) {
        printer_.failing = static_cast<char>(failing);
        EXPECT_EQ(Start(), start) << printer_.failing;
        EXPECT_EQ(StartNewPage(), page) << printer_.failing;
        EXPECT_EQ(EndPage(dc_), endPage) << printer_.failing;
        EXPECT_EQ(EndDoc(dc_), end) << printer_.failing;
    }
}

BOOL CALLBACK Refuse(HDC /*dc*/, INT code) {
    return code == 0 ? TRUE : FALSE;
}

TEST_F(GdiPages, TheAbortProcedureStopsADocument) {
    EXPECT_GT(SetAbortProc(dc_, Refuse), 0);
    Start();
    StartNewPage();
    EXPECT_GT(EndPage(dc_), 0);  // asked with 0 it goes on
    StartNewPage();
    printer_.failing = 'e';
    printer_.told = SP_OUTOFDISK;
    printer_.code = 1;
    EXPECT_EQ(EndPage(dc_), SP_APPABORT);
    EXPECT_EQ(StartNewPage(), SP_APPABORT);
    EXPECT_EQ(HostGetCairo(dc_), nullptr);
    EXPECT_EQ(printer_.calls, "ospepea");
}

TEST_F(GdiPages, ADeletedContextGivesItsDocumentUp) {
    Start();
    StartNewPage();
    LineTo(dc_, 10, 10);
    EXPECT_TRUE(DeleteDC(dc_));
    EXPECT_EQ(printer_.calls, "ospac");
}

TEST_F(GdiPages, OnlyPrintersPrint) {
    HDC information = CreateICA(nullptr, "Pictures", nullptr, nullptr);
    HDC screen = GetDC(nullptr);
    for (HDC dc : {information, screen, HDC{}}) {
        EXPECT_EQ(StartDocA(dc, &kDocument), SP_ERROR);
        EXPECT_EQ(StartPage(dc), SP_ERROR);
        EXPECT_EQ(EndPage(dc), SP_ERROR);
        EXPECT_EQ(EndDoc(dc), SP_ERROR);
        EXPECT_EQ(AbortDoc(dc), SP_ERROR);
        EXPECT_EQ(SetAbortProc(dc, Refuse), SP_ERROR);
    }
    EXPECT_EQ(GetDeviceCaps(information, HORZRES), 90);
    EXPECT_EQ(StartDocA(dc_, nullptr), SP_ERROR);
    ReleaseDC(nullptr, screen);
    DeleteDC(information);
    EXPECT_EQ(CreateDCA("pictures", "No such printer", nullptr, nullptr), nullptr);
    EXPECT_EQ(CreateDCA("pictures", nullptr, nullptr, nullptr), nullptr);
}

}  // namespace
