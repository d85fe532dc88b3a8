// CButtonST: a flat push button with an icon and a tooltip, which lights up under the mouse.
#pragma once

#include <afxcmn.h>
#include <afxwin.h>

#include <array>

// Results of SetIcon.
inline constexpr DWORD BTNST_OK = 0;
inline constexpr DWORD BTNST_INVALIDRESOURCE = 1;

class CButtonST : public CButton {
  public:
    CButtonST();
    ~CButtonST() override;

    // Shows an icon of the module's resources at the given size in pixels, and a second one while the mouse
    // is elsewhere (`nIconOut` 0: the same). Size 0 is the icon's own. BTNST_INVALIDRESOURCE, and a button
    // without an icon, if there is no such resource.
    DWORD SetIcon(int nIcon, int cx, int cy, int nIconOut = 0, int cxOut = 0, int cyOut = 0);

    // A flat button shows its border under the mouse only. The result is BTNST_OK.
    DWORD SetFlat(BOOL bFlat, BOOL bRepaint = TRUE);

    // Shows the text when the mouse rests on the button, or keeps it from showing with `bActivate` false. A
    // null text changes nothing.
    void SetTooltipText(LPCTSTR lpszText, BOOL bActivate = TRUE);

    void DrawItem(LPDRAWITEMSTRUCT lpDIS) override;
    BOOL PreTranslateMessage(MSG* pMsg) override;

  protected:
    void PreSubclassWindow() override;

    afx_msg BOOL OnClicked();
    afx_msg LRESULT OnSetStyle(WPARAM wParam, LPARAM lParam);
    afx_msg LRESULT OnMouseLeft(WPARAM wParam, LPARAM lParam);
    afx_msg void OnMouseMove(UINT nFlags, CPoint point);
    afx_msg void OnKillFocus(CWnd* pNewWnd);
    afx_msg void OnCancelMode();
    afx_msg void OnActivate(UINT nState, CWnd* pWndOther, BOOL bMinimized);
    afx_msg void OnEnable(BOOL bEnable);
    afx_msg UINT OnGetDlgCode();
    afx_msg void OnSysColorChange();
    afx_msg HBRUSH CtlColor(CDC* pDC, UINT nCtlColor);

    DECLARE_MESSAGE_MAP()

  private:
    // An icon at the size at which it is drawn.
    struct CButtonIcon {
        HICON hIcon = nullptr;
        DWORD dwWidth = 0;
        DWORD dwHeight = 0;
    };
    enum ColorIndex { kBackIn, kTextIn, kBackOut, kTextOut, kBackFocus, kTextFocus, kColorCount };

    static bool LoadButtonIcon(CButtonIcon& icon, int nIcon, int cx, int cy);
    void FreeIcons();
    void ReadDefaultColors();
    void CancelHover();
    bool IsLit() const { return m_bMouseOnButton || m_bIsPressed; }
    COLORREF PickColor(ColorIndex in) const;
    void DrawBorder(CDC& dc, CRect rect) const;
    void DrawButtonIcon(CDC& dc, const CRect& rcButton, bool bHasTitle, CRect& rcTitle) const;
    void DrawTitle(CDC& dc, const CString& strTitle, CRect rcTitle) const;

    std::array<CButtonIcon, 2> m_aIcons;  // under the mouse and at rest
    std::array<COLORREF, kColorCount> m_acrColors{};
    CToolTipCtrl m_toolTip;
    UINT m_nTypeStyle = 0;
    bool m_bIsDefault = false;
    bool m_bIsFlat = true;
    bool m_bDrawBorder = true;
    bool m_bDrawFlatFocus = false;
    bool m_bMouseOnButton = false;
    bool m_bIsPressed = false;  // these three as the draw item record had them last
    bool m_bIsFocused = false;
    bool m_bIsDisabled = false;
};
