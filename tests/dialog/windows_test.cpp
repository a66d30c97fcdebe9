// The windows of an application, the middle of a window, wizards.
#include <gtest/gtest.h>

#include <thread>
#include <vector>

#include <morvl15/dialog.h>

#include "dialog/windows.h"

namespace {

// ---- disabling and enabling -------------------------------------------------------------------------------------

size_t CountDisabled(const std::vector<TestWindow>& windows) {
    size_t count = 0;
    for (const TestWindow& window : windows) count += IsWindowEnabled(window) ? 0 : 1;
    return count;
}

TEST(EnableAllWindows, DisablesFiftyAtMost) {
    std::vector<TestWindow> windows;
    for (int i = 0; i < 60; ++i) windows.push_back(MakeFrame());
    const HGLOBAL saved = DlgEnableAllWindows(gLibInstance, nullptr, 0, nullptr);
    ASSERT_NE(saved, nullptr);
    EXPECT_GE(GlobalSize(saved), 50 * sizeof(HWND));
    EXPECT_EQ(CountDisabled(windows), 50u);
    EXPECT_EQ(DlgEnableAllWindows(gLibInstance, nullptr, 1, saved), nullptr);
    EXPECT_EQ(CountDisabled(windows), 0u);
}

TEST(EnableAllWindows, LeavesTheOthersAlone) {
    const TestWindow plain = MakeFrame();
    const TestWindow disabled = MakeFrame();
    const TestWindow except = MakeFrame();
    const TestWindow foreign(
        CreateWindowExA(0, "STATIC", "", WS_POPUP, 0, 0, 9, 9, nullptr, nullptr, nullptr, nullptr));
    const TestWindow child = MakeControl(plain, "STATIC", 0);
    EnableWindow(disabled, FALSE);
    const HGLOBAL saved = DlgEnableAllWindows(gLibInstance, except, 0, nullptr);
    EXPECT_FALSE(IsWindowEnabled(plain));
    EXPECT_TRUE(IsWindowEnabled(except));
    EXPECT_TRUE(IsWindowEnabled(child));
    EXPECT_TRUE(reinterpret_cast<HINSTANCE>(GetWindowLongPtrA(foreign, GWLP_HINSTANCE)) == gLibInstance ||
                IsWindowEnabled(foreign));
    const TestWindow late = MakeFrame();  // not among those that were disabled here
    EnableWindow(late, FALSE);
    DlgEnableAllWindows(gLibInstance, except, 1, saved);
    EXPECT_TRUE(IsWindowEnabled(plain));
    EXPECT_FALSE(IsWindowEnabled(disabled));
    EXPECT_FALSE(IsWindowEnabled(late));
}

TEST(EnableAllWindows, TellsThreadsApart) {
    const TestWindow here = MakeFrame();
    std::thread([&] {
        const HGLOBAL saved = DlgEnableAllWindows(gLibInstance, nullptr, 0, nullptr);
        EXPECT_TRUE(IsWindowEnabled(here));
        DlgEnableAllWindows(gLibInstance, nullptr, 1, saved);
    }).join();
}

TEST(EnableAllWindows, NeedsAModuleAndABlock) {
    const TestWindow window = MakeFrame();
    EXPECT_EQ(DlgEnableAllWindows(nullptr, nullptr, 0, nullptr), nullptr);
    EXPECT_EQ(DlgEnableAllWindows(gLibInstance, nullptr, 1, nullptr), nullptr);
    EXPECT_TRUE(IsWindowEnabled(window));
}

// ---- the middle -------------------------------------------------------------------------------------------------

struct CentreCase {
    RECT reference;
    SIZE dialog;
    POINT corner;
};

constexpr CentreCase kCentres[] = {
    {{100, 100, 500, 400}, {200, 100}, {200, 200}},
    {{100, 100, 501, 401}, {201, 101}, {200, 200}},   // halves are cut
    {{900, 600, 1024, 768}, {300, 300}, {724, 468}},  // flush with the right and bottom edges
    {{0, 0, 60, 40}, {300, 300}, {0, 0}},             // ... and with the left and top ones
    {{400, 700, 600, 760}, {100, 100}, {450, 668}},
    {{0, 0, 1024, 768}, {1024, 768}, {0, 0}},
};

void ExpectCentred(HWND window, POINT corner, SIZE size) {
    EXPECT_NE(DlgCenterDialog(window), 0);
    RECT place = {};
    GetWindowRect(window, &place);
    EXPECT_EQ((std::vector{place.left, place.top, place.right - place.left, place.bottom - place.top}),
              (std::vector<LONG>{corner.x, corner.y, size.cx, size.cy}));
}

TEST(CenterDialog, OnItsOwnerOrParent) {
    for (const CentreCase& c : kCentres) {
        const TestWindow reference = MakeFrame(c.reference);
        for (const DWORD style : {DWORD{WS_POPUP}, DWORD{WS_CHILD}}) {
            const TestWindow dialog("STATIC", style, {7, 9, 7 + c.dialog.cx, 9 + c.dialog.cy}, reference);
            ExpectCentred(dialog, c.corner, c.dialog);
        }
    }
}

TEST(CenterDialog, OnTheScreen) {
    ExpectCentred(MakeFrame({0, 0, 300, 201}), {362, 284}, {300, 201});
    const TestWindow reference = MakeFrame({0, 0, 50, 50});
    const TestWindow owned("STATIC", WS_POPUP, {0, 0, 300, 200}, reference);
    ShowWindow(reference, SW_MINIMIZE);
    ExpectCentred(owned, {362, 284}, {300, 200});
    EXPECT_EQ(DlgCenterDialog(nullptr), 0);
}

// ---- wizards ----------------------------------------------------------------------------------------------------

struct Step {
    int32_t next;
    INT_PTR result;
};

std::vector<Step> script;
std::vector<uint32_t> pagesShown;

// Each page ends itself at once, as the script says.
INT_PTR CALLBACK RunStep(HWND dialog, UINT message, WPARAM, LPARAM param) {
    if (message != WM_INITDIALOG) return 0;
    auto* info = reinterpret_cast<DlgWizardInfo*>(param);
    const uint32_t current = info->Current;
    const Step step = script.at(pagesShown.size());
    pagesShown.push_back(current);
    info->Next = step.next;
    EndDialog(dialog, step.result);
    return 0;
}

constexpr char kTemplates[] = "PRTSETUP\0PrintAbortDialog\0PRTSETUP\0";
constexpr DLGPROC kProcs[] = {RunStep, RunStep, RunStep, nullptr};
constexpr DLGPROC kProcsCutShort[] = {RunStep, nullptr};

struct WizardCase {
    int line;
    const char* templates;
    const DLGPROC* procs;
    int32_t count, next;
    std::vector<Step> script;
    int32_t result;
    std::vector<uint32_t> shown;
};

TEST(Wizard, GoesWhereItsPagesSay) {
    const WizardCase cases[] = {
        {__LINE__, kTemplates, kProcs, 3, 0, {{1, 1}, {2, 1}, {-1, 1}}, 1, {0, 1, 2}},
        {__LINE__, kTemplates, kProcs, 3, 0, {{1, 1}, {2, 1}, {1, 1}, {0, 1}, {-5, 1}}, 1, {0, 1, 2, 1, 0}},
        {__LINE__, kTemplates, kProcs, 3, 2, {{-1, 7}}, 1, {2}},
        {__LINE__, kTemplates, kProcs, 3, 0, {{1, 1}, {2, IDCANCEL}}, 0, {0, 1}},
        {__LINE__, kTemplates, kProcs, 3, 0, {{1, -1}}, 0, {0}},
        {__LINE__, kTemplates, kProcs, 3, 0, {{3, 1}}, 0, {0}},
        {__LINE__, kTemplates, kProcs, 3, 3, {}, 0, {}},
        {__LINE__, kTemplates, kProcs, 0, 0, {}, 0, {}},
        {__LINE__, kTemplates, kProcs, 3, -1, {}, 1, {}},
        {__LINE__, kTemplates, kProcs, 9, 3, {}, 0, {}},          // the names end
        {__LINE__, kTemplates, kProcsCutShort, 9, 1, {}, 0, {}},  // the procedures end
        {__LINE__, "no such template\0", kProcs, 3, 0, {}, 0, {}},
        {__LINE__, nullptr, kProcs, 3, -1, {}, 0, {}},
        {__LINE__, kTemplates, nullptr, 3, -1, {}, 0, {}},
    };
    for (const WizardCase& c : cases) {
        const testing::ScopedTrace row(__FILE__, c.line, "");
        DlgWizardInfo wizard = {nullptr, 0, gLibInstance, c.templates, c.procs, c.count, 77, c.next};
        script = c.script;
        pagesShown.clear();
        EXPECT_EQ(DlgDoDlgWizard(&wizard), c.result);
        EXPECT_EQ(pagesShown, c.shown);
    }
    const HWND noWindow = reinterpret_cast<HWND>(uintptr_t{12345});
    DlgWizardInfo orphan = {noWindow, 0, gLibInstance, kTemplates, kProcs, 3, 77, 0};
    EXPECT_EQ(DlgDoDlgWizard(&orphan), 0);
    EXPECT_TRUE(pagesShown.empty());
    DlgWizardInfo homeless = {nullptr, 0, nullptr, kTemplates, kProcs, 3, 77, -1};
    EXPECT_EQ(DlgDoDlgWizard(&homeless), 0);
    EXPECT_EQ(DlgDoDlgWizard(nullptr), 0);
}

}  // namespace
