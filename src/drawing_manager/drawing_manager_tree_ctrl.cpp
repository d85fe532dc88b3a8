#include "drawing_manager/drawing_manager_tree_ctrl.h"

#include "drawing_manager/drawing_manager_dlg.h"

BEGIN_MESSAGE_MAP(CDrawingManagerTreeCtrl, CKV2D_ClientProjTreeCtrl)
ON_NOTIFY_REFLECT(TVN_BEGINLABELEDIT, &CDrawingManagerTreeCtrl::OnTvnBeginlabeledit)
ON_NOTIFY_REFLECT(TVN_ENDLABELEDIT, &CDrawingManagerTreeCtrl::OnTvnEndlabeledit)
END_MESSAGE_MAP()

void CDrawingManagerTreeCtrl::OnTvnEndlabeledit(NMHDR* pNMHDR, LRESULT* pResult) {
    *pResult = 0;
    const CEdit* pEdit = GetEditControl();
    if (!pEdit || !m_pDlg) return;
    const HTREEITEM hItem = reinterpret_cast<NMTVDISPINFO*>(pNMHDR)->item.hItem;
    CString strText;
    pEdit->GetWindowText(strText);
    if (strText == m_strOldLabel || !m_pDlg->RenameCurrentFolder(strText.ToStdString())) return;
    *pResult = 1;
    SetItemText(hItem, strText);
    SortBranch(TVI_ROOT, true);
}
