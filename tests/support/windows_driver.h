// Drives real windows from a test: finds the dialog or message box that is up, clicks, types, answers, and
// waits for conditions while messages flow. Shared by all tests of windows.
//
// Everything runs on the test's own thread. A modal call (DoModal, MessageBox) blocks the test, so what is to
// happen meanwhile is arranged before it: AnswerBoxes for message boxes, WhenDialogOpens for dialogs.
//
//     windows::BoxAnswers boxes({IDYES});
//     windows::WhenDialogOpens opened([&](HWND dialog) { windows::Click(dialog, IDOK); });
//     EXPECT_EQ(dlg.DoModal(), IDOK);
//     EXPECT_EQ(boxes.Shown().at(0).text, L"Are you sure?");
#pragma once

#include <windows.h>

#include <chrono>
#include <functional>
#include <string>
#include <vector>

namespace windows {

inline constexpr std::chrono::milliseconds kPatience{5000};

// Lets messages flow until `condition` holds; false when the patience ended first. Messages pass through
// `translate` (a framework's PreTranslateMessage) when one is given; true means dealt with.
bool WaitFor(const std::function<bool()>& condition, std::chrono::milliseconds patience = kPatience,
             const std::function<bool(MSG&)>& translate = nullptr);
// Deals with the messages that are waiting, and returns.
void PumpWaiting();

std::wstring TextOf(HWND window);
std::wstring ClassOf(HWND window);
// The text of a control of a dialog; fails the test if there is no such control.
std::wstring TextOf(HWND dialog, int id);
void SetText(HWND dialog, int id, const std::wstring& text);
// The control; fails the test and returns null if there is none.
HWND Control(HWND dialog, int id);
// The tip that shows now, of this process; null for none.
HWND VisibleTip();

// Clicks a button as the user does: its own click handling runs and the parent gets its notification. A
// disabled or missing button fails the test.
void Click(HWND dialog, int id);
// As Click, but the click happens after the caller's return, when messages flow. For buttons that open modal
// windows or end the dialog.
void PostClick(HWND dialog, int id);
// Chooses a combo box's row and lets its parent know, as a user's choice does.
void SelectRow(HWND dialog, int id, int row);
// Posts the key's down and up messages to `window`.
void PostKey(HWND window, WPARAM key);
// Sends the text to `window` as characters.
void Type(HWND window, const std::wstring& text);
// Sends mouse messages with a point in client coordinates; `keys` as MK_... values.
void MouseMove(HWND window, POINT point, WPARAM keys = 0);
void MouseDown(HWND window, POINT point);
void MouseUp(HWND window, POINT point);

// Ends the label edit in a tree or list view (the edit control from TVM_GETEDITCONTROL or LVM_...) with a new
// text and Return, or with Escape.
void EndLabelEdit(HWND edit, const std::wstring& text);
void CancelLabelEdit(HWND edit);

// A message box as it was shown.
struct Box {
    std::wstring caption;
    std::wstring text;
    std::vector<std::wstring> buttons;  // their texts, from left to right
    HICON icon = nullptr;               // null without one
    int defaultButton = 0;              // its id
    HWND owner = nullptr;               // the window that it belongs to
    int answer = 0;                     // what was pressed
};

// While it lives, every message box of this thread is recorded and answered: with the given answers in order,
// then with the box's default button. A box that lacks the wanted button gets its default one and fails the
// test. Boxes may nest. Only one may live at a time.
class BoxAnswers {
  public:
    explicit BoxAnswers(std::vector<int> answers = {});
    ~BoxAnswers();
    BoxAnswers(const BoxAnswers&) = delete;
    BoxAnswers& operator=(const BoxAnswers&) = delete;
    const std::vector<Box>& Shown() const;
};

// While it lives, waits for the next dialog (class #32770, not a message box) of this thread to become
// visible, calls `action` once with its handle when messages flow, and then is done. A dialog that is still
// there when the patience ends fails the test and is cancelled; so does a dialog that never came when this
// one goes. Several may live at a time; each takes one dialog, in the order of their making.
class WhenDialogOpens {
  public:
    explicit WhenDialogOpens(std::function<void(HWND dialog)> action,
                             std::chrono::milliseconds patience = kPatience);
    ~WhenDialogOpens();
    WhenDialogOpens(const WhenDialogOpens&) = delete;
    WhenDialogOpens& operator=(const WhenDialogOpens&) = delete;
    // True once the action has been called.
    bool Ran() const;

  private:
    struct State;
    State* m_state;
};

// What this process holds now, for tests that look for leaks.
struct HandleCount {
    int gdi = 0;      // pens, brushes, fonts, bitmaps, regions, contexts
    int windows = 0;  // of this thread, children included
    static HandleCount Now();
    bool operator==(const HandleCount&) const = default;
};

}  // namespace windows
