// The cached line document. Only for the line functions of line_list.h.
#pragma once

#include <string>

#include "storage/ini_file.h"

// Both modes share one document, and only the project's id tells whose it is.
struct CLineCache {
    CKV2D_IniFile ini;
    int nProjectId = 0;
};

CLineCache& GetLineCache();

// Fills the document from the cache, or else from the file whose path `getPath` gives, which then is the
// cached one if the cache is to be used. True if the document is ready.
template <typename GetPath>
bool OpenThroughCache(CKV2D_IniFile& ini, int nProjectId, bool bUseCache, GetPath getPath) {
    if (!bUseCache) return ini.Open(getPath()) == kIniDone;
    CLineCache& cache = GetLineCache();
    if (nProjectId == cache.nProjectId) {
        ini = cache.ini;
        return true;
    }
    if (ini.Open(getPath()) != kIniDone) return false;
    cache.nProjectId = nProjectId;
    cache.ini = ini;
    return true;
}
