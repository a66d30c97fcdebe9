// Masks: texts masked and unmasked, and keys in a field.
#include <benchmark/benchmark.h>

#include <morvl15/mask.h>

namespace {

constexpr char kPhone[] = "(999) 999-9999";

void MaskText(benchmark::State& state) {
    char out[sizeof kPhone];
    for (auto _ : state) {
        FMTMaskText("5551234567", out, kPhone);
        benchmark::DoNotOptimize(out);
    }
}
BENCHMARK(MaskText);

void UnmaskInput(benchmark::State& state) {
    char out[sizeof kPhone];
    FMTCntlBlock block{};
    block.Input = "(555) 123-4567";
    block.Output = out;
    block.Picture = kPhone;
    for (auto _ : state) {
        FMTUnmaskInput(&block);
        benchmark::DoNotOptimize(out);
    }
}
BENCHMARK(UnmaskInput);

WNDPROC control;

LRESULT CALLBACK Hook(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    FMTCntlBlock block{};
    FMTInitCntlBlock(&block);
    block.Picture = kPhone;
    block.Window = window;
    block.Message = message;
    block.WParam = wParam;
    block.LParam = lParam;
    if (FMTValidateInput(&block)) return block.Result;
    return CallWindowProcA(control, window, message, wParam, lParam);
}

// A key in the middle of a field that is nearly full, and a backspace that takes it away again: the dearest keys, since
// the rest of the text is masked anew.
void KeyInsideAField(benchmark::State& state) {
    HWND edit = CreateWindowExA(0, "EDIT", "", 0, 0, 0, 0, 0, nullptr, nullptr, nullptr, nullptr);
    SetWindowTextA(edit, "(555) 123-456");
    SendMessageA(edit, EM_SETSEL, 3, 3);
    control = reinterpret_cast<WNDPROC>(SetWindowLongPtrA(edit, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&Hook)));
    for (auto _ : state) {
        SendMessageA(edit, WM_CHAR, '9', 1);
        SendMessageA(edit, WM_CHAR, VK_BACK, 1);
    }
    state.SetItemsProcessed(2 * state.iterations());
    DestroyWindow(edit);
}
BENCHMARK(KeyInsideAField);

}  // namespace

BENCHMARK_MAIN();
