// A plain window for controls under test.
#pragma once

#include <afxwin.h>
#include <gtest/gtest.h>

#include <vector>

#include "controls/splitter_control.h"

// A window that notes what its controls tell it.
class OwnerWnd : public CWnd {
  public:
    OwnerWnd() {
        CreateEx(0, nullptr, L"Owner", WS_OVERLAPPEDWINDOW | WS_VISIBLE, CRect(100, 100, 600, 500), nullptr,
                 0);
    }
    std::vector<SPC_NMHDR> m_sized;
    std::vector<UINT> m_clicked;

  protected:
    BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* pResult) override {
        const auto* notification = reinterpret_cast<NMHDR*>(lParam);
        if (notification->code == SPN_SIZED) {
            EXPECT_EQ(wParam, notification->idFrom);
            m_sized.push_back(*reinterpret_cast<SPC_NMHDR*>(lParam));
        }
        return CWnd::OnNotify(wParam, lParam, pResult);
    }
    BOOL OnCommand(WPARAM wParam, LPARAM lParam) override {
        if (HIWORD(wParam) == BN_CLICKED && lParam != 0) m_clicked.push_back(LOWORD(wParam));
        return CWnd::OnCommand(wParam, lParam);
    }
};
