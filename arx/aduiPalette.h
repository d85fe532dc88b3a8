// CAdUiPalette: one page of a palette set.
#pragma once

#include <afxwin.h>

#include "arx_port.h"

class CAdUiPaletteSet;
struct IUnknown;

class ARX_PORT CAdUiPalette : public CWnd {
    DECLARE_DYNAMIC(CAdUiPalette)

  public:
    CAdUiPalette();
    ~CAdUiPalette() override;

    // Makes the palette's window inside the set's. False if the set has no window yet.
    BOOL Create(DWORD dwStyle, LPCTSTR lpszTitle, CAdUiPaletteSet* pPaletteSetParent, DWORD dwPaletteStyle);

    // Called with a node of the host's profile when palettes are read (after AddPalette) and stored (before
    // the set goes). The workbench keeps no such node and passes null. The result tells success.
    virtual BOOL Load(IUnknown* pUnk);
    virtual BOOL Save(IUnknown* pUnk);
    // Called when the palette becomes the active one of its set.
    virtual void OnSetActive();
    // Whether the host may take the focus from the palette when the user goes back to the drawing.
    virtual bool CanFrameworkTakeFocus();

    CAdUiPaletteSet* GetPaletteSet();
    CString GetName();
    DWORD GetPaletteStyle();

  protected:
    afx_msg int OnCreate(LPCREATESTRUCT lpCreateStruct);
    afx_msg void OnSize(UINT nType, int cx, int cy);
    DECLARE_MESSAGE_MAP()

  private:
    friend class CAdUiPaletteSet;
    CAdUiPaletteSet* m_pPaletteSet = nullptr;
    CString m_strName;
    DWORD m_dwPaletteStyle = 0;
};
