// Pages are laid out in thousandths of an inch, y growing upward from the paper's upper edge. Texts are drawn in the code
// page in force.
#include "pages.h"

#include <algorithm>
#include <cstring>
#include <iterator>
#include <optional>
#include <string>

#include <morvl15/print.h>

#include "../drawing/selected.h"
#include "encoding.h"

namespace {

constexpr int32_t kMargin = 600;
constexpr int32_t kRow = 200;
constexpr int32_t kHead = 1350;  // title and heads, from the paper's edge
constexpr int32_t kDateWidth = 1000;
constexpr int32_t kAmountWidth = 1600;

constexpr COLORREF kInk = RGB(30, 30, 40);
constexpr COLORREF kDebit = RGB(165, 30, 30);
constexpr COLORREF kQuiet = RGB(110, 110, 120);
constexpr COLORREF kBand = RGB(240, 244, 240);
constexpr COLORREF kRule = RGB(34, 140, 90);

// A line of the statement: of the ledger, of the totals behind it, or of neither where there is but a text.
struct Line {
    std::string text;
    const DatDef* date = nullptr;
    const Number* amount = nullptr;
    bool isTotal = false;
};

struct Document {
    std::vector<Line> lines;
    Number average{};
    int32_t width = 0;
    int32_t height = 0;
    size_t rows = 1;   // a page
    size_t first = 0;  // the page's first line
    bool (*isInterrupted)() = nullptr;

    size_t Page() const { return first / rows + 1; }
    size_t Pages() const { return std::max<size_t>(1, (lines.size() + rows - 1) / rows); }
};

// ---- drawing ----------------------------------------------------------------------------------------------------

// UTF-8 in the code page in force; nothing where that doesn't hold it all.
std::optional<std::string> Encode(const std::string& utf8) {
    static Converter converter("UTF-8", ("CP" + std::to_string(GetACP())).c_str());
    return converter.Convert(utf8);
}

// The same with "?" for each character that the code page doesn't hold.
std::string Encoded(const std::string& utf8) {
    if (const auto whole = Encode(utf8)) return *whole;
    std::string text;
    for (size_t at = 0; at < utf8.size();) {
        size_t end = at + 1;
        while (end < utf8.size() && (static_cast<unsigned char>(utf8[end]) & 0xC0) == 0x80) ++end;
        text += Encode(utf8.substr(at, end - at)).value_or("?");
        at = end;
    }
    return text;
}

HFONT MakeFont(int32_t height, int32_t weight) {
    LOGFONTA font = {};
    font.lfHeight = -height;
    font.lfWeight = weight;
    font.lfCharSet = DEFAULT_CHARSET;
    font.lfPitchAndFamily = VARIABLE_PITCH | FF_SWISS;
    return CreateFontIndirectA(&font);
}

// Texts stand on their base line. One on the left is cut off where its column ends.
void WriteLeft(HDC dc, int32_t left, int32_t base, int32_t width, const std::string& utf8) {
    const std::string text = Encoded(utf8);
    const RECT column = {left, 0, left + width, base - kRow};
    SetTextAlign(dc, TA_LEFT | TA_BASELINE);
    ExtTextOutA(dc, left, base, ETO_CLIPPED, &column, text.data(), static_cast<UINT>(text.size()), nullptr);
}

void WriteRight(HDC dc, int32_t right, int32_t base, const std::string& utf8) {
    const std::string text = Encoded(utf8);
    SetTextAlign(dc, TA_RIGHT | TA_BASELINE);
    TextOutA(dc, right, base, text.data(), static_cast<INT>(text.size()));
}

void DrawBand(HDC dc, const Document& document, int32_t top, int32_t height, COLORREF color) {
    HBRUSH brush = CreateSolidBrush(color);
    const RECT band = {kMargin, top, document.width - kMargin, top - height};
    FillRect(dc, &band, brush);
    DeleteObject(brush);
}

// Where the n-th convention's amounts end.
int32_t RightOf(const Document& document, size_t convention) {
    const auto behind = static_cast<int32_t>(std::size(kConventions) - 1 - convention);
    return document.width - kMargin - 60 - behind * (kDateWidth + kAmountWidth);
}

void DrawHead(HDC dc, const Document& document) {
    SetTextColor(dc, kInk);
    {
        const Selected font(dc, MakeFont(260, FW_BOLD));
        WriteLeft(dc, kMargin, -kMargin - 240, document.width, "Statement");
    }
    const Selected font(dc, MakeFont(130, FW_BOLD));
    WriteLeft(dc, kMargin + 60, -kHead + 130, kDateWidth, "Text");
    for (size_t i = 0; i < std::size(kConventions); ++i) {
        WriteRight(dc, RightOf(document, i), -kHead + 130, kConventions[i].name);
    }
    DrawBand(dc, document, -kHead + 40, 15, kRule);
    SetTextColor(dc, kQuiet);
    WriteRight(dc, document.width - kMargin - 60, -kMargin - 240,
               "Page " + std::to_string(document.Page()) + " of " + std::to_string(document.Pages()));
}

bool IsBelowZero(const Number& amount) {
    Number zero{};
    NumLongToNumber(&zero, 0);
    return NumCompare(&amount, &zero) < 0;
}

void DrawFigures(HDC dc, const Document& document, const Line& line, int32_t base) {
    for (size_t i = 0; i < std::size(kConventions); ++i) {
        const Convention& convention = kConventions[i];
        const int32_t right = RightOf(document, i);
        SetTextColor(dc, kQuiet);
        if (line.date != nullptr) WriteRight(dc, right - kAmountWidth, base, ShowDate(*line.date, convention));
        SetTextColor(dc, IsBelowZero(*line.amount) ? kDebit : kInk);
        WriteRight(dc, right, base, ShowAmount(*line.amount, convention));
    }
}

void DrawRow(HDC dc, const Document& document, const Line& line, int32_t top) {
    const Selected font(dc, MakeFont(120, line.isTotal ? FW_BOLD : FW_NORMAL));
    const int32_t textRight = RightOf(document, 0) - kDateWidth - kAmountWidth;
    const int32_t base = top - 140;
    const bool hasFigures = line.amount != nullptr;
    SetTextColor(dc, kInk);
    WriteLeft(dc, kMargin + 60, base, hasFigures ? textRight - kMargin : document.width, line.text);
    if (hasFigures) DrawFigures(dc, document, line, base);
}

int32_t MORVL_CALL DrawPage(HDC dc, int32_t /*command*/, const RECT* /*band*/, uintptr_t value, int32_t /*zero1*/,
                            int32_t /*zero2*/, int32_t /*zero3*/) {
    auto& document = *reinterpret_cast<Document*>(value);
    if (document.isInterrupted()) PrintAbort(dc);
    SetBkMode(dc, TRANSPARENT);
    DrawHead(dc, document);
    for (size_t row = 0; row < document.rows && document.first + row < document.lines.size(); ++row) {
        const Line& line = document.lines[document.first + row];
        const int32_t top = -kHead - static_cast<int32_t>(row) * kRow;
        if (line.date != nullptr && row % 2 == 0) DrawBand(dc, document, top, kRow, kBand);
        DrawRow(dc, document, line, top);
    }
    return 1;
}

int32_t MORVL_CALL NextPage(uintptr_t value) {
    auto& document = *reinterpret_cast<Document*>(value);
    document.first += document.rows;
    return document.first < document.lines.size() ? 1 : 0;
}

// ---- the document -----------------------------------------------------------------------------------------------

// A date in a convention's long form; in the short one where the code page in force can't hold that.
std::string PeriodDate(const DatDef& date, const Convention& convention) {
    const std::string shown = ShowLongDate(date, convention);
    return Encode(shown) ? shown : ShowDate(date, convention);
}

void AddTotals(const Totals& totals, Document* document) {
    std::vector<Line>& lines = document->lines;
    lines.push_back({});
    lines.push_back({"Sum of " + std::to_string(totals.count) + " amounts", nullptr, &totals.sum, true});
    if (totals.count == 0) return;
    document->average = totals.Average();
    lines.push_back({"Average", nullptr, &document->average, true});
    lines.push_back({"Largest", nullptr, &totals.largest, true});
    lines.push_back({});
    for (const Convention& convention : kConventions) {
        lines.push_back(
            {"From " + PeriodDate(totals.first, convention) + " to " + PeriodDate(totals.last, convention)});
    }
}

// Adds the totals behind the ledger's lines, and on a page of their own where they would be torn.
void AddLines(const Statement& statement, Document* document) {
    for (const Entry& entry : statement.entries) document->lines.push_back({entry.text, &entry.date, &entry.amount});
    const size_t before = document->lines.size();
    AddTotals(statement.totals, document);
    const size_t left = document->rows - before % document->rows;
    const size_t added = document->lines.size() - before;
    if (added > left && added <= document->rows) {
        document->lines.insert(document->lines.begin() + static_cast<ptrdiff_t>(before), left, Line());
    }
}

bool NamePrinter(const char* pdf, PrintJobRec* job) {
    const std::string port = std::string("FILE:") + pdf;
    if (port.size() >= sizeof job->portName) return false;
    std::strcpy(job->deviceName, "PDF");
    std::strcpy(job->driverName, "PDF");
    std::strcpy(job->portName, port.c_str());
    return true;
}

// The paper of a printer with the job's settings.
bool ReadPaper(const PrintJobRec& job, Document* document) {
    HDC dc = CreateICA(job.driverName, job.deviceName, job.portName, job.deviceMode);
    if (dc == nullptr) return false;
    document->width = MulDiv(GetDeviceCaps(dc, PHYSICALWIDTH), 1000, GetDeviceCaps(dc, LOGPIXELSX));
    document->height = MulDiv(GetDeviceCaps(dc, PHYSICALHEIGHT), 1000, GetDeviceCaps(dc, LOGPIXELSY));
    DeleteDC(dc);
    const int32_t room = document->height - kHead - kMargin;
    document->rows = static_cast<size_t>(std::max(1, room / kRow));
    return true;
}

void PrintDocument(PageRecord* record, Document* document) {
    record->copies = 1;
    record->docWidth = document->width;
    record->docHeight = document->height;
    record->renderHook = DrawPage;
    record->nextPageHook = NextPage;
    record->hookValue = reinterpret_cast<uintptr_t>(document);
    HWND owner = CreateWindowExA(0, "STATIC", "", WS_POPUP, 0, 0, 0, 0, nullptr, nullptr, nullptr, nullptr);
    PagePrint(owner, record);
    DestroyWindow(owner);
}

const char* OutcomeOf(uint16_t status) {
    constexpr const char* kOutcomes[] = {
        nullptr,         "cancelled",         "no window", "the file can't be written",
        "out of memory", "out of disk space", "stopped",   "printing failed",
    };
    return kOutcomes[status];
}

}  // namespace

const char* PrintPages(const Statement& statement, const char* pdf, bool (*isInterrupted)()) {
    Document document;
    document.isInterrupted = isInterrupted;
    PageRecord record = {};
    record.job.title = "Statement";
    record.job.documentName = "Statement";
    record.job.line1 = "Printing the statement";
    if (!NamePrinter(pdf, &record.job)) return "the file's name is too long";
    HGLOBAL mode = PrintGetDevMode(1, record.job.deviceName, record.job.driverName, record.job.portName, 0);
    if (mode == nullptr) return "no printer";
    record.job.deviceMode = static_cast<DEVMODEA*>(GlobalLock(mode));
    record.job.status = PRINT_NOT_STARTED;
    if (ReadPaper(record.job, &document)) {
        AddLines(statement, &document);
        PrintDocument(&record, &document);
    }
    GlobalUnlock(mode);
    GlobalFree(mode);
    return OutcomeOf(record.job.status);
}
