// CDrawingManagerTreeCtrl: the tree as the Drawing Manager has it, with folders that can be renamed.
#pragma once

#include "drawing_manager/client_proj_tree_ctrl.h"

class CDrawingManagerDlg;

class CDrawingManagerTreeCtrl : public CKV2D_ClientProjTreeCtrl {
  public:
    CDrawingManagerDlg* m_pDlg = nullptr;  // the dialog that holds this tree; not owned

  protected:
    // A changed label renames the current folder on disk, whichever key ended the edit. If that fails, the
    // old label comes back without a message.
    afx_msg void OnTvnEndlabeledit(NMHDR* pNMHDR, LRESULT* pResult);

    DECLARE_MESSAGE_MAP()
};
