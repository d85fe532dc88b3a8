// CAdUiPaletteSet: the dockable window that holds palettes.
#pragma once

#include "aduiDock.h"

class CAdUiPalette;

// Styles of a palette set. The workbench draws a caption with a close button for every set and otherwise only
// remembers them.
constexpr DWORD PSS_SNAP = 0x0001;
constexpr DWORD PSS_AUTO_ROLLUP_BUTTON = 0x0002;
constexpr DWORD PSS_PROPERTIES_MENU = 0x0004;
constexpr DWORD PSS_CLOSE_BUTTON = 0x0008;
constexpr DWORD PSS_SINGLE_ROW_DOCK = 0x0010;

// A palette set is made with Create while it is hidden, is filled with AddPalette, and shows with the frame's
// ShowControlBar. When it is hidden, by the close button, by ShowControlBar or by the host, it receives
// WM_WINDOWPOSCHANGED with SWP_HIDEWINDOW; every move, resize, dock and float sends it the same message.
class ARX_PORT CAdUiPaletteSet : public CAdUiDockControlBar {
    DECLARE_DYNAMIC(CAdUiPaletteSet)

  public:
    explicit CAdUiPaletteSet(short nFlags = 0);
    // Destroys the window, which takes the windows of the palettes with it; the palette objects stay their
    // owner's, who may delete them before or after the set.
    ~CAdUiPaletteSet() override;

    // `dwStyle` adds window styles. The size of `rect` is the size for the first docking. False if there is a
    // window already or none could be made.
    BOOL Create(LPCTSTR lpszTitle, DWORD dwStyle, const RECT& rect, CWnd* pParentWnd,
                DWORD dwPaletteSetStyle = PSS_PROPERTIES_MENU | PSS_CLOSE_BUTTON);

    // Adds a palette whose window exists. Its index, or -1 for null or one without a window. The first
    // palette becomes the active one.
    int AddPalette(CAdUiPalette* pPalette);
    // Null for an index without a palette.
    CAdUiPalette* GetPalette(int nPaletteIndex);
    int GetPaletteCount();
    // Takes the palette out of the set and hides it; it stays its owner's. False for an index without one.
    BOOL RemovePalette(int nPaletteIndex);
    BOOL SetActivePalette(int nPaletteIndex);
    // Null while there is none.
    CAdUiPalette* GetActivePalette();

    // The caption.
    CString GetName();
    BOOL SetName(LPCTSTR lpszName);
    DWORD GetPaletteSetStyle();

    // Whether the host may take the focus from the set.
    virtual bool CanFrameworkTakeFocus();

    void GetMinimumSize(CSize& size) override;
    void GetMaximumSize(CSize& size) override;

  protected:
    afx_msg void OnWindowPosChanged(WINDOWPOS* lpwndpos);
    afx_msg void OnSize(UINT nType, int cx, int cy);
    afx_msg void OnPaint();
    afx_msg BOOL OnEraseBkgnd(CDC* pDC);
    afx_msg void OnLButtonDown(UINT nFlags, CPoint point);
    afx_msg void OnLButtonUp(UINT nFlags, CPoint point);
    afx_msg void OnLButtonDblClk(UINT nFlags, CPoint point);
    afx_msg void OnMouseMove(UINT nFlags, CPoint point);
    afx_msg void OnGetMinMaxInfo(MINMAXINFO* lpMMI);
    afx_msg void OnDestroy();
    DECLARE_MESSAGE_MAP()

  private:
    friend class CAdUiPalette;
    void Forget(const CAdUiPalette* pPalette);

    class CPaletteSetState* m_pState;  // owned
};
