// The queues of a print server: their papers and options, jobs that are printed, listed and cancelled.
#include <gtest/gtest.h>

#include <cairo.h>

#include <algorithm>
#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include "host/spool/printer_device.h"
#include "print_server.h"
#include "support/pdf_file.h"
#include "support/test_printer.h"

namespace {

class CupsQueue : public testing::Test {
  protected:
    static void SetUpTestSuite() { server_ = std::make_unique<TestPrintServer>(); }
    static void TearDownTestSuite() { server_.reset(); }
    void SetUp() override { ASSERT_TRUE(server_->IsRunning()) << server_->Log(); }

    // A document of some pages, which isn't ended.
    static std::unique_ptr<PrinterDevice> Begin(const char* queue, const char* document, int pages,
                                                const DEVMODEA* mode = nullptr) {
        auto device = PrinterDevice::Open(queue, nullptr, mode);
        if (device == nullptr || device->StartDocument(document, nullptr) <= 0) return nullptr;
        for (int page = 0; page < pages; ++page) {
            cairo_surface_t* surface = nullptr;
            EXPECT_GT(device->StartPage(&surface), 0);
            cairo_t* drawing = cairo_create(surface);
            cairo_paint(drawing);
            cairo_destroy(drawing);
            EXPECT_GT(device->EndPage(), 0);
        }
        return device;
    }

    static std::unique_ptr<TestPrintServer> server_;
};

std::unique_ptr<TestPrintServer> CupsQueue::server_;

std::vector<std::string> PrinterNames(DWORD kinds) {
    DWORD needed = 0;
    DWORD returned = 0;
    EnumPrintersA(kinds, nullptr, 2, nullptr, 0, &needed, &returned);
    std::vector<BYTE> block(needed);
    EXPECT_TRUE(EnumPrintersA(kinds, nullptr, 2, block.data(), needed, &needed, &returned));
    std::vector<std::string> names;
    for (DWORD index = 0; index < returned; ++index) names.emplace_back(InfosOf(block)[index].pPrinterName);
    std::sort(names.begin(), names.end());
    return names;
}

INT Capability(WORD index, void* output = nullptr) {
    return DeviceCapabilitiesA("Paper", nullptr, index, static_cast<char*>(output), nullptr);
}

TEST_F(CupsQueue, IsAPrinter) {
    EXPECT_EQ(PrinterNames(PRINTER_ENUM_CONNECTIONS), (std::vector<std::string>{"Held", "Paper"}));
    EXPECT_EQ(PrinterNames(PRINTER_ENUM_CONNECTIONS | PRINTER_ENUM_LOCAL),
              (std::vector<std::string>{"Held", "PDF", "Paper"}));
    HANDLE printer = OpenPrinter("paper");
    ASSERT_NE(printer, nullptr);
    const std::vector<BYTE> block = Describe(printer);
    const PRINTER_INFO_2A& info = *InfosOf(block);
    EXPECT_STREQ(info.pPrinterName, "Paper");
    EXPECT_STREQ(info.pComment, "Paper of the tests");
    EXPECT_STREQ(info.pLocation, "Room 5");
    EXPECT_EQ(info.Attributes, PRINTER_ATTRIBUTE_NETWORK | PRINTER_ATTRIBUTE_DEFAULT);  // the server's default
    ClosePrinter(printer);
}

TEST_F(CupsQueue, HasItsPapersMarginsAndOptions) {
    EXPECT_EQ(Capability(DC_DUPLEX), 1);
    EXPECT_EQ(Capability(DC_COLORDEVICE), 1);
    EXPECT_EQ(Capability(DC_COPIES), 9999);
    ASSERT_EQ(Capability(DC_PAPERS), 3);
    WORD ids[3];
    POINT sizes[3];
    Capability(DC_PAPERS, ids);
    Capability(DC_PAPERSIZE, sizes);
    EXPECT_EQ(ids[0], DMPAPER_LETTER);  // the default comes first
    EXPECT_EQ(std::count(ids, ids + 3, DMPAPER_A4), 1);
    const auto* card = std::find(ids, ids + 3, DMPAPER_USER + 1);
    ASSERT_NE(card, ids + 3);
    EXPECT_EQ(sizes[card - ids].x, 1058);  // 300 points
    EXPECT_EQ(sizes[card - ids].y, 1764);
    const auto device = PrinterDevice::Open("Paper", nullptr, nullptr);
    ASSERT_NE(device, nullptr);
    const HostPrinterMetrics& metrics = device->Metrics();
    EXPECT_EQ(metrics.paperWidth, 5100);
    EXPECT_EQ(metrics.offsetX, 150);  // 18 points
    EXPECT_EQ(metrics.offsetY, 150);
    EXPECT_EQ(metrics.printableHeight, 6600 - 150 - 300);
}

TEST_F(CupsQueue, PrintsTheSheetsOfAJob) {
    DEVMODEA mode = ModeOfPaper(DMPAPER_A4, DMORIENT_PORTRAIT);
    mode.dmFields |= DM_DUPLEX;
    mode.dmDuplex = DMDUP_VERTICAL;
    const auto device = Begin("Paper", "Four sheets", 4, &mode);
    ASSERT_NE(device, nullptr) << server_->Log();
    EXPECT_EQ(device->EndDocument(), 1);
    ASSERT_TRUE(server_->WaitUntilDone("Paper")) << server_->Log();
    EXPECT_EQ(PdfValue(server_->Output(), "Pages"), "4") << server_->Log();
    EXPECT_EQ(PdfValue(server_->Output(), "Title"), "Four sheets");
    EXPECT_EQ(PdfValue(server_->Output(), "Page size"), "595.276 x 841.89 pts (A4)");
}

TEST_F(CupsQueue, ListsAJobUntilItIsCancelled) {
    auto device = Begin("Held", "Listed", 2);
    ASSERT_NE(device, nullptr) << server_->Log();
    EXPECT_EQ(device->EndDocument(), 1);
    const std::string jobs = server_->Jobs("Held");
    EXPECT_NE(jobs.find(" pending Listed"), std::string::npos) << jobs;
    device = Begin("Held", "Given up", 2);
    ASSERT_NE(device, nullptr);
    EXPECT_NE(server_->Jobs("Held").find("Given up"), std::string::npos);
    EXPECT_EQ(device->AbortDocument(), 1);
    EXPECT_EQ(server_->Jobs("Held"), jobs);
}

TEST_F(CupsQueue, TakesOptionsOfThePrivateSettings) {
    struct {
        DEVMODEA mode;
        HostQueueSettings settings;
    } full{};
    ASSERT_EQ(DocumentPropertiesA(nullptr, nullptr, const_cast<char*>("Held"), &full.mode, nullptr, DM_OUT_BUFFER),
              IDOK);
    std::strcpy(full.settings.options, "job-name=\"Another name\"");
    const auto device = Begin("Held", "Plain name", 1, &full.mode);
    ASSERT_NE(device, nullptr);
    const std::string jobs = server_->Jobs("Held");
    EXPECT_NE(jobs.find("Another name"), std::string::npos) << jobs;
}

// The last of the suite: the server goes.
TEST_F(CupsQueue, ThatHasGoneFails) {
    auto device = PrinterDevice::Open("Paper", nullptr, nullptr);
    ASSERT_NE(device, nullptr);
    server_->Remove("Paper");
    EXPECT_EQ(device->StartDocument("Too late", nullptr), SP_ERROR);
    EXPECT_EQ(PrinterDevice::Open("Paper", nullptr, nullptr), nullptr);
    device = PrinterDevice::Open("Held", nullptr, nullptr);
    ASSERT_NE(device, nullptr);
    ASSERT_GT(device->StartDocument("Cut off", nullptr), 0);
    const std::string socket = server_->Socket();
    server_->Stop();
    device->AbortDocument();
    EXPECT_EQ(PrinterNames(PRINTER_ENUM_CONNECTIONS | PRINTER_ENUM_LOCAL), std::vector<std::string>{"PDF"});
    EXPECT_EQ(device->StartDocument("Too late", nullptr), SP_ERROR);
    server_ = nullptr;
}

}  // namespace
