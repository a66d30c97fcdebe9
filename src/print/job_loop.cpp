// One print job.
#include "job_loop.h"

#include <cstring>

#include "../frame/instance.h"
#include "job_messages.h"
#include "job_table.h"
#include "printer_device.h"
#include "printers.h"

namespace {

struct Job {
    HWND owner;
    PrintJobRec* record;
    PrintJobCallback callback;
    void* context;
    HDC dc;
    RECT paper;  // in pixels
};

int32_t Call(const Job& job, int32_t command) {
    return job.callback(job.dc, command, &job.paper, job.context, 0, 0, 0);
}

// ---- the device -------------------------------------------------------------------------------------------------

struct Device {
    HDC dc;
    INT savedState;  // of a context of the caller's
};

HDC OpenPrinterContext(const PrintJobRec& record) {
    char device[PRINT_NAME_SIZE];
    char driver[PRINT_NAME_SIZE];
    char port[PRINT_NAME_SIZE];
    PrintCopyText(device, record.deviceName, sizeof device);
    PrintCopyText(driver, record.driverName, sizeof driver);
    PrintCopyText(port, record.portName, sizeof port);
    return CreateDCA(driver, device, port, record.deviceMode);
}

Device OpenDevice(const PrintJobRec& record) {
    if (record.dc != nullptr) return {record.dc, SaveDC(record.dc)};
    return {OpenPrinterContext(record), 0};
}

void CloseDevice(const Device& device, bool given) {
    if (given) {
        RestoreDC(device.dc, device.savedState);
    } else {
        DeleteDC(device.dc);
    }
}

// ---- the entry --------------------------------------------------------------------------------------------------

// What an application without an idle hook gets: a look at the queue, which lets messages of other threads through.
void MORVL_CALL PeekWhenIdle(int32_t /*zero*/) {
    MSG message;
    PeekMessageA(&message, nullptr, 0, 0, PM_NOREMOVE);
}

bool IsPrinting(HDC dc) {
    const PrintJobContext* entry = PrintLookUpJob(dc);
    return entry != nullptr && entry->owner != nullptr;
}

bool IsStopped(HDC dc) {
    const PrintJobContext* entry = PrintLookUpJob(dc);
    return entry == nullptr || entry->abortFlag != 0;
}

// What an earlier AbortTest without a job has left in the entry goes.
void FillEntry(PrintJobContext* entry, const Job& job) {
    std::memset(static_cast<void*>(entry), 0, sizeof *entry);
    entry->dc = job.dc;
    entry->instance = gLibInstance;
    entry->owner = job.owner;
    entry->job = *job.record;
    if (entry->job.idleHook == nullptr) entry->job.idleHook = PeekWhenIdle;
}

void SetAbortCallback(HDC dc) {
    if (!PrintDeviceHas(dc, SETABORTPROC)) return;
    PrintLookUpJob(dc)->hasAbortCallback = 1;
    SetAbortProc(dc, AbortTest);
}

uint16_t StatusOf(HDC dc) {
    const PrintJobContext* entry = PrintLookUpJob(dc);
    if (entry == nullptr) return PRINT_FAILED;
    if (entry->abortFlag == 0) return PRINT_FINISHED;
    switch (entry->abortCode) {
        case SP_APPABORT: return PRINT_APPLICATION_STOP;
        case SP_USERABORT: return PRINT_CANCELLED;
        case SP_OUTOFDISK: return PRINT_NO_DISK;
        case SP_OUTOFMEMORY: return PRINT_NO_MEMORY;
        default: return PRINT_FAILED;
    }
}

// ---- the document -----------------------------------------------------------------------------------------------

bool StartDocument(const Job& job) {
    DOCINFOA document = {};
    document.cbSize = sizeof document;
    document.lpszDocName = job.record->documentName;
    gPrintStartingDocument = true;
    const INT result = StartDocA(job.dc, &document);
    gPrintStartingDocument = false;
    if (result > 0) return true;
    PrintReportError(job.dc, result);
    return false;
}

// Moves on to the next sheet, if the last answer of the callback asks for one and there is one.
bool NextSheet(const Job& job, int32_t answer) {
    PrintUpdatePageDisplay(job.dc);
    if (answer == 0) return false;
    const PrintJobContext* entry = PrintLookUpJob(job.dc);
    if (entry != nullptr && entry->hasAbortCallback == 0) PrintDispatchMessages(job.dc);
    if (Call(job, kJobNextSheet) == 0) return false;
    StartPage(job.dc);
    return true;
}

// The first sheet is there from the start; each one is rendered, ended and only then counted.
void PrintSheets(const Job& job) {
    const INT started = StartPage(job.dc);
    if (started <= 0) PrintReportError(job.dc, started);
    int32_t answer = 1;
    for (bool first = true; !IsStopped(job.dc); first = false) {
        if (!first && !NextSheet(job, answer)) break;
        answer = Call(job, kJobRender);
        const INT ended = EndPage(job.dc);
        if (ended <= 0) PrintReportError(job.dc, ended);
    }
}

void PrintDocument(Job* job) {
    const PrintExtent paper = PrintPaperPixels(job->dc);
    job->paper = {0, 0, paper.width, paper.height};
    if (Call(*job, kJobBegin) != 0) {
        PrintSheets(*job);
    } else if (PrintJobContext* entry = PrintLookUpJob(job->dc)) {
        PrintStopJob(entry, SP_ERROR);
    }
    if (!IsStopped(job->dc)) Call(*job, kJobEnd);
    EndDoc(job->dc);
}

uint16_t RunOn(Job* job) {
    HDC dc = job->dc;
    if (IsPrinting(dc)) return PRINT_NOT_STARTED;
    PrintJobContext* entry = PrintFindJobContext(dc);
    if (entry == nullptr) return PRINT_NO_MEMORY;
    FillEntry(entry, *job);
    if ((job->record->flags & PRINT_NO_DIALOG) == 0) PrintPutUpDialog(dc);
    SetAbortCallback(dc);
    const bool started = StartDocument(*job);
    if (started) PrintDocument(job);
    PrintTakeDownDialog(dc);
    const uint16_t status = started ? StatusOf(dc) : uint16_t{PRINT_NOT_STARTED};
    PrintReleaseJob(dc);
    return status;
}

}  // namespace

void PrintRunJob(HWND owner, PrintJobRec* record, PrintJobCallback callback, void* context) {
    if (record == nullptr) return;
    if (owner == nullptr) {
        record->status = PRINT_NO_OWNER;
        return;
    }
    const bool given = record->dc != nullptr;
    const Device device = OpenDevice(*record);
    if (device.dc == nullptr) {
        record->status = PRINT_NOT_STARTED;
        return;
    }
    Job job = {owner, record, callback, context, device.dc, {}};
    const uint16_t status = RunOn(&job);
    CloseDevice(device, given);
    record->status = status;
}
