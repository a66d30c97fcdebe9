// A search pattern told from a name, lengths on the screen, a message from the string table.
#include <morvl15/dialog.h>
#include <morvl15/intl.h>

namespace {

constexpr int32_t kTextSize = 200;
constexpr int32_t kTitleSize = 40;
constexpr int32_t kMessageSize = 1024;  // as much as a formatted text can have

// Thousandths to whole ones, halves away from zero.
int32_t RoundThousandths(int64_t thousandths) {
    return static_cast<int32_t>((thousandths + (thousandths < 0 ? -500 : 500)) / 1000);
}

}  // namespace

int32_t MORVL_CALL DlgSearchSpec(const char* text) {
    if (text == nullptr) return 0;
    return IntlStrChr(text, '*') != nullptr || IntlStrChr(text, '?') != nullptr ? 1 : 0;
}

int32_t MORVL_CALL DlgGetScreenPixels(int32_t thousandths, int32_t vertical) {
    const HDC screen = CreateICA("DISPLAY", nullptr, nullptr, nullptr);
    const int64_t pixelsPerInch = GetDeviceCaps(screen, vertical != 0 ? LOGPIXELSY : LOGPIXELSX);
    DeleteDC(screen);
    return RoundThousandths(pixelsPerInch * thousandths);
}

int32_t MORVL_CALL DlgMessageBoxString(HINSTANCE instance, HWND owner, uint32_t textId, uint32_t titleId,
                                       intptr_t argument, uint32_t style) {
    char format[kTextSize] = {};
    char title[kTitleSize] = {};
    char message[kMessageSize];
    LoadStringA(instance, textId, format, kTextSize);
    LoadStringA(instance, titleId, title, kTitleSize);
    wsprintfA(message, format, argument);
    return MessageBoxA(owner, message, title, style);
}
