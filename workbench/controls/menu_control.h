// The tabbed menu control.
#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "controls/com_control.h"
#include "controls/menu_file.h"
#include "controls/menu_layout.h"

namespace controls {

// Members by number; programs call no other way.
inline constexpr DISPID kMenuIconSize = 1;
inline constexpr DISPID kMenuLoad = 4;
inline constexpr DISPID kMenuItemKind = 10;
inline constexpr DISPID kMenuToggleState = 11;
inline constexpr DISPID kMenuItemSelected = 1;  // of the outgoing interface

class MenuControl final : public ComControl {
  public:
    MenuControl();

  protected:
    ~MenuControl() override;
    HWND CreateControlWindow(HWND parent, const RECT& position) override;
    HRESULT InvokeMember(DISPID id, WORD flags, const std::vector<VARIANT*>& arguments,
                         VARIANT* result) override;

  private:
    struct IconDeleter {
        void operator()(HICON icon) const { DestroyIcon(icon); }
    };
    using IconHandle = std::unique_ptr<std::remove_pointer_t<HICON>, IconDeleter>;

    static LRESULT CALLBACK WindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT HandleMessage(UINT message, WPARAM wParam, LPARAM lParam);

    bool LoadMenuFile(const std::wstring& path);
    bool GetToggle(const std::wstring& name) const;
    void SetToggle(const std::wstring& name, bool state);
    void SetEnabled(bool enabled);
    void SetIconSize(int size);

    const std::vector<MenuItem>& Items() const;
    void Arrange();
    void SelectTab(int tab);
    void SetFocusItem(int item);
    void ScrollTo(int scroll);
    void OnScroll(WORD code);
    void OnKey(WPARAM key);
    static LRESULT DialogCode(const MSG* message);
    void OnMouseMove(int x, int y);
    void OnButtonDown(int x, int y);
    void OnButtonUp(int x, int y);
    void Pick(int item);

    void Paint(HDC dc);
    void PaintTab(HDC dc, int tab);
    void PaintItem(HDC dc, int item);
    HICON GetIcon(const std::wstring& name);
    void CreateTip();
    void UpdateTips();

    std::wstring m_folder;  // of the menu file, with a backslash behind it
    MenuFile m_menu;
    MenuLayout m_layout;
    std::map<std::wstring, bool> m_toggles;
    std::map<std::wstring, IconHandle> m_icons;  // at the present size
    int m_iconSize = 32;
    bool m_enabled = true;
    int m_tab = 0;
    int m_scroll = 0;
    int m_hot = -1;
    int m_pressed = -1;
    int m_focus = -1;
    HFONT m_font = nullptr;
    HWND m_tip = nullptr;
    UINT m_tipTools = 0;
};

}  // namespace controls
