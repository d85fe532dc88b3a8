// Fills image lists from icon resources.
#pragma once

#include <afxcmn.h>

// Adds the icon at `nSize` by `nSize` pixels. A null module means the one that has the resource, which for an
// extension module is not the program. An icon that is missing adds an empty image, so that the indices of
// the others stay right.
void AddIconToList(CImageList& imageList, UINT uIconId, int nSize, HINSTANCE hModule = nullptr);

// The icon at the system's size; null if there is none. It is shared: nobody destroys it.
HICON LoadSharedIcon(UINT uIconId);
