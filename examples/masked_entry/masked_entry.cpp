// Masked entry in a terminal: a few fields, each kept in the shape of its mask at every key.
//
//     masked_entry
//
// Type; arrows, Home, End, Delete and Backspace work, with Shift, Home and End select; Tab goes on to the next field;
// Enter ends and prints what was entered, without the masks.
//
// It shows how a widget of one's own is plugged in: LineField below is a window class that answers the messages of an
// edit control from a line buffer. Nothing in it knows of masks. The hook in front of it passes every message through
// FMTValidateInput, as an application hooks the control of its own toolkit.
#include <termios.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

#include <morvl15/host_native.h>
#include <morvl15/mask.h>

namespace {

// ---- a line buffer that answers an edit control's messages ---------------------------------------------------------

struct LineField {
    std::string text;
    size_t start = 0;
    size_t end = 0;

    void Select(size_t from, size_t to) {
        start = std::min(from, text.size());
        end = std::min(to, text.size());
    }
    void Replace(const char* insertion) {
        text.replace(start, end - start, insertion);
        start = end = start + std::strlen(insertion);
    }
    void MoveLeft() { start = end = start > 0 ? start - 1 : 0; }
    void MoveRight() { Select(end + 1, end + 1); }
};

constexpr char kLineClass[] = "LineField";

LRESULT CALLBACK LineProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    auto* line = reinterpret_cast<LineField*>(GetWindowLongPtrA(window, 0));
    if (message == WM_NCCREATE) {
        SetWindowLongPtrA(window, 0, reinterpret_cast<LONG_PTR>(new LineField));
        return 1;
    }
    switch (message) {
        case WM_NCDESTROY: delete line; return 0;
        case WM_SETTEXT:
            line->text = reinterpret_cast<const char*>(lParam);
            line->Select(0, 0);
            return 1;
        case WM_GETTEXTLENGTH: return static_cast<LRESULT>(line->text.size());
        case WM_GETTEXT: {
            const size_t length = line->text.copy(reinterpret_cast<char*>(lParam), wParam - 1);
            reinterpret_cast<char*>(lParam)[length] = 0;
            return static_cast<LRESULT>(length);
        }
        case EM_GETSEL: return MAKELPARAM(line->start, line->end);
        case EM_SETSEL: line->Select(wParam, static_cast<size_t>(lParam)); return 1;
        case EM_REPLACESEL: line->Replace(reinterpret_cast<const char*>(lParam)); return 1;
        case WM_KEYDOWN:
            if (wParam == VK_LEFT) line->MoveLeft();
            if (wParam == VK_RIGHT) line->MoveRight();
            return 0;
        default: return DefWindowProcA(window, message, wParam, lParam);
    }
}

// ---- the form
// --------------------------------------------------------------------------------------------------------

struct FormField {
    const char* label;
    const char* picture;
    HWND window = nullptr;
    WNDPROC control = nullptr;  // what stands behind the hook
};

std::vector<FormField> form = {
    {"Telephone", "(999) 999-9999"},
    {"Part number", "AA-9999-N"},
    {"Date", "9999-99-99"},
    {"Remark", "!XX*"},
};

// The application's hook: every message goes through the mask first.
LRESULT CALLBACK MaskHook(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    const auto* field = reinterpret_cast<const FormField*>(GetWindowLongPtrA(window, GWLP_USERDATA));
    FMTCntlBlock block{};
    FMTInitCntlBlock(&block);
    block.Picture = field->picture;
    block.Window = window;
    block.Message = message;
    block.WParam = wParam;
    block.LParam = lParam;
    if (FMTValidateInput(&block)) return block.Result;
    return CallWindowProcA(field->control, window, message, wParam, lParam);
}

void MakeForm() {
    WNDCLASSA lineClass{};
    lineClass.lpszClassName = kLineClass;
    lineClass.lpfnWndProc = LineProcedure;
    lineClass.cbWndExtra = sizeof(LONG_PTR);
    RegisterClassA(&lineClass);
    for (FormField& field : form) {
        field.window = CreateWindowExA(0, kLineClass, "", 0, 0, 0, 0, 0, nullptr, nullptr, nullptr, nullptr);
        SetWindowLongPtrA(field.window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(&field));
        field.control = reinterpret_cast<WNDPROC>(
            SetWindowLongPtrA(field.window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&MaskHook)));
    }
}

std::string TextOf(HWND window) {
    std::string text(static_cast<size_t>(GetWindowTextLengthA(window)) + 1, '\0');
    GetWindowTextA(window, text.data(), static_cast<INT>(text.size()));
    text.pop_back();
    return text;
}

std::string Unmasked(const FormField& field) {
    const std::string text = TextOf(field.window);
    std::string plain(text.size() + 1, '\0');
    FMTCntlBlock block{};
    FMTInitCntlBlock(&block);
    block.Picture = field.picture;
    block.Input = text.c_str();
    block.Output = plain.data();
    if (!FMTUnmaskInput(&block)) return "(doesn't fit the mask)";
    return plain.c_str();
}

// ---- the terminal
// -----------------------------------------------------------------------------------------------------

class RawTerminal {
  public:
    RawTerminal() {
        tcgetattr(STDIN_FILENO, &before_);
        termios raw = before_;
        cfmakeraw(&raw);
        tcsetattr(STDIN_FILENO, TCSANOW, &raw);
    }
    ~RawTerminal() { tcsetattr(STDIN_FILENO, TCSANOW, &before_); }
    RawTerminal(const RawTerminal&) = delete;
    RawTerminal& operator=(const RawTerminal&) = delete;

  private:
    termios before_{};
};

constexpr int kFirstRow = 3;
constexpr int kTextColumn = 16;

void Draw(size_t current) {
    std::printf("\x1b[H\x1b[2J\x1b[1;1HMasked entry: Tab next field, Enter done");
    for (size_t i = 0; i < form.size(); ++i) {
        const int row = kFirstRow + static_cast<int>(i);
        std::printf("\x1b[%d;1H%s %-12s %s\x1b[%d;44H%s", row, i == current ? ">" : " ", form[i].label,
                    TextOf(form[i].window).c_str(), row, form[i].picture);
    }
    const int below = kFirstRow + static_cast<int>(form.size()) + 1;
    std::printf("\x1b[%d;1Hunmasked: \"%s\"", below, Unmasked(form[current]).c_str());
    const auto caret = HIWORD(SendMessageA(form[current].window, EM_GETSEL, 0, 0));
    std::printf("\x1b[%d;%dH", kFirstRow + static_cast<int>(current), kTextColumn + caret);
    if (HostTakeBeeps() > 0) std::putchar('\a');
    std::fflush(stdout);
}

struct KeySequence {
    std::string_view bytes;
    int key;
    bool shift;
};

// What terminals send for the keys of the keyboard.
constexpr KeySequence kSequences[] = {
    {"\x1b[D", VK_LEFT, false},    {"\x1b[C", VK_RIGHT, false},  {"\x1b[H", VK_HOME, false},
    {"\x1b[1~", VK_HOME, false},   {"\x1b[F", VK_END, false},    {"\x1b[4~", VK_END, false},
    {"\x1b[3~", VK_DELETE, false}, {"\x1b[1;2H", VK_HOME, true}, {"\x1b[1;2F", VK_END, true},
};

void Press(HWND window, const KeySequence& sequence) {
    BYTE keys[256] = {};
    keys[VK_SHIFT] = sequence.shift ? 0x80 : 0;
    SetKeyboardState(keys);
    SendMessageA(window, WM_KEYDOWN, static_cast<WPARAM>(sequence.key), 1);
}

// Takes an escape sequence off the input; one that is no key of ours is dropped whole.
void TakeSequence(HWND window, std::string& input) {
    for (const KeySequence& sequence : kSequences) {
        if (!input.starts_with(sequence.bytes)) continue;
        Press(window, sequence);
        input.erase(0, sequence.bytes.size());
        return;
    }
    const size_t end = input.find_first_not_of("0123456789;", 2);
    input.erase(0, end == std::string::npos ? input.size() : end + 1);
}

// Gives the bytes that were typed to the fields. False when the form is done.
bool TakeInput(std::string& input, size_t& current) {
    while (!input.empty()) {
        const auto byte = static_cast<unsigned char>(input.front());
        if (byte == 0x1B && input.size() > 1) {
            TakeSequence(form[current].window, input);
            continue;
        }
        input.erase(0, 1);
        if (byte == '\r' || byte == 0x03 || byte == 0x04) return false;
        if (byte == '\t') {
            current = (current + 1) % form.size();
        } else if (byte != 0x1B) {
            SendMessageA(form[current].window, WM_CHAR, byte == 0x7F ? VK_BACK : byte, 1);
        }
    }
    return true;
}

void RunForm() {
    const RawTerminal raw;
    std::string input;
    size_t current = 0;
    char bytes[256];
    for (;;) {
        Draw(current);
        const ssize_t count = read(STDIN_FILENO, bytes, sizeof bytes);
        if (count <= 0) return;
        input.append(bytes, static_cast<size_t>(count));
        if (!TakeInput(input, current)) return;
    }
}

}  // namespace

int main() {
    if (!isatty(STDIN_FILENO) || !isatty(STDOUT_FILENO)) {
        std::fputs("masked_entry: start it in a terminal\n", stderr);
        return 2;
    }
    MakeForm();
    RunForm();
    std::printf("\x1b[H\x1b[2J");
    for (const FormField& field : form) std::printf("%-12s %s\n", field.label, Unmasked(field).c_str());
    for (const FormField& field : form) DestroyWindow(field.window);
    return 0;
}
