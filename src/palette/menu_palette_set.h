// The one dockable window of the module.
#pragma once

#include <afxwin.h>

#include "adui.h"

class CMenuPalette;

// Whether the set shows: 0 or 1, below the discipline's key.
inline constexpr wchar_t kToolboxSubkey[] = L"ToolboxMenu";
inline constexpr wchar_t kShowMenuValue[] = L"Show Menu";

class CMenuPaletteSet : public CAdUiPaletteSet {
  public:
    // The set of the process. If there is none, `nApp` makes it for that discipline; from then on every
    // number gives the same set. 0 never makes one, so the result may be null.
    static CMenuPaletteSet* GetInstance(int nApp);

    // Deletes the set, if there is one.
    static void Destroy();

    ~CMenuPaletteSet() override;

    // The host's limits stand.
    void GetMinimumSize(CSize& size) override;
    void GetMaximumSize(CSize& size) override;

    CMenuPalette* m_pPalette = nullptr;  // owned

  protected:
    afx_msg void OnWindowPosChanged(WINDOWPOS* pPosition);
    DECLARE_MESSAGE_MAP()

  private:
    CMenuPaletteSet();
    void Build(int nApp);
};

// Shows or hides the set through the host's frame; the frame takes a null set.
void ShowMenuPaletteSet(bool bShow);
