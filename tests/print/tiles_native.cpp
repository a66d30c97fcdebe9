// A document over several sheets of PDF, turned into pictures, cut to what was printable and laid edge to edge,
// compared with the same document on one large sheet.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <string>

#include <morvl15/host_native.h>

#include "print_job.h"
#include "support/pictures.h"

namespace {

constexpr int kDpi = 100;  // of the pictures
constexpr int32_t kWidth = 20000;
constexpr int32_t kHeight = 17000;

// Letter paper; a sheet that takes the whole document.
constexpr HostPaper kLetter = {DMPAPER_LETTER, "Letter", 2159, 2794, {0, 0, 0, 0}};
constexpr HostPaper kLarge = {DMPAPER_USER + 1, "Large", 5842, 5588, {0, 0, 0, 0}};

// Slanted lines on a tint: a gap shows as a white line, a doubled one as a step.
int32_t MORVL_CALL Draw(HDC dc, int32_t /*command*/, const RECT* /*band*/, uintptr_t /*value*/, int32_t /*zero1*/,
                        int32_t /*zero2*/, int32_t /*zero3*/) {
    HBRUSH tint = CreateSolidBrush(RGB(200, 220, 200));
    const RECT all = {0, 0, kWidth, -kHeight};
    FillRect(dc, &all, tint);
    DeleteObject(tint);
    HPEN pen = CreatePen(PS_SOLID, 60, RGB(0, 0, 0));
    HGDIOBJ before = SelectObject(dc, pen);
    for (int32_t x = -kHeight; x < kWidth; x += 1500) {
        MoveToEx(dc, x, 0, nullptr);
        LineTo(dc, x + kHeight, -kHeight);
        MoveToEx(dc, x + kHeight, 0, nullptr);
        LineTo(dc, x, -kHeight);
    }
    SelectObject(dc, before);
    DeleteObject(pen);
    return 1;
}

// Prints the document on a printer with one paper. Margins are in hundredths of a millimetre.
Pictures PrintOn(const std::string& folder, HostPaper paper, const RECT& margins) {
    const std::string file = folder + "/" + paper.name + ".pdf";
    paper.margins = margins;
    HostPrinterTraits traits = *HostPdfTraits();
    traits.papers = &paper;
    traits.paperCount = 1;
    traits.privateMode = nullptr;
    traits.privateSize = 0;
    EXPECT_TRUE(HostAddPrinter("Tiles", ("FILE:" + file).c_str(), HostPdfDriver(), &traits, nullptr));
    JobFixture job("Tiles", "PDF", "FILE:" + file);
    job.record.docWidth = kWidth;
    job.record.docHeight = kHeight;
    job.record.renderHook = Draw;
    EXPECT_EQ(job.Print(), PRINT_FINISHED);
    HostRemovePrinter("Tiles");
    return PicturesOf(file, kDpi);
}

int Pixels(int32_t hundredthsOfMillimetre) {
    return static_cast<int>(hundredthsOfMillimetre * kDpi / 2540.0 + 0.5);
}

TEST(PageTiles, JoinToTheDocument) {
    constexpr int kAcross = 3;
    constexpr RECT kMargins[] = {{0, 0, 0, 0}, {635, 635, 635, 635}, {1270, 508, 1270, 1524}};
    std::string folder = "/tmp/morvl15-tiles-XXXXXX";
    ASSERT_NE(mkdtemp(folder.data()), nullptr);
    const Pictures large = PrintOn(folder, kLarge, {});
    ASSERT_EQ(large.size(), 1u);
    for (const RECT& margins : kMargins) {
        SCOPED_TRACE(margins.bottom);
        const Pictures sheets = PrintOn(folder, kLetter, margins);
        ASSERT_EQ(sheets.size(), 6u);
        const int left = Pixels(margins.left);
        const int top = Pixels(margins.top);
        const int width = 850 - left - Pixels(margins.right);
        const int height = 1100 - top - Pixels(margins.bottom);
        Picture joined(width * kAcross, height * 2);
        for (int i = 0; i < 6; ++i) {
            joined.Put(i % kAcross * width, i / kAcross * height,
                       sheets[static_cast<size_t>(i)].Cut(left, top, width, height));
        }
        const int shownWidth = kWidth * kDpi / 1000 - left;
        const int shownHeight = kHeight * kDpi / 1000 - top;
        const Picture shown = joined.Cut(0, 0, shownWidth, shownHeight);
        EXPECT_EQ(CountDifferences(shown, large[0].Cut(left, top, shownWidth, shownHeight)), 0);
        EXPECT_GT(CountDifferences(shown, large[0].Cut(left + 3, top, shownWidth, shownHeight)), 1000);
    }
    std::filesystem::remove_all(folder);
}

}  // namespace
