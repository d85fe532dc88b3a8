#include "drawing_manager/dwg_thumbnail_ctrl.h"

#include <afxdisp.h>

namespace {

constexpr CLSID kThumbnailClass = {
    0xB4FD4FC6, 0x4EBA, 0x4D06, {0x82, 0x44, 0xBB, 0x09, 0xA9, 0x40, 0xC6, 0x0A}};
constexpr DISPID kFileProperty = 0;
constexpr DISPID kSecondProperty = 1;  // the control wants it set to 0 with every drawing
constexpr DWORD kBackground = 0xC0C0C0;

}  // namespace

BOOL CDwgthumbnailctrl::Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID) {
    return CreateControl(kThumbnailClass, L"", dwStyle, rect, pParentWnd, nID);
}

void CDwgthumbnailctrl::ShowDrawing(LPCTSTR lpszPath) {
    SetProperty(kFileProperty, VT_BSTR, lpszPath);
    if (*lpszPath == L'\0') return;
    SetProperty(DISPID_BACKCOLOR, VT_UI4, kBackground);
    SetProperty(kSecondProperty, VT_UI4, 0u);
}
