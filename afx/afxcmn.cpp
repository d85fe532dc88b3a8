// Image lists, tool tips and headers.
#include "afxcmn.h"

#include "afxtempmap.h"
#include "afxwndimpl.h"

IMPLEMENT_DYNAMIC(CImageList, CObject)
IMPLEMENT_DYNAMIC(CToolTipCtrl, CWnd)
IMPLEMENT_DYNAMIC(CHeaderCtrl, CWnd)

namespace {

AfxTempMap<CImageList, HIMAGELIST, &CImageList::m_hImageList>& TempImageLists() {
    static auto& map = *new AfxTempMap<CImageList, HIMAGELIST, &CImageList::m_hImageList>;
    return map;
}

}  // namespace

void AfxClearTempImageLists() {
    TempImageLists().Clear();
}

CImageList::~CImageList() {
    DeleteImageList();
}

BOOL CImageList::Attach(HIMAGELIST hImageList) {
    if (!hImageList) return FALSE;
    DeleteImageList();
    m_hImageList = hImageList;
    return TRUE;
}

HIMAGELIST CImageList::Detach() {
    return std::exchange(m_hImageList, nullptr);
}

CImageList* CImageList::FromHandle(HIMAGELIST hImageList) {
    return TempImageLists().Find(hImageList);
}

BOOL CImageList::Create(int cx, int cy, UINT nFlags, int nInitial, int nGrow) {
    return Attach(::ImageList_Create(cx, cy, nFlags, nInitial, nGrow));
}

BOOL CImageList::DeleteImageList() {
    return m_hImageList && ::ImageList_Destroy(Detach());
}

int CImageList::GetImageCount() const {
    return ::ImageList_GetImageCount(m_hImageList);
}

int CImageList::Add(HICON hIcon) {
    return ::ImageList_ReplaceIcon(m_hImageList, -1, hIcon);
}

int CImageList::Add(CBitmap* pbmImage, COLORREF crMask) {
    return ::ImageList_AddMasked(m_hImageList, *pbmImage, crMask);
}

COLORREF CImageList::SetBkColor(COLORREF cr) {
    return ::ImageList_SetBkColor(m_hImageList, cr);
}

BOOL CImageList::GetImageInfo(int nImage, IMAGEINFO* pImageInfo) const {
    return ::ImageList_GetImageInfo(m_hImageList, nImage, pImageInfo);
}

BOOL CImageList::Draw(CDC* pDC, int nImage, POINT pt, UINT nStyle) {
    return ::ImageList_Draw(m_hImageList, nImage, pDC->m_hDC, pt.x, pt.y, nStyle);
}

int CHeaderCtrl::GetItemCount() const {
    return Header_GetItemCount(m_hWnd);
}

BOOL CHeaderCtrl::GetItem(int nPos, HDITEM* pHeaderItem) const {
    return Header_GetItem(m_hWnd, nPos, pHeaderItem);
}

BOOL CHeaderCtrl::SetItem(int nPos, HDITEM* pHeaderItem) {
    return Header_SetItem(m_hWnd, nPos, pHeaderItem);
}

namespace {

// How a tip control names a tool: the whole of a window by the window's handle, a rectangle in it by an id.
TOOLINFO ToolOf(CWnd* pWnd, UINT_PTR nIDTool) {
    TOOLINFO info{};
    info.cbSize = AFX_TOOLINFO_SIZE;
    info.hwnd = pWnd->m_hWnd;
    info.uId = nIDTool;
    if (nIDTool == 0) {
        const HWND hWndParent = ::GetParent(pWnd->m_hWnd);
        info.hwnd = hWndParent ? hWndParent : pWnd->m_hWnd;
        info.uId = reinterpret_cast<UINT_PTR>(pWnd->m_hWnd);
        info.uFlags = TTF_IDISHWND;
    }
    return info;
}

LRESULT SendTool(HWND hWnd, UINT nMsg, const TOOLINFO& info) {
    return ::SendMessageW(hWnd, nMsg, 0, reinterpret_cast<LPARAM>(&info));
}

}  // namespace

BOOL CToolTipCtrl::Create(CWnd* pParentWnd, DWORD dwStyle) {
    constexpr int kDefault = CW_USEDEFAULT;
    return CreateEx(WS_EX_TOPMOST, TOOLTIPS_CLASS, nullptr, WS_POPUP | TTS_NOPREFIX | dwStyle, kDefault,
                    kDefault, kDefault, kDefault, pParentWnd ? pParentWnd->m_hWnd : nullptr, nullptr);
}

BOOL CToolTipCtrl::AddTool(CWnd* pWnd, LPCTSTR lpszText, LPCRECT lpRectTool, UINT_PTR nIDTool) {
    TOOLINFO info = ToolOf(pWnd, nIDTool);
    info.lpszText = const_cast<LPTSTR>(lpszText);
    if (lpRectTool) info.rect = *lpRectTool;
    return SendTool(m_hWnd, TTM_ADDTOOL, info) != 0;
}

void CToolTipCtrl::DelTool(CWnd* pWnd, UINT_PTR nIDTool) {
    SendTool(m_hWnd, TTM_DELTOOL, ToolOf(pWnd, nIDTool));
}

void CToolTipCtrl::UpdateTipText(LPCTSTR lpszText, CWnd* pWnd, UINT_PTR nIDTool) {
    TOOLINFO info = ToolOf(pWnd, nIDTool);
    info.lpszText = const_cast<LPTSTR>(lpszText);
    SendTool(m_hWnd, TTM_UPDATETIPTEXT, info);
}

void CToolTipCtrl::GetText(CString& str, CWnd* pWnd, UINT_PTR nIDTool) const {
    TOOLINFO info = ToolOf(pWnd, nIDTool);
    wchar_t szText[1024] = L"";
    info.lpszText = szText;
    // The count of characters goes with the message, where the others have 0.
    ::SendMessageW(m_hWnd, TTM_GETTEXT, std::size(szText), reinterpret_cast<LPARAM>(&info));
    str = szText;
}

int CToolTipCtrl::GetToolCount() const {
    return static_cast<int>(SendMessage(TTM_GETTOOLCOUNT));
}

void CToolTipCtrl::Activate(BOOL bActivate) {
    SendMessage(TTM_ACTIVATE, static_cast<WPARAM>(bActivate));
}

int CToolTipCtrl::SetMaxTipWidth(int iWidth) {
    return static_cast<int>(SendMessage(TTM_SETMAXTIPWIDTH, 0, iWidth));
}

int CToolTipCtrl::GetMaxTipWidth() const {
    return static_cast<int>(SendMessage(TTM_GETMAXTIPWIDTH));
}

void CToolTipCtrl::RelayEvent(LPMSG lpMsg) {
    SendMessage(TTM_RELAYEVENT, 0, reinterpret_cast<LPARAM>(lpMsg));
}
