// The common controls. Members send the control's messages; what they return is the control's answer.
#pragma once

#include "afxwin.h"

class AFX_PORT CImageList : public CObject {
    DECLARE_DYNAMIC(CImageList)

  public:
    CImageList() = default;
    ~CImageList() override;  // destroys the list; a control that shows it must be gone or given another

    HIMAGELIST m_hImageList = nullptr;

    operator HIMAGELIST() const { return m_hImageList; }
    BOOL Attach(HIMAGELIST hImageList);
    HIMAGELIST Detach();
    static CImageList* FromHandle(HIMAGELIST hImageList);
    BOOL Create(int cx, int cy, UINT nFlags, int nInitial, int nGrow);
    BOOL DeleteImageList();
    int GetImageCount() const;
    // The index of the new image, or -1.
    int Add(HICON hIcon);
    int Add(CBitmap* pbmImage, COLORREF crMask);
    COLORREF SetBkColor(COLORREF cr);
    BOOL GetImageInfo(int nImage, IMAGEINFO* pImageInfo) const;
    BOOL Draw(CDC* pDC, int nImage, POINT pt, UINT nStyle);
};

class AFX_PORT CTreeCtrl : public CWnd {
    DECLARE_DYNAMIC(CTreeCtrl)

  public:
    BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);

    UINT GetCount() const;
    CImageList* GetImageList(UINT nImageList) const;
    CImageList* SetImageList(CImageList* pImageList, int nImageListType);
    HTREEITEM GetNextItem(HTREEITEM hItem, UINT nCode) const;
    HTREEITEM GetChildItem(HTREEITEM hItem) const;
    HTREEITEM GetNextSiblingItem(HTREEITEM hItem) const;
    HTREEITEM GetPrevSiblingItem(HTREEITEM hItem) const;
    HTREEITEM GetParentItem(HTREEITEM hItem) const;
    HTREEITEM GetSelectedItem() const;
    HTREEITEM GetRootItem() const;
    BOOL ItemHasChildren(HTREEITEM hItem) const;
    BOOL GetItem(TVITEM* pItem) const;
    BOOL SetItem(TVITEM* pItem);
    CString GetItemText(HTREEITEM hItem) const;  // of any length; empty for a bad handle
    BOOL SetItemText(HTREEITEM hItem, LPCTSTR lpszItem);
    BOOL GetItemImage(HTREEITEM hItem, int& nImage, int& nSelectedImage) const;
    BOOL SetItemImage(HTREEITEM hItem, int nImage, int nSelectedImage);
    UINT GetItemState(HTREEITEM hItem, UINT nStateMask) const;
    BOOL SetItemState(HTREEITEM hItem, UINT nState, UINT nStateMask);
    DWORD_PTR GetItemData(HTREEITEM hItem) const;
    BOOL SetItemData(HTREEITEM hItem, DWORD_PTR dwData);
    BOOL GetItemRect(HTREEITEM hItem, LPRECT lpRect, BOOL bTextOnly) const;
    CEdit* GetEditControl() const;  // null while no label is edited

    HTREEITEM InsertItem(TVINSERTSTRUCT* pInsertStruct);
    HTREEITEM InsertItem(LPCTSTR lpszItem, HTREEITEM hParent = TVI_ROOT, HTREEITEM hInsertAfter = TVI_LAST);
    HTREEITEM InsertItem(LPCTSTR lpszItem, int nImage, int nSelectedImage, HTREEITEM hParent = TVI_ROOT,
                         HTREEITEM hInsertAfter = TVI_LAST);
    BOOL DeleteItem(HTREEITEM hItem);
    BOOL DeleteAllItems();
    BOOL Expand(HTREEITEM hItem, UINT nCode);
    BOOL Select(HTREEITEM hItem, UINT nCode);
    BOOL SelectItem(HTREEITEM hItem);
    CEdit* EditLabel(HTREEITEM hItem);
    HTREEITEM HitTest(CPoint pt, UINT* pFlags = nullptr) const;
    BOOL SortChildrenCB(TVSORTCB* pSort);
    BOOL EnsureVisible(HTREEITEM hItem);
};

class AFX_PORT CHeaderCtrl : public CWnd {
    DECLARE_DYNAMIC(CHeaderCtrl)

  public:
    int GetItemCount() const;
    BOOL GetItem(int nPos, HDITEM* pHeaderItem) const;
    BOOL SetItem(int nPos, HDITEM* pHeaderItem);
};

class AFX_PORT CListCtrl : public CWnd {
    DECLARE_DYNAMIC(CListCtrl)

  public:
    BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);

    CImageList* GetImageList(int nImageList) const;
    CImageList* SetImageList(CImageList* pImageList, int nImageListType);
    int GetItemCount() const;
    BOOL GetItem(LVITEM* pItem) const;
    BOOL SetItem(const LVITEM* pItem);
    int GetNextItem(int nItem, int nFlags) const;
    int FindItem(LVFINDINFO* pFindInfo, int nStart = -1) const;
    BOOL GetItemRect(int nItem, LPRECT lpRect, UINT nCode) const;
    BOOL EnsureVisible(int nItem, BOOL bPartialOK);
    CEdit* EditLabel(int nItem);
    CEdit* GetEditControl() const;  // null while no label is edited
    DWORD SetExtendedStyle(DWORD dwNewStyle);
    DWORD GetExtendedStyle() const;
    CHeaderCtrl* GetHeaderCtrl() const;
    int InsertColumn(int nCol, const LVCOLUMN* pColumn);
    int InsertColumn(int nCol, LPCTSTR lpszColumnHeading, int nFormat = LVCFMT_LEFT, int nWidth = -1,
                     int nSubItem = -1);
    BOOL GetColumn(int nCol, LVCOLUMN* pColumn) const;
    int GetColumnWidth(int nCol) const;
    BOOL SetColumnWidth(int nCol, int cx);
    UINT GetItemState(int nItem, UINT nMask) const;
    BOOL SetItemState(int nItem, UINT nState, UINT nMask);
    CString GetItemText(int nItem, int nSubItem) const;  // of any length; empty for a bad index
    BOOL SetItemText(int nItem, int nSubItem, LPCTSTR lpszText);
    DWORD_PTR GetItemData(int nItem) const;
    BOOL SetItemData(int nItem, DWORD_PTR dwData);
    UINT GetSelectedCount() const;
    int InsertItem(const LVITEM* pItem);
    int InsertItem(int nItem, LPCTSTR lpszItem);
    int InsertItem(int nItem, LPCTSTR lpszItem, int nImage);
    BOOL DeleteItem(int nItem);
    BOOL DeleteAllItems();
    int HitTest(CPoint pt, UINT* pFlags = nullptr) const;
    int HitTest(LVHITTESTINFO* pHitTestInfo) const;
};

class AFX_PORT CToolTipCtrl : public CWnd {
    DECLARE_DYNAMIC(CToolTipCtrl)

  public:
    BOOL Create(CWnd* pParentWnd, DWORD dwStyle = 0);

    // A tool of `pWnd`: the whole of it (`nIDTool` 0), or the rectangle with an id above 0. The text may be
    // LPSTR_TEXTCALLBACK.
    BOOL AddTool(CWnd* pWnd, LPCTSTR lpszText = LPSTR_TEXTCALLBACK, LPCRECT lpRectTool = nullptr,
                 UINT_PTR nIDTool = 0);
    void DelTool(CWnd* pWnd, UINT_PTR nIDTool = 0);
    void UpdateTipText(LPCTSTR lpszText, CWnd* pWnd, UINT_PTR nIDTool = 0);
    void GetText(CString& str, CWnd* pWnd, UINT_PTR nIDTool = 0) const;
    int GetToolCount() const;
    void Activate(BOOL bActivate);
    int SetMaxTipWidth(int iWidth);
    int GetMaxTipWidth() const;
    // Every message that the tools' windows get has to pass through here.
    void RelayEvent(LPMSG lpMsg);
};
