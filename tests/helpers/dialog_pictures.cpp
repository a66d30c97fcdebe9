// Shows the dialogs of printing, one after the other, and writes a picture of each: dialog_pictures.exe FOLDER
#include <cstdio>
#include <string>
#include <vector>

#include <morvl15/print.h>

namespace {

std::string folder;

// The pixels of a picture, as red, green and blue, row by row from the top.
std::vector<char> PixelsOf(HDC dc, HBITMAP bitmap, LONG width, LONG height) {
    BITMAPINFO info = {};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = width;
    info.bmiHeader.biHeight = -height;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    std::vector<char> quads(static_cast<size_t>(width) * static_cast<size_t>(height) * 4);
    GetDIBits(dc, bitmap, 0, static_cast<UINT>(height), quads.data(), &info, DIB_RGB_COLORS);
    std::vector<char> pixels;
    for (size_t i = 0; i < quads.size(); i += 4) pixels.insert(pixels.end(), {quads[i + 2], quads[i + 1], quads[i]});
    return pixels;
}

void WritePicture(const std::string& path, const std::vector<char>& pixels, int width, int height) {
    FILE* file = std::fopen(path.c_str(), "wb");
    if (file == nullptr) return;
    std::fprintf(file, "P6\n%d %d\n255\n", width, height);
    std::fwrite(pixels.data(), 1, pixels.size(), file);
    std::fclose(file);
}

void TakePicture(HWND window, const char* name) {
    RECT place = {};
    GetWindowRect(window, &place);
    const int width = place.right - place.left;
    const int height = place.bottom - place.top;
    RedrawWindow(window, nullptr, nullptr, RDW_UPDATENOW | RDW_INVALIDATE | RDW_FRAME | RDW_ALLCHILDREN);
    HDC screen = GetWindowDC(window);
    HDC memory = CreateCompatibleDC(screen);
    HBITMAP bitmap = CreateCompatibleBitmap(screen, width, height);
    HGDIOBJ before = SelectObject(memory, bitmap);
    BitBlt(memory, 0, 0, width, height, screen, 0, 0, SRCCOPY);
    SelectObject(memory, before);
    WritePicture(folder + "/" + name + ".ppm", PixelsOf(memory, bitmap, width, height), width, height);
    DeleteObject(bitmap);
    DeleteDC(memory);
    ReleaseDC(window, screen);
}

HWND abortDialog = nullptr;

void MORVL_CALL KeepDialog(HWND dialog) {
    abortDialog = dialog;
}

int32_t MORVL_CALL Draw(HDC /*dc*/, int32_t, const RECT*, uintptr_t, int32_t, int32_t, int32_t) {
    TakePicture(abortDialog, "print-abort-dialog");
    return 1;
}

void CALLBACK TakeSetup(HWND, UINT, UINT_PTR timer, DWORD) {
    HWND dialog = FindWindowA("#32770", "Printer Setup");
    if (dialog == nullptr) return;
    KillTimer(nullptr, timer);
    TakePicture(dialog, "printer-setup");
    SendMessageA(dialog, WM_COMMAND, IDCANCEL, 0);
}

}  // namespace

int main(int argc, char** argv) {
    folder = argc > 1 ? argv[1] : ".";
    HWND owner =
        CreateWindowExA(0, "STATIC", "", WS_POPUP | WS_VISIBLE, 0, 0, 640, 480, nullptr, nullptr, nullptr, nullptr);
    PageRecord record = {};
    PrintJobRec& job = record.job;
    record.docWidth = 8000;
    record.docHeight = 11000;
    record.renderHook = Draw;
    job.title = "Ledger";
    job.documentName = "March";
    job.line1 = "Statement of March";
    job.line2 = "12 accounts";
    job.dialogOpenHook = KeepDialog;
    PrintGetDefaultPrinter(job.deviceName, job.driverName, job.portName);
    PagePrint(owner, &record);
    SetTimer(nullptr, 0, 200, TakeSetup);
    PrintPrinterSetup(owner, nullptr, job.deviceName, job.driverName, job.portName, "");
    DestroyWindow(owner);
}
