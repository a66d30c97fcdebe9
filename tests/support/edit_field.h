// A masked entry field for tests: a real edit control below a parent that counts the reports of change, hooked as an
// application hooks it.
#pragma once

#include <cstdint>
#include <string>

#include <morvl15/mask.h>

class EditField {
  public:
    explicit EditField(const char* picture, uint32_t flags = 0, const char* controlClass = "EDIT");
    ~EditField();
    EditField(const EditField&) = delete;
    EditField& operator=(const EditField&) = delete;

    // Fills the control past the mask.
    void Fill(const char* text, int32_t start, int32_t end);

    // Sends a message to the control as its user would.
    LRESULT Send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const {
        return SendMessageA(edit_, message, wParam, lParam);
    }
    void Type(char c) { Send(WM_CHAR, static_cast<unsigned char>(c), 1); }
    void Press(int key, bool shift = false);

    std::string Text() const;
    int32_t Start() const { return LOWORD(Send(EM_GETSEL)); }
    int32_t End() const { return HIWORD(Send(EM_GETSEL)); }
    bool IsModified() const { return Send(EM_GETMODIFY) != 0; }
    int Changes() const { return changes_; }
    HWND Window() const { return edit_; }
    const std::string& Shown() const { return shown_; }  // the text of the last FMT_MASK_SHOW_TEXT that came through

    FMTCntlBlock block{};

  private:
    static LRESULT CALLBACK Hook(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    static LRESULT CALLBACK ParentProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

    HWND parent_ = nullptr;
    HWND edit_ = nullptr;
    WNDPROC control_ = nullptr;
    bool masked_ = true;
    int changes_ = 0;
    std::string shown_;
};
