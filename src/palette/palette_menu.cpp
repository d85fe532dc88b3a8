// The tabbed menu: loading it, what a pick does, and what the LISP programs do to it.
#include "document/doc_xdata.h"
#include "palette/menu_palette_child_dlg.h"
#include "palette/menu_text.h"
#include "platform/letter_case.h"
#include "storage/applications.h"
#include "storage/install_paths.h"

namespace {

constexpr int kModeLayout = 0;
constexpr int kModeSchematic = 1;

}  // namespace

bool CMenuPaletteChildDlg::LoadMenuFile(const std::wstring& strPath) {
    m_bMenuLoaded = m_TabbedMenu.LoadMenu(strPath);
    if (!m_bMenuLoaded)
        MessageBox((L"Error opening menu:\n" + strPath).c_str(), L"TESSARC + Tabbed Menu Toolbox",
                   MB_ICONERROR);
    return m_bMenuLoaded;
}

void CMenuPaletteChildDlg::OnMenuItemSelected(short nItemId, LPCTSTR szText) {
    const short nKind = m_TabbedMenu.GetItemKind(nItemId);
    // Each pick takes a changed setting over.
    m_TabbedMenu.SetIconSize(static_cast<short>(GetMenuIconSize() * 2));
    const std::wstring strText = szText ? szText : L"";
    if (nKind != kMenuItemToggle) {
        if (m_pfnOnCommand) m_pfnOnCommand(m_nApplicationId, GetMenuCommandText(strText));
        return;
    }
    const bool bState = m_TabbedMenu.GetToggleState(strText);
    if (m_pfnOnToggle) m_pfnOnToggle(m_nApplicationId, strText, bState);
}

void CMenuPaletteChildDlg::SelectMenuMode(int nMode) {
    if (nMode != kModeLayout && nMode != kModeSchematic) return;
    m_strMenuCurrent = nMode == kModeLayout ? m_strMenuLayout : m_strMenuSchematic;
    LoadMenuFile(m_strMenuCurrent);
}

void CMenuPaletteChildDlg::SetMenuByCommand(const std::wstring& strName) {
    if (m_eApp != kAppElectric) return;
    const bool bSchematic = platform::ToUpper(strName) == L"SCHEMATIC";
    const int nMode = bSchematic ? kModeSchematic : kModeLayout;
    SelectComboByText(0, bSchematic ? L"Schematic" : L"Layout");
    SelectMenuMode(nMode);
    CKV2D_DocXData data(kDocXDataAppName);
    if (data.m_electricMode != nMode) {
        data.m_electricMode = nMode;
        data.m_dirty = true;
    }
}

void CMenuPaletteChildDlg::SetToggle(const std::wstring& strName, int nState) {
    m_TabbedMenu.SetToggleState(strName, (nState & 0xFF) != 0);
}
