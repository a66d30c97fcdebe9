// The poster of examples/poster, printed page after page, beside the same drawing made with cairo alone on a PDF file of
// the same sheets. Both draw the whole poster for each sheet and leave it to the clip to cut.
#include <benchmark/benchmark.h>

#include <cairo-pdf.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <cstring>
#include <string>

#include <morvl15/print.h>

#include "../examples/poster/drawing.h"

namespace {

using Clock = std::chrono::steady_clock;

constexpr Poster kPoster = {24000, 18000, "morvl15"};
constexpr int kSheets = 6;  // of A4, three across
constexpr int kAcross = 3;
constexpr double kPaperWidth = 8268;  // thousandths of an inch
constexpr double kPaperHeight = 11693;

std::string FilePath() {
    return "/tmp/morvl15-print-bench-" + std::to_string(getpid()) + ".pdf";
}

// A print of so many sheets, and when the first of them was done.
struct Run {
    int64_t sheets;
    int64_t drawn = 0;
    Clock::time_point start = Clock::now();
    Clock::duration first{};

    void NoteSheet() {
        if (drawn++ == 1) first = Clock::now() - start;
    }
};

// ---- the library ------------------------------------------------------------------------------------------------

int32_t MORVL_CALL DrawSheet(HDC dc, int32_t command, const RECT* band, uintptr_t value, int32_t /*zero1*/,
                             int32_t /*zero2*/, int32_t /*zero3*/) {
    reinterpret_cast<Run*>(value)->NoteSheet();
    return DrawPoster(dc, command, band, reinterpret_cast<uintptr_t>(&kPoster), 0, 0, 0);
}

int32_t MORVL_CALL NextPoster(uintptr_t value) {
    const auto* run = reinterpret_cast<const Run*>(value);
    return run->drawn < run->sheets ? 1 : 0;
}

bool PrintSheets(Run* run) {
    PageRecord record = {};
    record.docWidth = kPoster.width;
    record.docHeight = kPoster.height;
    record.spanA = 1;
    record.renderHook = DrawSheet;
    record.nextPageHook = NextPoster;
    record.hookValue = reinterpret_cast<uintptr_t>(run);
    record.job.flags = PRINT_NO_DIALOG;
    std::strcpy(record.job.deviceName, "PDF");
    std::strcpy(record.job.driverName, "PDF");
    std::strcpy(record.job.portName, ("FILE:" + FilePath()).c_str());
    HWND owner = CreateWindowExA(0, "STATIC", "", WS_POPUP, 0, 0, 0, 0, nullptr, nullptr, nullptr, nullptr);
    PagePrint(owner, &record);
    DestroyWindow(owner);
    return record.job.status == PRINT_FINISHED && run->drawn == run->sheets;
}

// ---- cairo alone ------------------------------------------------------------------------------------------------

void SetColor(cairo_t* cairo, int red, int green, int blue) {
    cairo_set_source_rgb(cairo, red / 255.0, green / 255.0, blue / 255.0);
}

void Line(cairo_t* cairo, double x1, double y1, double x2, double y2) {
    cairo_move_to(cairo, x1, y1);
    cairo_line_to(cairo, x2, y2);
    cairo_stroke(cairo);
}

void Label(cairo_t* cairo, double x, double y, int inches) {
    cairo_move_to(cairo, x, y + 130);
    cairo_show_text(cairo, std::to_string(inches).c_str());
}

void DrawGridAlone(cairo_t* cairo) {
    cairo_set_line_width(cairo, 10);
    cairo_select_font_face(cairo, "DejaVu Sans", CAIRO_FONT_SLANT_NORMAL, CAIRO_FONT_WEIGHT_NORMAL);
    cairo_set_font_size(cairo, 140);
    for (int x = 1000; x < kPoster.width; x += 1000) {
        SetColor(cairo, 200, 196, 180);
        Line(cairo, x, 0, x, kPoster.height);
        SetColor(cairo, 30, 50, 90);
        Label(cairo, x + 30, 30, x / 1000);
    }
    for (int y = 1000; y < kPoster.height; y += 1000) {
        SetColor(cairo, 200, 196, 180);
        Line(cairo, 0, y, kPoster.width, y);
        SetColor(cairo, 30, 50, 90);
        Label(cairo, 30, y + 30, y / 1000);
    }
}

void DrawRingsAlone(cairo_t* cairo) {
    constexpr int kColors[][3] = {{178, 34, 52}, {236, 135, 14}, {70, 130, 80}, {40, 90, 160}};
    const double largest = kPoster.height * 0.45;
    double radius = largest;
    cairo_set_line_width(cairo, largest / 12);
    for (const auto& color : kColors) {
        SetColor(cairo, color[0], color[1], color[2]);
        cairo_arc(cairo, kPoster.width / 2.0, kPoster.height / 2.0, radius, 0, 6.283185307179586);
        cairo_stroke(cairo);
        radius -= largest / 5;
    }
    SetColor(cairo, 30, 50, 90);
    cairo_set_line_width(cairo, 40);
    Line(cairo, 0, 0, kPoster.width, kPoster.height);
    Line(cairo, kPoster.width, 0, 0, kPoster.height);
}

void DrawTitleAlone(cairo_t* cairo) {
    cairo_select_font_face(cairo, "DejaVu Sans", CAIRO_FONT_SLANT_NORMAL, CAIRO_FONT_WEIGHT_BOLD);
    cairo_set_font_size(cairo, kPoster.height / 9.0);
    cairo_text_extents_t extents;
    cairo_text_extents(cairo, kPoster.title, &extents);
    cairo_move_to(cairo, (kPoster.width - extents.x_advance) / 2, kPoster.height * 11.0 / 20);
    cairo_show_text(cairo, kPoster.title);
}

void DrawPosterAlone(cairo_t* cairo) {
    cairo_set_line_join(cairo, CAIRO_LINE_JOIN_ROUND);
    cairo_set_line_cap(cairo, CAIRO_LINE_CAP_ROUND);
    SetColor(cairo, 250, 244, 228);
    cairo_rectangle(cairo, 0, 0, kPoster.width, kPoster.height);
    cairo_fill(cairo);
    DrawGridAlone(cairo);
    DrawRingsAlone(cairo);
    DrawTitleAlone(cairo);
    SetColor(cairo, 30, 50, 90);
    cairo_set_line_width(cairo, 60);
    cairo_rectangle(cairo, 100, 100, kPoster.width - 200, kPoster.height - 200);
    cairo_stroke(cairo);
}

bool PrintSheetsAlone(Run* run) {
    constexpr double kPoints = 72.0 / 1000;
    cairo_surface_t* surface =
        cairo_pdf_surface_create(FilePath().c_str(), kPaperWidth * kPoints, kPaperHeight * kPoints);
    while (run->drawn < run->sheets) {
        const auto tile = static_cast<int>(run->drawn % kSheets);
        const int column = tile % kAcross;
        const int row = tile / kAcross;
        run->NoteSheet();
        cairo_t* cairo = cairo_create(surface);
        cairo_scale(cairo, kPoints, kPoints);
        cairo_rectangle(cairo, 0, 0, kPaperWidth, kPaperHeight);
        cairo_clip(cairo);
        cairo_translate(cairo, -kPaperWidth * column, -kPaperHeight * row);
        DrawPosterAlone(cairo);
        cairo_destroy(cairo);
        cairo_surface_show_page(surface);
    }
    cairo_surface_finish(surface);
    const bool isGood = cairo_surface_status(surface) == CAIRO_STATUS_SUCCESS;
    cairo_surface_destroy(surface);
    return isGood;
}

// ---- measuring --------------------------------------------------------------------------------------------------

double Milliseconds(Clock::duration time) {
    return std::chrono::duration<double, std::milli>(time).count();
}

struct Figures {
    double firstSheet = 0;  // milliseconds
    double peak = 0;        // the most memory that the process has had, in kilobytes
};

// A print in a process of its own, which has to find its fonts first. All zero when it didn't come to its end.
Figures PrintApart(bool (*print)(Run*), int64_t sheets) {
    int ends[2] = {};
    if (pipe(ends) != 0) return {};
    const pid_t child = fork();
    if (child == 0) {
        Run run = {sheets};
        const bool isPrinted = print(&run);
        std::remove(FilePath().c_str());
        const double first = Milliseconds(run.first);
        _exit(isPrinted && write(ends[1], &first, sizeof first) == sizeof first ? 0 : 1);
    }
    close(ends[1]);
    Figures figures;
    const bool isTold = read(ends[0], &figures.firstSheet, sizeof figures.firstSheet) == sizeof figures.firstSheet;
    close(ends[0]);
    int status = 1;
    rusage usage = {};
    if (child < 0 || wait4(child, &status, 0, &usage) != child || status != 0 || !isTold) return {};
    figures.peak = static_cast<double>(usage.ru_maxrss);
    return figures;
}

void Measure(benchmark::State& state, bool (*print)(Run*)) {
    double first = 0;
    for (auto _ : state) {
        Run run = {state.range(0)};
        if (!print(&run)) state.SkipWithError("not printed");
        first += Milliseconds(run.first);
    }
    std::remove(FilePath().c_str());
    state.SetItemsProcessed(state.iterations() * state.range(0));
    state.counters["first_ms"] = benchmark::Counter(first, benchmark::Counter::kAvgIterations);
}

void MeasureApart(benchmark::State& state, bool (*print)(Run*)) {
    Figures figures;
    for (auto _ : state) figures = PrintApart(print, state.range(0));
    state.counters["peak_kB"] = figures.peak;
    state.counters["first_ms"] = figures.firstSheet;
    if (figures.peak == 0) state.SkipWithError("not printed");
}

void Sheets(benchmark::State& state) {
    Measure(state, PrintSheets);
}
void SheetsByCairoAlone(benchmark::State& state) {
    Measure(state, PrintSheetsAlone);
}
void Apart(benchmark::State& state) {
    MeasureApart(state, PrintSheets);
}
void ApartByCairoAlone(benchmark::State& state) {
    MeasureApart(state, PrintSheetsAlone);
}

// Before all others: a process that has printed hands its fonts on to its children.
BENCHMARK(Apart)->Arg(12)->Arg(102)->Arg(1002)->Iterations(1);
BENCHMARK(ApartByCairoAlone)->Arg(12)->Arg(102)->Arg(1002)->Iterations(1);
BENCHMARK(Sheets)->Arg(6)->Arg(60)->Arg(600)->Unit(benchmark::kMillisecond);
BENCHMARK(SheetsByCairoAlone)->Arg(6)->Arg(60)->Arg(600)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
