// CAdUiDockControlBar: a bar that the user docks to a side of the host's frame or lets float.
#pragma once

#include <afxext.h>
#include <afxwin.h>

#include "arx_port.h"

class ARX_PORT CAdUiDockControlBar : public CControlBar {
    DECLARE_DYNAMIC(CAdUiDockControlBar)

  public:
    CAdUiDockControlBar();
    ~CAdUiDockControlBar() override;

    // The sides on which the bar may dock: any of CBRS_ALIGN_LEFT, _RIGHT, _TOP and _BOTTOM, 0 for none. The
    // workbench has dock sites at its left and right; the other sides are remembered and never offered.
    void EnableDocking(DWORD dwDockStyle);

    // Names the bar for the host, which keeps the position of each name apart from session to session.
    // `pToolID` points to a CLSID and is copied. Without a name the position is forgotten when the bar goes.
    void SetToolID(void* pToolID);
    // The CLSID given to SetToolID, or null.
    void* GetToolID();

    // Where the bar appears when it floats for the first time; screen coordinates. A stored position wins.
    void InitFloatingPosition(CRect* pRect);

    // Gives the bar the position that was kept for its tool id. Without one it docks at the side that
    // `nPrefDockBarID` names (AFX_IDW_DOCKBAR_LEFT, AFX_IDW_DOCKBAR_RIGHT), if docking there is enabled, and
    // floats otherwise, at `pRect` or, with null, at the rectangle of InitFloatingPosition. A position
    // outside every screen is moved back into view.
    void RestoreControlBar(UINT nPrefDockBarID = 0, CRect* pRect = nullptr);

    BOOL IsFloating() const;
    BOOL IsDocked() const;

    // The smallest and the largest size that the user can give the bar, in pixels.
    virtual void GetMinimumSize(CSize& size);
    virtual void GetMaximumSize(CSize& size);

  protected:
    // Called when the user closes the bar, before it is hidden. False keeps it open.
    virtual bool OnClosing();

    DECLARE_MESSAGE_MAP()

  private:
    friend class CDockState;
    class CDockState* m_pDock;  // what the workbench's dock manager knows of this bar; owned
};
