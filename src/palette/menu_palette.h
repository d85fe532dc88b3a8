// The one page of the palette set. Its child dialog is what the user sees.
#pragma once

#include <afxwin.h>

#include <memory>

#include "adui.h"

class CMenuPaletteChildDlg;

class CMenuPalette : public CAdUiPalette {
  public:
    // The palette of the process; null while there is none. Never makes one.
    static CMenuPalette* GetPalette();

    CMenuPalette();
    ~CMenuPalette() override;

    // Nothing of the palette's own is kept in the host's profile: both only accept what they are given.
    BOOL Load(IUnknown* pNode) override;
    BOOL Save(IUnknown* pNode) override;
    void OnSetActive() override;
    // Only a floating palette gives the focus back to the drawing by itself.
    bool CanFrameworkTakeFocus() override;

    CMenuPaletteChildDlg* m_pChildDlg = nullptr;  // owned; null until the window has been made
    int m_eApp = 0;

  protected:
    afx_msg int OnCreate(LPCREATESTRUCT pCreate);
    afx_msg void OnSize(UINT nType, int cx, int cy);
    DECLARE_MESSAGE_MAP()
};
