// Device modes: wishes merged into a printer's defaults, the driver's dialog, capabilities.
#include <gtest/gtest.h>

#include <array>
#include <cstring>
#include <string>
#include <tuple>

#include "support/test_printer.h"

namespace {

// A device mode with the driver's bytes behind it.
struct FullMode {
    DEVMODEA mode{};
    char extra[64] = {};
};

// Fields that wishes are for: orientation, paper, width, length, copies.
using Choices = std::tuple<int16_t, int16_t, int16_t, int16_t, int16_t>;

Choices ChoicesOf(const DEVMODEA& mode) {
    return {mode.dmOrientation, mode.dmPaperSize, mode.dmPaperWidth, mode.dmPaperLength, mode.dmCopies};
}

LONG Properties(const char* printer, DEVMODEA* output, const DEVMODEA* input, DWORD mode) {
    return DocumentPropertiesA(nullptr, nullptr, const_cast<char*>(printer), output, input, mode);
}

// The printer's defaults with a wish merged into them; it may be asked for with DM_IN_PROMPT, and be cancelled.
FullMode ModeOf(const char* printer, const FullMode* wish = nullptr, DWORD prompt = 0, LONG result = IDOK) {
    FullMode got;
    const DWORD mode = prompt | (wish != nullptr ? DM_IN_BUFFER | DM_OUT_BUFFER : DM_OUT_BUFFER);
    EXPECT_EQ(Properties(printer, &got.mode, wish != nullptr ? &wish->mode : nullptr, mode), result);
    return got;
}

class PrinterModes : public OwnPrinters {
  protected:
    ~PrinterModes() override { HostSetPerson(nullptr, nullptr); }
};

TEST_F(PrinterModes, DefaultOfThePdfPrinter) {
    EXPECT_EQ(Properties("PDF", nullptr, nullptr, 0), LONG{156 + sizeof(HostPdfSettings)});
    const FullMode full = ModeOf("PDF");
    EXPECT_STREQ(reinterpret_cast<const char*>(full.mode.dmDeviceName), "PDF");
    EXPECT_STREQ(reinterpret_cast<const char*>(full.mode.dmFormName), "A4");
    EXPECT_EQ(full.mode.dmFields,
              DM_ORIENTATION | DM_PAPERSIZE | DM_FORMNAME | DM_COLOR | DM_PRINTQUALITY | DM_YRESOLUTION);
    EXPECT_EQ(ChoicesOf(full.mode), (Choices{DMORIENT_PORTRAIT, DMPAPER_A4, 2100, 2970, 1}));
    EXPECT_EQ(std::memcmp(full.extra, "pdf1", 4), 0);
}

// ---- merging ----------------------------------------------------------------------------------------------------

struct Wish {
    int line;
    const char* printer;
    DWORD fields;
    Choices wished, got;
};
constexpr DWORD kSize = DM_PAPERWIDTH | DM_PAPERLENGTH;
constexpr int16_t kCard = TestPrinter::kCard;
// clang-format off
constexpr Wish kWishes[] = {
    {__LINE__, "PDF", 0,                              {2, 8, 0, 0, 9},         {1, 9, 2100, 2970, 1}},  // no field holds
    {__LINE__, "PDF", DM_ORIENTATION,                 {2, 8, 0, 0, 9},         {2, 9, 2100, 2970, 1}},
    {__LINE__, "PDF", DM_ORIENTATION,                 {3, 0, 0, 0, 0},         {1, 9, 2100, 2970, 1}},
    {__LINE__, "PDF", DM_PAPERSIZE,                   {0, 8, 0, 0, 0},         {1, 8, 2970, 4200, 1}},
    {__LINE__, "PDF", DM_PAPERSIZE,                   {0, 77, 0, 0, 0},        {1, 9, 2100, 2970, 1}},  // not offered
    {__LINE__, "PDF", DM_PAPERSIZE | kSize,           {0, 5, 1000, 1000, 0},   {1, 5, 2159, 3556, 1}},  // the id counts
    {__LINE__, "PDF", DM_PAPERSIZE | kSize,           {0, 256, 1000, 1200, 0}, {1, 256, 1000, 1200, 1}},
    {__LINE__, "PDF", DM_PAPERSIZE | kSize,           {0, 256, 99, 1200, 0},   {1, 9, 2100, 2970, 1}},  // too narrow
    {__LINE__, "PDF", DM_PAPERSIZE | kSize,           {0, 256, -900, 1200, 0}, {1, 9, 2100, 2970, 1}},
    {__LINE__, "PDF", DM_PAPERSIZE | DM_PAPERWIDTH,   {0, 256, 1000, 1200, 0}, {1, 9, 2100, 2970, 1}},  // half a size
    {__LINE__, "PDF", kSize,                          {0, 0, 2155, 2800, 0},   {1, 1, 2159, 2794, 1}},  // near Letter
    {__LINE__, "PDF", kSize,                          {0, 0, 30000, 100, 0},   {1, 256, 30000, 100, 1}},
    {__LINE__, "PDF", DM_COPIES,                      {0, 0, 0, 0, 5},         {1, 9, 2100, 2970, 1}},  // makes none itself
    {__LINE__, "Own", DM_COPIES,                      {0, 0, 0, 0, 5},         {1, 9, 2100, 2970, 5}},
    {__LINE__, "Own", DM_COPIES,                      {0, 0, 0, 0, 11},        {1, 9, 2100, 2970, 10}},
    {__LINE__, "Own", DM_COPIES,                      {0, 0, 0, 0, -1},        {1, 9, 2100, 2970, 1}},
    {__LINE__, "Own", DM_PAPERSIZE | DM_ORIENTATION,  {2, kCard, 0, 0, 0},     {2, kCard, 1000, 1500, 1}},
    {__LINE__, "Own", kSize,                          {0, 0, 1234, 1234, 0},   {1, 9, 2100, 2970, 1}},  // no user sizes
};
// clang-format on

TEST_F(PrinterModes, WishesAreMergedIntoTheDefaults) {
    TestPrinter own("Own");
    own.traits.maxCopies = 10;
    own.AddAgain();
    for (const Wish& row : kWishes) {
        const testing::ScopedTrace trace(__FILE__, row.line, row.printer);
        FullMode wish = ModeOf(row.printer);
        DEVMODEA& mode = wish.mode;
        mode.dmFields = row.fields;
        std::tie(mode.dmOrientation, mode.dmPaperSize, mode.dmPaperWidth, mode.dmPaperLength, mode.dmCopies) =
            row.wished;
        const FullMode got = ModeOf(row.printer, &wish);
        EXPECT_EQ(ChoicesOf(got.mode), row.got);
        EXPECT_EQ((got.mode.dmFields & kSize) != 0, got.mode.dmPaperSize == DMPAPER_USER);
        const FullMode again = ModeOf(row.printer, &got);  // what came of wishes is a wish that comes true
        EXPECT_EQ(std::memcmp(&again, &got, sizeof got), 0);
    }
}

TEST_F(PrinterModes, TakesPrivateBytesThatAreTheDriversOwn) {
    FullMode wish = ModeOf("PDF");
    auto* settings = reinterpret_cast<HostPdfSettings*>(wish.extra);
    settings->margins[0] = 1234;
    EXPECT_EQ(std::memcmp(ModeOf("PDF", &wish).extra, wish.extra, sizeof *settings), 0);
    std::memcpy(settings->signature, "cup1", 4);  // another driver's
    EXPECT_EQ(std::memcmp(ModeOf("PDF", &wish).extra, ModeOf("PDF").extra, sizeof *settings), 0);
}

TEST_F(PrinterModes, ReadsNoMoreOfAWishThanItsSize) {
    FullMode wish = ModeOf("PDF");
    wish.mode.dmOrientation = 2;
    wish.mode.dmPaperSize = DMPAPER_A3;
    wish.mode.dmFields = DM_ORIENTATION | DM_PAPERSIZE;
    wish.mode.dmSize = offsetof(DEVMODEA, dmPaperSize);  // of an older record
    EXPECT_EQ(ChoicesOf(ModeOf("PDF", &wish).mode), (Choices{2, DMPAPER_A4, 2100, 2970, 1}));
    wish.mode.dmSize = 0;
    EXPECT_EQ(ChoicesOf(ModeOf("PDF", &wish).mode), (Choices{1, DMPAPER_A4, 2100, 2970, 1}));
}

TEST_F(PrinterModes, RefusesWithoutTheBuffersThatItNeeds) {
    FullMode mode = ModeOf("PDF");
    EXPECT_LT(Properties("PDF", nullptr, nullptr, DM_OUT_BUFFER), 0);
    EXPECT_LT(Properties("PDF", &mode.mode, nullptr, DM_IN_BUFFER | DM_OUT_BUFFER), 0);
    EXPECT_LT(Properties("None such", &mode.mode, nullptr, DM_OUT_BUFFER), 0);
    TestPrinter printer("Refusing");
    printer.properties = -1;
    EXPECT_EQ(Properties("Refusing", nullptr, nullptr, 0), -1);
    EXPECT_EQ(Properties("Refusing", &mode.mode, nullptr, DM_OUT_BUFFER), -1);
}

// ---- the driver's dialog ----------------------------------------------------------------------------------------

struct PersonAtDriver {
    INT answer = IDOK;
    HostRequestKind kind{};
    std::string printer;

    static INT Answer(const HostRequest* request, LPVOID value) {
        auto* self = static_cast<PersonAtDriver*>(value);
        self->kind = request->kind;
        self->printer = request->text;
        auto* mode = static_cast<DEVMODEA*>(request->subject);
        mode->dmOrientation = DMORIENT_LANDSCAPE;
        mode->dmPaperSize = 77;  // offered by nobody
        mode->dmSize = 9;
        return self->answer;
    }
};

TEST_F(PrinterModes, ThePersonChangesSettings) {
    PersonAtDriver person;
    HostSetPerson(PersonAtDriver::Answer, &person);
    FullMode wish = ModeOf("PDF");
    wish.mode.dmPaperSize = DMPAPER_A5;
    const FullMode got = ModeOf("PDF", &wish, DM_IN_PROMPT);
    EXPECT_EQ(person.kind, HOST_REQUEST_DRIVER_SETUP);
    EXPECT_EQ(person.printer, "PDF");
    EXPECT_EQ(ChoicesOf(got.mode), (Choices{DMORIENT_LANDSCAPE, DMPAPER_A4, 2100, 2970, 1}));
    EXPECT_EQ(got.mode.dmSize, 156);
}

TEST_F(PrinterModes, ACancelledDialogChangesNothing) {
    PersonAtDriver person;
    person.answer = IDCANCEL;
    for (const HostPerson callback : {HostPerson{PersonAtDriver::Answer}, HostPerson{nullptr}}) {
        HostSetPerson(callback, &person);
        const FullMode got = ModeOf("PDF", nullptr, DM_IN_PROMPT, IDCANCEL);
        EXPECT_EQ(ChoicesOf(got.mode), (Choices{DMORIENT_PORTRAIT, DMPAPER_A4, 2100, 2970, 1}));
    }
}

// ---- capabilities -----------------------------------------------------------------------------------------------

INT Capability(const char* printer, INT index, void* output = nullptr) {
    return DeviceCapabilitiesA(printer, "FILE:", static_cast<WORD>(index), static_cast<char*>(output), nullptr);
}

TEST_F(PrinterModes, ListsPapers) {
    std::array<WORD, 6> ids{};
    POINT sizes[6] = {};
    char names[6][64] = {};
    EXPECT_EQ(Capability("PDF", DC_PAPERS), 5);
    EXPECT_EQ(Capability("PDF", DC_PAPERS, &ids), 5);
    EXPECT_EQ(Capability("PDF", DC_PAPERSIZE, sizes), 5);
    EXPECT_EQ(Capability("PDF", DC_PAPERNAMES, names), 5);
    EXPECT_EQ(ids, (std::array<WORD, 6>{DMPAPER_A4, DMPAPER_A3, DMPAPER_A5, DMPAPER_LETTER, DMPAPER_LEGAL, 0}));
    EXPECT_EQ(sizes[3].x, 2159);
    EXPECT_EQ(sizes[3].y, 2794);
    EXPECT_EQ(sizes[5].x, 0);
    EXPECT_STREQ(names[4], "Legal");
}

TEST_F(PrinterModes, TellsSingleValues) {
    constexpr INT kRows[][3] = {{DC_SIZE, 156, 156},
                                {DC_EXTRA, sizeof(HostPdfSettings), 0},
                                {DC_COPIES, 1, 10},
                                {DC_COLLATE, 0, 1},
                                {DC_DUPLEX, 0, 1},
                                {DC_COLORDEVICE, 1, 0},
                                {DC_ORIENTATION, 90, 90},
                                {DC_BINS, 1, 1},
                                {DC_ENUMRESOLUTIONS, 1, 1},
                                {99, -1, -1},
                                {DC_MINEXTENT, 2100 << 16 | 1480, 1500 << 16 | 1000},
                                {DC_MAXEXTENT, 4200 << 16 | 2970, 2970 << 16 | 2159}};
    TestPrinter own("Own");
    own.traits.maxCopies = 10;
    own.traits.duplex = TRUE;
    own.AddAgain();
    for (const auto& [index, ofPdf, ofOwn] : kRows) {
        EXPECT_EQ(Capability("PDF", index), ofPdf) << index;
        EXPECT_EQ(Capability("Own", index), ofOwn) << index;
    }
    char bin[25] = {};
    LONG dots[2] = {};
    Capability("PDF", DC_BINNAMES, bin);
    Capability("PDF", DC_ENUMRESOLUTIONS, dots);
    EXPECT_STREQ(bin, "Automatic");
    EXPECT_EQ(dots[1], 600);
    own.capabilities = -1;
    EXPECT_EQ(Capability("Own", DC_PAPERS), -1);
}

TEST_F(PrinterModes, APrinterWithoutPapersNamesNone) {
    TestPrinter bare("Bare");
    bare.traits.paperCount = 0;
    bare.AddAgain();
    EXPECT_EQ(Capability("Bare", DC_PAPERS), 0);
    EXPECT_EQ(Capability("Bare", DC_MAXEXTENT), -1);
    EXPECT_EQ(ModeOf("Bare").mode.dmFields & DM_PAPERSIZE, 0u);
}

}  // namespace
