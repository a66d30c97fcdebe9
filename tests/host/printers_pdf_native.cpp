// The PDF printer: its files, what they are called, and that none stays of a job that has failed.
#include <gtest/gtest.h>

#include <cairo.h>
#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <string>
#include <tuple>
#include <vector>

#include "host/spool/printer_device.h"
#include "support/pdf_file.h"
#include "support/test_printer.h"

namespace {

namespace fs = std::filesystem;
using Names = std::vector<std::string>;

// Prints into a folder of its own, which is the current one.
class PdfPrinter : public OwnPrinters {
  protected:
    void SetUp() override {
        before_ = fs::current_path();
        std::string folder = "/tmp/morvl15-pdf-XXXXXX";
        ASSERT_NE(mkdtemp(folder.data()), nullptr);
        folder_ = folder;
        fs::current_path(folder_);
    }
    void TearDown() override {
        fs::current_path(before_);
        fs::remove_all(folder_);
    }

    Names Files() const {
        Names names;
        for (const auto& entry : fs::directory_iterator(folder_)) names.push_back(entry.path().filename());
        std::sort(names.begin(), names.end());
        return names;
    }

    static std::unique_ptr<PrinterDevice> Open(const char* port = nullptr, const DEVMODEA* mode = nullptr) {
        return PrinterDevice::Open("PDF", port, mode);
    }

    // A page with a square of two inches, one inch from the upper left corner.
    static INT PrintPage(PrinterDevice& device) {
        cairo_surface_t* surface = nullptr;
        const INT result = device.StartPage(&surface);
        if (result <= 0) return result;
        cairo_t* drawing = cairo_create(surface);
        cairo_rectangle(drawing, 72, 72, 144, 144);
        cairo_fill(drawing);
        cairo_destroy(drawing);
        return device.EndPage();
    }

    static INT Print(PrinterDevice& device, const char* document, int pages = 1) {
        const INT result = device.StartDocument(document, nullptr);
        for (int page = 0; result > 0 && page < pages; ++page) PrintPage(device);
        return result > 0 ? device.EndDocument() : result;
    }

    fs::path before_;
    fs::path folder_;
};

// ---- pages ------------------------------------------------------------------------------------------------------

TEST_F(PdfPrinter, WritesThePagesOfADocument) {
    const auto device = Open();
    EXPECT_EQ(Print(*device, "Report", 3), 1);
    EXPECT_EQ(Files(), Names{"Report.pdf"});
    EXPECT_EQ(PdfValue("Report.pdf", "Pages"), "3");
    EXPECT_EQ(PdfValue("Report.pdf", "Title"), "Report");
}

TEST_F(PdfPrinter, GivesPagesTheSizeOfThePaper) {
    const std::tuple<int16_t, int16_t, const char*> kRows[] = {
        {DMPAPER_A4, 1, "595.276 x 841.89 pts (A4)"},
        {DMPAPER_A4, 2, "841.89 x 595.276 pts (A4)"},
        {DMPAPER_A3, 1, "841.89 x 1190.55 pts (A3)"},
        {DMPAPER_A5, 1, "419.528 x 595.276 pts"},
        {DMPAPER_LETTER, 1, "612 x 792 pts (letter)"},
        {DMPAPER_LEGAL, 2, "1008 x 612 pts"},
        {DMPAPER_USER, 1, "288 x 432 pts"},
    };
    for (const auto& [paper, turn, size] : kRows) {
        DEVMODEA mode = ModeOfPaper(paper, turn);
        mode.dmFields |= DM_PAPERWIDTH | DM_PAPERLENGTH;
        mode.dmPaperWidth = 1016;
        mode.dmPaperLength = 1524;
        EXPECT_EQ(Print(*Open("FILE:page.pdf", &mode), "Page"), 1);
        EXPECT_EQ(PdfValue("page.pdf", "Page size"), size);
    }
}

TEST_F(PdfPrinter, HasTheMarginsOfItsPrivateSettings) {
    using Four = std::array<int32_t, 4>;
    const std::tuple<Four, int16_t, Four> kRows[] = {
        // margins, turn, offset and printable size
        {{0, 0, 0, 0}, 1, {0, 0, 4961, 7016}},
        {{254, 508, 762, 1016}, 1, {60, 120, 4721, 6656}},
        {{254, 508, 762, 1016}, 2, {120, 180, 6656, 4721}},
        {{10500, 0, 10500, 0}, 1, {0, 0, 4961, 7016}},  // nothing would be left
        {{-1, 0, 0, 0}, 1, {0, 0, 4961, 7016}},
        {{INT32_MAX, 0, INT32_MAX, 0}, 1, {0, 0, 4961, 7016}},
    };
    for (const auto& [margins, turn, want] : kRows) {
        struct {
            DEVMODEA mode;
            HostPdfSettings settings = {{'p', 'd', 'f', '1'}, {}};
        } full{ModeOfPaper(DMPAPER_A4, turn)};
        full.mode.dmDriverExtra = sizeof full.settings;
        std::copy(margins.begin(), margins.end(), full.settings.margins);
        const HostPrinterMetrics metrics = Open(nullptr, &full.mode)->Metrics();
        EXPECT_EQ((Four{metrics.offsetX, metrics.offsetY, metrics.printableWidth, metrics.printableHeight}), want)
            << margins[0] << " turned " << turn;
    }
}

// ---- names ------------------------------------------------------------------------------------------------------

TEST_F(PdfPrinter, NamesFilesAfterDocuments) {
    const std::string kRows[][2] = {
        {"", "Document.pdf"},
        {"../etc/passwd", "_._etc_passwd.pdf"},
        {".profile", "_profile.pdf"},
        {"Year 2026.pdf", "Year 2026.pdf"},
        {".pdf", "Document.pdf"},
        {"tab\tand\nline", "tab_and_line.pdf"},
        {"Gr\xFC\xDF", "Gr\u00FC\u00DF.pdf"},  // UTF-8 on the disk
        {std::string(300, 'x'), std::string(200, 'x') + ".pdf"},
        {std::string(199, 'x') + "\xFC", std::string(199, 'x') + ".pdf"},  // no half characters
    };
    for (const auto& [document, file] : kRows) {
        EXPECT_EQ(Print(*Open(), document.c_str()), 1);
        EXPECT_EQ(Files(), Names{file});
        fs::remove(file);
    }
}

TEST_F(PdfPrinter, NeverTakesTheNameOfAFileThatIsThere) {
    const auto device = Open();
    for (int count = 0; count < 3; ++count) Print(*device, "Report");
    EXPECT_EQ(Files(), (Names{"Report (2).pdf", "Report (3).pdf", "Report.pdf"}));
}

TEST_F(PdfPrinter, ReplacesTheFileThatItIsTold) {
    std::ofstream("told.pdf") << "old";
    fs::create_symlink("told.pdf", "link.pdf");
    EXPECT_EQ(Print(*Open("FILE:link.pdf"), "Report"), 1);
    EXPECT_EQ(PdfValue("told.pdf", "Pages"), "1");
    EXPECT_TRUE(fs::is_symlink("link.pdf"));
    EXPECT_EQ(Files(), (Names{"link.pdf", "told.pdf"}));
}

TEST_F(PdfPrinter, GoesToTheFolderThatWasTheCurrentOne) {
    const auto device = Open();
    device->StartDocument("Report", nullptr);
    fs::current_path("/");
    PrintPage(*device);
    EXPECT_EQ(device->EndDocument(), 1);
    EXPECT_EQ(Files(), Names{"Report.pdf"});
}

TEST_F(PdfPrinter, RefusesPlacesWhereThereCanBeNoFile) {
    mkfifo("pipe.pdf", 0600);
    fs::create_directory("folder.pdf");
    for (const char* port : {"FILE:missing/a.pdf", "FILE:pipe.pdf", "FILE:folder.pdf", "FILE:new/", "FILE:/proc/a.pdf"})
        EXPECT_EQ(Print(*Open(port), "Report"), SP_ERROR) << port;
    EXPECT_EQ(Files(), (Names{"folder.pdf", "pipe.pdf"}));
}

// ---- failures ---------------------------------------------------------------------------------------------------

TEST_F(PdfPrinter, AFileAppearsOnlyWhenItIsWhole) {
    const auto device = Open();
    device->StartDocument("Report", nullptr);
    PrintPage(*device);
    EXPECT_FALSE(fs::exists("Report.pdf"));
    device->AbortDocument();
    EXPECT_EQ(Files(), Names{});
    device->StartDocument("Report", nullptr);
    device->SetAbortProcedure([](void*, INT) -> BOOL { return FALSE; }, nullptr);
    EXPECT_EQ(PrintPage(*device), SP_APPABORT);
    EXPECT_EQ(device->EndDocument(), SP_APPABORT);
    EXPECT_EQ(Files(), Names{});
}

// Notes the codes that the abort procedure gets, and goes on.
BOOL NoteCode(void* codes, INT code) {
    *static_cast<std::string*>(codes) += std::to_string(code) + " ";
    return TRUE;
}

TEST_F(PdfPrinter, AFullDiskEndsTheJob) {
    const std::tuple<rlim_t, INT, INT, const char*> kRows[] = {
        {0, SP_OUTOFDISK, SP_ERROR, "-4 "}, {600, 1, SP_OUTOFDISK, "0 0 -4 "},  // the end of the file, behind the page
    };
    rlimit before;
    getrlimit(RLIMIT_FSIZE, &before);
    for (const auto& [room, ofPage, ofDocument, told] : kRows) {
        std::string codes;
        const auto device = Open();
        device->SetAbortProcedure(NoteCode, &codes);
        ASSERT_GT(device->StartDocument("Report", nullptr), 0);
        const rlimit limit = {room, before.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
        const INT page = PrintPage(*device);
        const INT document = device->EndDocument();
        setrlimit(RLIMIT_FSIZE, &before);
        EXPECT_EQ(page, ofPage) << room;
        EXPECT_EQ(document, ofDocument) << room;
        EXPECT_EQ(codes, told) << room;
        EXPECT_EQ(Files(), Names{}) << room;
    }
    EXPECT_EQ(Print(*Open(), "Report"), 1);  // with room again, all is well
}

TEST_F(PdfPrinter, AFolderThatCannotBeWrittenRefusesTheDocument) {
    // Even the system's own user can make no file in a folder that has gone.
    fs::create_directory("gone");
    fs::current_path("gone");
    fs::remove(folder_ / "gone");
    EXPECT_EQ(Print(*Open(), "Report"), SP_ERROR);
    fs::current_path(folder_);
    if (geteuid() != 0) {
        fs::permissions(folder_, fs::perms::owner_read | fs::perms::owner_exec);
        EXPECT_EQ(Print(*Open(), "Report"), SP_ERROR);
        fs::permissions(folder_, fs::perms::owner_all);
    }
    EXPECT_EQ(Files(), Names{});
}

TEST_F(PdfPrinter, AFolderThatGoesDuringTheJobFailsIt) {
    fs::create_directory("gone");
    const auto device = Open("FILE:gone/a.pdf");
    ASSERT_GT(device->StartDocument("Report", nullptr), 0);
    PrintPage(*device);
    fs::remove_all("gone");
    EXPECT_EQ(device->EndDocument(), SP_ERROR);
    EXPECT_EQ(Files(), Names{});
}

}  // namespace
