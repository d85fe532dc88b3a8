// CDwgthumbnailctrl: the ActiveX control that shows a small picture of a drawing file.
#pragma once

#include <afxwin.h>

class CDwgthumbnailctrl : public CWnd {
  public:
    // Takes the place of the placeholder `nID` of the dialog. False, and the placeholder stays as an empty
    // pane, if the control is not registered on this machine.
    BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);

    // Shows a drawing file; the empty path shows nothing. Without the control nothing happens.
    void ShowDrawing(LPCTSTR lpszPath);
};
