// The drawing thumbnail control: shows the drawing that its property names.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "controls/com_control.h"

namespace controls {

// Members by number; programs call no other way.
inline constexpr DISPID kThumbnailFile = 0;
inline constexpr DISPID kThumbnailOption = 1;  // kept, and without effect here

class ThumbnailControl final : public ComControl {
  public:
    ThumbnailControl();

  protected:
    ~ThumbnailControl() override;
    HWND CreateControlWindow(HWND parent, const RECT& position) override;
    HRESULT InvokeMember(DISPID id, WORD flags, const std::vector<VARIANT*>& arguments,
                         VARIANT* result) override;

  private:
    static LRESULT CALLBACK WindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    void Show(const std::wstring& path);
    void Redraw();
    void Paint(HDC dc);

    std::wstring m_path;
    LONG m_option = 0;
    LONG m_backColor = static_cast<LONG>(0x80000005);  // the system's window colour
    // The picture of m_path at the window's size; made when it is painted first, dropped when anything
    // changes.
    HBITMAP m_picture = nullptr;
    SIZE m_pictureSize = {0, 0};
};

}  // namespace controls
