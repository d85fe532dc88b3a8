#include "database/line_cache.h"

#include "database/line_list.h"

CLineCache& GetLineCache() {
    static CLineCache cache;
    return cache;
}

bool OpenProjectLineIni(CKV2D_IniFile& ini, int nProjectId, bool bUseCache) {
    return OpenThroughCache(ini, nProjectId, bUseCache, [&] { return GetLinesIniPath(nProjectId); });
}

bool OpenLocalLineIni(CKV2D_IniFile& ini, const std::wstring& strApplication, const std::wstring& strDrawing,
                      int nProjectId, bool bUseCache) {
    return OpenThroughCache(ini, nProjectId, bUseCache,
                            [&] { return GetLocalLineIniPath(strDrawing, strApplication, nProjectId); });
}

bool ReloadProjectLineCache() {
    CLineCache& cache = GetLineCache();
    return OpenProjectLineIni(cache.ini, cache.nProjectId, false);
}

bool ReloadLocalLineCache(const std::wstring& strApplication, const std::wstring& strDrawing) {
    CLineCache& cache = GetLineCache();
    return OpenLocalLineIni(cache.ini, strApplication, strDrawing, cache.nProjectId, false);
}

void DropLineCache() {
    GetLineCache() = CLineCache();
}
