// Printing through the system's own spooler, on the printer that scripts/with_printer.sh sets up.
#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include <morvl15/print.h>

#include "print/device_mode.h"
#include "print/saved_settings.h"
#include "print_job.h"
#include "support/profile.h"

namespace {

// The default printer's three texts.
struct Printer {
    char device[PRINT_NAME_SIZE] = {};
    char driver[PRINT_NAME_SIZE] = {};
    char port[PRINT_NAME_SIZE] = {};

    Printer() { EXPECT_EQ(PrintGetDefaultPrinter(device, driver, port), 1); }
    HGLOBAL Mode(bool landscape, int paper = 0) const {
        return PrintGetDevMode(landscape ? 1 : 0, device, driver, port, static_cast<uint16_t>(paper));
    }
};

class SystemPrinter : public testing::Test {
  protected:
    void SetUp() override {
        char name[PRINT_NAME_SIZE];
        DWORD size = sizeof name;
        ASSERT_TRUE(GetDefaultPrinterA(name, &size)) << "no default printer; scripts/with_printer.sh has one";
    }
};
class SystemDialog : public SystemPrinter {};

struct Work {
    std::vector<RECT> sheets;  // their clip boxes
    int cancelAt = 0;          // the sheet on which the job is cancelled
    int clickAt = 0;           // the sheet on which the user clicks the dialog's button
};

HWND shownDialog = nullptr;

int32_t MORVL_CALL Draw(HDC dc, int32_t /*command*/, const RECT* /*band*/, uintptr_t value, int32_t /*zero1*/,
                        int32_t /*zero2*/, int32_t /*zero3*/) {
    auto* work = reinterpret_cast<Work*>(value);
    RECT box = {};
    GetClipBox(dc, &box);
    work->sheets.push_back(box);
    MoveToEx(dc, 0, 0, nullptr);
    LineTo(dc, 13900, -17900);
    const int sheetNumber = static_cast<int>(work->sheets.size());
    if (work->cancelAt == sheetNumber) PrintAbort(dc);
    if (work->clickAt == sheetNumber) {
        PostMessageA(GetDlgItem(shownDialog, IDCANCEL), BM_CLICK, 0, 0);
        AbortTest(dc, 0);  // Wine calls the abort procedure at the start of the document only
    }
    return 1;
}

int idleTurns = 0;  // the abort procedure has been called so often

void MORVL_CALL CountTurn(int32_t /*zero*/) {
    ++idleTurns;
}

struct Job : JobFixture {
    explicit Job(const Printer& printer = {}) : JobFixture(printer.device, printer.driver, printer.port) {
        record.docWidth = 6000;
        record.docHeight = 6000;
        record.renderHook = Draw;
        record.hookValue = reinterpret_cast<uintptr_t>(&work);
        record.job.idleHook = CountTurn;
        idleTurns = 0;
    }

    Work work;
};

// ---- what the queue has made of it ------------------------------------------------------------------------------

std::string Printed() {
    const char* path = std::getenv("MORVL15_PRINTED");
    if (path == nullptr) return {};
    std::ifstream file("Z:" + std::string(path), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

bool Contains(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
}

// The PDF file with that title, as soon as the print server, a process of its own, has written it.
std::string WaitForPrinted(const std::string& title) {
    constexpr int kTick = 20;
    constexpr int kPatience = 20000;
    std::string bytes;
    for (int waited = 0; waited < kPatience; waited += kTick) {
        bytes = Printed();
        if (Contains(bytes, "%%EOF") && Contains(bytes, "/Title(" + title + ")")) return bytes;
        Sleep(kTick);
    }
    ADD_FAILURE() << "nothing came out of the queue: " << bytes.size() << " bytes of something else";
    return {};
}

TEST_F(SystemPrinter, IsKnown) {
    const Printer printer;
    char driver[PRINT_NAME_SIZE] = {};
    char port[PRINT_NAME_SIZE] = {};
    EXPECT_EQ(PrintGetDevice(printer.device, driver, port), 1);
    EXPECT_STREQ(port, printer.port);
    EXPECT_EQ(PrintCanDoPrinterSetup("", printer.device), 1);
    for (HDC dc : {PrintCreateDefaultPrinterDC(), PrintCreateDefaultPrinterIC()}) {
        EXPECT_GT(GetDeviceCaps(dc, PHYSICALWIDTH), 0);
        EXPECT_TRUE(DeleteDC(dc));
    }
}

TEST_F(SystemPrinter, TellsPapersAndModes) {
    const Printer printer;
    HGLOBAL papers = nullptr;
    HGLOBAL sizes = nullptr;
    const int32_t count = PrintGetPageSizes(printer.device, printer.driver, printer.port, nullptr, &papers, &sizes);
    ASSERT_GT(count, 1);
    EXPECT_EQ(GlobalSize(papers), 2u * static_cast<uint32_t>(count));
    GlobalFree(papers);
    GlobalFree(sizes);
    uint16_t paper = 0;
    for (const bool landscape : {false, true}) {
        HGLOBAL block = printer.Mode(landscape);
        ASSERT_NE(block, nullptr);
        const PrintLocked<DEVMODEA> mode(block);
        EXPECT_EQ(mode->dmOrientation, landscape ? DMORIENT_LANDSCAPE : DMORIENT_PORTRAIT);
        POINT size = {};
        RECT area = {};
        EXPECT_EQ(PageGetPageInfo(printer.driver, printer.device, printer.port, mode.get(), &paper, &size, &area), 1);
        EXPECT_GT(paper, 0);
        EXPECT_GT(size.x, 0);
        EXPECT_EQ(size.x > size.y, landscape);
        EXPECT_LE(area.right - area.left, size.x + 1);
        EXPECT_LE(area.bottom - area.top, size.y + 1);
    }
    const int other = paper == DMPAPER_A4 ? DMPAPER_LETTER : DMPAPER_A4;
    HGLOBAL block = printer.Mode(false, other);
    {
        const PrintLocked<DEVMODEA> mode(block);
        EXPECT_EQ(mode->dmPaperSize, other);
        PrtSaveSettings(printer.device, printer.driver, printer.port, block);
    }
    HGLOBAL saved = printer.Mode(true);
    {
        const PrintLocked<DEVMODEA> mode(saved);
        EXPECT_EQ(mode->dmPaperSize, other);
        EXPECT_EQ(mode->dmOrientation, DMORIENT_PORTRAIT);
    }
    GlobalFree(saved);
    GlobalFree(block);
    PrtClearSaved();
}

TEST_F(SystemPrinter, PrintsTileAfterTile) {
    Job job;
    job.record.docWidth = 14000;
    job.record.docHeight = 18000;
    job.record.job.documentName = "Four tiles";
    EXPECT_EQ(job.Print(), PRINT_FINISHED);
    EXPECT_GE(idleTurns, 1);
    ASSERT_EQ(job.work.sheets.size(), 4u);
    const std::vector<RECT>& sheets = job.work.sheets;
    EXPECT_NEAR(sheets[1].left, sheets[0].right, 1);
    EXPECT_NEAR(sheets[2].top, sheets[0].bottom, 1);
    EXPECT_TRUE(IsWindowEnabled(job.owner));
    EXPECT_EQ(FindWindowA(nullptr, "Title"), nullptr);
    EXPECT_TRUE(Contains(WaitForPrinted("Four tiles"), "/Count 4"));
}

TEST_F(SystemPrinter, IsCancelled) {
    Job job;
    job.record.docWidth = 14000;
    job.work.cancelAt = 1;
    job.record.job.documentName = "Cancelled";
    EXPECT_EQ(job.Print(), PRINT_CANCELLED);
    EXPECT_EQ(job.work.sheets.size(), 1u);
    EXPECT_TRUE(IsWindowEnabled(job.owner));
    EXPECT_TRUE(Contains(WaitForPrinted("Cancelled"), "/Count 1"));
}

// ---- the dialogs ------------------------------------------------------------------------------------------------

std::vector<std::string> dialogTexts;

void MORVL_CALL ReadDialog(HWND dialog) {
    shownDialog = dialog;
    for (const int id : {800, 801, 802, 803}) {
        char text[600] = {};
        GetDlgItemTextA(dialog, id, text, sizeof text);
        dialogTexts.emplace_back(text);
    }
}

TEST_F(SystemDialog, ShowsTheJob) {
    Job job;
    dialogTexts.clear();
    job.record.job.dialogOpenHook = ReadDialog;
    EXPECT_EQ(job.Print(), PRINT_FINISHED);
    const Printer used;
    const std::string printer = std::string(used.device) + " on " + used.port;
    EXPECT_EQ(dialogTexts, (std::vector<std::string>{"Line 1", "Line 2", "Printing Page: 1", printer}));
}

// The click waits in the queue until the abort procedure looks there.
TEST_F(SystemDialog, CancelsTheJob) {
    Job job;
    job.record.docWidth = 14000;
    job.record.docHeight = 18000;
    job.record.job.dialogOpenHook = ReadDialog;
    job.work.clickAt = 2;
    EXPECT_EQ(job.Print(), PRINT_CANCELLED);
    EXPECT_EQ(job.work.sheets.size(), 2u);
    EXPECT_TRUE(IsWindowEnabled(job.owner));
    EXPECT_FALSE(IsWindow(shownDialog));
}

// The user at the setup dialog: a timer's turn comes when the dialog waits for input.
struct SetupUser {
    WORD button = IDCANCEL;
    bool selects = false;  // the first line
    std::string lines = {};
    bool canSetUp = false;
};
SetupUser user;

void CALLBACK ActAsUser(HWND /*window*/, UINT /*message*/, UINT_PTR timer, DWORD /*time*/) {
    HWND dialog = FindWindowA("#32770", "Printer Setup");
    if (dialog == nullptr) return;
    KillTimer(nullptr, timer);
    HWND list = GetDlgItem(dialog, 900);
    for (LRESULT i = 0; i < SendMessageA(list, LB_GETCOUNT, 0, 0); ++i) {
        char line[600] = {};
        SendMessageA(list, LB_GETTEXT, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(line));
        user.lines += std::string(line) + (SendMessageA(list, LB_GETSEL, static_cast<WPARAM>(i), 0) > 0 ? "*;" : ";");
    }
    if (user.selects) {
        SendMessageA(list, LB_SETCURSEL, 0, 0);
        SendMessageA(dialog, WM_COMMAND, MAKEWPARAM(900, LBN_SELCHANGE), reinterpret_cast<LPARAM>(list));
    }
    user.canSetUp = IsWindowEnabled(GetDlgItem(dialog, 4)) != 0;
    SendMessageA(GetDlgItem(dialog, user.button), BM_CLICK, 0, 0);
}

TEST_F(SystemDialog, ListsThePrinters) {
    Printer printer;
    const std::string line = std::string(printer.device) + " on " + printer.port + "*;";
    for (const WORD button : {WORD{IDCANCEL}, WORD{IDOK}}) {
        const testing::ScopedTrace row(__FILE__, button, "");
        user = {button};
        HGLOBAL mode = printer.Mode(false);
        HGLOBAL const before = mode;
        SetTimer(nullptr, 0, 10, ActAsUser);
        EXPECT_EQ(PrintPrinterSetup(nullptr, &mode, printer.device, printer.driver, printer.port, ""), 0);
        EXPECT_EQ(user.lines, line);
        EXPECT_TRUE(user.canSetUp);
        EXPECT_EQ(mode, before);
        GlobalFree(mode);
    }
    PrtClearSaved();
}

TEST_F(SystemDialog, TakesTheChoice) {
    Printer printer;
    EXPECT_EQ(PrintGetDevice(printer.device, printer.driver, printer.port), 1);
    const TestProfile profile({{"windows", "device", "Nobody,none,NUL:"}});
    user = {IDOK, true};
    SetTimer(nullptr, 0, 10, ActAsUser);
    char device[PRINT_NAME_SIZE] = "Nobody";
    char driver[PRINT_NAME_SIZE] = "none";
    char port[PRINT_NAME_SIZE] = "NUL:";
    EXPECT_EQ(PrintPrinterSetup(nullptr, nullptr, device, driver, port, ""), 1);
    const std::string chosen = std::string(device) + "," + driver + "," + port;
    EXPECT_EQ(chosen, std::string(printer.device) + "," + printer.driver + "," + printer.port);
    char line[600] = {};
    GetProfileStringA("windows", "device", "", line, sizeof line);
    EXPECT_EQ(line, chosen);
    PrtClearSaved();
}

}  // namespace
