#include "palette/tabbed_menu.h"

#include <afxdisp.h>

namespace {

constexpr CLSID kTabbedMenuClass = {
    0xBC137D8F, 0x1378, 0x43CE, {0x98, 0xAF, 0xE2, 0x63, 0x57, 0x33, 0xFE, 0xC7}};

constexpr DISPID kIconSizeId = 1;
constexpr DISPID kLoadMenuId = 4;
constexpr DISPID kItemKindId = 10;
constexpr DISPID kToggleStateId = 11;

}  // namespace

bool CTabbedMenu1::CreateOver(CWnd* pParent, UINT nId) {
    CRect rect(0, 0, 0, 0);
    if (CWnd* pPlaceholder = pParent->GetDlgItem(nId)) {
        pPlaceholder->GetWindowRect(&rect);
        pParent->ScreenToClient(&rect);
    }
    return CreateControl(kTabbedMenuClass, L"", WS_CHILD | WS_TABSTOP, rect, pParent, nId) != FALSE;
}

bool CTabbedMenu1::LoadMenu(const std::wstring& strPath) {
    static const BYTE aParameters[] = VTS_BSTR;
    BOOL bLoaded = FALSE;
    InvokeHelper(kLoadMenuId, DISPATCH_METHOD, VT_BOOL, &bLoaded, aParameters, strPath.c_str());
    return bLoaded != FALSE;
}

short CTabbedMenu1::GetItemKind(short nItemId) {
    static const BYTE aParameters[] = VTS_I2;
    short nKind = 0;
    InvokeHelper(kItemKindId, DISPATCH_PROPERTYGET, VT_I2, &nKind, aParameters, nItemId);
    return nKind;
}

bool CTabbedMenu1::GetToggleState(const std::wstring& strItem) {
    static const BYTE aParameters[] = VTS_BSTR;
    BOOL bState = FALSE;
    InvokeHelper(kToggleStateId, DISPATCH_PROPERTYGET, VT_BOOL, &bState, aParameters, strItem.c_str());
    return bState != FALSE;
}

void CTabbedMenu1::SetToggleState(const std::wstring& strItem, bool bState) {
    static const BYTE aParameters[] = VTS_BSTR VTS_BOOL;
    InvokeHelper(kToggleStateId, DISPATCH_PROPERTYPUT, VT_EMPTY, nullptr, aParameters, strItem.c_str(),
                 static_cast<BOOL>(bState));
}

void CTabbedMenu1::SetIconSize(short nSize) {
    SetProperty(kIconSizeId, VT_I2, nSize);
}

void CTabbedMenu1::SetEnabled(bool bEnabled) {
    SetProperty(DISPID_ENABLED, VT_BOOL, static_cast<BOOL>(bEnabled));
}
