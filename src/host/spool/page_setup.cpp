// The page-setup service: the default printer and its settings.
#include <atomic>
#include <cstring>
#include <utility>

#include "device_mode.h"

namespace {

thread_local DWORD extendedError = 0;
std::atomic<DWORD> failure = 0;

BOOL Fail(DWORD error) {
    extendedError = error;
    return FALSE;
}

// A movable block of its own with those bytes; null when there is no memory.
HGLOBAL BlockOf(const std::string& bytes) {
    HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE, bytes.size());
    if (block == nullptr) return nullptr;
    std::memcpy(GlobalLock(block), bytes.data(), bytes.size());
    GlobalUnlock(block);
    return block;
}

// A DEVNAMES record with its texts.
std::string NamesOf(const Printer& printer, const std::string& port) {
    DEVNAMES names{};
    std::string bytes(sizeof names, 0);
    const auto put = [&bytes](const std::string& text) {
        const auto offset = static_cast<WORD>(bytes.size());
        bytes.append(text.c_str(), text.size() + 1);
        return offset;
    };
    names.wDriverOffset = put(printer.driverName);
    names.wDeviceOffset = put(printer.name);
    names.wOutputOffset = put(port.empty() ? printer.port : port);
    names.wDefault = DN_DEFAULTPRN;
    std::memcpy(bytes.data(), &names, sizeof names);
    return bytes;
}

void TellPaper(const HostPaper& paper, bool isLandscape, LPPAGESETUPDLGA setup) {
    constexpr LONG kHundredths = 10;  // in a tenth of a millimetre
    setup->ptPaperSize = {paper.width * kHundredths, paper.length * kHundredths};
    setup->rtMinMargin = paper.margins;
    if (!isLandscape) return;
    std::swap(setup->ptPaperSize.x, setup->ptPaperSize.y);
    const RECT& upright = paper.margins;
    setup->rtMinMargin = {upright.top, upright.right, upright.bottom, upright.left};
}

}  // namespace

BOOL PageSetupDlgA(LPPAGESETUPDLGA setup) {
    extendedError = 0;
    if (setup == nullptr) return Fail(CDERR_INITIALIZATION);
    if (setup->lStructSize != sizeof *setup) return Fail(CDERR_STRUCTSIZE);
    if (failure != 0) return Fail(failure);
    if ((setup->Flags & PSD_RETURNDEFAULT) == 0) return Fail(CDERR_INITIALIZATION);
    if (setup->hDevMode != nullptr || setup->hDevNames != nullptr) return Fail(PDERR_RETDEFFAILURE);
    std::string port;
    const PrinterRef printer = FindDefaultPrinter(&port);
    if (printer == nullptr) return Fail(PDERR_NODEFAULTPRN);
    ModeBytes mode = DriverMode(*printer, nullptr);
    if (mode.empty()) mode = MergeMode(*printer, nullptr);
    HGLOBAL names = BlockOf(NamesOf(*printer, port));
    HGLOBAL modeBlock = names != nullptr ? BlockOf(mode) : nullptr;
    if (modeBlock == nullptr) {
        if (names != nullptr) GlobalFree(names);
        return Fail(CDERR_MEMALLOCFAILURE);
    }
    setup->hDevNames = names;
    setup->hDevMode = modeBlock;
    const DEVMODEA& settings = *ModeOf(mode);
    TellPaper(PaperOfMode(*printer, settings), settings.dmOrientation == DMORIENT_LANDSCAPE, setup);
    return TRUE;
}

DWORD CommDlgExtendedError() {
    return extendedError;
}

void HostFailPageSetup(DWORD error) {
    failure = error;
}
