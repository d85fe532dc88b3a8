// The two ActiveX controls in a window of the test, made from the built files without any registration.
#pragma once

#include <afxdisp.h>
#include <afxwin.h>
#include <gtest/gtest.h>
#include <ocidl.h>

#include <string>
#include <utility>
#include <vector>

#include "support/test_platform.h"
#include "support/windows_driver.h"

namespace control_test {

inline constexpr COLORREF kRed = RGB(255, 0, 0);

// While it lives, the class is made by the library `file` that lies beside the test program.
class ServedClass {
  public:
    ServedClass(const wchar_t* file, REFCLSID classId);
    ~ServedClass();
    ServedClass(const ServedClass&) = delete;
    ServedClass& operator=(const ServedClass&) = delete;

  private:
    HMODULE m_library = nullptr;
    DWORD m_cookie = 0;
};

// What a window paints into its client area, read pixel by pixel.
class PaintedPicture {
  public:
    explicit PaintedPicture(HWND window);
    int Width() const { return m_width; }
    int Height() const { return m_height; }
    COLORREF At(int x, int y) const {
        return m_pixels[static_cast<size_t>(y) * static_cast<size_t>(m_width) + static_cast<size_t>(x)];
    }
    size_t Count(COLORREF color) const;
    // How many pixels of a rectangle differ from another picture of the same size.
    size_t DifferencesFrom(const PaintedPicture& other, const RECT& in) const;
    size_t DifferencesFrom(const PaintedPicture& other) const;

  private:
    int m_width = 0;
    int m_height = 0;
    std::vector<COLORREF> m_pixels;
};

inline constexpr UINT kControlId = 201;

// A window with a control in it, that writes down the control's events.
class ControlWindow : public CWnd {
  public:
    ControlWindow();
    ~ControlWindow() override;
    bool Make(REFCLSID classId, const CRect& place);

    CWnd m_control;
    std::vector<std::pair<int, std::wstring>> m_picked;
    std::function<void()> m_onPicked;

  protected:
    void OnPicked(short nId, LPCTSTR lpszText);
    DECLARE_EVENTSINK_MAP()
};

}  // namespace control_test
