// A specimen sheet of the machine's faces: each in its own letters, by name, with its kind, printed over as many pages
// as it takes.
//
//     fonts [--pdf FILE.pdf] [SAMPLE]
//
// Without --pdf it is printed on the system's default printer. On Windows the same program prints through the system's
// spooler; --pdf is for the native host, whose printer "PDF" writes the file named by its port.
#include <cstring>
#include <iostream>
#include <string>
#include <vector>

#include <morvl15/font.h>
#include <morvl15/print.h>

#include "../drawing/selected.h"

namespace {

// All in thousandths of an inch, y growing upward from the paper's upper edge.
constexpr int32_t kMargin = 750;
constexpr int32_t kHead = 1400;
constexpr int32_t kRow = 560;
constexpr int32_t kCaption = 110;
constexpr int32_t kSample = 260;

struct Specimen {
    std::string sample = "Hamburgefonstiv 0123456789";
    std::vector<FonMetricsRecord> faces;
    int32_t width = 0;
    size_t rows = 1;   // a page
    size_t first = 0;  // the first face of the page
};

void Write(HDC dc, int32_t x, int32_t y, const std::string& text) {
    TextOutA(dc, x, y, text.data(), static_cast<INT>(text.size()));
}

// The font of captions, and a face at the height of samples.
HFONT CaptionFont(int32_t height) {
    LOGFONTA font = {};
    font.lfHeight = -height;
    font.lfPitchAndFamily = VARIABLE_PITCH | FF_SWISS;
    return CreateFontIndirectA(&font);
}

HFONT SampleFont(const FonMetricsRecord& face) {
    LOGFONTA font = face.logFont;
    font.lfHeight = -kSample;
    font.lfWidth = 0;
    return CreateFontIndirectA(&font);
}

std::string CaptionOf(const FonMetricsRecord& face) {
    std::string caption = face.logFont.lfFaceName;
    caption += (face.logFont.lfPitchAndFamily & 3) == FIXED_PITCH ? ", fixed pitch" : "";
    switch (face.logFont.lfPitchAndFamily & 0xF0) {
        case FF_ROMAN: return caption + ", serifs";
        case FF_SWISS: return caption + ", no serifs";
        case FF_SCRIPT: return caption + ", script";
        case FF_DECORATIVE: return caption + ", decorative";
        default: return caption;
    }
}

void DrawHead(HDC dc, const Specimen& specimen) {
    const Selected font(dc, CaptionFont(300));
    const size_t page = specimen.first / specimen.rows + 1;
    Write(dc, kMargin, -kMargin, "Faces, page " + std::to_string(page));
    MoveToEx(dc, kMargin, -kHead + 120, nullptr);
    LineTo(dc, specimen.width - kMargin, -kHead + 120);
}

void DrawFace(HDC dc, const Specimen& specimen, const FonMetricsRecord& face, int32_t top) {
    {
        const Selected font(dc, CaptionFont(kCaption));
        SetTextColor(dc, RGB(110, 110, 110));
        Write(dc, kMargin, top, CaptionOf(face));
    }
    const Selected font(dc, SampleFont(face));
    SetTextColor(dc, RGB(0, 0, 0));
    SetTextAlign(dc, TA_LEFT | TA_BASELINE);
    Write(dc, kMargin, top - kCaption - kSample - 40, specimen.sample);
    SetTextAlign(dc, TA_LEFT | TA_TOP);
}

int32_t MORVL_CALL DrawPage(HDC dc, int32_t /*command*/, const RECT* /*band*/, uintptr_t value, int32_t /*zero1*/,
                            int32_t /*zero2*/, int32_t /*zero3*/) {
    const auto& specimen = *reinterpret_cast<const Specimen*>(value);
    SetBkMode(dc, TRANSPARENT);
    DrawHead(dc, specimen);
    for (size_t row = 0; row < specimen.rows && specimen.first + row < specimen.faces.size(); ++row) {
        DrawFace(dc, specimen, specimen.faces[specimen.first + row], -kHead - static_cast<int32_t>(row) * kRow);
    }
    return 1;
}

int32_t MORVL_CALL NextPage(uintptr_t value) {
    auto& specimen = *reinterpret_cast<Specimen*>(value);
    specimen.first += specimen.rows;
    return specimen.first < specimen.faces.size() ? 1 : 0;
}

std::vector<FonMetricsRecord> FacesOf(HDC dc) {
    std::vector<FonMetricsRecord> faces;
    const HGLOBAL block = FonGetFontFaceMetrics(dc);
    if (block == nullptr) return faces;
    const auto* bytes = static_cast<const char*>(GlobalLock(block));
    int16_t count = 0;
    std::memcpy(&count, bytes, sizeof count);
    faces.resize(static_cast<size_t>(count));
    std::memcpy(faces.data(), bytes + sizeof count, faces.size() * sizeof(FonMetricsRecord));
    GlobalUnlock(block);
    GlobalFree(block);
    return faces;
}

// Reads the faces and the paper of the printer that a job names; false when it can't be had.
bool LayOut(Specimen& specimen, const PrintJobRec& job, int32_t* height) {
    HDC dc = CreateICA(job.driverName, job.deviceName, job.portName, nullptr);
    if (dc == nullptr) return false;
    specimen.faces = FacesOf(dc);
    specimen.width = MulDiv(GetDeviceCaps(dc, PHYSICALWIDTH), 1000, GetDeviceCaps(dc, LOGPIXELSX));
    *height = MulDiv(GetDeviceCaps(dc, PHYSICALHEIGHT), 1000, GetDeviceCaps(dc, LOGPIXELSY));
    DeleteDC(dc);
    const int32_t room = *height - kHead - kMargin;
    specimen.rows = room > kRow ? static_cast<size_t>(room / kRow) : 1;
    return true;
}

bool ChoosePrinter(PrintJobRec& job, const std::string& pdf) {
    if (pdf.empty()) return PrintGetDefaultPrinter(job.deviceName, job.driverName, job.portName) != 0;
    const std::string port = "FILE:" + pdf;
    if (port.size() >= sizeof job.portName) return false;
    std::strcpy(job.deviceName, "PDF");
    std::strcpy(job.driverName, "PDF");
    std::strcpy(job.portName, port.c_str());
    return true;
}

}  // namespace

int main(int argc, char** argv) {
    Specimen specimen;
    std::string pdf;
    for (int i = 1; i < argc; ++i) {
        if (std::strcmp(argv[i], "--pdf") == 0 && i + 1 < argc) {
            pdf = argv[++i];
        } else {
            specimen.sample = argv[i];
        }
    }
    char title[] = "Faces";
    PageRecord record = {};
    int32_t height = 0;
    record.job.title = title;
    record.job.documentName = title;
    record.job.flags = PRINT_NO_DIALOG;
    if (!ChoosePrinter(record.job, pdf) || !LayOut(specimen, record.job, &height)) {
        std::cerr << "fonts: no printer\n";
        return 1;
    }
    record.copies = 1;
    record.docWidth = specimen.width;
    record.docHeight = height;
    record.renderHook = DrawPage;
    record.nextPageHook = NextPage;
    record.hookValue = reinterpret_cast<uintptr_t>(&specimen);
    HWND owner = CreateWindowExA(0, "STATIC", title, WS_POPUP, 0, 0, 0, 0, nullptr, nullptr, nullptr, nullptr);
    PagePrint(owner, &record);
    DestroyWindow(owner);
    if (record.job.status != PRINT_FINISHED) {
        std::cerr << "fonts: not printed, status " << record.job.status << '\n';
        return 1;
    }
    std::cout << specimen.faces.size() << " faces\n";
    return 0;
}
