// The setup dialog with a scripted person: what goes in, what comes out, what is told to others.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <functional>
#include <string>
#include <vector>

#include "print/device_mode.h"
#include "print/saved_settings.h"
#include "scripted_printer.h"
#include "support/profile.h"

namespace {

using Texts = std::vector<std::string>;
using Step = std::function<void(HWND)>;  // of the person, with the dialog
using Steps = std::vector<Step>;

// Notes the settings changes that all windows are told of.
Texts broadcasts;

LRESULT CALLBACK Listen(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_WININICHANGE) {
        const auto* section = reinterpret_cast<const char*>(lParam);
        broadcasts.emplace_back(section != nullptr ? section : "");
    }
    return DefWindowProcA(window, message, wParam, lParam);
}

// A machine with four printers, of which "One" is the default and the caller's.
class SetupScene {
  public:
    SetupScene() {
        WNDCLASSA listener{};
        listener.lpfnWndProc = Listen;
        listener.lpszClassName = "SetupListener";
        RegisterClassA(&listener);
        window_ = CreateWindowExA(0, "SetupListener", "", 0, 0, 0, 9, 9, nullptr, nullptr, nullptr, nullptr);
        broadcasts.clear();
        HostSetPerson(Answer, this);
    }
    ~SetupScene() {
        HostSetPerson(nullptr, nullptr);
        DestroyWindow(window_);
        if (mode != nullptr) GlobalFree(mode);
        PrtClearSaved();
    }
    SetupScene(const SetupScene&) = delete;
    SetupScene& operator=(const SetupScene&) = delete;

    void TakeDefaultMode() { mode = PrintGetDevMode(0, device, driver, port, 0); }

    // Shows the dialog; the person acts step by step.
    int32_t Show(Steps steps, int32_t hideNone = 0, HINSTANCE instance = nullptr, uint32_t message = 0) {
        steps_ = std::move(steps);
        step_ = 0;
        return PrintPrinterSetupExt(window_, &mode, device, driver, port, "text", hideNone, instance, message);
    }
    std::string Choice() const { return std::string(device) + "," + driver + "," + port; }

    char device[PRINT_NAME_SIZE] = "One";
    char driver[PRINT_NAME_SIZE] = "Script";
    char port[PRINT_NAME_SIZE] = "A:";
    HGLOBAL mode = nullptr;
    INT driverDialog = IDOK;  // what the driver's own dialog ends with; in any case it is given a landscape
    std::string boxText;

  private:
    static INT Answer(const HostRequest* request, LPVOID value) {
        auto* setup = static_cast<SetupScene*>(value);
        if (request->kind == HOST_REQUEST_MESSAGE_BOX) {
            setup->boxText = std::string(request->caption) + ": " + request->text;
            return IDOK;
        }
        if (request->kind == HOST_REQUEST_DRIVER_SETUP) {
            static_cast<DEVMODEA*>(request->subject)->dmOrientation = DMORIENT_LANDSCAPE;
            return setup->driverDialog;
        }
        if (setup->step_ >= setup->steps_.size()) return HOST_PERSON_LEFT;
        setup->steps_[setup->step_++](request->window);
        return HOST_PERSON_ACTED;
    }
    const ScriptedPrinter printers_[4] = {ScriptedPrinter("One", "A:"), ScriptedPrinter("Two", "B: C:"),
                                          ScriptedPrinter("Unused", "None"), ScriptedPrinter("Lamp on desk", "D:")};
    const TestProfile profile_{{{"windows", "device", "One,Script,A:"}}};
    HWND window_;
    Steps steps_;
    size_t step_ = 0;
};

// The lines of the list, the selected one with a star.
Texts Entries(HWND dialog) {
    Texts entries;
    const LRESULT count = SendDlgItemMessageA(dialog, 900, LB_GETCOUNT, 0, 0);
    for (LRESULT i = 0; i < count; ++i) {
        char entry[600] = {};
        SendDlgItemMessageA(dialog, 900, LB_GETTEXT, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(entry));
        const bool selected = SendDlgItemMessageA(dialog, 900, LB_GETCURSEL, 0, 0) == i;
        entries.push_back(std::string(entry) + (selected ? "*" : ""));
    }
    return entries;
}

Step Choose(const std::string& entry, BOOL doubleClick = FALSE) {
    return [=](HWND dialog) {
        const Texts entries = Entries(dialog);
        const auto at = std::find(entries.begin(), entries.end(), entry);
        ASSERT_NE(at, entries.end()) << entry;
        HostChooseEntry(dialog, 900, static_cast<INT>(at - entries.begin()), doubleClick);
    };
}

Step Press(INT id) {
    return [id](HWND dialog) { EXPECT_TRUE(HostPressButton(dialog, id)); };
}

// Looks whether the list has a selected line, and the driver's dialog can be had.
Step ExpectSelected(bool selected, bool canSetUp) {
    return [=](HWND dialog) {
        EXPECT_EQ(SendDlgItemMessageA(dialog, 900, LB_GETCURSEL, 0, 0) >= 0, selected);
        EXPECT_EQ(IsWindowEnabled(GetDlgItem(dialog, 4)) != FALSE, canSetUp);
    };
}

std::string DeviceLine() {
    char line[200] = {};
    GetProfileStringA("windows", "device", "", line, sizeof line);
    return line;
}

struct PrinterSetup : testing::Test, SetupScene {};

TEST_F(PrinterSetup, ListsAPrinterOncePerPort) {
    for (const int32_t hideNone : {0, 1}) {
        Texts entries;
        Show({[&](HWND dialog) { entries = Entries(dialog); }, ExpectSelected(true, true), Press(IDCANCEL)}, hideNone);
        for (const char* entry : {"One on A:*", "Two on B:", "Two on C:", "Unused on None"}) {
            const bool isHidden = hideNone != 0 && std::strcmp(entry, "Unused on None") == 0;
            EXPECT_EQ(std::count(entries.begin(), entries.end(), entry), isHidden ? 0 : 1) << entry;
        }
    }
}

struct ChoiceCase {
    int line;
    bool hasMode;  // the caller has a device mode
    Steps steps;
    int32_t result;
    const char* choice;
    Texts told;
};

TEST(PrinterSetups, EndWithTheChoice) {
    constexpr char kOne[] = "One,Script,A:";
    constexpr char kTwo[] = "Two,Script,B: C:";  // the whole port field
    const ChoiceCase kChoices[] = {
        {__LINE__, true, {Press(IDOK)}, 0, kOne, {}},  // an OK that changes nothing is a cancel
        {__LINE__, true, {Press(IDCANCEL)}, 0, kOne, {}},
        {__LINE__, false, {Press(IDOK)}, 1, kOne, {"windows"}},  // there is nothing to compare
        {__LINE__, false, {Press(IDCANCEL)}, 0, kOne, {"windows"}},
        {__LINE__, true, {Choose("Two on C:"), Press(IDOK)}, 1, kTwo, {"", "windows"}},
        {__LINE__, false, {Choose("Two on B:", TRUE)}, 1, kTwo, {"", "windows"}},        // a double click is an OK
        {__LINE__, true, {Choose("Two on B:"), Press(IDCANCEL)}, 0, kOne, {"windows"}},  // the texts differ
        {__LINE__,
         true,
         {Choose("Lamp on desk on D:"), ExpectSelected(true, false), Press(IDCANCEL)},
         0,
         kOne,
         {"windows"}},
    };
    for (const ChoiceCase& c : kChoices) {
        const testing::ScopedTrace row(__FILE__, c.line, c.choice);
        SetupScene setup;
        if (c.hasMode) setup.TakeDefaultMode();
        HGLOBAL before = setup.mode;
        EXPECT_EQ(setup.Show(c.steps), c.result);
        EXPECT_EQ(setup.Choice(), c.choice);
        EXPECT_EQ(DeviceLine(), c.choice);
        EXPECT_EQ(setup.mode, setup.Choice() == kOne ? before : nullptr);  // it belonged to the printer before
        EXPECT_EQ(broadcasts, c.told);
        EXPECT_EQ(PrtLoadSaved("One", "Script", "A:"), nullptr);
    }
}

int OrientationOf(HGLOBAL block) {
    const PrintLocked<DEVMODEA> mode(block);
    return mode->dmOrientation;
}

TEST(PrinterSetups, TakeWhatTheDriversDialogGives) {
    const HostString strings[] = {{500, "Settings changed"}};
    HostModule module = {"strings", nullptr, strings, 1, nullptr, 0, nullptr};
    for (HINSTANCE instance : {HINSTANCE{nullptr}, HINSTANCE{&module}}) {
        SetupScene setup;
        setup.TakeDefaultMode();
        HGLOBAL before = setup.mode;
        EXPECT_EQ(setup.Show({Press(4), Press(IDOK)}, 0, instance, 500), 1);
        EXPECT_EQ(setup.boxText, instance != nullptr ? "Printer Setup: Settings changed" : "");
        EXPECT_NE(setup.mode, before);
        EXPECT_EQ(broadcasts, Texts{"windows"});
        EXPECT_EQ(DeviceLine(), "One,Script,A:");
        EXPECT_EQ(OrientationOf(setup.mode), DMORIENT_LANDSCAPE);
        HGLOBAL saved = PrintGetDevMode(0, "One", "Script", "A:", 0);
        EXPECT_EQ(OrientationOf(saved), DMORIENT_LANDSCAPE);
        GlobalFree(saved);
    }
}

TEST_F(PrinterSetup, ADriversDialogThatIsCancelledChangesNothing) {
    TakeDefaultMode();
    driverDialog = IDCANCEL;
    EXPECT_EQ(Show({Press(4), Press(IDOK)}), 0);
}

TEST_F(PrinterSetup, WithoutACurrentPrinterNothingIsSelected) {
    device[0] = driver[0] = port[0] = '\0';
    EXPECT_EQ(Show({ExpectSelected(false, false), Press(IDCANCEL)}), 0);
}

std::vector<int32_t> calledWith;

void MORVL_CALL NoteCall(int32_t one, int32_t number) {
    calledWith.insert(calledWith.end(), {one, number});
}

TEST_F(PrinterSetup, CallsBack) {
    calledWith.clear();
    Show({[](HWND dialog) {
        SendMessageA(dialog, PRINT_CALL_BACK, 0, 0);  // there is nobody to call
        SendMessageA(dialog, PRINT_CALL_BACK, 0, reinterpret_cast<LPARAM>(NoteCall));
    }});
    EXPECT_EQ(calledWith, (std::vector<int32_t>{1, 170}));
}

struct MessageCase {
    UINT message;
    WPARAM wParam;
    LPARAM lParam;
    intptr_t answer;
};

// A window that the dialog's procedure has been put on, and that was never set up.
TEST(PrinterSetups, AnswerWhereTheyHaveNotBeenSetUp) {
    const MessageCase cases[] = {
        {WM_INITDIALOG, 0, 0, 0},     {WM_COMMAND, MAKEWPARAM(900, LBN_SELCHANGE), 0, 1},
        {WM_COMMAND, IDOK, 0, 1},     {WM_COMMAND, MAKEWPARAM(900, LBN_DBLCLK), 0, 1},
        {WM_COMMAND, IDCANCEL, 0, 1}, {PRINT_CALL_BACK, 0, reinterpret_cast<LPARAM>(NoteCall), 1},
        {WM_COMMAND, 4, 0, 1},        {WM_COMMAND, 5, 0, 0},
        {PRINT_CALL_BACK, 0, 0, 1},   {WM_DESTROY, 0, 0, 1},
        {WM_CLOSE, 0, 0, 0},
    };
    const ScriptedJob anywhere{ScriptedPrinter()};
    calledWith.clear();
    for (const MessageCase& c : cases) {
        EXPECT_EQ(PrintPrinterSetupDlgProc(anywhere.owner, c.message, c.wParam, c.lParam), c.answer)
            << c.message << " " << c.wParam;
    }
    EXPECT_EQ(calledWith, (std::vector<int32_t>{1, 170}));
}

TEST(PrinterSetups, SurviveEachFailingAllocation) {
    bool failed = true;
    for (uint32_t n = 1; failed && n < 2000; ++n) {
        SetupScene setup;
        setup.TakeDefaultMode();
        HostFailAllocation(n);
        setup.Show({[](HWND dialog) { HostChooseEntry(dialog, 900, 1, FALSE); },
                    [](HWND dialog) { HostPressButton(dialog, 4); },
                    [](HWND dialog) { HostPressButton(dialog, IDOK); }});
        failed = HostAllocationFailed() != 0;
        HostFailAllocation(0);
    }
    EXPECT_FALSE(failed);
}

TEST(PrintCanDoPrinterSetup, WantsAPrinterThatOpens) {
    const ScriptedPrinter printer;
    EXPECT_EQ(PrintCanDoPrinterSetup("any", "Scripted"), 1);
    EXPECT_EQ(PrintCanDoPrinterSetup("Script", "Nobody"), 0);
}

}  // namespace
