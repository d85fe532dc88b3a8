// CKV2D_ClientProjTreeCtrl: the tree of clients, standards and folders. It knows the kinds of its items,
// which of them may be renamed, and their order; what is in it comes from its owner.
#pragma once

#include <afxcmn.h>

#include <array>
#include <cstdint>
#include <string>
#include <unordered_map>

#include "drawing_manager/tree_rules.h"

class CKV2D_ClientProjTreeCtrl : public CTreeCtrl {
  public:
    // Stores which kinds may be edited (bits kEdit...) and gives the tree its images, by icon resource of
    // `hModule`; null looks in the current resource module and in the extension modules.
    void Init(std::uint32_t uEditableKinds, const std::array<UINT, kItemKindCount>& auIconIds,
              HINSTANCE hModule);

    // kItemNone for null and the root. With `bFoldKind2` items of the locked kind count as standards.
    unsigned GetItemKind(HTREEITEM hItem, bool bFoldKind2) const;

    // The first item whose data equals `uData`, among `hStart` and the siblings behind it; with `bRecurse`
    // their subtrees too, each ahead of the next sibling. TVI_ROOT starts at the first root item.
    HTREEITEM FindItemByData(HTREEITEM hStart, std::uint32_t uData, bool bRecurse) const;

    // Sorts the children of the item and of all siblings behind it, down to the leaves; for TVI_ROOT the
    // whole tree. While it runs, the data of all items is kept aside: `bSaveData` is false only in the
    // recursion.
    void SortBranch(HTREEITEM hItem, bool bSaveData);

    BOOL PreTranslateMessage(MSG* pMsg) override;

  protected:
    afx_msg void OnTvnBeginlabeledit(NMHDR* pNMHDR, LRESULT* pResult);

    DECLARE_MESSAGE_MAP()

    CString m_strOldLabel;  // the label when an edit began

  private:
    static int CALLBACK CompareItems(LPARAM lParamA, LPARAM lParamB, LPARAM lParamTree);
    void SaveItemData(HTREEITEM hItem);
    void RestoreItemData(HTREEITEM hItem);
    void SortChildrenOf(HTREEITEM hItem);
    HTREEITEM GetFirstOf(HTREEITEM hItem) const;

    std::uint32_t m_uEditableKinds = 0;
    std::unordered_map<HTREEITEM, std::uint32_t> m_mapItemData;  // during a sort
    CImageList m_imageList;
};
