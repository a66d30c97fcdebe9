// The default printer, device modes, papers and saved settings, with printers that answer as they are told.
#include <gtest/gtest.h>

#include <array>
#include <string>
#include <vector>

#include "print/device_mode.h"
#include "print/printers.h"
#include "print/saved_settings.h"
#include "scripted_printer.h"
#include "support/locale.h"
#include "support/profile.h"

namespace {

// The page-setup service fails for a scope, so that the profile's line counts.
class NoPageSetup {
  public:
    NoPageSetup() { HostFailPageSetup(PDERR_RETDEFFAILURE); }
    ~NoPageSetup() { HostFailPageSetup(0); }
    NoPageSetup(const NoPageSetup&) = delete;
    NoPageSetup& operator=(const NoPageSetup&) = delete;
};

struct LineCase {
    const char* text;
    const char* device;  // null where it isn't set
    const char* driver;
    const char* port;
};

constexpr LineCase kLines[] = {
    {"Laser,winspool,LPT1:", "Laser", "winspool", "LPT1:"},
    {"Laser, winspool, \tLPT1:", "Laser", "winspool", "LPT1:"},
    {"Laser ,winspool ,LPT1:,x y", "Laser ", "winspool ", "LPT1:,x y"},  // only what stands in front goes
    {"a,,", "a", "", ""},
    {"Laser, winspool", "Laser", "winspool", nullptr},
    {"Laser", "Laser", nullptr, nullptr},
    {nullptr, nullptr, nullptr, nullptr},
    // Of more than 80 bytes the rest is not read.
    {"1234567890123456789012345678901234567890,2345678901234567890123456789012345678,abcdef",
     "1234567890123456789012345678901234567890", "2345678901234567890123456789012345678", "a"},
};

void CheckLine(const LineCase& c) {
    SCOPED_TRACE(c.text != nullptr ? c.text : "no line");
    const TestProfile profile({{"Windows", "Device", c.text}});
    char work[kPrintNamesSize];
    const char* device = work;
    const char* driver = work;
    const char* port = work;
    const int32_t wanted = c.port != nullptr ? 1 : 0;
    EXPECT_EQ(PrintReadDefaultPrinter(work, &device, &driver, &port), wanted);
    EXPECT_STREQ(device, c.device);
    EXPECT_STREQ(driver, c.driver);
    EXPECT_STREQ(port, c.port);
    char name[PRINT_NAME_SIZE] = "untouched";
    EXPECT_EQ(PrintGetDefaultPrinter(name, nullptr, nullptr), wanted);
    EXPECT_STREQ(name, wanted == 1 ? c.device : "untouched");
    EXPECT_EQ(PrintGetDefaultPrinter(nullptr, nullptr, nullptr), wanted);
}

TEST(PrintDefaultPrinter, ReadsTheDeviceLine) {
    const NoPageSetup none;
    for (const LineCase& c : kLines) CheckLine(c);
}

TEST(PrintDefaultPrinter, CutsAtNoTrailByteJapanese) {
    const TestLanguage language(kJapanese);
    const NoPageSetup none;
    CheckLine({"\x83\x5C\x81\x40,\x95\x5C, LPT1:", "\x83\x5C\x81\x40", "\x95\x5C", "LPT1:"});
}

TEST(PrintDefaultPrinter, ComesFromPageSetupFirst) {
    const ScriptedPrinter printer;
    const TestProfile profile({{"windows", "device", "Scripted,Script,LPT1:"}});
    char names[3][PRINT_NAME_SIZE] = {};
    EXPECT_EQ(PrintGetDefaultPrinter(names[0], names[1], names[2]), 1);
    EXPECT_EQ(std::string(names[0]) + "," + names[1] + "," + names[2], "Scripted,Script,LPT1:");
}

TEST(PrintDefaultPrinter, OpensContexts) {
    ScriptedPrinter printer;
    const TestProfile profile({{"windows", "device", "Scripted,Script,LPT1:"}});
    for (HDC dc :
         {PrintCreateDefaultPrinterDC(), PrintCreateDefaultPrinterDCExt(nullptr), PrintCreateDefaultPrinterIC()}) {
        EXPECT_EQ(GetDeviceCaps(dc, PHYSICALWIDTH), 850);
        EXPECT_TRUE(DeleteDC(dc));
    }
    printer.refusesToOpen = true;
    EXPECT_EQ(PrintCreateDefaultPrinterDC(), nullptr);
    const NoPageSetup none;
    const TestProfile short_line({{"windows", "device", "Scripted,Script"}});
    EXPECT_EQ(PrintCreateDefaultPrinterDC(), nullptr);
}

TEST(PrintGetDevice, KnowsPrintersByName) {
    const ScriptedPrinter printer("Named", "FILE:x");
    char driver[PRINT_NAME_SIZE] = "untouched";
    char port[PRINT_NAME_SIZE] = "untouched";
    EXPECT_EQ(PrintGetDevice("Nobody", driver, port), 0);
    HostFailAllocation(1);
    EXPECT_EQ(PrintGetDevice("Named", driver, port), 0);
    HostFailAllocation(0);
    EXPECT_STREQ(driver, "untouched");
    EXPECT_STREQ(port, "untouched");
    EXPECT_EQ(PrintGetDevice("Named", driver, port), 1);
    EXPECT_STREQ(driver, "Script");
    EXPECT_STREQ(port, "FILE:x");
}

// ---- device modes -----------------------------------------------------------------------------------------------

using Mode = std::array<int, 3>;  // size in bytes, orientation, paper

// What a block holds, which is then freed.
Mode TakeMode(HGLOBAL block) {
    if (block == nullptr) return {};
    Mode mode;
    {
        const PrintLocked<DEVMODEA> locked(block);
        mode = {static_cast<int>(GlobalSize(block)), locked->dmOrientation, locked->dmPaperSize};
    }
    GlobalFree(block);
    return mode;
}

Mode GetMode(uint16_t landscape, uint16_t paper, const char* device = "Scripted") {
    return TakeMode(PrintGetDevMode(landscape, device, "Script", "LPT1:", paper));
}

constexpr int kModeSize = 156 + 8;
constexpr Mode kUpright = {kModeSize, DMORIENT_PORTRAIT, DMPAPER_LETTER};
constexpr Mode kWideA4 = {kModeSize, DMORIENT_LANDSCAPE, DMPAPER_A4};

TEST(PrintGetDevMode, TurnsAndChoosesPaper) {
    const ScriptedPrinter printer;
    constexpr Mode kWide = {kModeSize, DMORIENT_LANDSCAPE, DMPAPER_LETTER};
    EXPECT_EQ(GetMode(0, 0), kUpright);
    EXPECT_EQ(GetMode(1, 0), kWide);
    EXPECT_EQ(GetMode(7, DMPAPER_USER), kWide);       // the orientation alone
    EXPECT_EQ(GetMode(1, DMPAPER_LETTER), kUpright);  // it has the paper: as it is
    EXPECT_EQ(GetMode(1, DMPAPER_A4), kWideA4);       // merged by the driver
    EXPECT_EQ(GetMode(1, DMPAPER_A3), kUpright);      // not offered: as it is
    EXPECT_EQ(GetMode(0, 0, "Nobody"), Mode());
}

TEST(PrintGetDevMode, FallsBackOnTheDescription) {
    ScriptedPrinter printer;
    printer.properties = -1;
    HANDLE open = PrintOpen("Scripted");
    HGLOBAL block = PrintDefaultDevMode(open, "Scripted");
    ClosePrinter(open);
    EXPECT_GE(TakeMode(block)[0], 156);
}

TEST(PrintGetDevMode, SurvivesEachFailingAllocation) {
    const ScriptedPrinter printer;
    bool failed = true;
    for (uint32_t n = 1; failed && n < 200; ++n) {
        HostFailAllocation(n);
        const Mode mode = GetMode(1, DMPAPER_A4);
        failed = HostAllocationFailed() != 0;
        HostFailAllocation(0);
        EXPECT_TRUE(failed || mode == kWideA4);
    }
    EXPECT_FALSE(failed);
}

TEST(PrintGetPageSizes, HandsOutParallelLists) {
    ScriptedPrinter printer;
    HGLOBAL papers = nullptr;
    HGLOBAL sizes = nullptr;
    EXPECT_EQ(PrintGetPageSizes("Nobody", "", "", nullptr, &papers, &sizes), 0);
    printer.paperCount = 0;
    EXPECT_EQ(PrintGetPageSizes("Scripted", "", "LPT1:", nullptr, &papers, &sizes), -1);
    EXPECT_EQ(papers, nullptr);
    printer.paperCount = HOST_STANDARD;
    bool failed = true;
    int32_t count = 0;
    for (uint32_t n = 1; failed && n < 200; ++n) {
        HostFailAllocation(n);
        count = PrintGetPageSizes("Scripted", "", "LPT1:", nullptr, &papers, &sizes);
        failed = HostAllocationFailed() != 0;
        HostFailAllocation(0);
        if (count > 0 && failed) {  // the default device mode is not needed
            GlobalFree(papers);
            GlobalFree(sizes);
        }
    }
    ASSERT_EQ(count, 2);
    {
        const PrintLocked<WORD> ids(papers);
        const PrintLocked<POINT> points(sizes);
        EXPECT_EQ(ids.get()[1], DMPAPER_A4);
        EXPECT_EQ(points.get()[1].x, 2100);
        EXPECT_EQ(points.get()[1].y, 2970);
    }
    GlobalFree(papers);
    GlobalFree(sizes);
}

// ---- saved settings ---------------------------------------------------------------------------------------------

TEST(PrtSaved, ServesExactlyItsPrinter) {
    const ScriptedPrinter printer;
    HGLOBAL mode = PrintGetDevMode(1, "Scripted", "Script", "LPT1:", DMPAPER_A4);
    PrtSaveSettings("Scripted", "Script", "LPT1:", mode);
    EXPECT_EQ(GetMode(0, 0), kWideA4);  // its own orientation
    EXPECT_EQ(GetMode(0, DMPAPER_A4), kWideA4);
    EXPECT_EQ(GetMode(0, DMPAPER_LETTER), kUpright);
    EXPECT_EQ(GetMode(0, DMPAPER_USER), kUpright);
    EXPECT_EQ(PrtLoadSaved("Scripted", "script", "LPT1:"), nullptr);
    EXPECT_EQ(PrtLoadSaved("Scripted", "Script", "LPT2:"), nullptr);
    EXPECT_EQ(PrtLoadSaved("scripted", "Script", "LPT1:"), nullptr);
    PrtSaveSettings("Scripted", "Script", "LPT1:", nullptr);
    EXPECT_EQ(PrtLoadSaved("Scripted", "Script", "LPT1:"), nullptr);
    for (const uint32_t n : {1, 3}) {  // the record; the copy (a movable block counts as two)
        PrtClearSaved();
        PrtClearSaved();
        HostFailAllocation(n);
        PrtSaveSettings("Scripted", "Script", "LPT1:", mode);
        HostFailAllocation(0);
        EXPECT_EQ(PrtLoadSaved("Scripted", "Script", "LPT1:"), nullptr);
    }
    PrtClearSaved();
    GlobalFree(mode);
    EXPECT_EQ(GetMode(0, 0), kUpright);
}

// ---- page information -------------------------------------------------------------------------------------------

using Page = std::vector<LONG>;  // paper, width and height, the area's edges

Page PageOf(const DEVMODEA* mode) {
    uint16_t paper = 0;
    POINT size = {};
    RECT area = {};
    if (PageGetPageInfo("Script", "Scripted", "LPT1:", mode, &paper, &size, &area) == 0) return {};
    return {paper, size.x, size.y, area.left, area.top, area.right, area.bottom};
}

// The device has 850 by 1100 pixels at 100 dots an inch, its printable area 800 by 1050 at (30, 20).
TEST(PageInfo, TakesThePaperFromTheBestSource) {
    ScriptedPrinter printer;
    printer.metrics.offsetX = 30;
    printer.metrics.offsetY = 20;
    HGLOBAL block = PrintGetDevMode(0, "Scripted", "Script", "LPT1:", 0);
    {
        const PrintLocked<DEVMODEA> mode(block);
        const auto upright = [](LONG paper, LONG width, LONG height) {
            return Page{paper, width, height, 76, 51, 76 + 2032, 51 + 2667};
        };
        mode->dmFields &= ~static_cast<DWORD>(DM_PAPERLENGTH | DM_PAPERWIDTH);
        EXPECT_EQ(PageOf(mode.get()), upright(DMPAPER_LETTER, 2159, 2794));  // of the lists
        mode->dmPaperSize = DMPAPER_USER;
        mode->dmPaperWidth = 1000;
        mode->dmPaperLength = 1234;
        EXPECT_EQ(PageOf(mode.get()), upright(DMPAPER_USER, 1000, 1234));
        mode->dmPaperSize = 4711;
        EXPECT_EQ(PageOf(mode.get()), upright(4711, 2159, 2794));  // unknown: of the device
        mode->dmFields |= DM_PAPERWIDTH;
        EXPECT_EQ(PageOf(mode.get()), upright(4711, 2159, 2794));
        mode->dmFields |= DM_PAPERLENGTH;
        EXPECT_EQ(PageOf(mode.get()), upright(4711, 1000, 1234));
        mode->dmPaperSize = 0;
        EXPECT_EQ(PageOf(mode.get()), upright(0, 2159, 2794));
        mode->dmOrientation = DMORIENT_LANDSCAPE;
        EXPECT_EQ(PageOf(mode.get()), (Page{0, 2794, 2159, 51, 76, 51 + 2032, 76 + 2667}));
        printer.metrics.escapes = EscapeBit(GETPHYSPAGESIZE);
        EXPECT_EQ(PageOf(mode.get()), (Page{0, 2794, 2159, 0, 0, 2032, 2667}));
        printer.metrics.escapes = 0;
        EXPECT_EQ(PageOf(mode.get()), Page());
        printer.refusesToOpen = true;
        EXPECT_EQ(PageOf(mode.get()), Page());
    }
    GlobalFree(block);
    printer.refusesToOpen = false;
    EXPECT_EQ(PageOf(nullptr), (Page{DMPAPER_LETTER, 2159, 2794, 0, 0, 2032, 2667}));
    EXPECT_EQ(PageGetPageInfo("Script", "Scripted", "LPT1:", nullptr, nullptr, nullptr, nullptr), 1);
    EXPECT_EQ(PageGetPageInfo("Script", "Nobody", "LPT1:", nullptr, nullptr, nullptr, nullptr), 0);
}

}  // namespace
