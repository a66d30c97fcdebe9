// A document to be printed, for tests.
#pragma once

#include <cstring>
#include <string>

#include <morvl15/print.h>

// A record for one sheet of Letter on a printer, and the window that owns its job, whose texts are "Title", "Document",
// "Line 1" and "Line 2".
class JobFixture {
  public:
    JobFixture(const std::string& device, const std::string& driver, const std::string& port) {
        record.copies = 1;
        record.docWidth = 8500;
        record.docHeight = 11000;
        record.spanA = 1;
        record.job.title = "Title";
        record.job.documentName = "Document";
        record.job.line1 = "Line 1";
        record.job.line2 = "Line 2";
        std::strcpy(record.job.deviceName, device.c_str());
        std::strcpy(record.job.driverName, driver.c_str());
        std::strcpy(record.job.portName, port.c_str());
        record.job.status = 99;
    }
    ~JobFixture() { DestroyWindow(owner); }
    JobFixture(const JobFixture&) = delete;
    JobFixture& operator=(const JobFixture&) = delete;

    uint16_t Print() {  // the job's status
        PagePrint(owner, &record);
        return record.job.status;
    }

    PageRecord record{};
    HWND owner =
        CreateWindowExA(0, "STATIC", "Owner", WS_OVERLAPPED, 100, 100, 400, 300, nullptr, nullptr, nullptr, nullptr);
};
