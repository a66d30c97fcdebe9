// A printer's capabilities, from its traits.
#include <algorithm>
#include <cstring>

#include "device_mode.h"

namespace {

constexpr INT kUnknown = -1;
constexpr INT kLandscapeTurn = 90;
constexpr size_t kPaperNameBytes = 64;
constexpr size_t kBinNameBytes = 24;
constexpr int16_t kBins[] = {DMBIN_AUTO};
constexpr const char* kBinNames[] = {"Automatic"};

INT Count(size_t count) {
    return static_cast<INT>(count);
}

// Writes values one behind the other, wherever they come to lie.
template <class Value>
void Put(const Value& value, char** at) {
    std::memcpy(*at, &value, sizeof value);
    *at += sizeof value;
}

void PutName(const char* name, size_t room, char** at) {
    std::memset(*at, 0, room);
    std::memcpy(*at, name, std::min(std::strlen(name), room));  // a name of the full length has no terminator
    *at += room;
}

void PutPaper(const HostPaper& paper, WORD index, char** at) {
    switch (index) {
        case DC_PAPERS: Put(paper.id, at); break;
        case DC_PAPERSIZE: Put(POINT{paper.width, paper.length}, at); break;
        default: PutName(paper.name, kPaperNameBytes, at); break;
    }
}

INT Papers(const HostPrinterTraits& traits, WORD index, char* output) {
    for (size_t paper = 0; output != nullptr && paper < traits.paperCount; ++paper)
        PutPaper(traits.papers[paper], index, &output);
    return Count(traits.paperCount);
}

INT Bins(WORD index, char* output) {
    for (size_t bin = 0; output != nullptr && bin < std::size(kBins); ++bin) {
        if (index == DC_BINS)
            Put(kBins[bin], &output);
        else
            PutName(kBinNames[bin], kBinNameBytes, &output);
    }
    return Count(std::size(kBins));
}

INT Resolutions(const HostPrinterTraits& traits, char* output) {
    if (output != nullptr) Put(POINT{traits.dpi, traits.dpi}, &output);
    return 1;
}

// The smallest or largest paper, each side by itself: the length above the width.
INT Extent(const HostPrinterTraits& traits, bool isLargest) {
    if (traits.paperCount == 0) return kUnknown;
    int32_t width = traits.papers[0].width;
    int32_t length = traits.papers[0].length;
    for (size_t index = 1; index < traits.paperCount; ++index) {
        const HostPaper& paper = traits.papers[index];
        width = isLargest ? std::max(width, paper.width) : std::min(width, paper.width);
        length = isLargest ? std::max(length, paper.length) : std::min(length, paper.length);
    }
    return static_cast<INT>(static_cast<uint32_t>(length) << 16 | static_cast<uint16_t>(width));
}

INT StandardCapability(const Printer& printer, WORD index, char* output) {
    const HostPrinterTraits& traits = printer.traits;
    switch (index) {
        case DC_PAPERS:
        case DC_PAPERSIZE:
        case DC_PAPERNAMES: return Papers(traits, index, output);
        case DC_BINS:
        case DC_BINNAMES: return Bins(index, output);
        case DC_ENUMRESOLUTIONS: return Resolutions(traits, output);
        case DC_FIELDS: return static_cast<INT>(ModeOf(MergeMode(printer, nullptr))->dmFields);
        case DC_MINEXTENT: return Extent(traits, false);
        case DC_MAXEXTENT: return Extent(traits, true);
        case DC_DUPLEX: return traits.duplex != 0;
        case DC_SIZE: return sizeof(DEVMODEA);
        case DC_EXTRA: return traits.privateSize;
        case DC_VERSION: return DM_SPECVERSION;
        case DC_DRIVER: return ModeOf(MergeMode(printer, nullptr))->dmDriverVersion;
        case DC_ORIENTATION: return kLandscapeTurn;
        case DC_COPIES: return traits.maxCopies;
        case DC_COLLATE: return traits.maxCopies > 1;
        case DC_COLORDEVICE: return traits.color != 0;
        default: return kUnknown;
    }
}

}  // namespace

INT DeviceCapabilitiesA(LPCSTR device, LPCSTR /*port*/, WORD index, LPSTR output, const DEVMODEA* /*mode*/) {
    const PrinterRef printer = FindPrinter(device);
    if (printer == nullptr) return kUnknown;
    if (printer->driver.capabilities != nullptr) {
        const INT result = printer->driver.capabilities(printer->value, index, output);
        if (result != HOST_STANDARD) return result;
    }
    return StandardCapability(*printer, index, output);
}
