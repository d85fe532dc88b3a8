#include "drawing_manager/icon_loading.h"

void AddIconToList(CImageList& imageList, UINT uIconId, int nSize, HINSTANCE hModule) {
    const LPCTSTR pszName = MAKEINTRESOURCE(uIconId);
    if (!hModule) hModule = AfxFindResourceHandle(pszName, RT_GROUP_ICON);
    const auto hIcon = static_cast<HICON>(::LoadImage(hModule, pszName, IMAGE_ICON, nSize, nSize, 0));
    if (!hIcon) {
        ::ImageList_SetImageCount(imageList, static_cast<UINT>(imageList.GetImageCount()) + 1);
        return;
    }
    imageList.Add(hIcon);
    ::DestroyIcon(hIcon);
}

HICON LoadSharedIcon(UINT uIconId) {
    const LPCTSTR pszName = MAKEINTRESOURCE(uIconId);
    return static_cast<HICON>(::LoadImage(AfxFindResourceHandle(pszName, RT_GROUP_ICON), pszName, IMAGE_ICON,
                                          0, 0, LR_SHARED | LR_DEFAULTSIZE));
}
