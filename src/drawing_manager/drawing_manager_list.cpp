// The list of the Drawing Manager: the drawings of the current folder with their states, and what a look at
// them leads to.
#include <algorithm>

#include "controls/rect_conversion.h"
#include "database/project_general.h"
#include "document/drawing_queries.h"
#include "drawing_manager/drawing_manager_dlg.h"
#include "drawing_manager/drawing_names.h"
#include "drawing_manager/lock_files.h"
#include "drawing_manager/manager_registry.h"
#include "platform/letter_case.h"
#include "platform/platform.h"
#include "resources/resource.h"
#include "storage/registry_settings.h"

namespace {

constexpr std::uint32_t kBackupsShown = MF_CHECKED;
constexpr int kDrawingsPopup = 1;
constexpr int kNoteInset = 20;  // of a balloon within the list, on both sides
constexpr int kReadOnlyNoteWidth = 250;

}  // namespace

DrawingState CDrawingManagerDlg::GetDrawingState(const std::wstring& strName,
                                                 const std::wstring& strExtension) const {
    if (platform::ToLower(strExtension) == kBackupExtension) return kDrawingBackup;
    const std::wstring strPath = m_strFolder + strName + strExtension;
    std::wstring strUser, strMachine, strTime;
    const bool bLocked = ReadDwgLockFile(strPath, strUser, strMachine, strTime);
    return GetStateOfDrawing(bLocked, platform::GetFiles().GetAttributes(strPath));
}

void CDrawingManagerDlg::AppendRows(std::vector<CDrawingRow>& aRows, bool bBackups,
                                    std::vector<std::wstring>& astrNames) const {
    const std::wstring strExtension = bBackups ? kBackupExtension : kDrawingExtension;
    std::vector<std::wstring> astrSizes, astrDates;
    ListDrawings(m_strFolder, astrNames, astrSizes, astrDates, bBackups);
    // To look for each drawing's lock file by itself costs a large folder on a slow share a second listing
    // for every drawing. Only those that are there are read.
    const CLockFiles locks(m_strFolder);
    for (size_t i = 0; i < astrNames.size(); ++i) {
        const std::wstring strText = bBackups ? astrNames[i] + strExtension : astrNames[i];
        const std::wstring strPath = m_strFolder + astrNames[i] + strExtension;
        const DrawingState state =
            bBackups || locks.Has(astrNames[i])
                ? GetDrawingState(astrNames[i], strExtension)
                : GetStateOfDrawing(false, platform::GetFiles().GetAttributes(strPath));
        aRows.push_back({strText, state, astrSizes[i], astrDates[i]});
    }
}

int CDrawingManagerDlg::InsertRow(const CDrawingRow& row, int nIndex) {
    LVITEM item{};
    item.mask = LVIF_TEXT | LVIF_IMAGE | LVIF_PARAM;
    item.iItem = nIndex;
    item.pszText = const_cast<LPWSTR>(row.strText.c_str());
    item.iImage = row.state;
    item.lParam = row.state;
    const int nItem = m_listDrawings.InsertItem(&item);
    m_listDrawings.SetItemText(nItem, 1, row.strSize.c_str());
    m_listDrawings.SetItemText(nItem, 2, row.strDate.c_str());
    return nItem;
}

void CDrawingManagerDlg::ShowRows(std::vector<CDrawingRow>& aRows) {
    // The control looks for the place of each new row from the top. It gets the rows in its own order
    // instead, with its sorting switched off for the time, so that a large folder does not take forever.
    std::sort(aRows.begin(), aRows.end(), [](const CDrawingRow& a, const CDrawingRow& b) {
        return ::lstrcmp(a.strText.c_str(), b.strText.c_str()) < 0;
    });
    m_listDrawings.SetRedraw(FALSE);
    m_listDrawings.ModifyStyle(LVS_SORTASCENDING, 0);
    int nIndex = 0;
    for (const CDrawingRow& row : aRows)
        InsertRow(row, nIndex++);
    m_listDrawings.ModifyStyle(0, LVS_SORTASCENDING);
    m_listDrawings.SetRedraw(TRUE);
    m_listDrawings.Invalidate();
}

void CDrawingManagerDlg::FillDrawingList() {
    m_listDrawings.DeleteAllItems();
    UpdateButtons();
    const bool bVisible = m_listDrawings.IsWindowVisible() != FALSE;
    if (m_strFolder.empty()) {
        if (!bVisible) return;
        CRect rect;
        m_editLocation.GetWindowRect(rect);
        rect = CRect(rect.TopLeft(), CSize(380, 20));
        ShowBalloon(MakeInvalidLocationNote(), rect, rect.CenterPoint());
        return;
    }
    std::vector<CDrawingRow> aRows;
    std::vector<std::wstring> astrNames;
    AppendRows(aRows, false, astrNames);
    // With backups on, theirs is the listing that counts for the note below.
    if (m_uBackupState == kBackupsShown) AppendRows(aRows, true, astrNames);
    ShowRows(aRows);
    UpdateButtons();
    HideBalloon();
    if (IsOnlyDefaultDrawing(astrNames) && bVisible) {
        const CRect rect = GetListNoteRect();
        ShowBalloon(MakeDefaultDrawingNote(), rect, rect.CenterPoint());
    }
}

void CDrawingManagerDlg::RefreshDrawings() {
    HideBalloon();
    m_listDrawings.DeleteAllItems();
    if (m_nProjectId < 1) {
        UpdateButtons();
        return;
    }
    FillDrawingList();
    const std::wstring strSelected = ReadDisciplineString(m_eApp, kManagerSubkey, kSelectedDrawingValue);
    LVFINDINFO find{};
    find.flags = LVFI_STRING;
    find.psz = strSelected.c_str();
    const int nItem = m_listDrawings.FindItem(&find);
    if (nItem >= 0) {
        m_listDrawings.SetItemState(nItem, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
        m_listDrawings.EnsureVisible(nItem, FALSE);
    }
    UpdateThumbnail();
}

void CDrawingManagerDlg::OnShowBackups() {
    HideBalloon();
    m_uBackupState = m_uBackupState != 0 ? 0 : kBackupsShown;
    FillDrawingList();
}

std::wstring CDrawingManagerDlg::GetRowText(int nItem) const {
    return m_listDrawings.GetItemText(nItem, 0).ToStdString();
}

// The file that a row stands for.
std::wstring CDrawingManagerDlg::GetRowPath(int nItem) const {
    std::wstring strPath = m_strFolder + GetRowText(nItem);
    NormalizeDrawingName(strPath);
    return strPath;
}

void CDrawingManagerDlg::GetSelectedItems(std::vector<int>& anItems) const {
    anItems.clear();
    anItems.reserve(m_listDrawings.GetSelectedCount());
    for (int nItem = m_listDrawings.GetNextItem(-1, LVNI_SELECTED); nItem >= 0;
         nItem = m_listDrawings.GetNextItem(nItem, LVNI_SELECTED)) {
        anItems.push_back(nItem);
    }
}

RowSelection CDrawingManagerDlg::GetRowSelection() const {
    RowSelection selection = RowSelection::kNone;
    for (int nItem = m_listDrawings.GetNextItem(-1, LVNI_SELECTED); nItem >= 0;
         nItem = m_listDrawings.GetNextItem(nItem, LVNI_SELECTED)) {
        if (!IsBackupName(GetRowText(nItem))) return RowSelection::kSomeDrawing;
        selection = RowSelection::kOnlyBackups;
    }
    return selection;
}

void CDrawingManagerDlg::OnLvnItemchangedList(NMHDR* pNMHDR, LRESULT* pResult) {
    *pResult = 0;
    const auto* pChange = reinterpret_cast<NMLISTVIEW*>(pNMHDR);
    if (pChange->uChanged == LVIF_STATE && (pChange->uNewState & LVIS_SELECTED) != 0) {
        WriteDisciplineString(m_eApp, kManagerSubkey, kSelectedDrawingValue, GetRowText(pChange->iItem));
        UpdateThumbnail();
    }
    UpdateButtons();
}

void CDrawingManagerDlg::OnHdnItemclickList(NMHDR*, LRESULT* pResult) {
    *pResult = 0;
}

void CDrawingManagerDlg::OnNMClickList(NMHDR*, LRESULT* pResult) {
    *pResult = 0;
    UpdateThumbnail();
    HideBalloon();
    std::vector<int> anItems;
    GetSelectedItems(anItems);
    if (anItems.size() != 1) return;
    if (HasStateNote(static_cast<int>(m_listDrawings.GetItemData(anItems[0])))) ShowStateNote(anItems[0]);
}

// The list's rectangle on the screen, within which balloons about rows stand.
CRect CDrawingManagerDlg::GetListNoteRect() const {
    CRect rect;
    m_listDrawings.GetWindowRect(rect);
    rect.DeflateRect(kNoteInset, 0);
    return rect;
}

void CDrawingManagerDlg::ShowStateNote(int nItem) {
    CPoint ptAnchor;
    ::GetCursorPos(&ptAnchor);
    CRect rcLabel;
    if (m_listDrawings.GetItemRect(nItem, rcLabel, LVIR_LABEL)) {
        CRect rcList;
        m_listDrawings.GetWindowRect(rcList);
        ptAnchor = rcLabel.BottomRight() + rcList.TopLeft();
    }
    CRect rect = GetListNoteRect();
    if (m_listDrawings.GetItemData(nItem) == kDrawingReadOnly) {
        rect.right = rect.left + kReadOnlyNoteWidth;
        ShowBalloon(MakeReadOnlyNote(), rect, ptAnchor);
        return;
    }
    std::wstring strUser, strMachine, strTime;
    ReadDwgLockFile(m_strFolder + GetRowText(nItem) + kDrawingExtension, strUser, strMachine, strTime);
    ShowBalloon(MakeLockedNote(strUser, strMachine, strTime), rect, ptAnchor);
}

void CDrawingManagerDlg::OnNMRClickList(NMHDR*, LRESULT* pResult) {
    *pResult = 0;
    HideBalloon();
    CPoint ptCursor;
    ::GetCursorPos(&ptCursor);
    TrackMenu(kDrawingsPopup,
              GetGreyedDrawingCommands(static_cast<int>(m_listDrawings.GetSelectedCount()), m_nProjectId,
                                       !m_strFolder.empty()),
              true, ptCursor);
}
