#include <aduiDock.h>

#include "frame/dock_manager.h"
#include "frame/dock_state.h"

namespace {

constexpr SIZE kSmallestBar{60, 80};

}  // namespace

IMPLEMENT_DYNAMIC(CAdUiDockControlBar, CControlBar)

BEGIN_MESSAGE_MAP(CAdUiDockControlBar, CControlBar)
END_MESSAGE_MAP()

CAdUiDockControlBar::CAdUiDockControlBar() : m_pDock(new CDockState) {}

CAdUiDockControlBar::~CAdUiDockControlBar() {
    delete m_pDock;
}

void CAdUiDockControlBar::EnableDocking(DWORD dwDockStyle) {
    m_pDock->allowedSides = dwDockStyle & CBRS_ALIGN_ANY;
}

void CAdUiDockControlBar::SetToolID(void* pToolID) {
    m_pDock->toolId.reset();
    if (pToolID != nullptr) m_pDock->toolId = *static_cast<const GUID*>(pToolID);
}

void* CAdUiDockControlBar::GetToolID() {
    return m_pDock->toolId ? &*m_pDock->toolId : nullptr;
}

void CAdUiDockControlBar::InitFloatingPosition(CRect* pRect) {
    if (pRect == nullptr) return;
    m_pDock->floatingRect = {pRect->left, pRect->top, pRect->right, pRect->bottom};
}

void CAdUiDockControlBar::RestoreControlBar(UINT nPrefDockBarID, CRect* pRect) {
    if (m_pDock->manager == nullptr) return;
    if (pRect == nullptr) {
        m_pDock->manager->Restore(*this, nPrefDockBarID, nullptr);
        return;
    }
    const frame::LayoutRect rect{pRect->left, pRect->top, pRect->right, pRect->bottom};
    m_pDock->manager->Restore(*this, nPrefDockBarID, &rect);
}

BOOL CAdUiDockControlBar::IsFloating() const {
    return m_pDock->side == frame::DockSide::kFloating;
}

BOOL CAdUiDockControlBar::IsDocked() const {
    return !IsFloating();
}

void CAdUiDockControlBar::GetMinimumSize(CSize& size) {
    size = kSmallestBar;
}

void CAdUiDockControlBar::GetMaximumSize(CSize& size) {
    size = CSize(GetSystemMetrics(SM_CXVIRTUALSCREEN), GetSystemMetrics(SM_CYVIRTUALSCREEN));
}

bool CAdUiDockControlBar::OnClosing() {
    return true;
}
