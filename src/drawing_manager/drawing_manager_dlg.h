// CDrawingManagerDlg: where the user picks what to work on, a client and standard on the left and a drawing
// on the right. It opens nothing itself: it collects what is to be opened and ends, and whoever ran it opens
// it.
#pragma once

#include <afxcmn.h>
#include <afxwin.h>

#include <cstdint>
#include <string>
#include <vector>

#include "controls/button_st.h"
#include "controls/splitter_control.h"
#include "drawing_manager/balloon_notes.h"
#include "drawing_manager/button_rules.h"
#include "drawing_manager/dialog_layout.h"
#include "drawing_manager/drawing_manager_tree_ctrl.h"
#include "drawing_manager/drawing_state.h"
#include "drawing_manager/dwg_thumbnail_ctrl.h"

class CBalloonTip;

// Reading the answer of DoModal:
//   IDOK        open each path of m_astrOpenList in order, read-only if m_bOpenReadOnly is set
//   IDCANCEL    with a non-empty m_strStandardTemplate, start an unnamed drawing from that template
// and nothing otherwise. Boxes that this leads to carry the caption m_strTitle. The members outlive the
// window.
//
// On disk: works on the files and folders of the drawings location at once. In the registry: everything below
// the discipline's key "DrawingManager". In the host: "SDI" becomes 0, and the dialog may close the open
// documents without saving them; while it does, m_bClosingDocuments is set.
class CDrawingManagerDlg : public CDialog {
  public:
    explicit CDrawingManagerDlg(CWnd* pParent = nullptr);

    std::wstring m_strTitle;
    std::vector<std::wstring> m_astrOpenList;
    bool m_bOpenReadOnly = false;
    bool m_bClosingDocuments = false;
    std::wstring m_strStandardTemplate;

    // Renames the last folder of the current one on disk, and follows it. False if the file system refuses;
    // nothing has changed then.
    bool RenameCurrentFolder(const std::wstring& strNewName);

  protected:
    void DoDataExchange(CDataExchange* pDX) override;
    LRESULT DefWindowProc(UINT nMsg, WPARAM wParam, LPARAM lParam) override;
    BOOL OnInitDialog() override;
    void OnOK() override;
    void OnCancel() override;

    // --- the dialog: drawing_manager_dlg.cpp, drawing_manager_init.cpp
    afx_msg void OpenStandard();
    afx_msg void OnBnClickedSingleDoc();
    afx_msg void OnBnClickedHelp();
    afx_msg void OnMoving(UINT fwSide, LPRECT pRect);
    afx_msg void SaveWindowState();
    void UpdateButtons();
    void UpdateThumbnail();
    void SetProjectEnvironment(int nProjectId) const;
    std::wstring GetTemplateFile(int nProjectId) const;
    std::wstring GetTemplateFolder(int nProjectId) const;

    // --- the tree: drawing_manager_tree.cpp
    afx_msg void OnTvnSelchangedTree(NMHDR* pNMHDR, LRESULT* pResult);
    afx_msg void OnTvnItemexpandedTree(NMHDR* pNMHDR, LRESULT* pResult);
    afx_msg void OnNMDblclkTree(NMHDR* pNMHDR, LRESULT* pResult);
    void FillTree();
    void ScanFolders(HTREEITEM hParent, const std::wstring& strPath, int nDepth);
    std::wstring GetItemFolderPath(HTREEITEM hItem, const std::wstring& strSuffix) const;
    std::wstring GetItemRelativePath(HTREEITEM hItem, const std::wstring& strSuffix) const;
    int GetProjectIdOfItem(HTREEITEM hItem) const;
    void RestoreSelectedFolder(HTREEITEM hStart, const std::wstring& strRelativePath);
    void UpdateCurrentLocation();

    // --- the list: drawing_manager_list.cpp
    afx_msg void RefreshDrawings();
    afx_msg void OnShowBackups();
    afx_msg void OnLvnItemchangedList(NMHDR* pNMHDR, LRESULT* pResult);
    afx_msg void OnNMClickList(NMHDR* pNMHDR, LRESULT* pResult);
    afx_msg void OnNMRClickList(NMHDR* pNMHDR, LRESULT* pResult);
    afx_msg void OnHdnItemclickList(NMHDR* pNMHDR, LRESULT* pResult);
    void FillDrawingList();
    DrawingState GetDrawingState(const std::wstring& strName, const std::wstring& strExtension) const;
    void GetSelectedItems(std::vector<int>& anItems) const;

    // --- what is done to drawings: drawing_manager_files.cpp
    afx_msg void OnOpenDrawing();
    afx_msg void OnOpenReadOnly();
    afx_msg void OnBnClickedNew();
    afx_msg void OnBnClickedCopy();
    afx_msg void OnBnClickedRename();
    afx_msg void OnBnClickedDelete();
    afx_msg void OnNMDblclkList(NMHDR* pNMHDR, LRESULT* pResult);
    afx_msg void OnLvnBeginlabeleditList(NMHDR* pNMHDR, LRESULT* pResult);
    afx_msg void OnLvnEndlabeleditList(NMHDR* pNMHDR, LRESULT* pResult);
    void OpenSelectedDrawings();
    bool RecycleFile(const std::wstring& strPath) const;

    // --- folders: drawing_manager_folders.cpp
    afx_msg void OnNMRClickTree(NMHDR* pNMHDR, LRESULT* pResult);
    afx_msg void OnNewFolder();
    afx_msg void OnRenameFolder();
    afx_msg void OnDeleteFolder();
    afx_msg void OnRefreshTree();
    afx_msg void OnBnClickedExplore();

    // --- layout: drawing_manager_layout.cpp
    afx_msg void OnSize(UINT nType, int cx, int cy);
    afx_msg void OnSizing(UINT fwSide, LPRECT pRect);
    afx_msg void OnBnClickedShowHide();
    void LayoutControls();
    void SetDrawingsVisible(bool bShow);

    DECLARE_MESSAGE_MAP()

  private:
    // How far below an item folders are read with it.
    static constexpr int kOneLevelAhead = 1;

    // A row of the list before it is in the list.
    struct CDrawingRow {
        std::wstring strText;
        DrawingState state = kDrawingNormal;
        std::wstring strSize;
        std::wstring strDate;
    };

    void SetUpListIcons();
    void SetUpButtons();
    void SetUpList();
    void SetUpSplitters();
    void SetUpThumbnail();
    void RestoreWindowState();
    int FindStartProject() const;
    void SelectStartItem();

    int GetDataId(HTREEITEM hItem) const;
    int GetProjectIdOfSelection(HTREEITEM hItem) const;
    HTREEITEM FindChildByLabel(HTREEITEM hParent, const std::wstring& strLabel) const;
    HTREEITEM InsertTreeItem(const std::wstring& strLabel, HTREEITEM hParent, ItemKind kind, int nData);
    bool AddFolders(HTREEITEM hParent, const std::wstring& strPath, int nDepth);

    void AppendRows(std::vector<CDrawingRow>& aRows, bool bBackups,
                    std::vector<std::wstring>& astrNames) const;
    int InsertRow(const CDrawingRow& row, int nIndex);
    void ShowRows(std::vector<CDrawingRow>& aRows);
    std::wstring GetRowText(int nItem) const;
    std::wstring GetRowPath(int nItem) const;
    std::wstring GetLocationText() const;
    RowSelection GetRowSelection() const;
    void HideBalloon();
    void ShowBalloon(const CBalloonNote& note, const CRect& rect, CPoint ptAnchor);
    void ShowStateNote(int nItem);
    CRect GetListNoteRect() const;
    void ShowError(const std::wstring& strFormat, const std::wstring& strArgument1 = {},
                   const std::wstring& strArgument2 = {}) const;
    void TrackMenu(int nPopup, const std::vector<int>& anGreyed, bool bShowsBackups, CPoint ptScreen);

    void CloseAllDocuments();
    void CollectOpenList(const std::vector<int>& anItems);

    void HandleResize();
    CMeasuredControls MeasureControls() const;

    HICON m_hIcon = nullptr;
    std::wstring m_strOldDrawingName;
    int m_eApp = 0;
    std::wstring m_strFolder;          // the current folder, with a backslash behind it, or empty
    int m_nProjectId = 0;              // the current standard
    std::uint32_t m_uBackupState = 0;  // the check flag of the menu item: MF_CHECKED or 0
    CImageList m_imageListDrawings;
    CBalloonTip* m_pBalloon = nullptr;  // the last one; the balloon's own window owns it
    bool m_bInitialized = false;
    bool m_bLayoutReady = false;
    int m_nMinPane = 50;  // least height of the tree and of the thumbnail, in pixels
    bool m_bShowDrawings = true;
    CSplitterControl m_splitterV;
    CSplitterControl m_splitterH;
    CButton m_btnSingleDoc;
    CButtonST m_btnExplore;
    CButtonST m_btnCopy;
    CButtonST m_btnDelete;
    CButtonST m_btnShowHide;
    CButtonST m_btnNew;
    CButtonST m_btnOpen;
    CButtonST m_btnOpenStandard;
    CButtonST m_btnRename;
    CDrawingManagerTreeCtrl m_tree;
    CDwgthumbnailctrl m_thumbnail;
    CEdit m_editLocation;
    CListCtrl m_listDrawings;
};
