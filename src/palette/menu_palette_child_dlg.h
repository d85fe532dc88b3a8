// The dialog inside the palette: the Drawing Manager button, the tabbed menu, the isoplane button, the titled
// combo rows with their two small buttons. It holds no state of a drawing: what the user chose stands in the
// drawing's own record, and is read back whenever the drawing becomes current.
//
// Its handlers stand in one source file per subject: menu_palette_child_dlg.cpp (controls and set-up),
// palette_document.cpp (lists of a drawing), palette_state.cpp (choices and layout), palette_menu.cpp (the
// tabbed menu), palette_start.cpp (the Drawing Manager).
#pragma once

#include <afxwin.h>

#include <array>
#include <string>
#include <vector>

#include "acui.h"
#include "controls/button_st.h"
#include "document/palette_link.h"
#include "palette/palette_rows.h"
#include "palette/tabbed_menu.h"

class AcApDocument;
class CDrawingManagerDlg;

inline constexpr int kComboCount = 4;

class CMenuPaletteChildDlg final : public CAcUiDialog, public CPaletteLink {
  public:
    // What one row shows: its title, and the combo's items with their numbers in parallel (which may be
    // missing).
    struct CComboBoxCtrlbarData {
        std::wstring m_strTitle;
        std::vector<std::wstring> m_astrItems;
        std::vector<int> m_aItemData;
    };
    using CommandCallback = void (*)(int nApplicationId, const std::wstring& strText);
    using ToggleCallback = void (*)(int nApplicationId, const std::wstring& strText, bool bState);

    explicit CMenuPaletteChildDlg(CWnd* pParent);
    ~CMenuPaletteChildDlg() override;

    // Sets the dialog up for a discipline: menu, rows, buttons, window handle entry. Once in its life.
    void Fill(int nApp);

    // Refills the rows for a drawing and shows its choices. A drawing without a project takes the one that
    // its path names. Null does nothing.
    void UpdateForDocument(AcApDocument* pDocument) override;
    void UpdateForActiveDocument();
    // Shows the choices of the current drawing's record.
    void UpdateCurrentSelections();
    // A snap variable changed: shows the isoplane that the variables stand for, and stores it if asked.
    void SysVarChanged(const std::wstring& strName, bool bStore) override;

    // The last drawing has gone: asks for the Drawing Manager, unless the user does not want it.
    void DocDestroyed() override;
    // The first call of the process takes over what a launcher left; every later one opens the Drawing
    // Manager.
    void StartDrawingManager();
    void OnBnClickedButtonDrawingManager();

    // Loads a menu file; tells the user if that fails.
    bool LoadMenuFile(const std::wstring& strPath);
    void SetMenuByCommand(const std::wstring& strName);
    void SetToggle(const std::wstring& strName, int nState);

    // Lays everything out soon, for the newest rectangle that was handed over.
    void QueueLayout(const CRect& rect);

    // Null unless `i` is 0 to 3.
    CComboBox* GetComboByIndex(int i);
    // Raises the framework's range failure if there are fewer ids than names.
    void SetComboList(int i, const std::vector<std::wstring>& astrNames, const std::vector<int>& anIds);
    void SelectComboIndex(int i, int nIndex);
    // The first item with that number; no match changes nothing.
    void SelectComboByData(int i, int nData);
    // The index, or -1 for no match.
    int SelectComboByText(int i, const std::wstring& strText);

  protected:
    void DoDataExchange(CDataExchange* pDX) override;
    BOOL OnInitDialog() override;
    BOOL OnCommand(WPARAM wParam, LPARAM lParam) override;

    afx_msg LRESULT OnKeepFocus(WPARAM wParam, LPARAM lParam);
    afx_msg LRESULT OnKV2DNotify(WPARAM wParam, LPARAM lParam);
    afx_msg void OnTimer(UINT_PTR nId);
    afx_msg void OnBnClickedIsoplane();
    afx_msg void OnBnClickedSwapSize();
    afx_msg void OnBnClickedNewLine();
    afx_msg void OnSelchangeCombo1();
    afx_msg void OnSelchangeCombo2();
    afx_msg void OnSelchangeCombo3();
    afx_msg void OnSelchangeCombo4();
    afx_msg BOOL OnToolTipText(UINT nId, NMHDR* pNotify, LRESULT* pResult);
    void OnMenuItemSelected(short nItemId, LPCTSTR szText);
    DECLARE_MESSAGE_MAP()
    DECLARE_EVENTSINK_MAP()

  private:
    void SetupDiscipline(const CPaletteDiscipline& discipline);
    void SetupCombos(int nGroup, const std::wstring& strTitle,
                     const std::vector<CComboBoxCtrlbarData>& aRows);
    void SetupButton(CButtonST& button, int nIcon, int nIconSize, const wchar_t* szTip);
    void SetupIsoButton(const std::wstring& strTitle, const std::vector<WORD>& aIcons);
    void ApplyLargeFont();
    void EnableCtrls(bool bEnable);
    void ArrangeControls();

    void FillPipingRows(AcApDocument* pDocument, int nProjectId, int nAppId);
    void OnComboSelChange(int nRow, const CComboBox& combo);
    void StoreFirstLine(int nProjectId);
    void ReloadLines(int nProjectId);
    void SelectMenuMode(int nMode);
    void SetIsoState(int nState);
    // False if the host's reactors made another drawing current.
    bool ApplyIsoState();

    void CloseUntitledDrawing();
    void OpenDrawings(const CDrawingManagerDlg& dialog);

    CButton m_btnDrawingManager;
    CTabbedMenu1 m_TabbedMenu;
    CButtonST m_btnIsoplane;
    CButtonST m_btnSwapSize;
    CButtonST m_btnNewLine;
    std::array<CComboBox, kComboCount> m_aCombo;
    std::array<CStatic, kComboCount> m_aTitle;
    std::array<std::vector<int>, kComboCount> m_aanListData;  // the items' numbers, as SetComboList set them
    CFont m_fontLarge;

    std::wstring m_strMenuCurrent;
    std::wstring m_strMenuLayout;
    std::wstring m_strMenuSchematic;
    CDrawingManagerDlg* m_pDrawingManager = nullptr;  // while it runs
    int m_bIgnoreSnapChange = 0;
    int m_eApp = 0;
    bool m_bMenuLoaded = false;
    bool m_bIsoButton = false;
    bool m_bSwapButton = false;
    int m_nNewLineRow = kNoNewLineRow;
    int m_nComboCount = 0;
    int m_nCurrentGroup = 0;
    int m_nApplicationId = 0;
    int m_nIsoState = 0;
    std::vector<WORD> m_aIsoIcons;
    std::vector<CComboBoxCtrlbarData> m_aCombos;
    HWND m_hAcadWnd = nullptr;
    CRect m_rcClient{0, 0, 0, 0};
    UINT_PTR m_nTimerId = 0;
    CommandCallback m_pfnOnCommand = nullptr;
    ToggleCallback m_pfnOnToggle = nullptr;
};
