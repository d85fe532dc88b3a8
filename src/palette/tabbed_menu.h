// Wrapper of the tabbed menu control, which is reached by dispatch id only.
#pragma once

#include <afxwin.h>

#include <string>

// Kind of a menu item that has a state; every other kind is a command.
inline constexpr short kMenuItemToggle = 1;

// Without a control, every operation does nothing and gives false or 0.
class CTabbedMenu1 : public CWnd {
  public:
    // Makes the control over the placeholder with that id. False if the control is not registered.
    bool CreateOver(CWnd* pParent, UINT nId);

    bool LoadMenu(const std::wstring& strPath);
    short GetItemKind(short nItemId);
    bool GetToggleState(const std::wstring& strItem);
    void SetToggleState(const std::wstring& strItem, bool bState);
    void SetIconSize(short nSize);  // pixels
    void SetEnabled(bool bEnabled);
};
