// The printer store: handles, descriptions, the default printer, printers that come and go.
#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

#include "support/profile.h"
#include "support/test_printer.h"

namespace {

using PrinterStore = OwnPrinters;

TEST_F(PrinterStore, DescribesThePdfPrinter) {
    HANDLE printer = OpenPrinter("pdf");
    ASSERT_NE(printer, nullptr);
    const std::vector<BYTE> block = Describe(printer);
    const PRINTER_INFO_2A& info = *InfosOf(block);
    EXPECT_STREQ(info.pPrinterName, "PDF");
    EXPECT_STREQ(info.pDriverName, "PDF");
    EXPECT_STREQ(info.pPortName, "FILE:");
    EXPECT_STREQ(info.pDatatype, "RAW");
    EXPECT_EQ(info.Attributes, PRINTER_ATTRIBUTE_LOCAL | PRINTER_ATTRIBUTE_DEFAULT);
    ASSERT_NE(info.pDevMode, nullptr);
    EXPECT_EQ(info.pDevMode->dmSize, 156);
    EXPECT_EQ(info.pDevMode->dmPaperSize, DMPAPER_A4);
    EXPECT_TRUE(ClosePrinter(printer));
    EXPECT_FALSE(ClosePrinter(printer));
}

TEST_F(PrinterStore, KeepsABlockThatIsTooSmallAsItWas) {
    HANDLE printer = OpenPrinter("PDF");
    DWORD needed = 0;
    GetPrinterA(printer, 2, nullptr, 0, &needed);
    std::vector<BYTE> block(needed, 0xEE);
    EXPECT_FALSE(GetPrinterA(printer, 2, block.data(), needed - 1, &needed));
    EXPECT_EQ(block, std::vector<BYTE>(block.size(), 0xEE));
    EXPECT_FALSE(GetPrinterA(printer, 1, block.data(), needed, &needed));
    EXPECT_EQ(GetLastError(), ERROR_INVALID_LEVEL);
    ClosePrinter(printer);
}

TEST_F(PrinterStore, RefusesWhatIsNoPrinter) {
    for (const char* name : {static_cast<const char*>(nullptr), "", "PDF2", "PDF,FILE:"}) {
        SetLastError(0);
        EXPECT_EQ(OpenPrinter(name), nullptr);
        EXPECT_EQ(GetLastError(), ERROR_INVALID_PRINTER_NAME);
    }
    DWORD needed;
    HANDLE mutex = CreateMutexA(nullptr, FALSE, nullptr);
    EXPECT_FALSE(GetPrinterA(mutex, 2, nullptr, 0, &needed));
    EXPECT_EQ(GetLastError(), ERROR_INVALID_HANDLE);
    EXPECT_FALSE(ClosePrinter(mutex));
    CloseHandle(mutex);
}

TEST_F(PrinterStore, ListsThePrintersOfTheKindsAskedFor) {
    TestPrinter first("First");
    TestPrinter second("Second", "None");
    DWORD needed = 1;
    DWORD returned = 1;
    EXPECT_TRUE(EnumPrintersA(PRINTER_ENUM_CONNECTIONS, nullptr, 2, nullptr, 0, &needed, &returned));
    EXPECT_EQ(needed, 0u);
    EXPECT_EQ(returned, 0u);
    const DWORD kinds = PRINTER_ENUM_LOCAL | PRINTER_ENUM_CONNECTIONS;
    EXPECT_FALSE(EnumPrintersA(kinds, nullptr, 2, nullptr, 0, &needed, &returned));
    EXPECT_EQ(GetLastError(), ERROR_INSUFFICIENT_BUFFER);
    std::vector<BYTE> block(needed);
    ASSERT_TRUE(EnumPrintersA(kinds, nullptr, 2, block.data(), needed, &needed, &returned));
    ASSERT_EQ(returned, 3u);
    const PRINTER_INFO_2A* infos = InfosOf(block);
    EXPECT_STREQ(infos[0].pPrinterName, "PDF");
    EXPECT_STREQ(infos[1].pPrinterName, "First");
    EXPECT_STREQ(infos[2].pPortName, "None");
    EXPECT_STREQ(infos[2].pDriverName, "Test");
    EXPECT_EQ(infos[2].Attributes, PRINTER_ATTRIBUTE_LOCAL);
    EXPECT_FALSE(EnumPrintersA(kinds, nullptr, 5, nullptr, 0, &needed, &returned));
}

TEST_F(PrinterStore, ForgetsAPrinterThatHasGoneBetweenTwoCalls) {
    HANDLE handle = nullptr;
    {
        TestPrinter printer("Fleeting");
        handle = OpenPrinter("Fleeting");
        ASSERT_NE(handle, nullptr);
        Describe(handle);
    }
    DWORD needed;
    EXPECT_FALSE(GetPrinterA(handle, 2, nullptr, 0, &needed));
    EXPECT_EQ(GetLastError(), ERROR_INVALID_PRINTER_NAME);
    EXPECT_LT(DocumentPropertiesA(nullptr, handle, nullptr, nullptr, nullptr, 0), 0);
    EXPECT_LT(DeviceCapabilitiesA("Fleeting", nullptr, DC_PAPERS, nullptr, nullptr), 0);
    EXPECT_TRUE(ClosePrinter(handle));
}

TEST_F(PrinterStore, TakesOnlyPrintersThatCanBeNamed) {
    const HostPrinterDriver driver = TestPrinter::Driver();
    const HostPrinterTraits traits{};
    const std::string longest(255, 'p');
    for (const std::string& name : {std::string("A,B"), std::string(), std::string("pdf"), std::string(256, 'p')})
        EXPECT_FALSE(HostAddPrinter(name.c_str(), "LPT1:", &driver, &traits, nullptr)) << name;
    EXPECT_FALSE(HostAddPrinter("A", "LPT1:", nullptr, &traits, nullptr));
    EXPECT_FALSE(HostRemovePrinter("PDF"));
    EXPECT_FALSE(HostRemovePrinter(nullptr));
    EXPECT_TRUE(HostAddPrinter(longest.c_str(), "LPT1:", &driver, &traits, nullptr));
    EXPECT_TRUE(HostRemovePrinter(longest.c_str()));
}

TEST_F(PrinterStore, TellsADeviceModeOnlyWhereThereIsOne) {
    TestPrinter printer("Mute");
    HANDLE handle = OpenPrinter("Mute");
    printer.properties = -1;  // the driver tells none: the host's stands in the description
    EXPECT_NE(InfosOf(Describe(handle))->pDevMode, nullptr);
    printer.traits.noDescriptionMode = TRUE;
    printer.AddAgain();
    EXPECT_EQ(InfosOf(Describe(handle))->pDevMode, nullptr);
    ClosePrinter(handle);
}

// ---- the default printer ----------------------------------------------------------------------------------------

TEST_F(PrinterStore, FindsTheDefaultPrinter) {
    constexpr const char* kRows[][4] = {
        // device line, device, driver, port
        {"", "PDF", "PDF", "FILE:"},
        {"Other,Test,LPT7:", "Other", "Test", "LPT7:"},
        {" Other , x , FILE:/tmp/a b.pdf ", "Other", "Test", "FILE:/tmp/a b.pdf"},
        {"other", "Other", "Test", "LPT1:"},
        {"Gone,Test,LPT7:", "PDF", "PDF", "FILE:"},
    };
    TestPrinter other("Other");
    for (const auto& [deviceLine, device, driver, port] : kRows) {
        const TestProfile profile({{"windows", "device", deviceLine}});
        PAGESETUPDLGA setup{};
        setup.lStructSize = sizeof setup;
        setup.Flags = PSD_RETURNDEFAULT;
        ASSERT_TRUE(PageSetupDlgA(&setup)) << deviceLine;
        EXPECT_EQ(CommDlgExtendedError(), 0u);
        EXPECT_LE(GlobalSize(setup.hDevNames), 780u);
        const char* block = static_cast<const char*>(GlobalLock(setup.hDevNames));
        DEVNAMES names;
        std::memcpy(&names, block, sizeof names);
        EXPECT_STREQ(block + names.wDeviceOffset, device);
        EXPECT_STREQ(block + names.wDriverOffset, driver) << deviceLine;
        EXPECT_STREQ(block + names.wOutputOffset, port) << deviceLine;
        const auto* mode = static_cast<const DEVMODEA*>(GlobalLock(setup.hDevMode));
        EXPECT_STREQ(reinterpret_cast<const char*>(mode->dmDeviceName), device);
        EXPECT_EQ(GlobalSize(setup.hDevMode), size_t{mode->dmSize} + mode->dmDriverExtra);
        GlobalFree(setup.hDevMode);
        GlobalFree(setup.hDevNames);
    }
}

TEST_F(PrinterStore, PageSetupTellsWhyItFails) {
    const auto errorOf = [](DWORD size, DWORD flags) {
        PAGESETUPDLGA setup{};
        setup.lStructSize = size;
        setup.Flags = flags;
        EXPECT_FALSE(PageSetupDlgA(&setup));
        EXPECT_EQ(setup.hDevMode, nullptr);
        EXPECT_EQ(setup.hDevNames, nullptr);
        return CommDlgExtendedError();
    };
    constexpr DWORD kSize = sizeof(PAGESETUPDLGA);
    EXPECT_EQ(errorOf(kSize - 1, PSD_RETURNDEFAULT), CDERR_STRUCTSIZE);
    EXPECT_EQ(errorOf(kSize, 0), CDERR_INITIALIZATION);
    HostFailPageSetup(PDERR_NODEFAULTPRN);
    EXPECT_EQ(errorOf(kSize, PSD_RETURNDEFAULT), PDERR_NODEFAULTPRN);
    HostFailPageSetup(0);
    for (uint32_t n = 1; n <= 4; ++n) {  // two blocks, each with its record
        HostFailAllocation(n);
        EXPECT_EQ(errorOf(kSize, PSD_RETURNDEFAULT), CDERR_MEMALLOCFAILURE);
    }
    HostFailAllocation(0);
}

}  // namespace
