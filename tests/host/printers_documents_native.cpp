// A printer that is open for a device context: figures, escapes, the order of a document's calls, failures, aborts.
#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <tuple>

#include "host/spool/printer_device.h"
#include "support/test_printer.h"

namespace {

class PrinterDevices : public OwnPrinters {
  protected:
    std::unique_ptr<PrinterDevice> Open(const DEVMODEA* mode = nullptr) {
        printer_.calls.clear();
        return PrinterDevice::Open("Own", nullptr, mode);
    }

    // Makes a document's calls, which have the letters of TestPrinter's, and tells what each gives.
    static std::string Run(PrinterDevice& device, const std::string& calls) {
        std::string results;
        cairo_surface_t* surface = nullptr;
        for (const char call : calls) {
            INT result = 0;
            switch (call) {
                case 's': result = device.StartDocument("Note", nullptr); break;
                case 'p': result = device.StartPage(&surface); break;
                case 'e': result = device.EndPage(); break;
                case 'd': result = device.EndDocument(); break;
                default: result = device.AbortDocument(); break;
            }
            EXPECT_TRUE(call != 'p' || result <= 0 || surface != nullptr);
            results += (results.empty() ? "" : " ") + std::to_string(result);
        }
        return results;
    }
    static std::string Print(PrinterDevice& device) { return Run(device, "speped"); }

    TestPrinter printer_{"Own"};
};

// ---- figures ----------------------------------------------------------------------------------------------------

TEST_F(PrinterDevices, FiguresFollowPaperMarginsAndTurn) {
    const std::tuple<int16_t, int16_t, HostPrinterMetrics> kRows[] = {
        // paper, turn, and of the metrics: dots an inch, paper, offset, printable size
        {DMPAPER_A4, 1, {600, 600, 4961, 7016, 0, 0, 4961, 7016, 0, 0}},
        {DMPAPER_A4, 2, {600, 600, 7016, 4961, 0, 0, 7016, 4961, 0, 0}},
        {TestPrinter::kCard, 1, {600, 600, 2362, 3543, 24, 47, 2267, 3402, 0, 0}},
        {TestPrinter::kCard, 2, {600, 600, 3543, 2362, 47, 71, 3402, 2267, 0, 0}},
    };
    for (const auto& [paper, turn, want] : kRows) {
        const DEVMODEA mode = ModeOfPaper(paper, turn);
        const auto device = Open(&mode);
        ASSERT_NE(device, nullptr);
        EXPECT_EQ(std::memcmp(&device->Metrics(), &want, offsetof(HostPrinterMetrics, color)), 0)
            << paper << " turned " << turn;
    }
}

TEST_F(PrinterDevices, ADriverCanRefuseAndHaveItsOwnFigures) {
    printer_.changeMetrics = [](HostPrinterMetrics* metrics) { metrics->paperWidth = 0; };
    EXPECT_EQ(Open()->Metrics().paperWidth, 0);
    printer_.properties = -1;  // no device mode is to be had: the host's own serves
    EXPECT_NE(Open(), nullptr);
    EXPECT_EQ(printer_.calls, "oc");
    printer_.refusesToOpen = true;
    EXPECT_EQ(Open(), nullptr);
    EXPECT_EQ(PrinterDevice::Open("Missing", nullptr, nullptr), nullptr);
    EXPECT_EQ(printer_.calls, "");
}

TEST_F(PrinterDevices, AnswersEscapes) {
    const auto supports = [](PrinterDevice& device, INT code) {
        return device.Escape(QUERYESCSUPPORT, sizeof code, &code, nullptr);
    };
    const auto plain = Open();
    for (const INT code : {QUERYESCSUPPORT, SETABORTPROC, GETPHYSPAGESIZE, GETPRINTINGOFFSET})
        EXPECT_EQ(supports(*plain, code), 1) << code;
    for (const INT code : {DRAFTMODE, SETCOPYCOUNT, 0, -1, 32, 4000}) EXPECT_EQ(supports(*plain, code), 0) << code;
    POINT size{};
    EXPECT_EQ(plain->Escape(GETPHYSPAGESIZE, 0, nullptr, &size), 1);
    EXPECT_EQ(size.y, 7016);
    const INT copies = 3;
    EXPECT_EQ(plain->Escape(SETCOPYCOUNT, sizeof copies, &copies, nullptr), 0);
    EXPECT_EQ(printer_.calls, "o");

    printer_.changeMetrics = [](HostPrinterMetrics* metrics) { metrics->escapes = 1u << SETCOPYCOUNT; };
    const auto copier = Open();
    EXPECT_EQ(supports(*copier, GETPHYSPAGESIZE), 0);
    EXPECT_EQ(copier->Escape(GETPHYSPAGESIZE, 0, nullptr, &size), 0);
    Run(*copier, "s");  // the number counts for a document that has been started, too
    EXPECT_EQ(copier->Escape(SETCOPYCOUNT, sizeof copies, &copies, nullptr), 1);
    Run(*copier, "d");
    EXPECT_EQ(printer_.copies, 3);
    EXPECT_EQ(printer_.calls, "osxd");
}

// ---- documents --------------------------------------------------------------------------------------------------

TEST_F(PrinterDevices, ADocumentsCallsReachTheDriverInTheirOrder) {
    auto device = Open();
    EXPECT_EQ(Print(*device), "1 1 1 1 1 1");
    EXPECT_EQ(Print(*device), "1 1 1 1 1 1");
    device.reset();
    EXPECT_EQ(printer_.calls, "ospepedspepedc");
    EXPECT_EQ(printer_.documentName, "Note");
}

TEST_F(PrinterDevices, ADriverWithoutFunctionsTakesEveryJob) {
    HostPrinterDriver driver{};
    driver.name = "None";
    ASSERT_TRUE(HostAddPrinter("Nowhere", "LPT1:", &driver, &printer_.traits, nullptr));
    EXPECT_EQ(Run(*PrinterDevice::Open("Nowhere", nullptr, nullptr), "spepedsas"), "1 1 1 1 1 1 1 1 1");
    HostRemovePrinter("Nowhere");
}

TEST_F(PrinterDevices, RefusesCallsOutOfOrder) {
    const auto device = Open();
    EXPECT_EQ(Run(*device, "peda"), "-1 -1 -1 -1");
    EXPECT_EQ(Run(*device, "sseppd"), "1 -1 -1 1 -1 1");  // the document ends with its page
    EXPECT_EQ(printer_.calls, "osped");
}

TEST_F(PrinterDevices, WhatIsLeftOpenIsGivenUp) {
    EXPECT_EQ(Run(*Open(), "sas"), "1 1 1");
    EXPECT_EQ(printer_.calls, "osasac");
}

TEST_F(PrinterDevices, AFailureGivesTheDocumentUp) {
    const std::tuple<char, INT, const char*, const char*> kRows[] = {
        {'s', SP_ERROR, "-1 -1 -1 -1 -1 -1", "os"},        {'s', 0, "0 -1 -1 -1 -1 -1", "os"},
        {'p', SP_OUTOFMEMORY, "1 -5 -1 -1 -1 -1", "ospa"}, {'e', SP_OUTOFDISK, "1 1 -4 -1 -1 -1", "ospea"},
        {'d', SP_ERROR, "1 1 1 1 1 -1", "ospepeda"},
    };
    for (const auto& [failing, code, results, calls] : kRows) {
        printer_.failing = failing;
        printer_.code = code;
        const auto device = Open();
        EXPECT_EQ(Print(*device), results);
        EXPECT_EQ(printer_.calls, calls);
        printer_.failing = 0;
        EXPECT_EQ(Print(*device), "1 1 1 1 1 1") << "after " << results;  // the device can print again
    }
}

// ---- the abort procedure ----------------------------------------------------------------------------------------

// An abort procedure that stops the job at its n-th call, and notes its codes.
struct Stopper {
    int stopAt;
    std::string codes;

    static BOOL Procedure(void* context, INT code) {
        auto* self = static_cast<Stopper*>(context);
        self->codes += std::to_string(code) + " ";
        return --self->stopAt != 0;
    }
};

TEST_F(PrinterDevices, TheApplicationStopsAJob) {
    const std::tuple<int, const char*, const char*, const char*> kRows[] = {
        {0, "1 1 1 1 1 1", "ospeped", "0 0 0 "},
        {1, "1 1 -2 -2 -2 -2", "ospea", "0 "},  // at the end of the first page
        {2, "1 1 1 1 -2 -2", "ospepea", "0 0 "},
        {3, "1 1 1 1 1 -2", "ospepea", "0 0 0 "},  // before the document would have ended
    };
    for (const auto& [stopAt, results, calls, codes] : kRows) {
        Stopper stopper{stopAt, ""};
        const auto device = Open();
        device->SetAbortProcedure(Stopper::Procedure, &stopper);
        EXPECT_EQ(Print(*device), results);
        EXPECT_EQ(printer_.calls, calls) << results;
        EXPECT_EQ(stopper.codes, codes) << results;
    }
}

TEST_F(PrinterDevices, ADriverTellsOfItsTrouble) {
    Stopper stopper{1, ""};
    printer_.failing = 'e';
    printer_.told = printer_.code = SP_OUTOFDISK;
    const auto device = Open();
    device->SetAbortProcedure(Stopper::Procedure, &stopper);
    EXPECT_EQ(Print(*device), "1 1 -4 -2 -2 -2");  // the trouble itself is what the call gives
    EXPECT_EQ(stopper.codes, "-4 ");
    printer_.calls.clear();
    printer_.failing = 's';
    printer_.told = SP_USERABORT;
    printer_.code = 1;  // goes on as if nothing had been
    stopper = {1, ""};
    EXPECT_EQ(Print(*device), "-2 -2 -2 -2 -2 -2");
    EXPECT_EQ(printer_.calls, "sa");
}

TEST_F(PrinterDevices, TheFileOfAJobComesFromTheDocumentOrThePort) {
    constexpr const char* kRows[][3] = {
        // port, the document's output, the file
        {nullptr, nullptr, "-"},
        {"FILE:", nullptr, "-"},
        {"FILE:/a/b.pdf", nullptr, "/a/b.pdf"},
        {"FILE:/a/b.pdf", "c.pdf", "c.pdf"},
        {"FILE:/a/b.pdf", "FILE:", "/a/b.pdf"},
        {"LPT2:", "FILE:/c.pdf", "/c.pdf"},
    };
    for (const auto& [port, output, want] : kRows) {
        PrinterDevice::Open("Own", port, nullptr)->StartDocument(nullptr, output);
        EXPECT_EQ(printer_.output, want);
        EXPECT_EQ(printer_.documentName, "");
    }
}

}  // namespace
