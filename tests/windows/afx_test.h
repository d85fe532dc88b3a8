// What the framework's tests share: resource ids (the .rc reads them too) and a window to put things in.
#pragma once

#define IDD_FORM 101
#define IDD_CHILD 102
#define IDD_CENTERED 103
#define IDC_NAME 1001
#define IDC_COUNT 1002
#define IDC_AGREE 1003
#define IDC_KIND 1004
#define IDC_APPLY 1005
#define IDC_LABEL 1006
#define IDC_TREE 1007
#define IDC_LIST 1008
#define IDC_OWNERDRAW 1009
#define IDR_MENU 110
#define IDS_GREETING 120

#ifndef RC_INVOKED
#include <afxcmn.h>
#include <afxwin.h>

// A message for a window to answer.
inline constexpr UINT kAnswerMessage = WM_USER + 7;

// A visible top-level window of a fixed size.
class TestFrame : public CWnd {
  public:
    TestFrame() {
        CreateEx(0, nullptr, L"Test", WS_OVERLAPPEDWINDOW | WS_VISIBLE, CRect(50, 50, 450, 350), nullptr, 0);
    }
};

// A child that the framework has not made.
inline HWND MakeChild(CWnd& parent, LPCWSTR className, int id, DWORD style = 0) {
    return CreateWindowExW(0, className, L"child", WS_CHILD | WS_VISIBLE | style, 10, 10, 100, 60,
                           parent.m_hWnd, reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)),
                           GetModuleHandleW(nullptr), nullptr);
}
#endif
