// Print jobs on a printer that does as it is told: what is asked of the device, the dialog's life, and how jobs end.
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "print/job_table.h"
#include "scripted_printer.h"

namespace {

using Texts = std::vector<std::string>;

// What a test does at the hooks of a job. One job has the hooks at a time; inner jobs bring their own.
struct Hooks {
    std::function<void(HDC)> render = [](HDC) {};
    std::function<int32_t()> next = [] { return 0; };
    std::function<void(HWND)> open = [](HWND) {};
    std::function<void(HWND)> close = [](HWND) {};
};

Hooks* current = nullptr;

int32_t MORVL_CALL Render(HDC dc, int32_t command, const RECT* /*band*/, uintptr_t value, int32_t /*zero1*/,
                          int32_t /*zero2*/, int32_t /*zero3*/) {
    EXPECT_EQ(command, PAGE_RENDER);
    reinterpret_cast<Hooks*>(value)->render(dc);
    return 0;  // not read
}

int32_t MORVL_CALL Next(uintptr_t value) {
    return reinterpret_cast<Hooks*>(value)->next();
}

// A job with hooks.
struct HookedJob : ScriptedJob, Hooks {
    explicit HookedJob(const ScriptedPrinter& printer) : ScriptedJob(printer) {
        record.renderHook = Render;
        record.nextPageHook = Next;
        record.hookValue = reinterpret_cast<uintptr_t>(static_cast<Hooks*>(this));
        record.job.dialogOpenHook = [](HWND dialog) { current->open(dialog); };
        record.job.dialogCloseHook = [](HWND dialog) { current->close(dialog); };
        current = this;
    }
    ~HookedJob() { current = nullptr; }
};

std::string TextOf(HWND dialog, INT id) {
    char text[600] = {};
    GetDlgItemTextA(dialog, id, text, sizeof text);
    return text;
}

HWND FindDialog() {
    return FindWindowA(nullptr, "Title");
}

// However a job ends, its windows are as they were before.
void ExpectNothingLeft(const HookedJob& job) {
    EXPECT_TRUE(IsWindowEnabled(job.owner));
    EXPECT_EQ(FindDialog(), nullptr);
}

class PrintJob : public testing::Test {
  protected:
    ScriptedPrinter printer;
    HookedJob job{printer};
};

// ---- a job that ends well ---------------------------------------------------------------------------------------

TEST_F(PrintJob, PrintsSheetAfterSheet) {
    job.record.copies = 2;
    job.record.docWidth = 17000;
    EXPECT_EQ(job.Print(), PRINT_FINISHED);
    EXPECT_EQ(printer.Calls(), "start, page, end page, page, end page, page, end page, page, end page, end");
    EXPECT_EQ(printer.lastDocument, "Document");
}

TEST_F(PrintJob, ShowsItsDialogAndHoldsTheOwner) {
    Texts seen;
    job.record.docHeight = 22000;
    job.open = [&](HWND dialog) {
        for (const INT id : {800, 801, 803}) seen.push_back(TextOf(dialog, id));
        EXPECT_EQ(dialog, FindDialog());  // by its title
        EXPECT_FALSE(IsWindowEnabled(job.owner));
    };
    job.render = [&](HDC) {
        EXPECT_TRUE(IsWindowVisible(FindDialog()));
        EXPECT_TRUE(HostChooseSystemItem(FindDialog(), SC_MOVE));
        EXPECT_FALSE(HostChooseSystemItem(FindDialog(), SC_CLOSE));
        seen.push_back(TextOf(FindDialog(), 802));
    };
    job.close = [&](HWND) { seen.emplace_back("closed"); };
    EXPECT_EQ(job.Print(), PRINT_FINISHED);
    EXPECT_EQ(seen, (Texts{"Line 1", "Line 2", "Scripted on LPT1:", "Printing Page: 1", "Printing Page: 2", "closed"}));
    ExpectNothingLeft(job);
}

TEST_F(PrintJob, ShowsThePageNumberOfTheHook) {
    Texts pages;
    int32_t number = 40;
    job.record.job.pageNumberValue = reinterpret_cast<uintptr_t>(&number);
    job.record.job.pageNumberHook = [](uintptr_t value) { return ++*reinterpret_cast<int32_t*>(value); };
    job.render = [&](HDC) { pages.push_back(TextOf(FindDialog(), 802)); };
    EXPECT_EQ(job.Print(), PRINT_FINISHED);
    EXPECT_EQ(pages, Texts{"Printing Page: 41"});
    EXPECT_EQ(number, 42);  // once more when the sheet is done
}

TEST_F(PrintJob, WithoutDialogDisablesNothing) {
    job.record.job.flags = PRINT_NO_DIALOG;
    job.open = [](HWND) { ADD_FAILURE(); };
    job.render = [&](HDC dc) {
        EXPECT_TRUE(IsWindowEnabled(job.owner));
        EXPECT_EQ(PrintAbort(dc), 1);
    };
    EXPECT_EQ(job.Print(), PRINT_FINISHED);
}

TEST_F(PrintJob, LeavesARequestToQuitToTheApplication) {
    job.record.docWidth = 17000;
    job.open = [](HWND) { PostQuitMessage(9); };
    for (const DWORD escapes : {kUsualEscapes, kUsualEscapes & ~EscapeBit(SETABORTPROC)}) {
        printer.metrics.escapes = escapes;
        EXPECT_EQ(job.Print(), PRINT_FINISHED);
        MSG message = {};
        EXPECT_TRUE(PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE));
        EXPECT_EQ(message.message, UINT{WM_QUIT});
        EXPECT_EQ(message.wParam, 9u);
    }
}

TEST_F(PrintJob, LeavesAContextOfTheCallersAsItCame) {
    HDC dc = CreateDCA("Script", "Scripted", "LPT1:", nullptr);
    SetMapMode(dc, MM_TWIPS);
    SetWindowOrgEx(dc, 7, 8, nullptr);
    job.record.job.dc = dc;
    job.record.job.deviceName[0] = '\0';
    job.render = [](HDC used) { SaveDC(used); };  // a hook that forgets to restore
    EXPECT_EQ(job.Print(), PRINT_FINISHED);
    POINT origin = {};
    GetWindowOrgEx(dc, &origin);
    EXPECT_EQ(GetMapMode(dc), MM_TWIPS);
    EXPECT_EQ(origin.x, 7);
    EXPECT_TRUE(DeleteDC(dc));
}

// ---- windows ----------------------------------------------------------------------------------------------------

TEST_F(PrintJob, LeavesDisabledWindowsDisabled) {
    HWND middle =
        CreateWindowExA(0, "STATIC", "", WS_CHILD | WS_DISABLED, 0, 0, 9, 9, job.owner, nullptr, nullptr, nullptr);
    HWND inner = CreateWindowExA(0, "STATIC", "", WS_CHILD, 0, 0, 9, 9, middle, nullptr, nullptr, nullptr);
    job.render = [&](HDC) {
        for (HWND window : {job.owner, middle, inner}) EXPECT_FALSE(IsWindowEnabled(window));
    };
    PagePrint(inner, &job.record);
    EXPECT_TRUE(IsWindowEnabled(inner));
    EXPECT_FALSE(IsWindowEnabled(middle));
    EXPECT_TRUE(IsWindowEnabled(job.owner));
}

TEST_F(PrintJob, LetsTheApplicationDisableItsWindows) {
    static Texts asked;
    asked.clear();
    job.record.job.flags = PRINT_WINDOW_HOOK;
    job.record.job.windowHook = [](HINSTANCE, int32_t zero, int32_t enable, HANDLE list) -> HANDLE {
        asked.push_back(std::to_string(zero) + " " + std::to_string(enable) + " " +
                        std::to_string(reinterpret_cast<uintptr_t>(list)));
        return reinterpret_cast<HANDLE>(uintptr_t{77});
    };
    job.render = [&](HDC) { EXPECT_TRUE(IsWindowEnabled(job.owner)); };
    EXPECT_EQ(job.Print(), PRINT_FINISHED);
    EXPECT_EQ(asked, (Texts{"0 0 0", "0 1 77"}));
}

// ---- failures ---------------------------------------------------------------------------------------------------

using PrintJobStatus = PrintJob;

TEST_F(PrintJobStatus, WithoutOwnerOrDeviceIsNotStarted) {
    EXPECT_EQ(PagePrint(nullptr, &job.record), 1);
    EXPECT_EQ(uint16_t{job.record.job.status}, PRINT_NO_OWNER);
    EXPECT_EQ(PagePrint(job.owner, nullptr), 1);
    printer.refusesToOpen = true;
    EXPECT_EQ(job.Print(), PRINT_NOT_STARTED);
    EXPECT_TRUE(printer.calls.empty());
}

struct FailureCase {
    int line;
    const char* call;  // that fails
    INT result;
    uint16_t status;
    const char* message;  // "" for none
    const char* calls;
};

constexpr char kOneSheet[] = "start, page, end page";

constexpr FailureCase kFailures[] = {
    {__LINE__, "start", 0, PRINT_NOT_STARTED, "", "start"},
    {__LINE__, "start", SP_ERROR, PRINT_NOT_STARTED, "Printing Error", "start"},
    {__LINE__, "start", SP_OUTOFDISK, PRINT_NOT_STARTED, "Out of Disk Space", "start"},
    {__LINE__, "page", SP_OUTOFMEMORY, PRINT_FAILED, "Out of Memory", "start, page"},
    {__LINE__, "end page", SP_OUTOFDISK, PRINT_FAILED, "Out of Disk Space", kOneSheet},
    {__LINE__, "end page", SP_OUTOFDISK & ~SP_NOTREPORTED, PRINT_FAILED, "", kOneSheet},  // shown already
    {__LINE__, "end page", SP_APPABORT, PRINT_FAILED, "", kOneSheet},
    {__LINE__, "end page", SP_USERABORT, PRINT_FAILED, "", kOneSheet},
    {__LINE__, "end page", -77, PRINT_FAILED, "Printing Error", kOneSheet},
    {__LINE__, "end page 2", SP_ERROR, PRINT_FAILED, "Printing Error", "start, page, end page, page, end page"},
    {__LINE__, "end", SP_ERROR, PRINT_FINISHED, "", "start, page, end page, page, end page, end"},  // not read
};

TEST(PrintJobStatuses, EachDocumentCallFailsInTurn) {
    for (const FailureCase& c : kFailures) {
        const testing::ScopedTrace row(__FILE__, c.line, c.call);
        ScriptedPrinter printer;
        HookedJob job(printer);
        job.record.docWidth = 17000;
        printer.results[c.call] = c.result;
        EXPECT_EQ(job.Print(), c.status);
        EXPECT_EQ(job.reader.shown, *c.message != '\0' ? Texts{std::string("Title: ") + c.message} : Texts{});
        EXPECT_EQ(job.reader.style, *c.message != '\0' ? UINT{MB_ICONEXCLAMATION | MB_OK} : 0u);
        EXPECT_EQ(printer.Calls().substr(0, std::string(c.calls).size()), c.calls);
        ExpectNothingLeft(job);
    }
}

TEST(PrintJobStatuses, ACodeOfTheSpoolersDecides) {
    constexpr std::pair<INT, uint16_t> kTroubles[] = {
        {SP_ERROR, PRINT_FAILED},      {SP_APPABORT, PRINT_APPLICATION_STOP}, {SP_USERABORT, PRINT_CANCELLED},
        {SP_OUTOFDISK, PRINT_NO_DISK}, {SP_OUTOFMEMORY, PRINT_NO_MEMORY},     {-6, PRINT_FAILED},
    };
    for (const auto& [code, status] : kTroubles) {
        ScriptedPrinter printer;
        HookedJob job(printer);
        printer.troubles["end page"] = code;
        EXPECT_EQ(job.Print(), status) << code;
    }
}

TEST_F(PrintJobStatus, ADeviceWithoutPaperPrintsNothing) {
    job.render = [](HDC) { ADD_FAILURE(); };
    for (const bool wide : {false, true}) {
        printer.metrics.paperWidth = wide ? 850 : 0;
        printer.metrics.paperHeight = wide ? 0 : 1100;
        EXPECT_EQ(job.Print(), PRINT_FAILED);
        EXPECT_EQ(printer.Calls().find("page"), std::string::npos);
    }
}

// ---- cancelling -------------------------------------------------------------------------------------------------

enum class Moment : uint8_t { kFirstSheet, kLaterSheet, kNextPage, kIdle };

constexpr void (*kWaysToCancel[])(HDC) = {
    [](HDC) { HostPressButton(FindDialog(), IDCANCEL); },
    [](HDC) { PostMessageA(FindDialog(), WM_COMMAND, IDCANCEL, 0); },
    [](HDC dc) { PrintAbort(dc); },
};

std::function<void()> cancelWhenIdle;

TEST(PrintJobCancel, AtEveryMomentInEveryWay) {
    for (const Moment moment : {Moment::kFirstSheet, Moment::kLaterSheet, Moment::kNextPage, Moment::kIdle}) {
        for (const auto& cancel : kWaysToCancel) {
            SCOPED_TRACE(static_cast<int>(moment) * 10 + static_cast<int>(&cancel - kWaysToCancel));
            ScriptedPrinter printer;
            HookedJob job(printer);
            HDC used = nullptr;
            int sheets = 0;
            job.record.docWidth = 17000;
            if (moment == Moment::kIdle) cancelWhenIdle = [&] { cancel(used); };
            job.record.job.idleHook = [](int32_t) {
                if (const auto now = std::exchange(cancelWhenIdle, nullptr)) now();
            };
            job.render = [&](HDC dc) {
                used = dc;
                const Moment now = ++sheets == 1 ? Moment::kFirstSheet : Moment::kLaterSheet;
                if (moment == now) cancel(dc);
            };
            job.next = [&] {
                if (moment != Moment::kNextPage || sheets > 2) return 0;
                cancel(used);
                return 1;
            };
            EXPECT_EQ(job.Print(), PRINT_CANCELLED);
            EXPECT_TRUE(job.reader.shown.empty());
            EXPECT_EQ(printer.calls.back(), "abort");
            ExpectNothingLeft(job);
        }
    }
}

using PrintJobCancelled = PrintJob;

TEST_F(PrintJobCancelled, ButNotWhileTheDocumentStarts) {
    printer.troubles["start"] = 0;  // the device gives the application a turn
    job.open = [](HWND dialog) { PostMessageA(dialog, WM_COMMAND, IDCANCEL, 0); };
    EXPECT_EQ(job.Print(), PRINT_FINISHED);
}

TEST_F(PrintJobCancelled, BetweenSheetsOfADeviceWithoutAbortCallback) {
    printer.metrics.escapes &= ~EscapeBit(SETABORTPROC);
    job.record.docWidth = 34000;
    int sheets = 0;
    job.render = [&](HDC) {
        if (++sheets == 2) PostMessageA(FindDialog(), WM_COMMAND, IDCANCEL, 0);
    };
    EXPECT_EQ(job.Print(), PRINT_CANCELLED);
    EXPECT_EQ(sheets, 3);  // the sheet that had been asked for is still drawn
}

// ---- several jobs -----------------------------------------------------------------------------------------------

TEST(PrintJobs, ThreeAtOnceOnOneThread) {
    ScriptedPrinter printers[] = {ScriptedPrinter("One"), ScriptedPrinter("Two"), ScriptedPrinter("Three")};
    HookedJob jobs[] = {HookedJob(printers[0]), HookedJob(printers[1]), HookedJob(printers[2])};
    for (HookedJob& job : jobs) {
        job.record.job.dialogOpenHook = job.record.job.dialogCloseHook = nullptr;
        job.record.docHeight = 22000;
    }
    int depth = 0;
    HDC outer = nullptr;
    jobs[0].render = [&](HDC dc) {
        outer = dc;
        if (depth++ == 0) {
            EXPECT_EQ(jobs[1].Print(), PRINT_FINISHED);
        }
    };
    jobs[1].render = [&](HDC) {
        if (depth++ == 1) {
            EXPECT_EQ(jobs[2].Print(), PRINT_CANCELLED);
        }
    };
    jobs[2].render = [&](HDC dc) {
        EXPECT_NE(PrintLookUpJob(outer), nullptr);
        PrintAbort(dc);
    };
    EXPECT_EQ(jobs[0].Print(), PRINT_FINISHED);
    EXPECT_EQ(printers[0].Calls(), "start, page, end page, page, end page, end");
    EXPECT_EQ(printers[1].Calls(), printers[0].Calls());
    EXPECT_EQ(PrintLookUpJob(outer), nullptr);
}

TEST(PrintJobs, OneContextIsForOneJob) {
    ScriptedPrinter printer;
    HookedJob job(printer);
    ScriptedJob inner(printer);
    job.render = [&](HDC dc) {
        inner.record.job.dc = dc;
        EXPECT_EQ(inner.Print(), PRINT_NOT_STARTED);
    };
    EXPECT_EQ(job.Print(), PRINT_FINISHED);
}

TEST(PrintJobs, TheTableGrowsAndShrinks) {
    HDC contexts[5];
    for (uintptr_t i = 0; i < 5; ++i) contexts[i] = reinterpret_cast<HDC>(i + 1);
    EXPECT_EQ(PrintFindJobContext(nullptr), nullptr);
    for (HDC dc : contexts) PrintFindJobContext(dc)->sheetCount = 7;
    EXPECT_EQ(PrintFindJobContext(contexts[0])->sheetCount, 7);
    PrintReleaseJob(contexts[1]);
    EXPECT_EQ(PrintLookUpJob(contexts[1]), nullptr);
    EXPECT_EQ(PrintFindJobContext(contexts[1])->sheetCount, 0);
    for (HDC dc : contexts) PrintReleaseJob(dc);
    PrintReleaseJob(contexts[0]);
}

TEST(PrintJobs, CallsWithoutAJobDoNoHarm) {
    ScriptedPrinter printer;
    HookedJob job(printer);
    HDC dc = CreateDCA("Script", "Scripted", "LPT1:", nullptr);
    EXPECT_EQ(PrintAbort(nullptr), 0);
    EXPECT_EQ(AbortTest(nullptr, SP_ERROR), 1);
    EXPECT_EQ(PrintAbort(dc), 1);
    EXPECT_EQ(AbortTest(dc, 0), 1);
    EXPECT_EQ(AbortTest(dc, SP_ERROR), 0);
    job.record.job.dc = dc;
    EXPECT_EQ(job.Print(), PRINT_FINISHED);  // what was said before the job doesn't count
    DeleteDC(dc);
}

// ---- memory -----------------------------------------------------------------------------------------------------

TEST(PrintJobMemory, EndsWhicheverAllocationFails) {
    bool failed = true;
    for (uint32_t n = 1; failed && n < 500; ++n) {
        SCOPED_TRACE(n);
        ScriptedPrinter printer;
        HookedJob job(printer);
        HostFailAllocation(n);
        const uint16_t status = job.Print();
        failed = HostAllocationFailed() != 0;
        HostFailAllocation(0);
        EXPECT_TRUE(status == PRINT_FINISHED || (failed && (status == PRINT_NO_MEMORY || status == PRINT_NOT_STARTED)));
        ExpectNothingLeft(job);
    }
    EXPECT_FALSE(failed);
}

}  // namespace
